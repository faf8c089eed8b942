#include "workbench/model/session.h"

#include "workbench/model/host_words.h"

#include <algorithm>

namespace workbench {

Session::Session(QObject* parent) : QObject(parent)
{
    undo_.addStack(&tagSteps_);
    undo_.setActiveStack(&tagSteps_);
    updates_ = hostkit::On_Update([this](unsigned long long flags) { hostChanged(flags); });
    connect(&markers_, &Markers::savedChanged, this, &Session::titleChanged);
    connect(&databaseEdits_, &DatabaseEdits::message, this, &Session::message);
}

Session::~Session()
{
    updates_ = {};
    undo_.disconnect(); // clearing the steps tells of changes that nobody can look at any more
}

void Session::hostChanged(unsigned long long flags)
{
    if (flags & word::current_frame)
        followWindow();
    if (word::says(flags, word::selection_2D)) {
        followWindow();
        showSelectedFrame();
        selection_.followTree();
        tree_.followFrames();
    }
    if (word::says(flags, word::selection_3D))
        tree_.followVolumes();
    if (word::says(flags, word::selection_1D))
        tree_.followSignals();
    if (flags & word::current_tag)
        emit currentTagChanged(currentTag());
    if (flags & word::brushes)
        emit brushChanged();
    if (flags & word::tag_names)
        pushRenamings();
    if (flags & (word::tag_colours | word::tag_locks | word::tag_names))
        emit tagsChanged();
}

// ---------------------------------------------------------------------------------------------------- the frames

int Session::frame() const
{
    return tree_.shown().value_or(lastFrame_);
}

void Session::setFrame(int z)
{
    z = std::clamp(z, 0, std::max(0, frameCount() - 1));
    if (image_ && tree_.shown() != z)
        tree_.show(z);
}

void Session::followWindow()
{
    if (image_ && tree_.showsNoFrame())
        return tree_.show(lastFrame_);
    const auto shows = [&](const Series& series) { return series->object == tree_.shownSeries(); };
    if (const auto shown = std::ranges::find_if(series_, shows); shown != series_.end() && *shown != image_)
        return makeCurrent(*shown);
    if (tree_.shown() == shownFrame_)
        return;
    endStroke();
    shownFrame_ = tree_.shown();
    lastFrame_ = frame();
    selection_.followShown();
    emit frameChanged(lastFrame_);
}

void Session::showSelectedFrame()
{
    if (Strato_2D* const selected = tree_.selectedInstead())
        tree_.show(selected);
}

void Session::setWindow(document::Window window)
{
    constexpr double least_width = 1e-6;
    window.width = std::max(window.width, least_width);
    if (!image_ || window == image_->window)
        return;
    image_->window = window;
    emit windowChanged();
}

void Session::resetWindow()
{
    if (image_)
        setWindow(document::suggest_window(image_->volume));
}

void Session::setOverlayOpacity(double opacity)
{
    opacity = std::clamp(opacity, 0.0, 1.0);
    if (opacity == opacity_)
        return;
    opacity_ = opacity;
    emit opacityChanged(opacity_);
}

void Session::setPointer(std::optional<QPointF> position)
{
    if (image_)
        tree_.setPointer(position);
}

}
