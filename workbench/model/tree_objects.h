#pragma once

#include "hostkit/structures/tree.h"
#include "workbench/model/tree_change.h"

#include <QString>

#include <set>
#include <unordered_map>
#include <variant>

namespace workbench {

/// The objects that the workbench made in the host's three trees, wherever a user has moved them since. Panels are told
/// of nothing here.
class TreeObjects {
public:
    using Object = std::variant<Strato_1D*, Strato_2D*, Strato_3D*>;

    /// Names the roots.
    TreeObjects();

    template <class Tree>
    static Tree* root();

    /// A new object as the last child of another.
    template <class Tree>
    Tree* add(Tree* parent, const hostkit::Object_Description& description);
    Strato_2D* addFrame(Strato_2D* parent, const hostkit::Object_Description& description);

    /// Takes an object out for good, wherever it is; what is below it takes its place. Null does nothing.
    template <class Tree>
    void remove(Tree* object);

    /// Whether an object is in its tree: a user can take one out.
    template <class Tree>
    static bool isListed(const Tree* object);

    /// 0 for null and for what the workbench did not make.
    ObjectNumber numberOf(const Strato* object) const;
    /// Null when it is there no longer.
    Strato* object(ObjectNumber number) const;
    int dimension(ObjectNumber number) const; ///< 1 to 3; 0 when it is there no longer

    /// What a user knows an object by, now or with another name: "Series 2: Axial".
    QString label(ObjectNumber number) const;
    QString label(ObjectNumber number, const std::string& name) const;

    TreeState state() const; ///< as the trees are
    TreeState made() const;  ///< as they would be had nobody changed them

    /// Brings the trees to one side of a change. They must be at the other one, but for objects that came and went
    /// since: what is new stays.
    enum class Side { before, after };
    void put(const TreeChange& change, Side side);

    /// Whether its sides differ in objects that are still there.
    bool concerns(const TreeChange& change) const;

private:
    struct Entry {
        Object object;
        ObjectNumber madeIn = 0;
        std::string madeName;
    };

    template <class Tree>
    Tree* find(ObjectNumber number) const;
    template <class Tree>
    void arrange(const TreeChange& change, Side side);
    void enter(Object object, ObjectNumber madeIn);
    template <class Tree>
    Tree* entered(Tree* object, Tree* parent);

    std::map<ObjectNumber, Entry> entries_;
    std::unordered_map<const Strato*, ObjectNumber> numbers_;
    ObjectNumber last_ = 0;
};

}
