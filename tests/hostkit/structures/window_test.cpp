#include "hostkit/structures/broadcast.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/tree.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

using namespace hostkit;

namespace {

class Windows : public ::testing::Test {
protected:
    Windows()
    {
        Tree_Reset();
        Registry_Reset();
        series = Object_2D_Add(Root_2D(), {.name = "T1"});
        for (int i = 0; i < 3; ++i)
            frames.push_back(Frame_Add(series, {.class_a = frame_class, .magic = frame_magic}));
    }
    ~Windows() override { Tree_Reset(); }

    Strato_2D* series;
    std::vector<Strato_2D*> frames;
};

}

TEST_F(Windows, AreNumberedAndTheFirstIsCurrent)
{
    Strato_Window* first = Window_Add("one");
    Strato_Window* second = Window_Add("two");
    EXPECT_EQ(first->Class_B_Get(), 0u);
    EXPECT_EQ(second->Class_B_Get(), 1u);
    EXPECT_EQ(Object_Variable<Strato_Window>("$WINDOW_CUR"), first);
    EXPECT_EQ(Variable<unsigned short>("$WINDOW_NB"), 2);
    EXPECT_STREQ(second->Name_Get(), "two");
}

TEST_F(Windows, ChangingTheChildShowsItAtOnceAndTellsAfterwards)
{
    Strato_Window* window = Window_Add("one");
    std::vector<unsigned long long> updates, redraws;
    const auto update = On_Update([&](unsigned long long flags) { updates.push_back(flags); });
    const auto redraw = On_Redraw([&](unsigned long long mask) { redraws.push_back(mask); });
    {
        const Panel_Call call;
        Fct_Change_Child(window, frames[2], nullptr);
        EXPECT_EQ(Array_Variable<Strato_2D*>("$FRAME_CUR")[0], frames[2]);
        EXPECT_EQ(series->Child_Get_Cur(window), 2);
        EXPECT_TRUE(updates.empty());
    }
    EXPECT_EQ(updates, (std::vector<unsigned long long>{0x200000}));
    EXPECT_EQ(redraws, (std::vector<unsigned long long>{1}));
}

TEST_F(Windows, ChangingToTheSameChildStillTells)
{
    Strato_Window* window = Window_Add("one");
    Fct_Change_Child(window, frames[0], nullptr);
    int told = 0;
    const auto update = On_Update([&](unsigned long long) { ++told; });
    Fct_Change_Child(window, frames[0], frames[0]);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(Window_Frame(window), frames[0]);
}

TEST_F(Windows, NothingHappensWithoutAWindowOrAFrame)
{
    Strato_Window* window = Window_Add("one");
    int told = 0;
    const auto update = On_Update([&](unsigned long long) { ++told; });
    Fct_Change_Child(nullptr, frames[0], nullptr);
    Fct_Change_Child(window, nullptr, nullptr);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(Window_Frame(window), nullptr);
}

TEST_F(Windows, ASeriesThatIsNotShownHasNoCurrentChild)
{
    Strato_Window* window = Window_Add("one");
    EXPECT_EQ(series->Child_Get_Cur(window), -1);
    EXPECT_EQ(series->Child_Get_Cur(nullptr), -1);
    Fct_Change_Child(window, frames[1], nullptr);
    Strato_2D* other = Object_2D_Add(Root_2D(), {});
    EXPECT_EQ(other->Child_Get_Cur(window), -1);
    EXPECT_EQ(series->Child_Get_Cur(window), 1);
}

TEST_F(Windows, AnotherBecomesCurrentAndPanelsHearOfIt)
{
    Window_Add("one");
    Strato_Window* second = Window_Add("two");
    std::vector<unsigned long long> updates;
    const auto update = On_Update([&](unsigned long long flags) { updates.push_back(flags); });
    EXPECT_TRUE(Window_Make_Current(second));
    EXPECT_EQ(Object_Variable<Strato_Window>("$WINDOW_CUR"), second);
    EXPECT_EQ(updates, (std::vector<unsigned long long>{0x100000}));
    EXPECT_TRUE(Window_Make_Current(second));
    EXPECT_EQ(updates.size(), 1u) << "nothing has changed";
}

TEST_F(Windows, WhileTheFocusIsLockedTheCurrentOneStays)
{
    Strato_Window* first = Window_Add("one");
    Strato_Window* second = Window_Add("two");
    int told = 0;
    const auto update = On_Update([&](unsigned long long) { ++told; });
    Variable<unsigned char>("$INTERFACE_LOCK_FOCUS") = 1;
    EXPECT_FALSE(Window_Make_Current(second));
    EXPECT_TRUE(Window_Make_Current(first));
    EXPECT_EQ(Object_Variable<Strato_Window>("$WINDOW_CUR"), first);
    EXPECT_EQ(told, 0);
    Variable<unsigned char>("$INTERFACE_LOCK_FOCUS") = 0;
    EXPECT_TRUE(Window_Make_Current(second));
}

TEST_F(Windows, ThereAreAtMostSixteen)
{
    for (int i = 0; i < 16; ++i)
        Window_Add("one");
    EXPECT_THROW(Window_Add("one too many"), std::length_error);
    EXPECT_EQ(Variable<unsigned short>("$WINDOW_NB"), 16);
}
