#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace workbench {

/// Each object that is made in one of the host's trees has a number of its own, from 1 in the order of making, that no
/// other one ever gets. 0 is none.
using ObjectNumber = std::uint32_t;

/// What a user can change of an object.
struct ObjectState {
    std::string name;
    std::vector<ObjectNumber> children;
};

/// The host's trees, with the objects that were taken out of them.
using TreeState = std::map<ObjectNumber, ObjectState>;

/// What is different in one state of the trees from another.
struct TreeChange {
    struct Arrangement {
        ObjectNumber parent;
        std::vector<ObjectNumber> before, after; ///< its children
    };
    struct Renaming {
        ObjectNumber object;
        std::string before, after;
    };
    std::vector<Arrangement> arrangements;
    std::vector<Renaming> renamings;

    bool isEmpty() const { return arrangements.empty() && renamings.empty(); }

    /// What happened to an object. Those below one that was taken out moved to its place by themselves.
    struct Moves {
        std::vector<ObjectNumber> takenOut, putBack, moved;
        ObjectNumber target = 0; ///< of all that moved; 0 when they have several
    };
    Moves moves() const;
};

/// Of objects that both states know.
TreeChange changeBetween(const TreeState& before, const TreeState& after);

}
