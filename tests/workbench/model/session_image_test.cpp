#include "hostkit/structures/tree.h"
#include "tests/workbench/session_fixture.h"

#include <QSignalSpy>

namespace {

class SessionImage : public test::SessionTest {
protected:
    static Strato_Window* window() { return hostkit::Object_Variable<Strato_Window>("$WINDOW_CUR"); }
    static Strato_2D* series() { return series_in_tree(); }
    static Strato_2D* shown() { return hostkit::Array_Variable<Strato_2D*>("$FRAME_CUR")[window()->Class_B_Get()]; }
};

TEST_F(SessionImage, StartsWithoutOne)
{
    EXPECT_FALSE(session.hasImage());
    EXPECT_FALSE(session.isModified());
    EXPECT_EQ(session.frameCount(), 0);
    EXPECT_EQ(session.frame(), 0);
    EXPECT_TRUE(session.imageName().isEmpty());
    ASSERT_NE(window(), nullptr);
    EXPECT_STREQ(window()->Name_Get(), "View");
    session.setFrame(5); // nothing to show, nothing happens
    session.setPointer(QPointF(1, 1));
    session.endStroke();
    EXPECT_FALSE(session.beginStroke({0, 0}, false).isEmpty());
}

TEST_F(SessionImage, OpeningBuildsItsFaceInTheHost)
{
    open(8, 6, 5);
    ASSERT_EQ(hostkit::Root_2D()->Child_Get_Nb(), 1);
    EXPECT_STREQ(series()->Parent_Get_Pt()->Title_Get(), "Study");
    EXPECT_STREQ(series()->Parent_Get_Pt()->Name_Get(), "images");
    EXPECT_STREQ(series()->Title_Get(), "Series");
    EXPECT_STREQ(series()->Name_Get(), "Made");
    EXPECT_STREQ(series()->Child_Get_Pt(4)->Name_Get(), "5, 4 mm");
    ASSERT_EQ(series()->Child_Get_Nb(), 5);
    for (int z = 0; z < 5; ++z) {
        EXPECT_EQ(series()->Child_Get_Pt(z)->Class_Magic_Get(), 0xAABAu);
        EXPECT_EQ(series()->Child_Get_Pt(z)->Class_A_Get(), 0x2FFFu);
    }
    EXPECT_EQ(shown(), series()->Child_Get_Pt(2));
    EXPECT_EQ(series()->Child_Get_Cur(window()), 2);
    EXPECT_EQ(session.frame(), 2);
    EXPECT_EQ(session.imageName(), "made.nii");
    EXPECT_FALSE(session.isModified());
    const auto words = broadcasts();
    EXPECT_EQ(std::count(words.begin(), words.end(), 0x402ull), 1);
}

TEST_F(SessionImage, PanelsHearOfItWhenEverythingIsInPlace)
{
    open(8, 6, 5);
    bool complete = false;
    const auto panel = hostkit::On_Update([&](unsigned long long flags) {
        if (flags == 0x402)
            complete = session.volume().width() == 20 && series_in_tree(1)->Child_Get_Nb() == 3 &&
                       shown() == series_in_tree(1)->Child_Get_Pt(1);
    });
    open(20, 6, 3);
    EXPECT_TRUE(complete);
}

TEST_F(SessionImage, AnotherOneIsShownBesideIt)
{
    open(8, 6, 5);
    session.setPointer(QPointF(1, 1));
    paint({3, 3});
    open(20, 10, 3);
    EXPECT_EQ(hostkit::Root_2D()->Child_Get_Nb(), 1) << "one folder, one study";
    EXPECT_EQ(series()->Child_Get_Nb(), 5);
    EXPECT_EQ(series_in_tree(1)->Child_Get_Nb(), 3);
    EXPECT_EQ(session.frame(), 1);
    EXPECT_EQ(hostkit::Object_Variable<Strato_2D>("$FRAME_OVR"), nullptr);
    EXPECT_EQ(session.labels().tags().size(), 600u);
    EXPECT_EQ(painted(0), 600u);
    EXPECT_TRUE(session.isModified());
    EXPECT_FALSE(session.isImageWorkModified());
    EXPECT_EQ(session.undoStack().count(), 0);
}

TEST_F(SessionImage, WhatCannotBeHeldLeavesTheOldOneOpen)
{
    open(8, 6, 5);
    paint({3, 3});
    const auto before = tags();
    document::Opened huge;
    huge.volume.geometry.size = {1 << 20, 1 << 20, 64};
    const auto failure = session.adoptImage(std::move(huge));
    ASSERT_TRUE(failure);
    EXPECT_NE(failure->message.find("memory"), std::string::npos) << failure->message;
    EXPECT_EQ(tags(), before);
    EXPECT_EQ(session.frameCount(), 5);
    EXPECT_EQ(series()->Child_Get_Nb(), 5);
    session.undoStack().undo();
    EXPECT_EQ(painted(0), before.size());
}

TEST_F(SessionImage, ShowingAFrameTellsTheHost)
{
    open(8, 6, 5);
    QSignalSpy told(&session, &workbench::Session::frameChanged);
    broadcasts();
    session.setFrame(4);
    EXPECT_EQ(shown(), series()->Child_Get_Pt(4));
    EXPECT_EQ(broadcasts(), std::vector<unsigned long long>{0x200000});
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0][0].toInt(), 4);
    session.setFrame(100);
    EXPECT_EQ(session.frame(), 4);
    session.setFrame(-3);
    EXPECT_EQ(session.frame(), 0);
    EXPECT_EQ(told.size(), 2);
}

