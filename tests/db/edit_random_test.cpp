#include "tests/db/diagram.h"

#include <algorithm>
#include <map>
#include <random>
#include <set>

// Thousands of edits by mouse and keyboard, against a plain statement of what each does.

using namespace test;

namespace {

struct Plain_Node {
    Strato_2D* parent = nullptr;
    std::vector<Strato_2D*> children;
};

class Plain_Tree {
public:
    explicit Plain_Tree(Strato_2D* root) { take(root, nullptr); }

    void move(Strato_2D* object, Strato_2D* target)
    {
        if (is_below(target, object) || at(target).children == std::vector{object})
            return;
        std::erase(at(at(object).parent).children, object);
        at(object).parent = target;
        at(target).children.push_back(object);
    }

    void remove(Strato_2D* object)
    {
        Strato_2D* const parent = at(object).parent;
        if (!parent)
            return;
        auto& siblings = at(parent).children;
        auto place = siblings.erase(std::find(siblings.begin(), siblings.end(), object));
        const auto children = at(object).children;
        siblings.insert(place, children.begin(), children.end());
        for (Strato_2D* child : children)
            at(child).parent = parent;
        nodes_.erase(object);
    }

    void add(Strato_2D* object, Strato_2D* parent)
    {
        nodes_[object].parent = parent;
        at(parent).children.push_back(object);
    }

    const std::vector<Strato_2D*>& children(Strato_2D* object) const { return nodes_.at(object).children; }
    size_t size() const { return nodes_.size(); }

    /// Whether the host's tree below an object is this one.
    bool is(const Strato_2D* object, const Strato_2D* parent) const
    {
        const auto& children = nodes_.at(const_cast<Strato_2D*>(object)).children;
        if (object->Parent_Get_Pt() != parent || object->Child_Get_Nb() != static_cast<int>(children.size()))
            return false;
        for (int i = 0; i < object->Child_Get_Nb(); ++i) {
            Strato_2D* const child = object->Child_Get_Pt(i);
            if (child != children[static_cast<size_t>(i)] || object->Child_Get_Id(child) != i || !is(child, object))
                return false;
        }
        return true;
    }

private:
    Plain_Node& at(Strato_2D* object) { return nodes_.at(object); }

    void take(Strato_2D* object, Strato_2D* parent)
    {
        nodes_[object].parent = parent;
        for (int i = 0; i < object->Child_Get_Nb(); ++i) {
            nodes_[object].children.push_back(object->Child_Get_Pt(i));
            take(object->Child_Get_Pt(i), object);
        }
    }

    bool is_below(Strato_2D* object, const Strato_2D* above)
    {
        for (; object; object = at(object).parent) {
            if (object == above)
                return true;
        }
        return false;
    }

    std::map<Strato_2D*, Plain_Node> nodes_;
};

}

class DatabaseRandomEdits : public Database_Diagram {
protected:
    bool is_seen(Strato_2D* object, db::Diagram_Part of)
    {
        const Place place = part(object, of);
        const Boxs& box = panel().list_box;
        return panel().list_pt[row_of(object)].line != DB_List::hidden_line && place.x > box.x + 11 &&
               place.x < box.x + box.width - 21 && place.y > box.y + 11 && place.y < box.y + box.height - 21;
    }

    Strato_2D* any(std::mt19937& random)
    {
        return static_cast<Strato_2D*>(panel().list_pt[random() % static_cast<unsigned>(panel().nb)].object);
    }
};

TEST_F(DatabaseRandomEdits, KeepTheTreeATree)
{
    lay_out(1700, 700);
    Plain_Tree plain(root);
    std::mt19937 random(2026);
    int moved = 0, broods = 0, deleted = 0;
    for (int edit = 0; edit < 10000; ++edit) {
        Strato_2D* const source = any(random);
        Strato_2D* const target = any(random);
        switch (random() % 8) {
        case 0:
            click(window(), part(source, db::fold_handle)); // a fold is lost with the next change
            break;
        case 1:
            if (!is_seen(source, db::box_body) || plain.size() < 8)
                break;
            move(window(), body(source));
            key(window(), VK_DELETE);
            plain.remove(source);
            ++deleted;
            break;
        case 2:
        case 3:
            if (source->Child_Get_Nb() == 0 || target->Child_Get_Nb() == 0 || !is_seen(source, db::children_handle) ||
                !is_seen(target, db::children_handle))
                break;
            drag(part(source, db::children_handle), part(target, db::children_handle));
            for (Strato_2D* const child : std::vector(plain.children(source)))
                plain.move(child, target);
            ++broods;
            break;
        case 4:
            if (plain.size() > 24)
                break;
            plain.add(add(target, "Class", std::to_string(edit)), target);
            Fct_Update(0x402, nullptr, nullptr, nullptr);
            break;
        default:
            if (source == root || target->Child_Get_Nb() == 0 || !is_seen(source, db::parent_handle) ||
                !is_seen(target, db::children_handle))
                break;
            drag(part(source, db::parent_handle), part(target, db::children_handle));
            plain.move(source, target);
            ++moved;
        }
        ASSERT_TRUE(plain.is(root, nullptr)) << "after edit " << edit << ": " << tree();
        ASSERT_EQ(panel().nb, static_cast<int>(plain.size()));
    }
    EXPECT_GT(moved, 800);
    EXPECT_GT(broods, 200);
    EXPECT_GT(deleted, 300);
}
