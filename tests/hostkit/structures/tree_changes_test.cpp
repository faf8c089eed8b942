#include "hostkit/structures/registry.h"
#include "hostkit/structures/series_pixels.h"
#include "hostkit/structures/tree.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <type_traits>

using namespace hostkit;

// What panels change in the trees: the same for all three.

namespace {

struct Tree_1D {
    using Object = Strato_1D;
    static Object* root() { return Root_1D(); }
    static Object* add(Object* parent) { return Object_1D_Add(parent, {}); }
};

struct Tree_2D {
    using Object = Strato_2D;
    static Object* root() { return Root_2D(); }
    static Object* add(Object* parent) { return Object_2D_Add(parent, {}); }
};

struct Tree_3D {
    using Object = Strato_3D;
    static Object* root() { return Root_3D(); }
    static Object* add(Object* parent) { return Object_3D_Add(parent, {}); }
};

template <class Kind>
class Tree_Changes : public ::testing::Test {
protected:
    using Object = Kind::Object;

    Tree_Changes()
    {
        Tree_Reset();
        root = Kind::root();
        for (auto** child : {&a, &b, &c})
            *child = Kind::add(root);
        a1 = Kind::add(a);
        a2 = Kind::add(a);
    }
    ~Tree_Changes() override { Tree_Reset(); }

    static std::vector<Object*> children_of(const Object* parent)
    {
        std::vector<Object*> children;
        for (int i = 0; i < parent->Child_Get_Nb(); ++i) {
            children.push_back(parent->Child_Get_Pt(i));
            EXPECT_EQ(parent->Child_Get_Id(children.back()), i);
            EXPECT_EQ(Child_Index(children.back()), i);
        }
        return children;
    }

    using Objects = std::vector<Object*>;
    Object *root, *a, *b, *c, *a1, *a2;
};

using Kinds = ::testing::Types<Tree_1D, Tree_2D, Tree_3D>;
TYPED_TEST_SUITE(Tree_Changes, Kinds);

}

#define OBJECTS(...) (typename TestFixture::Objects{__VA_ARGS__})

TYPED_TEST(Tree_Changes, AChildKnowsItsPlace)
{
    EXPECT_EQ(this->root->Child_Get_Id(this->c), 2);
    EXPECT_EQ(this->root->Child_Get_Id(this->a1), -1) << "a child's child";
    EXPECT_EQ(this->a->Child_Get_Id(this->root), -1);
    EXPECT_EQ(this->root->Child_Get_Id(nullptr), -1);
}

TYPED_TEST(Tree_Changes, AClassIsMovedToAnotherParent)
{
    EXPECT_EQ(this->a->Child_Remove(this->a1), this->a1);
    EXPECT_EQ(this->a1->Parent_Get_Pt(), nullptr);
    EXPECT_EQ(this->b->Child_Add(this->a1), 1);
    EXPECT_EQ(this->a1->Parent_Get_Pt(), this->b);
    EXPECT_EQ(this->children_of(this->a), OBJECTS(this->a2));
    EXPECT_EQ(this->children_of(this->b), OBJECTS(this->a1));
}

TYPED_TEST(Tree_Changes, AChildIsTakenOutByItsPlace)
{
    EXPECT_EQ(this->root->Child_Remove(1), this->b);
    EXPECT_EQ(this->children_of(this->root), OBJECTS(this->a, this->c));
    EXPECT_EQ(this->root->Child_Remove(2), nullptr);
    EXPECT_EQ(this->root->Child_Remove(-1), nullptr);
    EXPECT_EQ(this->root->Child_Remove(this->a1), nullptr) << "no child";
    EXPECT_EQ(this->root->Child_Remove(nullptr), nullptr);
    EXPECT_EQ(this->children_of(this->root), OBJECTS(this->a, this->c));
}