TEST_F(SessionImage, FollowsAFrameThatAPanelShows)
{
    open(8, 6, 5);
    QSignalSpy told(&session, &workbench::Session::frameChanged);
    {
        const hostkit::Panel_Call call;
        Fct_Change_Child(window(), series()->Child_Get_Pt(1), shown());
        EXPECT_EQ(session.frame(), 1);
        EXPECT_EQ(told.size(), 0);
    }
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0][0].toInt(), 1);
}

TEST_F(SessionImage, ShowsTheFirstSelectedFrame)
{
    open(8, 6, 5);
    auto* const display_state = reinterpret_cast<void*>(4);
    series()->Flag_Set_Off(32, display_state, 512);
    Fct_Update(0x102, nullptr, nullptr, nullptr);
    EXPECT_EQ(session.frame(), 2) << "none is selected";
    for (const int z : {3, 4})
        series()->Child_Get_Pt(z)->Flag_Set_On(16, display_state, 512);
    Fct_Update(0x100, nullptr, nullptr, nullptr);
    EXPECT_EQ(session.frame(), 2);
    Fct_Update(0x102, nullptr, nullptr, nullptr);
    EXPECT_EQ(session.frame(), 3);
    session.setFrame(4);
    Fct_Update(0x102, nullptr, nullptr, nullptr);
    EXPECT_EQ(session.frame(), 4) << "it is selected as well";
}

TEST_F(SessionImage, TellsWhereThePointerIs)
{
    open(8, 6, 5);
    broadcasts();
    session.setPointer(QPointF(2.5, 4.25));
    EXPECT_EQ(hostkit::Object_Variable<Strato_2D>("$FRAME_OVR"), shown());
    const auto* place =
        static_cast<float*>(hostkit::Variable_Define("$MOUSE_FRM", hostkit::Variable_Type::Four_Floats));
    EXPECT_EQ(place[1], 2.5f);
    EXPECT_EQ(place[2], 4.25f);
    session.setPointer({});
    EXPECT_EQ(hostkit::Object_Variable<Strato_2D>("$FRAME_OVR"), nullptr);
    EXPECT_EQ(broadcasts(), (std::vector<unsigned long long>{0x40000, 0x40000}));
}

TEST_F(SessionImage, WindowAndOpacityKeepWithinSense)
{
    open(8, 6, 5);
    const auto suggested = session.window();
    QSignalSpy windows(&session, &workbench::Session::windowChanged);
    session.setWindow({50, -3});
    EXPECT_GT(session.window().width, 0);
    EXPECT_EQ(session.window().centre, 50);
    session.resetWindow();
    EXPECT_EQ(session.window(), suggested);
    EXPECT_EQ(windows.size(), 2);
    session.resetWindow();
    EXPECT_EQ(windows.size(), 2);
    session.setOverlayOpacity(7);
    EXPECT_EQ(session.overlayOpacity(), 1);
    session.setOverlayOpacity(-1);
    EXPECT_EQ(session.overlayOpacity(), 0);
}

TEST(Sessions, EachStartsAfresh)
{
    for (int i = 0; i < 40; ++i) { // more than there can be windows
        workbench::Session session;
        EXPECT_EQ(hostkit::Variable<unsigned short>("$WINDOW_NB"), 1);
        EXPECT_EQ(hostkit::Root_2D()->Child_Get_Nb(), 0);
        EXPECT_FALSE(session.adoptImage(test::made_image(4, 4, 3)));
        session.setCurrentTag(9);
    }
}

}
