#pragma once

#include "workbench/document/marker_file.h"

#include <memory>
#include <utility>
#include <vector>

namespace workbench {

/// The point markers. Their names, colours and whether they are shown are the host's variables as well, where panels
/// read them and write names; this puts the one into the other and tells nobody.
///
/// Each state is a list that never changes: undo steps and saves only keep it. It has a place for each marker that
/// there can be, whether it is set or not, and every one of them has a colour.
class MarkerTable {
public:
    using State = std::shared_ptr<const document::MarkerList>;

    /// Begins with the markers that the host has, none of which is set, and with one row of them in the panel.
    MarkerTable();

    const State& state() const { return state_; }
    const document::Marker& entry(unsigned marker) const { return (*state_)[marker]; }

    /// A marker as it is in the beginning: not set, without name.
    const document::Marker& usual(unsigned marker) const { return (*usual_)[marker]; }

    /// The state with one marker that is different.
    State with(unsigned marker, document::Marker entry) const;
    /// The state that a file describes; markers that it leaves out are as in the beginning.
    State of(const document::MarkerList& file) const;

    /// The markers that panels have renamed, shown or hidden in the host, as they are there.
    std::vector<std::pair<unsigned, document::Marker>> changedInHost() const;

    /// Makes a state the current one, in the host too, where there are afterwards at least as many markers as it
    /// describes. Returns what is different from before; all but `positions` speak of the host.
    struct Changes {
        bool names = false, colours = false, enables = false, count = false, positions = false;
        bool outOfMemory = false; ///< not all names could be put into the host
    };
    Changes show(const State& state);

    /// What is put aside while the markers of another image are the current ones.
    struct Sheet {
        State state, saved;       ///< null: as in the beginning
        unsigned short count = 0; ///< 0: one row of markers

        bool isModified() const { return state != saved && *state != *saved; }
    };
    Sheet sheet() const;
    Changes replace(const Sheet& sheet);

    /// Those worth a line in a file: up to the last that says anything.
    document::MarkerList rows() const;

    void markSaved(const State& state) { saved_ = state; }
    /// Whether it differs from what was saved last. Exact through undo and redo, and when something is typed back.
    bool isModified() const { return Sheet{state_, saved_}.isModified(); }

private:
    unsigned described() const;
    bool makeRoom();

    State usual_, state_, saved_;
};

}
