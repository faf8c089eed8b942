#include "workbench/model/tag_table.h"

#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"

#include <algorithm>
#include <utility>

namespace workbench {

namespace {

using document::LabelEntry;
using document::LabelTable;

std::string hostName(unsigned tag)
{
    const char* label = hostkit::Tag_Label(tag);
    return label ? label : "";
}

unsigned short& tagCount()
{
    return hostkit::Variable<unsigned short>("$TAG_NB");
}

LabelTable hostTable()
{
    LabelTable table = {{.opacity = 0, .visible = false, .mesh = false, .name = "Clear Label"}};
    for (unsigned tag = 1; tag < hostkit::most_tags; ++tag) {
        const Colors colour = hostkit::Tag_Color(tag);
        table.push_back({.tag = static_cast<int>(tag),
            .red = colour.red,
            .green = colour.green,
            .blue = colour.blue,
            .name = hostName(tag)});
    }
    return table;
}

bool sameColour(const LabelEntry& one, const LabelEntry& other)
{
    return one.red == other.red && one.green == other.green && one.blue == other.blue;
}

}

TagTable::TagTable() : usual_(std::make_shared<LabelTable>(hostTable())), state_(usual_), saved_(usual_) {}

TagTable::State TagTable::with(const LabelEntry& entry) const
{
    auto table = std::make_shared<LabelTable>(*state_);
    (*table)[static_cast<std::size_t>(entry.tag)] = entry;
    return table;
}

// Rows behind those of the tags are no longer those of one tag each: they come with the file that described them.
TagTable::State TagTable::changed(const State& from, const State& to) const
{
    if (*state_ == *from)
        return to;
    const auto rows = static_cast<std::ptrdiff_t>(hostkit::most_tags);
    auto table = std::make_shared<LabelTable>(state_->begin(), state_->begin() + rows);
    for (std::size_t tag = 0; tag < hostkit::most_tags; ++tag) {
        if ((*from)[tag] != (*to)[tag])
            (*table)[tag] = (*to)[tag];
    }
    const bool others = !std::equal(from->begin() + rows, from->end(), to->begin() + rows, to->end());
    const LabelTable& source = others ? *to : *state_;
    table->insert(table->end(), source.begin() + rows, source.end());
    return table;
}

TagTable::State TagTable::of(const LabelTable& file) const
{
    auto table = std::make_shared<LabelTable>(*usual_);
    for (const LabelEntry& entry : file) {
        if (entry.tag < hostkit::most_tags)
            (*table)[static_cast<std::size_t>(entry.tag)] = entry;
        else
            table->push_back(entry);
    }
    return table;
}

std::vector<LabelEntry> TagTable::renamed() const
{
    std::vector<LabelEntry> changed;
    for (unsigned tag = 1; tag < hostkit::most_tags; ++tag) {
        std::string name = hostName(tag);
        if (name == entry(tag).name)
            continue;
        changed.push_back(entry(tag));
        changed.back().name = std::move(name);
    }
    return changed;
}

TagTable::Changes TagTable::show(const State& state)
{
    Changes changes;
    const State before = std::exchange(state_, state);
    for (unsigned tag = 1; tag < hostkit::most_tags; ++tag) {
        const LabelEntry &was = (*before)[tag], &is = entry(tag);
        if (was.name != is.name && hostName(tag) != is.name) { // what was typed into a panel is there already
            const bool done = hostkit::Tag_Label_Set(tag, is.name.c_str());
            (done ? changes.names : changes.outOfMemory) = true;
        }
        if (!sameColour(was, is)) {
            hostkit::Tag_Color_Set(tag, {is.red, is.green, is.blue});
            changes.colours = true;
        }
        changes.thresholds |= was.thresholds != is.thresholds;
    }
    changes.colours |= makeRoom();
    return changes;
}

bool TagTable::isUsual(const LabelEntry& entry) const
{
    return entry.tag < hostkit::most_tags && entry == (*usual_)[static_cast<std::size_t>(entry.tag)];
}

// Tags that nobody could see or choose would be of little use. They stay: an undo need not take the current one away.
bool TagTable::makeRoom()
{
    const unsigned before = tagCount();
    unsigned needed = hostkit::most_tags;
    while (needed > before && isUsual(entry(needed - 1)))
        --needed;
    if (needed <= before)
        return false;
    tagCount() = static_cast<unsigned short>(needed);
    return true;
}

LabelTable TagTable::rows() const
{
    LabelTable rows;
    std::copy_if(state_->begin(), state_->end(), std::back_inserter(rows),
        [&](const LabelEntry& entry) { return entry.tag < tagCount() || !isUsual(entry); });
    return rows;
}

}
