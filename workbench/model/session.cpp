#include "workbench/model/session.h"

#include "workbench/model/host_words.h"

#include <algorithm>
#include <new>
#include <QDir>
#include <QFileInfo>

namespace workbench {

Session::Session(QObject* parent) : QObject(parent)
{
    updates_ = hostkit::On_Update([this](unsigned long long flags) { hostChanged(flags); });
    connect(&markers_, &Markers::savedChanged, this, &Session::titleChanged);
}

Session::~Session()
{
    updates_ = {};
    undo_.disconnect(); // clearing it tells of changes that nobody can look at any more
}

void Session::hostChanged(unsigned long long flags)
{
    if (flags & word::current_frame)
        followFrame();
    if ((flags & word::selection_2D) == word::selection_2D) {
        showSelectedFrame();
        selection_.followTree();
    }
    if (flags & word::current_tag)
        emit currentTagChanged(currentTag());
    if (flags & word::brushes)
        emit brushChanged();
    if (flags & word::tag_names)
        pushRenamings();
    if (flags & (word::tag_colours | word::tag_locks | word::tag_names))
        emit tagsChanged();
}

// ------------------------------------------------------------------------------------------------------ the image

std::optional<document::Failure> Session::adoptImage(document::Opened opened)
{
    auto labels = document::LabelMap::create(opened.volume.geometry);
    if (!labels)
        return labels.failure();
    const hostkit::Panel_Call until_complete; // panels and views hear of it when everything is in place
    try {
        const auto window = document::suggest_window(opened.volume);
        auto image = std::make_shared<Image>(std::move(opened.volume), std::move(*labels));
        tree_.replace(image->volume, image->volume.frame_count() / 2);
        stroke_.reset();
        undo_.clear();
        image_ = std::move(image);
        window_ = window;
    } catch (const std::bad_alloc&) {
        return document::Failure{"There is not enough memory to show this image. Close other programs and try again."};
    }
    shownFrame_ = frame();
    labelPath_.clear();
    firstRevision_ = revision_ = savedRevision_ = ++lastRevision_;
    selection_.reset();
    markers_.reset();
    emit imageChanged();
    emit titleChanged();
    return {};
}

QStringList Session::imageFiles() const
{
    QStringList files;
    if (image_)
        for (const auto& file : image_->volume.files)
            files << QString::fromStdString(file);
    return files;
}

QString Session::imageName() const
{
    if (!image_)
        return {};
    const QStringList files = imageFiles();
    if (files.size() == 1)
        return QFileInfo(files[0]).fileName();
    if (!image_->volume.series.empty())
        return QString::fromStdString(image_->volume.series);
    return files.isEmpty() ? tr("Image") : QFileInfo(files[0]).dir().dirName();
}

// ---------------------------------------------------------------------------------------------------- the frames

int Session::frame() const
{
    return tree_.shown();
}

void Session::setFrame(int z)
{
    z = std::clamp(z, 0, std::max(0, frameCount() - 1));
    if (image_ && z != frame())
        tree_.show(z);
}

void Session::followFrame()
{
    if (!image_ || frame() == shownFrame_)
        return;
    endStroke();
    shownFrame_ = frame();
    selection_.followShown();
    emit frameChanged(shownFrame_);
}

void Session::showSelectedFrame()
{
    if (const auto selected = tree_.selectedInstead())
        setFrame(*selected);
}

void Session::setWindow(document::Window window)
{
    constexpr double least_width = 1e-6;
    window.width = std::max(window.width, least_width);
    if (window == window_)
        return;
    window_ = window;
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
