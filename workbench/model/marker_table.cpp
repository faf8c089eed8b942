#include "workbench/model/marker_table.h"

#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"

#include <algorithm>

namespace workbench {

namespace {

using document::Marker;
using document::MarkerList;

static_assert(document::most_markers == hostkit::most_markers);

constexpr unsigned short markers_of_a_row = 4; // of the panel, which shows whole rows only

std::string hostName(unsigned marker)
{
    const char* label = hostkit::Marker_Label(marker);
    return label ? label : "";
}

unsigned short& markerCount()
{
    return hostkit::Variable<unsigned short>("$MARKER_NB");
}

MarkerList hostMarkers()
{
    MarkerList markers;
    for (unsigned marker = 0; marker < hostkit::most_markers; ++marker) {
        const Colors colour = hostkit::Marker_Color(marker);
        markers.push_back({.label = hostName(marker),
            .enabled = hostkit::Marker_Enabled(marker),
            .colour = document::Rgb{colour.red, colour.green, colour.blue}});
    }
    return markers;
}

}

MarkerTable::MarkerTable() : usual_(std::make_shared<MarkerList>(hostMarkers())), state_(usual_), saved_(usual_)
{
    markerCount() = markers_of_a_row;
}

MarkerTable::State MarkerTable::with(unsigned marker, Marker entry) const
{
    auto markers = std::make_shared<MarkerList>(*state_);
    (*markers)[marker] = std::move(entry);
    return markers;
}

MarkerTable::State MarkerTable::of(const MarkerList& file) const
{
    auto markers = std::make_shared<MarkerList>(*usual_);
    for (unsigned marker = 0; marker < std::min(file.size(), markers->size()); ++marker) {
        (*markers)[marker] = file[marker];
        if (!file[marker].colour)
            (*markers)[marker].colour = usual(marker).colour;
    }
    return markers;
}

std::vector<std::pair<unsigned, Marker>> MarkerTable::changedInHost() const
{
    std::vector<std::pair<unsigned, Marker>> changed;
    for (unsigned marker = 0; marker < hostkit::most_markers; ++marker) {
        Marker is = entry(marker);
        is.label = hostName(marker);
        is.enabled = hostkit::Marker_Enabled(marker);
        if (is != entry(marker))
            changed.emplace_back(marker, std::move(is));
    }
    return changed;
}

MarkerTable::Changes MarkerTable::show(const State& state)
{
    Changes changes;
    const State before = std::exchange(state_, state);
    for (unsigned marker = 0; marker < hostkit::most_markers; ++marker) {
        const Marker &was = (*before)[marker], &is = entry(marker);
        if (was.label != is.label && hostName(marker) != is.label) { // what was typed into a panel is there already
            const bool done = hostkit::Marker_Label_Set(marker, is.label.c_str());
            (done ? changes.names : changes.outOfMemory) = true;
        }
        if (was.enabled != is.enabled && hostkit::Marker_Enabled(marker) != is.enabled) {
            hostkit::Marker_Enable(marker, is.enabled);
            changes.enables = true;
        }
        if (was.colour != is.colour) {
            hostkit::Marker_Color_Set(marker, {is.colour->red, is.colour->green, is.colour->blue});
            changes.colours = true;
        }
        changes.positions |= was.position != is.position;
    }
    changes.count = makeRoom();
    return changes;
}

MarkerTable::Sheet MarkerTable::sheet() const
{
    return {state_, saved_, markerCount()};
}

MarkerTable::Changes MarkerTable::replace(const Sheet& sheet)
{
    Changes changes = show(sheet.state ? sheet.state : usual_);
    saved_ = sheet.saved ? sheet.saved : usual_;
    const unsigned short count = sheet.count ? sheet.count : markers_of_a_row;
    changes.count = std::exchange(markerCount(), count) != count;
    return changes;
}

// How many there are up to the last that is not as in the beginning.
unsigned MarkerTable::described() const
{
    unsigned count = hostkit::most_markers;
    while (count > 0 && entry(count - 1) == usual(count - 1))
        --count;
    return count;
}

// There are never fewer than before: an undo need not take the current one away.
bool MarkerTable::makeRoom()
{
    const unsigned rows = (described() + markers_of_a_row - 1u) / markers_of_a_row;
    if (rows * markers_of_a_row <= markerCount())
        return false;
    markerCount() = static_cast<unsigned short>(rows * markers_of_a_row);
    return true;
}

MarkerList MarkerTable::rows() const
{
    return {state_->begin(), state_->begin() + described()};
}

}
