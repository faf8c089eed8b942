#include "workbench/model/tree_objects.h"

#include <algorithm>
#include <utility>

namespace workbench {

namespace {

template <class Tree>
struct HostTree;

template <>
struct HostTree<Strato_1D> {
    static constexpr auto root = hostkit::Root_1D;
    static constexpr auto add = hostkit::Object_1D_Add;
};

template <>
struct HostTree<Strato_2D> {
    static constexpr auto root = hostkit::Root_2D;
    static constexpr auto add = hostkit::Object_2D_Add;
};

template <>
struct HostTree<Strato_3D> {
    static constexpr auto root = hostkit::Root_3D;
    static constexpr auto add = hostkit::Object_3D_Add;
};

// From the last one on, which costs the least.
template <class Tree>
std::vector<Tree*> take_children(Tree* parent)
{
    std::vector<Tree*> children(static_cast<std::size_t>(parent->Child_Get_Nb()));
    for (auto child = children.rbegin(); child != children.rend(); ++child)
        *child = parent->Child_Remove(parent->Child_Get_Nb() - 1);
    return children;
}

template <class Tree>
void take_out(Tree* object)
{
    if (Tree* const parent = object->Parent_Get_Pt())
        parent->Child_Remove(object);
}

}

TreeObjects::TreeObjects()
{
    root<Strato_1D>()->Name_Set("Signals");
    root<Strato_2D>()->Name_Set("Images");
    root<Strato_3D>()->Name_Set("Volumes");
    enter(root<Strato_1D>(), 0);
    enter(root<Strato_2D>(), 0);
    enter(root<Strato_3D>(), 0);
}

template <class Tree>
Tree* TreeObjects::root()
{
    return HostTree<Tree>::root();
}

void TreeObjects::enter(Object object, ObjectNumber madeIn)
{
    const auto entered = std::visit([](const Strato* one) { return one; }, object);
    numbers_[entered] = ++last_;
    entries_[last_] = {object, madeIn, entered->Name_Get()};
}

// What could not be entered was never there.
template <class Tree>
Tree* TreeObjects::entered(Tree* object, Tree* parent)
{
    try {
        enter(object, numberOf(parent));
    } catch (...) {
        remove(object);
        throw;
    }
    return object;
}

template <class Tree>
Tree* TreeObjects::add(Tree* parent, const hostkit::Object_Description& description)
{
    return entered(HostTree<Tree>::add(parent, description), parent);
}

Strato_2D* TreeObjects::addFrame(Strato_2D* parent, const hostkit::Object_Description& description)
{
    return entered<Strato_2D>(hostkit::Frame_Add(parent, description), parent);
}

template <class Tree>
void TreeObjects::remove(Tree* object)
{
    if (!object)
        return;
    Tree* const heir = isListed(object) ? object->Parent_Get_Pt() : root<Tree>();
    int place = isListed(object) ? heir->Child_Get_Id(object) : heir->Child_Get_Nb();
    for (Tree* child : take_children(object))
        heir->Child_Insert(++place, child);
    take_out(object);
    entries_.erase(numberOf(object));
    numbers_.erase(object);
    hostkit::Object_Delete(object);
}

template <class Tree>
bool TreeObjects::isListed(const Tree* object)
{
    const Tree* const top = root<Tree>();
    while (object && object != top)
        object = object->Parent_Get_Pt();
    return object != nullptr;
}

ObjectNumber TreeObjects::numberOf(const Strato* object) const
{
    const auto found = numbers_.find(object);
    return found == numbers_.end() ? 0 : found->second;
}

Strato* TreeObjects::object(ObjectNumber number) const
{
    const auto found = entries_.find(number);
    if (found == entries_.end())
        return nullptr;
    return std::visit([](Strato* object) { return object; }, found->second.object);
}

int TreeObjects::dimension(ObjectNumber number) const
{
    const auto found = entries_.find(number);
    return found == entries_.end() ? 0 : static_cast<int>(found->second.object.index()) + 1;
}

QString TreeObjects::label(ObjectNumber number) const
{
    const Strato* const found = object(number);
    return found ? label(number, found->Name_Get()) : QString();
}

QString TreeObjects::label(ObjectNumber number, const std::string& name) const
{
    const Strato* const found = object(number);
    const QString title = found ? QString::fromUtf8(found->Title_Get()) : QString();
    return QStringLiteral("%1 %2").arg(title, QString::fromStdString(name)).trimmed();
}

// ----------------------------------------------------------------------------------------------------------- states

TreeState TreeObjects::state() const
{
    TreeState state;
    for (const auto& [number, entry] : entries_) {
        ObjectState& object = state.emplace_hint(state.end(), number, ObjectState())->second;
        std::visit(
            [&](const auto* from) {
                object.name = from->Name_Get();
                for (int i = 0; i < from->Child_Get_Nb(); ++i)
                    if (const ObjectNumber child = numberOf(from->Child_Get_Pt(i)))
                        object.children.push_back(child);
            },
            entry.object);
    }
    return state;
}

TreeState TreeObjects::made() const
{
    TreeState state;
    for (const auto& [number, entry] : entries_) {
        state[number].name = entry.madeName;
        if (entry.madeIn)
            state[entry.madeIn].children.push_back(number);
    }
    for (const auto& [number, entry] : entries_) // a study outlives its series while it holds something else
        if (!entry.madeIn)
            std::erase_if(state[number].children, [&](ObjectNumber study) { return state[study].children.empty(); });
    return state;
}

template <class Tree>
Tree* TreeObjects::find(ObjectNumber number) const
{
    const auto found = entries_.find(number);
    Tree* const* const object = found == entries_.end() ? nullptr : std::get_if<Tree*>(&found->second.object);
    return object ? *object : nullptr;
}

// Of each parent first come the children that it should have, then those that came since. What has no place because
// its parent is gone, or was taken out, goes to the root.
template <class Tree>
void TreeObjects::arrange(const TreeChange& change, Side side)
{
    std::set<ObjectNumber> known;
    for (const auto& [parent, before, after] : change.arrangements) {
        known.insert(before.begin(), before.end());
        known.insert(after.begin(), after.end());
    }
    std::vector<std::pair<Tree*, std::vector<Tree*>>> newcomers;
    for (const TreeChange::Arrangement& arrangement : change.arrangements) {
        Tree* const parent = find<Tree>(arrangement.parent);
        if (!parent)
            continue;
        auto& [heir, others] = newcomers.emplace_back(parent, take_children(parent));
        std::erase_if(others, [&](const Tree* child) { return known.contains(numberOf(child)); });
    }
    for (const TreeChange::Arrangement& arrangement : change.arrangements) {
        Tree* const parent = find<Tree>(arrangement.parent);
        for (const ObjectNumber number : side == Side::before ? arrangement.before : arrangement.after) {
            Tree* const child = find<Tree>(number);
            if (!child)
                continue;
            take_out(child);
            (parent ? parent : root<Tree>())->Child_Add(child);
        }
    }
    for (const auto& [parent, others] : newcomers)
        for (Tree* child : others)
            (isListed(parent) ? parent : root<Tree>())->Child_Add(child);
}

void TreeObjects::put(const TreeChange& change, Side side)
{
    arrange<Strato_1D>(change, side);
    arrange<Strato_2D>(change, side);
    arrange<Strato_3D>(change, side);
    for (const TreeChange::Renaming& renaming : change.renamings)
        if (Strato* const renamed = object(renaming.object))
            renamed->Name_Set((side == Side::before ? renaming.before : renaming.after).c_str());
}

bool TreeObjects::concerns(const TreeChange& change) const
{
    const auto remaining = [this](std::vector<ObjectNumber> objects) {
        std::erase_if(objects, [this](ObjectNumber number) { return !object(number); });
        return objects;
    };
    return std::ranges::any_of(change.renamings, [&](const auto& one) { return object(one.object) != nullptr; }) ||
           std::ranges::any_of(
               change.arrangements, [&](const auto& one) { return remaining(one.before) != remaining(one.after); });
}

template Strato_1D* TreeObjects::root();
template Strato_2D* TreeObjects::root();
template Strato_3D* TreeObjects::root();
template Strato_1D* TreeObjects::add(Strato_1D*, const hostkit::Object_Description&);
template Strato_2D* TreeObjects::add(Strato_2D*, const hostkit::Object_Description&);
template Strato_3D* TreeObjects::add(Strato_3D*, const hostkit::Object_Description&);
template bool TreeObjects::isListed(const Strato_1D*);
template bool TreeObjects::isListed(const Strato_2D*);
template bool TreeObjects::isListed(const Strato_3D*);
template void TreeObjects::remove(Strato_1D*);
template void TreeObjects::remove(Strato_2D*);
template void TreeObjects::remove(Strato_3D*);

}