TYPED_TEST(Tree_Changes, APlaceIsMovedIntoTheRangeThereIs)
{
    this->root->Child_Remove(this->b);
    EXPECT_EQ(this->root->Child_Insert(-5, this->b), 1);
    EXPECT_EQ(this->children_of(this->root), OBJECTS(this->b, this->a, this->c));
    this->root->Child_Remove(this->b);
    EXPECT_EQ(this->root->Child_Insert(1, this->b), 1);
    EXPECT_EQ(this->children_of(this->root), OBJECTS(this->a, this->b, this->c));
    this->root->Child_Remove(this->b);
    EXPECT_EQ(this->root->Child_Insert(99, this->b), 1);
    EXPECT_EQ(this->children_of(this->root), OBJECTS(this->a, this->c, this->b));
}

TYPED_TEST(Tree_Changes, NothingComesBelowItself)
{
    this->root->Child_Remove(this->a);
    for (auto* parent : {this->a, this->a1}) {
        EXPECT_EQ(parent->Child_Add(this->a), 0);
        EXPECT_EQ(parent->Child_Insert(0, this->a), 0);
    }
    EXPECT_EQ(this->children_of(this->a), OBJECTS(this->a1, this->a2));
    EXPECT_EQ(this->a->Parent_Get_Pt(), nullptr);
    EXPECT_EQ(this->a1->Child_Get_Nb(), 0);
}

TYPED_TEST(Tree_Changes, NothingIsInTwoPlaces)
{
    EXPECT_EQ(this->b->Child_Add(nullptr), 0);
    EXPECT_EQ(this->b->Child_Add(this->a1), 0) << "is among the children of another";
    EXPECT_EQ(this->b->Child_Add(this->root), 0);
    this->root->Child_Remove(this->b);
    EXPECT_EQ(this->b->Child_Add(this->root), 0) << "the root stays the root";
    EXPECT_EQ(this->b->Child_Get_Nb(), 0);
    EXPECT_EQ(this->a1->Parent_Get_Pt(), this->a);
}

TYPED_TEST(Tree_Changes, AParentIsNamedWithoutMovingAnything)
{
    this->b->Parent_Set_Pt(nullptr);
    EXPECT_EQ(this->b->Parent_Get_Pt(), nullptr);
    EXPECT_EQ(this->root->Child_Get_Id(this->b), 1);
    this->b->Parent_Set_Pt(this->c);
    EXPECT_EQ(this->b->Parent_Get_Pt(), this->c);
    EXPECT_EQ(this->c->Child_Get_Nb(), 0);
    EXPECT_EQ(this->root->Child_Remove(1), this->b);
    EXPECT_EQ(this->b->Parent_Get_Pt(), this->c) << "it names another";
}

TYPED_TEST(Tree_Changes, NobodyIsSaidToBeItsOwnAncestor)
{
    this->a->Parent_Set_Pt(this->a);
    EXPECT_EQ(this->a->Parent_Get_Pt(), this->root);
    this->a->Parent_Set_Pt(this->a1);
    EXPECT_EQ(this->a->Parent_Get_Pt(), this->root);
    this->b->Parent_Set_Pt(this->c);
    this->root->Child_Remove(this->c);
    EXPECT_EQ(this->b->Child_Add(this->c), 0) << "which is named as the parent";
    EXPECT_EQ(this->c->Parent_Get_Pt(), nullptr);
}

TYPED_TEST(Tree_Changes, TheChildrenOfADeletedClassTakeItsPlace)
{
    this->a->Parent_Set_Pt(nullptr);
    const int place = this->root->Child_Get_Id(this->a);
    EXPECT_EQ(place, 0);
    for (int k = this->a->Child_Get_Nb() - 1; k >= 0; --k)
        EXPECT_EQ(this->root->Child_Insert(place + 1, this->a->Child_Remove(k)), 1);
    EXPECT_EQ(this->children_of(this->root), OBJECTS(this->a, this->a1, this->a2, this->b, this->c));
    EXPECT_EQ(this->root->Child_Remove(place), this->a);
    EXPECT_EQ(this->children_of(this->root), OBJECTS(this->a1, this->a2, this->b, this->c));
    EXPECT_EQ(this->a1->Parent_Get_Pt(), this->root);
}

