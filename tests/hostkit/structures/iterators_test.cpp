#include "hostkit/structures/tree.h"
#include "tests/hostkit/structures/made_series.h"

using namespace test;

namespace {

constexpr unsigned frame_mask = 0x2FFF;

class Iterators : public Made_Series {
protected:
    Iterators() { make({}, 3); }

    std::vector<Strato_2D*> rest(unsigned short id, bool selected_only = false, void* scope = nullptr)
    {
        std::vector<Strato_2D*> found;
        while (Strato_2D* next = Iterator_Class_2D(id, frame_mask, scope, selected_only))
            found.push_back(next);
        return found;
    }
    std::vector<Strato_2D*> all(Strato* start = nullptr, bool selected_only = false)
    {
        const unsigned short id = Iterator_Init("test", start);
        const auto found = rest(id, selected_only);
        Iterator_End(id);
        return found;
    }
    static void* display_state() { return reinterpret_cast<void*>(std::uintptr_t{4}); }
    std::vector<Strato_2D*> made() { return {frames.begin(), frames.end()}; }
};

using Objects = std::vector<Strato_2D*>;

}

TEST_F(Iterators, GoThroughTheFramesInTheOrderOfTheTree)
{
    EXPECT_EQ(all(), made());
    auto* second = hostkit::Object_2D_Add(hostkit::Root_2D(), {.name = "second"});
    auto* last = hostkit::Frame_Add(second, {.class_a = hostkit::frame_class});
    Objects both = made();
    both.push_back(last);
    EXPECT_EQ(all(), both);
    EXPECT_EQ(all(series), made());
    EXPECT_EQ(all(second), Objects{last});
    EXPECT_EQ(all(last), Objects{last});
}

TEST_F(Iterators, ClassMustBeJustThatOne)
{
    hostkit::Frame_Add(series, {.class_a = 0x2FFE});
    hostkit::Frame_Add(series, {.class_a = 0x1FFF});
    EXPECT_EQ(all(), made());
}

TEST_F(Iterators, SelectedOnesOnRequest)
{
    frames[1]->Flag_Set_Off(16, display_state(), 512);
    EXPECT_EQ(all(nullptr, true), (Objects{frames[0], frames[2]}));
    EXPECT_EQ(all(), made());
    frames[1]->Flag_Set_On(16, reinterpret_cast<void*>(std::uintptr_t{8}), 512);
    EXPECT_EQ(all(nullptr, true).size(), 2u) << "another flag word";
}

TEST_F(Iterators, AWindowHasTheFramesOfTheSeriesThatItShows)
{
    auto* const window = hostkit::Object_Variable<Strato_Window>("$WINDOW_CUR");
    auto* const second = hostkit::Object_2D_Add(hostkit::Root_2D(), {.name = "second"});
    auto* const other = hostkit::Frame_Add(second, {.class_a = hostkit::frame_class});
    other->Flag_Set_On(16, display_state(), 512);
    const auto all_in = [&](void* scope, Strato* start = nullptr, bool selected_only = false) {
        const unsigned short id = Iterator_Init("test", start);
        const Objects found = rest(id, selected_only, scope);
        Iterator_End(id);
        return found;
    };
    Objects both = made();
    both.push_back(other);
    Fct_Change_Child(window, frames[1], nullptr);
    EXPECT_EQ(all_in(window), made());
    EXPECT_EQ(all_in(window, nullptr, true), made()) << "what is selected elsewhere is not of this window";
    EXPECT_EQ(all_in(window, second), Objects{});
    EXPECT_EQ(all_in(window, series), made());
    EXPECT_EQ(all_in(display_state()), both) << "a scope code";
    EXPECT_EQ(all_in(nullptr), both);
    Fct_Change_Child(window, other, frames[1]);
    EXPECT_EQ(all_in(window), Objects{other});
    EXPECT_EQ(all_in(hostkit::Window_Add("empty")), both) << "a window that shows nothing restricts nothing";
}

TEST_F(Iterators, TheEndStaysTheEnd)
{
    const unsigned short id = Iterator_Init("test", nullptr);
    rest(id);
    hostkit::Frame_Add(series, {.class_a = hostkit::frame_class});
    EXPECT_EQ(Iterator_Class_2D(id, frame_mask, nullptr, 0), nullptr);
    Iterator_End(id);
    EXPECT_EQ(Iterator_Class_2D(id, frame_mask, nullptr, 0), nullptr);
}

TEST_F(Iterators, SeveralGoOnSideBySide)
{
    const unsigned short one = Iterator_Init("one", nullptr), other = Iterator_Init("other", nullptr);
    ASSERT_NE(one, other);
    EXPECT_EQ(Iterator_Class_2D(one, frame_mask, nullptr, 0), frames[0]);
    EXPECT_EQ(Iterator_Class_2D(one, frame_mask, nullptr, 0), frames[1]);
    EXPECT_EQ(Iterator_Class_2D(other, frame_mask, nullptr, 0), frames[0]);
    EXPECT_EQ(Iterator_Class_2D(one, frame_mask, nullptr, 0), frames[2]);
    Iterator_End(one);
    EXPECT_EQ(Iterator_Class_2D(other, frame_mask, nullptr, 0), frames[1]);
    Iterator_End(other);
}

TEST_F(Iterators, OneThatItsOwnerLeftOpenIsEndedAndReported)
{
    const unsigned short left_open = Iterator_Init("careless", nullptr);
    EXPECT_EQ(Iterator_Init("careless", nullptr), left_open);
    EXPECT_EQ(reports.texts(12), std::vector<std::string>{"the iterator of careless was left open"});
    Iterator_End(left_open);
    Iterator_End(Iterator_Init("careless", nullptr));
    EXPECT_EQ(reports.texts(12).size(), 1u);
}

TEST_F(Iterators, RunOutAndComeBack)
{
    std::vector<unsigned short> ids;
    while (const unsigned short id = Iterator_Init(("owner " + std::to_string(ids.size())).c_str(), nullptr)) {
        ids.push_back(id);
        ASSERT_LE(ids.size(), 1000u);
    }
    EXPECT_GE(ids.size(), 16u);
    Iterator_End(ids.back());
    EXPECT_EQ(Iterator_Init("late", nullptr), ids.back());
    for (const unsigned short id : ids)
        Iterator_End(id);
}

TEST_F(Iterators, WrongNumbersHaveNothing)
{
    for (const unsigned short id : std::initializer_list<unsigned short>{0, 1, 64, 65, 65535}) {
        Iterator_End(id);
        EXPECT_EQ(Iterator_Class_2D(id, frame_mask, nullptr, 0), nullptr);
    }
}

TEST_F(Iterators, EndWhenAnObjectIsRemoved)
{
    const unsigned short id = Iterator_Init("test", nullptr);
    EXPECT_EQ(Iterator_Class_2D(id, frame_mask, nullptr, 0), frames[0]);
    hostkit::Object_2D_Remove(frames[1]);
    EXPECT_EQ(Iterator_Class_2D(id, frame_mask, nullptr, 0), nullptr);
    Iterator_End(id);
    EXPECT_EQ(all(), (Objects{frames[0], frames[2]}));
}
