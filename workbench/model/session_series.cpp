#include "workbench/model/host_words.h"
#include "workbench/model/session.h"

#include <algorithm>
#include <new>
#include <QDir>
#include <QFileInfo>
#include <stdexcept>

// The series that are open: opening, showing and closing them.

namespace workbench {

namespace {

QStringList filesOf(const document::Volume& volume)
{
    QStringList files;
    for (const auto& file : volume.files)
        files << QString::fromStdString(file);
    return files;
}

/// One name for each file, also for one that is gone.
QString identityOf(const std::string& file)
{
    const QFileInfo info(QString::fromStdString(file));
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.absoluteFilePath() : canonical;
}

}

// ---------------------------------------------------------------------------------------------------------- opening

document::Result<Session::Series> Session::made(document::Opened opened)
{
    auto labels = document::LabelMap::create(opened.volume.geometry);
    if (!labels)
        return labels.failure();
    try {
        const auto window = document::suggest_window(opened.volume);
        const Series series(new OpenSeries{std::move(opened.volume), std::move(*labels), window});
        series->revision = series->savedRevision = ++lastRevision_;
        series_.reserve(series_.size() + 1);
        series->object = tree_.add(series->volume);
        series_.push_back(series);
        undo_.addStack(&series->undo);
        return series;
    } catch (const std::bad_alloc&) {
        return document::Failure{"There is not enough memory to show this image. Close other programs and try again."};
    } catch (const std::length_error&) {
        return document::Failure{"There are too many files open for this image. Close other series and try again."};
    }
}

std::optional<document::Failure> Session::adoptImage(document::Opened opened)
{
    std::vector<document::Opened> images;
    images.push_back(std::move(opened));
    const auto failures = adoptImages(std::move(images));
    return failures.empty() ? std::nullopt : std::optional(failures.front());
}

// Panels and views hear of it when everything is in place.
std::vector<document::Failure> Session::adoptImages(std::vector<document::Opened> images)
{
    const hostkit::Panel_Call until_complete;
    std::vector<document::Failure> failures;
    Series largest;
    bool opened = false;
    for (document::Opened& image : images) {
        Series series = openFrom(image.volume.files);
        if (!series) {
            auto result = made(std::move(image));
            if (!result) {
                failures.push_back(result.failure());
                continue;
            }
            series = *result;
            opened = true;
        }
        if (!largest || series->volume.frame_count() > largest->volume.frame_count())
            largest = series;
    }
    if (opened) {
        tellOfSeries();
        emit imageOpened();
    }
    if (largest)
        showSeries(largest);
    return failures;
}

void Session::tellOfSeries()
{
    databaseEdits_.followSeries();
    tree_.tellOfChange();
}

Session::Series Session::openFrom(const std::vector<std::string>& files) const
{
    const auto same = [&](const Series& series) {
        const auto& others = series->volume.files;
        return !files.empty() && std::ranges::equal(files, others, [](const auto& one, const auto& other) {
            return one == other || identityOf(one) == identityOf(other);
        });
    };
    const auto found = std::ranges::find_if(series_, same);
    return found == series_.end() ? nullptr : *found;
}

// ---------------------------------------------------------------------------------------------------------- showing

void Session::showSeries(const Series& series)
{
    const bool isShown = series == image_ && showsFrame();
    if (isShown || std::ranges::find(series_, series) == series_.end())
        return;
    const hostkit::Panel_Call until_complete;
    setPointer({});
    tree_.show(tree_.frame(series->object, series->volume.frame_count() / 2));
    makeCurrent(series);
    selection_.chooseAll();
}

// What is being done with the one before is brought to its end. Markers that were named before anything was open are
// the first one's.
void Session::makeCurrent(const Series& series)
{
    endStroke();
    markers_.endMoving();
    if (image_)
        image_->markers = markers_.sheet();
    else if (series && markers_.isModified())
        series->markers = markers_.sheet();
    image_ = series;
    tree_.setCurrent(series ? series->object : nullptr);
    shownFrame_ = tree_.shown();
    lastFrame_ = shownFrame_.value_or(0);
    undo_.setActiveStack(series ? &series->undo : &tagSteps_);
    markers_.replace(series ? series->markers : MarkerSheet());
    selection_.followTree();
    emit imageChanged();
    emit titleChanged();
}

void Session::closeSeries()
{
    if (!image_)
        return;
    const hostkit::Panel_Call until_complete;
    cancelStroke();
    markers_.cancelMoving();
    const Series closing = image_;
    const auto place = series_.erase(std::ranges::find(series_, closing));
    const Series next = series_.empty() ? nullptr : place == series_.end() ? series_.back() : *place;
    setPointer({});
    if (next)
        showSeries(next);
    else
        makeCurrent(nullptr);
    undo_.removeStack(&closing->undo);
    closing->undo.clear();
    tree_.remove(closing->object);
    tellOfSeries();
}

// ------------------------------------------------------------------------------------------------- names and states

QString Session::nameOf(const OpenSeries* series)
{
    if (!series)
        return {};
    const document::Volume& volume = series->volume;
    const QStringList files = filesOf(volume);
    if (files.size() == 1)
        return QFileInfo(files[0]).fileName();
    if (!volume.series.empty())
        return QString::fromStdString(volume.series);
    return files.isEmpty() ? tr("Image") : QFileInfo(files[0]).dir().dirName();
}

QStringList Session::imageFiles() const
{
    return image_ ? filesOf(image_->volume) : QStringList();
}

bool Session::isModified(const OpenSeries& series) const
{
    const bool markers = &series == image_.get() ? markers_.isModified() : series.markers.table.isModified();
    return markers || series.areLabelsModified();
}

bool Session::isModified() const
{
    const bool loose = !image_ && markers_.isModified();
    return loose || table_.isModified() ||
           std::ranges::any_of(series_, [this](const Series& series) { return isModified(*series); });
}

const OpenSeries* Session::otherWithLabels(const QString& path) const
{
    return otherWith(path, [](const OpenSeries& series) -> const QString& { return series.labelPath; });
}

const OpenSeries* Session::otherWithMarkers(const QString& path) const
{
    return otherWith(path, [](const OpenSeries& series) -> const QString& { return series.markers.path; });
}

const OpenSeries* Session::otherWith(const QString& path, const QString& (*pathOf)(const OpenSeries&)) const
{
    const auto has = [&](const Series& series) {
        return series != image_ && !pathOf(*series).isEmpty() &&
               identityOf(pathOf(*series).toStdString()) == identityOf(path.toStdString());
    };
    const auto found = std::ranges::find_if(series_, has);
    return found == series_.end() ? nullptr : found->get();
}

}