TYPED_TEST(Tree_Changes, WhatWasTakenOutIsKeptUntilItIsPutBackOrDeleted)
{
    this->root->Child_Remove(this->a);
    this->a->Name_Set("kept");
    EXPECT_EQ(this->children_of(this->a), OBJECTS(this->a1, this->a2));
    EXPECT_EQ(this->root->Child_Insert(0, this->a), 1);
    EXPECT_FALSE(Object_Delete(this->a)) << "it is in the tree";
    EXPECT_FALSE(Object_Delete(this->root));
    EXPECT_FALSE(Object_Delete(nullptr));
    EXPECT_STREQ(this->a->Name_Get(), "kept");
    this->root->Child_Remove(this->b);
    this->root->Child_Remove(this->a);
    EXPECT_TRUE(Object_Delete(this->b));
    EXPECT_EQ(this->root->Child_Add(this->a), 1);
    EXPECT_EQ(this->children_of(this->root), OBJECTS(this->c, this->a));
}

// Any order of changes leaves a tree of the same objects, less those that are taken out.
TYPED_TEST(Tree_Changes, TenThousandChangesLeaveATree)
{
    using Node = typename TestFixture::Object;
    std::mt19937 random(7);
    std::vector<Node*> all{this->root, this->a, this->b, this->c, this->a1, this->a2};
    while (all.size() < 40)
        all.push_back(TypeParam::add(all[random() % all.size()]));
    std::vector<Node*> out;
    for (int change = 0; change < 10000; ++change) {
        Node* const object = all[random() % all.size()];
        if (change % 2 == 0) {
            const int children = object->Child_Get_Nb();
            if (Node* const child = object->Child_Remove(static_cast<int>(random() % 4)))
                out.push_back(child);
            ASSERT_LE(children - object->Child_Get_Nb(), 1);
        } else if (!out.empty()) {
            const size_t which = random() % out.size();
            if (object->Child_Insert(static_cast<int>(random() % 6) - 1, out[which]))
                out.erase(out.begin() + static_cast<ptrdiff_t>(which));
        }
    }
    std::set<Node*> met;
    std::vector<Node*> waiting = out;
    waiting.push_back(this->root);
    while (!waiting.empty()) {
        Node* const object = waiting.back();
        waiting.pop_back();
        ASSERT_TRUE(met.insert(object).second);
        for (Node* child : this->children_of(object)) {
            ASSERT_EQ(child->Parent_Get_Pt(), object);
            waiting.push_back(child);
        }
    }
    EXPECT_EQ(met.size(), all.size());
    for (Node* object : out) {
        EXPECT_EQ(object->Parent_Get_Pt(), nullptr);
        EXPECT_TRUE(Object_Delete(object));
    }
}

namespace {

// A series of three frames that is shown in a window.
class Shown_Series : public ::testing::Test {
protected:
    Shown_Series()
    {
        Tree_Reset();
        Registry_Reset();
        series = Object_2D_Add(Root_2D(), {.name = "T1", .title = "Series"});
        for (auto*& frame : frames)
            frame = Frame_Add(series, {.class_a = frame_class, .magic = frame_magic});
        window = Window_Add("View");
        Fct_Change_Child(window, frames[1], nullptr);
    }
    ~Shown_Series() override { Tree_Reset(); }

    int frames_found(unsigned class_mask, void* scope)
    {
        const unsigned short iterator = Iterator_Init("test", nullptr);
        int found = 0;
        while (Iterator_Class_2D(iterator, class_mask, scope, 0))
            ++found;
        Iterator_End(iterator);
        return found;
    }

    Strato_2D* series;
    std::array<Strato_2D_Frame*, 3> frames{};
    Strato_Window* window;
};

}

TEST_F(Shown_Series, AWindowShowsTheFrameThatIsMovedAndKnowsItsNewPlace)
{
    Strato_2D* const other = Object_2D_Add(Root_2D(), {});
    other->Child_Add(series->Child_Remove(frames[1]));
    EXPECT_EQ(Window_Frame(window), frames[1]);
    EXPECT_EQ(series->Child_Get_Cur(window), -1);
    EXPECT_EQ(other->Child_Get_Cur(window), 0);
    EXPECT_EQ(frames_found(frame_class, window), 1);
}

