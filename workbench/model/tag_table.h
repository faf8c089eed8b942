#pragma once

#include "workbench/document/label_table.h"

#include <memory>
#include <vector>

namespace workbench {

using document::Thresholds;

/// The tags as a label table describes them. Names and colours are the host's variables as well, where panels read
/// them and write names; this puts the one into the other and tells nobody.
///
/// Each state is a table that never changes: undo steps and saves only keep it. It has a row for each tag that a label
/// map can hold, in their order, and behind them the rows of others that a file described. Row 0 is what other programs
/// call the background; the host does not know it.
class TagTable {
public:
    using State = std::shared_ptr<const document::LabelTable>;

    /// Begins with the tags that the host has, none of which has thresholds: a table that needs no file.
    TagTable();

    const State& state() const { return state_; }
    const document::LabelEntry& entry(unsigned tag) const { return (*state_)[tag]; }

    /// The state with another row for one tag.
    State with(const document::LabelEntry& entry) const;
    /// The state with what differs between two others as it is in the second of them.
    State changed(const State& from, const State& to) const;
    /// The state that a file describes; tags that it leaves out are as in the beginning.
    State of(const document::LabelTable& file) const;

    /// The rows of tags whose names panels have changed in the host, with the new names.
    std::vector<document::LabelEntry> renamed() const;

    /// Makes a state the current one, in the host too, where there are afterwards at least as many tags as it
    /// describes. Returns what is different from before; `names` and `colours` speak of the host.
    struct Changes {
        bool names = false, colours = false, thresholds = false;
        bool outOfMemory = false; ///< not all names could be put into the host
    };
    Changes show(const State& state);

    /// The rows worth a line in a file: of the tags that the host shows, and of all that are described.
    document::LabelTable rows() const;

    bool needsFile() const { return *state_ != *usual_; }
    void markSaved(const State& state) { saved_ = state; }
    /// Whether it differs from what was saved last. Exact through undo and redo, and when something is typed back.
    bool isModified() const { return state_ != saved_ && *state_ != *saved_; }

private:
    bool isUsual(const document::LabelEntry& entry) const;
    bool makeRoom();

    State usual_, state_, saved_;
};

}
