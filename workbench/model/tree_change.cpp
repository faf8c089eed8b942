#include "workbench/model/tree_change.h"

namespace workbench {

namespace {

using Parents = std::map<ObjectNumber, ObjectNumber>;

Parents parentsIn(
    const std::vector<TreeChange::Arrangement>& arrangements, std::vector<ObjectNumber> TreeChange::Arrangement::*side)
{
    Parents parents;
    for (const TreeChange::Arrangement& arrangement : arrangements)
        for (const ObjectNumber child : arrangement.*side)
            parents[child] = arrangement.parent;
    return parents;
}

}

TreeChange changeBetween(const TreeState& before, const TreeState& after)
{
    TreeChange change;
    for (const auto& [object, is] : after) {
        const auto known = before.find(object);
        if (known == before.end())
            continue;
        const ObjectState& was = known->second;
        if (was.children != is.children)
            change.arrangements.push_back({object, was.children, is.children});
        if (was.name != is.name)
            change.renamings.push_back({object, was.name, is.name});
    }
    return change;
}

TreeChange::Moves TreeChange::moves() const
{
    const Parents were = parentsIn(arrangements, &Arrangement::before);
    const Parents are = parentsIn(arrangements, &Arrangement::after);
    Moves moves;
    for (const auto& [object, parent] : were)
        if (!are.contains(object))
            moves.takenOut.push_back(object);
    const auto isOut = [&](ObjectNumber object) { return were.contains(object) && !are.contains(object); };
    for (const auto& [object, parent] : are) {
        const auto was = were.find(object);
        if (was == were.end())
            moves.putBack.push_back(object);
        else if (was->second != parent && !isOut(was->second))
            moves.moved.push_back(object);
    }
    for (const ObjectNumber object : moves.moved) {
        const ObjectNumber target = are.at(object);
        if (object != moves.moved.front() && target != moves.target) {
            moves.target = 0;
            break;
        }
        moves.target = target;
    }
    return moves;
}

}