TEST_F(Shown_Series, AWindowShowsAFrameThatWasTakenOutUntilItIsDeleted)
{
    series->Child_Remove(frames[1]);
    EXPECT_EQ(Window_Frame(window), frames[1]);
    EXPECT_EQ(series->Child_Get_Cur(window), -1);
    EXPECT_EQ(frames_found(frame_class, nullptr), 2);
    EXPECT_TRUE(Object_Delete(frames[1]));
    EXPECT_EQ(Window_Frame(window), nullptr);
    EXPECT_EQ(frames_found(frame_class, window), 2);
}

TEST_F(Shown_Series, AFrameThatNamesNoParentIsStillCurrentAndFound)
{
    frames[1]->Parent_Set_Pt(nullptr);
    EXPECT_EQ(series->Child_Get_Cur(window), 1);
    EXPECT_EQ(frames_found(frame_class, nullptr), 3);
    EXPECT_EQ(frames_found(frame_class, window), 3);
    Object_2D_Remove(series);
    EXPECT_EQ(Window_Frame(window), nullptr) << "it went with its series all the same";
}

TEST_F(Shown_Series, AnIteratorEndsWhereItsObjectWasTakenOut)
{
    const unsigned short iterator = Iterator_Init("test", nullptr);
    EXPECT_EQ(Iterator_Class_2D(iterator, frame_class, nullptr, 0), frames[0]);
    series->Child_Remove(frames[0]);
    EXPECT_EQ(Iterator_Class_2D(iterator, frame_class, nullptr, 0), nullptr);
    Object_Delete(frames[0]);
    EXPECT_EQ(Iterator_Class_2D(iterator, frame_class, nullptr, 0), nullptr);
    Iterator_End(iterator);
}

TEST_F(Shown_Series, FramesKeepTheirValuesWhereverTheyGo)
{
    static const float pixels[3] = {1e-9f, 2e-9f, 3e-9f};
    Series_Pixels_Set(
        series, {.type = Pixel_Type::f32, .data = pixels, .width = 1, .height = 1, .frames = 3, .unit = "s"});
    Root_2D()->Child_Add(series->Child_Remove(frames[2]));
    ASSERT_NE(frames[0]->Histogram_Get(), nullptr);
    EXPECT_STREQ(frames[2]->unit, frames[0]->unit) << "which counting gave a power of ten";
    EXPECT_STRNE(frames[2]->unit, "s");
    EXPECT_NE(frames[2]->Histogram_Get(), nullptr);
}

TEST_F(Shown_Series, FramesThatWereMovedHaveNoPixelsWhenThoseOfTheSeriesAreGone)
{
    {
        const std::vector<unsigned char> pixels(3);
        Series_Pixels_Set(series, {Pixel_Type::u8, pixels.data(), 1, 1, 3});
        Root_2D()->Child_Add(series->Child_Remove(frames[2]));
        EXPECT_EQ(Frame_Size(frames[2]), (Pixel_Size{1, 1}));
        Series_Pixels_Set(series, {});
    }
    EXPECT_EQ(Frame_Size(frames[2]), (Pixel_Size{0, 0}));
    EXPECT_EQ(frames[2]->Histogram_Get(), nullptr);
    EXPECT_STREQ(frames[2]->unit, "");
}

TEST_F(Shown_Series, OnlyFramesGetPixels)
{
    static const unsigned char pixels[3] = {5, 6, 7};
    Strato_2D* const folder = Object_2D_Add(Root_2D(), {});
    series->Child_Insert(1, Root_2D()->Child_Remove(folder));
    Series_Pixels_Set(series, {Pixel_Type::u8, pixels, 1, 1, 3});
    EXPECT_EQ(Frame_Size(folder), (Pixel_Size{0, 0}));
    EXPECT_EQ(frames[1]->index_z, 1);
    EXPECT_EQ(frames[2]->index_z, 2);
    ASSERT_NE(frames[2]->Histogram_Get(), nullptr);
}
