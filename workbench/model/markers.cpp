#include "workbench/model/markers.h"

#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "workbench/model/host_words.h"
#include "workbench/model/marker_command.h"
#include "workbench/model/session.h"

#include <algorithm>
#include <cmath>
#include <QFileInfo>

namespace workbench {

namespace {

unsigned short& number(const char* name)
{
    return hostkit::Variable<unsigned short>(name);
}

}

Markers::Markers(Session& session) : session_(session)
{
    updates_ = hostkit::On_Update([this](unsigned long long flags) { hostChanged(flags); });
}

void Markers::hostChanged(unsigned long long flags)
{
    if (flags & word::current_tag)
        emit currentChanged(current());
    if (flags & (word::tag_names | word::tag_enables))
        pushHostChanges();
    if (flags & (word::tag_names | word::tag_enables | word::tag_colours))
        emit changed();
}

unsigned Markers::count() const
{
    return number("$MARKER_NB");
}

unsigned Markers::current() const
{
    return number("$MARKER_CUR");
}

void Markers::setCurrent(unsigned marker)
{
    if (marker >= count() || marker == current())
        return;
    number("$MARKER_CUR") = static_cast<unsigned short>(marker);
    word::tell(word::current_tag);
}

QString Markers::name(unsigned marker) const
{
    return QString::fromStdString(at(marker).label);
}

QString Markers::title(unsigned marker) const
{
    return titleOf(marker, at(marker));
}

QColor Markers::colour(unsigned marker) const
{
    const document::Rgb colour = *at(marker).colour;
    return QColor(colour.red, colour.green, colour.blue);
}

// A file may have put it anywhere, further away than frames can be counted.
std::optional<Markers::Place> Markers::placeOf(const document::Marker& entry) const
{
    if (!session_.hasImage() || !entry.position)
        return {};
    const auto index = session_.volume().geometry.index(*entry.position);
    const double frame = std::clamp(std::round(index[2]), -1.0, double(session_.frameCount()));
    return Place{{index[0] + 0.5, index[1] + 0.5}, int(frame)};
}

void Markers::show(unsigned marker)
{
    if (marker >= count())
        return;
    setCurrent(marker);
    if (const auto where = place(marker))
        session_.setFrame(where->frame);
}

bool Markers::showNext(int way)
{
    const int all = static_cast<int>(count());
    for (int steps = 1; steps <= all; ++steps) {
        const auto marker = static_cast<unsigned>((static_cast<int>(current()) + steps * way + all * all) % all);
        if (isSet(marker)) {
            show(marker);
            return true;
        }
    }
    return false;
}

// ------------------------------------------------------------------------------------------------ setting and moving

QString Markers::beginSetting(QPointF pixel)
{
    cancelMoving();
    if (!session_.showsFrame())
        return tr("No slice is shown. Choose one in the database, or turn the wheel.");
    const QRectF frame(0, 0, session_.volume().width(), session_.volume().height());
    if (!frame.contains(pixel))
        return tr("That is beside the image. Click where the marker should be.");
    const auto marker = current() < count() && !isSet(current()) ? current() : unset();
    if (!marker)
        return tr("All %1 markers are set. Delete one, or move it.").arg(hostkit::most_markers);
    const MarkerTable::State before = table_.state();
    put(table_.with(*marker, moved(*marker, pixel, session_.frame())));
    setCurrent(*marker);
    held_ = Held{*marker, before, tr("Set %1").arg(title(*marker))};
    return {};
}

std::optional<unsigned> Markers::unset() const
{
    for (unsigned marker = 0; marker < hostkit::most_markers; ++marker)
        if (!isSet(marker))
            return marker;
    return {};
}

void Markers::beginMoving(unsigned marker)
{
    cancelMoving();
    if (marker >= count() || !isSet(marker) || !session_.hasImage())
        return;
    setCurrent(marker);
    held_ = Held{marker, table_.state(), tr("Move %1").arg(title(marker))};
}

void Markers::moveTo(QPointF pixel)
{
    if (!held_)
        return;
    const auto& volume = session_.volume();
    const QPointF inside(
        std::clamp(pixel.x(), 0.0, double(volume.width())), std::clamp(pixel.y(), 0.0, double(volume.height())));
    table_.show(table_.with(held_->marker, moved(held_->marker, inside, depth(held_->marker))));
    emit changed();
}

void Markers::endMoving()
{
    if (!held_)
        return;
    const MarkerTable::State after = table_.state();
    const Held held = *std::exchange(held_, {});
    table_.show(held.before);
    push(held.text, after);
}

void Markers::cancelMoving()
{
    if (held_)
        put(std::exchange(held_, {})->before);
}

document::Marker Markers::moved(unsigned marker, QPointF pixel, double frame) const
{
    document::Marker entry = at(marker);
    entry.position = session_.volume().geometry.position(pixel.x() - 0.5, pixel.y() - 0.5, frame);
    return entry;
}

// Between two frames it stays between them.
double Markers::depth(unsigned marker) const
{
    return session_.volume().geometry.index(*at(marker).position)[2];
}

// -------------------------------------------------------------------------------------------------------------- steps

void Markers::remove(unsigned marker)
{
    if (marker < count())
        push(tr("Delete %1").arg(title(marker)), table_.with(marker, table_.usual(marker)));
}

void Markers::setName(unsigned marker, const QString& name)
{
    if (marker >= count())
        return;
    document::Marker entry = at(marker);
    entry.label = QString(name).remove(QChar(0)).toStdString();
    push(stepText(marker, at(marker), entry), table_.with(marker, entry));
}

void Markers::setColour(unsigned marker, const QColor& colour)
{
    if (marker >= count())
        return;
    document::Marker entry = at(marker);
    entry.colour = document::Rgb{static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
        static_cast<std::uint8_t>(colour.blue())};
    push(stepText(marker, at(marker), entry), table_.with(marker, entry));
}

void Markers::setShown(unsigned marker, bool shown)
{
    if (marker >= count())
        return;
    document::Marker entry = at(marker);
    entry.enabled = shown;
    push(stepText(marker, at(marker), entry), table_.with(marker, entry));
}

// What is held is let go first: a step begins where the last one ended.
void Markers::pushHostChanges()
{
    const auto changes = table_.changedInHost();
    if (!changes.empty())
        endMoving();
    for (const auto& [marker, entry] : changes)
        push(stepText(marker, at(marker), entry), table_.with(marker, entry));
}

void Markers::push(const QString& text, const State& after)
{
    if (*after != *table_.state())
        session_.undoStack().push(new MarkerCommand(*this, text, table_.state(), after));
}

void Markers::put(const State& state)
{
    tellOf(table_.show(state));
}

// Words are sent when all is in place. Names that did not get into the host are not told of: whoever asks for names
// takes a difference between host and table for a name that was typed.
void Markers::tellOf(const MarkerTable::Changes& changes)
{
    if (changes.outOfMemory)
        emit session_.message(tr("There is not enough memory to rename the marker."));
    else if (changes.names)
        word::tell(word::tag_names);
    if (changes.enables)
        word::tell(word::tag_enables);
    if (changes.colours)
        word::tell(word::tag_colours);
    if (changes.positions || changes.count)
        emit changed();
    emit savedChanged();
}

// What is taken back is seen to be taken back, also when nothing is there any more.
void Markers::goToChange(const State& before, const State& after)
{
    std::optional<unsigned> only;
    for (unsigned marker = 0; marker < hostkit::most_markers; ++marker) {
        if ((*before)[marker] == (*after)[marker])
            continue;
        if (only)
            return;
        only = marker;
    }
    if (!only)
        return;
    for (const State& state : {after, before})
        if (const auto where = placeOf((*state)[*only]))
            return session_.setFrame(where->frame);
}

QString Markers::titleOf(unsigned marker, const document::Marker& entry)
{
    return entry.label.empty() ? tr("Marker %1").arg(marker) : QString::fromStdString(entry.label);
}

QString Markers::stepText(unsigned marker, const document::Marker& before, const document::Marker& after)
{
    const QString was = titleOf(marker, before);
    if (before.label != after.label)
        return after.label.empty() ? tr("Clear the name of %1").arg(was)
                                   : tr("Rename %1 to %2").arg(was, titleOf(marker, after));
    if (before.enabled != after.enabled)
        return after.enabled ? tr("Show %1").arg(was) : tr("Hide %1").arg(was);
    return tr("Set colour of %1").arg(was);
}

// -------------------------------------------------------------------------------------------------------------- files

int Markers::adopt(const document::MarkerList& markers, const QString& path)
{
    endMoving();
    push(tr("Load %1").arg(QFileInfo(path).fileName()), table_.of(markers));
    markSaved(session_.otherWithMarkers(path) ? QString() : path, snapshot()); // two series never write into one file
    const auto& size = session_.volume().geometry.size;
    int beyond = 0;
    for (unsigned marker = 0; marker < hostkit::most_markers; ++marker)
        if (const auto where = place(marker))
            beyond +=
                !QRectF(0, 0, size[0], size[1]).contains(where->pixel) || where->frame < 0 || where->frame >= size[2];
    return beyond;
}

Markers::Snapshot Markers::snapshot() const
{
    return {table_.rows(), table_.state(), session_.currentSeries()};
}

void Markers::markSaved(const QString& path, const Snapshot& saved)
{
    const auto series = saved.series.lock();
    if (!series)
        return;
    if (series == session_.currentSeries()) {
        path_ = path;
        table_.markSaved(saved.state);
    } else {
        series->markers.path = path;
        series->markers.table.saved = saved.state;
    }
    emit savedChanged();
}

void Markers::replace(const MarkerSheet& sheet)
{
    held_.reset();
    path_ = sheet.path;
    tellOf(table_.replace(sheet.table));
    setCurrent(sheet.current);
}

}
