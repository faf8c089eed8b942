#include "tests/workbench/view/image_view_fixture.h"

#include <QApplication>
#include <QMouseEvent>

#include <QSignalSpy>

namespace {

using workbench::Voxel;

class ImageView : public test::ImageViewTest {
protected:
    ImageView()
    {
        session.setCurrentTag(3);
        choose_brush_of_radius(2);
    }
    std::uint8_t tag_at(int x, int y) const { return session.labels().at(x, y, session.frame()); }
};

TEST_F(ImageView, FindsTheVoxelUnderAPosition)
{
    EXPECT_EQ(view.zoom(), 10);
    EXPECT_EQ(view.voxelAt({0, 0}), (Voxel{0, 0, 4}));
    EXPECT_EQ(view.voxelAt({9.9, 10.1}), (Voxel{0, 1, 4}));
    EXPECT_EQ(view.voxelAt(view.positionOf(39, 29)), (Voxel{39, 29, 4}));
    EXPECT_FALSE(view.voxelAt({-0.5, 10}));
    EXPECT_FALSE(view.voxelAt({10, 300.5}));
}

TEST_F(ImageView, LeftDragPaintsWithoutGaps)
{
    drag(at(3, 5), at(35, 20), Qt::LeftButton);
    for (int x = 3; x <= 35; ++x)
        EXPECT_EQ(tag_at(x, 5 + int(std::lround((x - 3) * 15 / 32.0))), 3) << x;
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(ImageView, ShiftErases)
{
    drag(at(3, 5), at(35, 5), Qt::LeftButton);
    drag(at(20, 1), at(20, 9), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(tag_at(20, 5), 0);
    EXPECT_EQ(tag_at(10, 5), 3);
    EXPECT_EQ(session.undoStack().undoText(), "Erase");
}

TEST_F(ImageView, SaysWhyALockedTagIsNotPainted)
{
    session.toggleLock(3);
    QSignalSpy refused(&view, &workbench::ImageView::strokeRefused);
    drag(at(3, 5), at(35, 5), Qt::LeftButton);
    ASSERT_EQ(refused.size(), 1);
    EXPECT_TRUE(refused[0][0].toString().contains("Tag 3 is locked"));
    EXPECT_EQ(painted(3), 0u);
}

TEST_F(ImageView, TwoQuickStrokesAreTwoStrokes)
{
    drag(at(3, 5), at(8, 5), Qt::LeftButton);
    QMouseEvent second(QEvent::MouseButtonDblClick, at(3, 20), view.mapToGlobal(at(3, 20)), Qt::LeftButton,
        Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &second);
    move(at(8, 20), Qt::LeftButton);
    release(at(8, 20));
    EXPECT_EQ(tag_at(8, 20), 3);
    EXPECT_EQ(session.undoStack().count(), 2);
}

TEST_F(ImageView, EscapeTakesTheStrokeBack)
{
    press(at(3, 5));
    move(at(30, 5), Qt::LeftButton);
    EXPECT_GT(painted(3), 0u);
    press_key(Qt::Key_Escape);
    EXPECT_EQ(painted(3), 0u);
    move(at(30, 25), Qt::LeftButton);
    release(at(30, 25));
    EXPECT_EQ(painted(3), 0u);
    EXPECT_EQ(session.undoStack().count(), 0);
}

TEST_F(ImageView, AnotherButtonDoesNotDisturbAStroke)
{
    press(at(3, 5));
    press(at(10, 5), Qt::RightButton);
    const auto window = session.window();
    move(at(30, 20), Qt::LeftButton | Qt::RightButton);
    release(at(30, 20), Qt::RightButton);
    EXPECT_EQ(session.window(), window);
    EXPECT_TRUE(session.isPainting());
    release(at(30, 20));
    EXPECT_EQ(tag_at(30, 20), 3);
}

TEST_F(ImageView, ALostReleaseEndsTheStroke)
{
    press(at(3, 5));
    move(at(10, 5), Qt::LeftButton);
    move(at(10, 25)); // no button is held any more
    EXPECT_FALSE(session.isPainting());
    EXPECT_EQ(tag_at(10, 25), 0);
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(ImageView, RightDragChangesTheWindow)
{
    const auto before = session.window();
    drag({100, 100}, {200, 100}, Qt::RightButton);
    EXPECT_GT(session.window().width, before.width);
    EXPECT_EQ(session.window().centre, before.centre);
    session.setWindow(before);
    drag({100, 200}, {100, 100}, Qt::RightButton);
    EXPECT_LT(session.window().centre, before.centre); // brighter
    EXPECT_EQ(session.window().width, before.width);
    EXPECT_EQ(painted(3), 0u);
}

TEST_F(ImageView, DraggingTheWindowThereAndBackChangesNothing)
{
    const auto before = session.window();
    press({100, 100}, Qt::RightButton);
    move({300, 20}, Qt::RightButton);
    move({100, 100}, Qt::RightButton);
    release({100, 100}, Qt::RightButton);
    EXPECT_EQ(session.window(), before);
}

TEST_F(ImageView, MiddleDragMovesThePicture)
{
    view.zoomIn();
    const QPointF before = view.positionOf(20, 15);
    drag({200, 150}, {230, 140}, Qt::MiddleButton);
    EXPECT_EQ(view.positionOf(20, 15), before + QPointF(30, -10));
}

TEST_F(ImageView, SpaceAndLeftDragMovesThePictureAndPaintsNothing)
{
    const QPointF before = view.positionOf(20, 15);
    press_key(Qt::Key_Space);
    EXPECT_EQ(view.cursor().shape(), Qt::OpenHandCursor);
    drag({200, 150}, {230, 140}, Qt::LeftButton);
    release_key(Qt::Key_Space);
    EXPECT_EQ(view.positionOf(20, 15), before + QPointF(30, -10));
    EXPECT_EQ(painted(3), 0u);
    drag({200, 150}, {230, 140}, Qt::LeftButton);
    EXPECT_GT(painted(3), 0u);
}

TEST_F(ImageView, ControlAndWheelZoomsAtThePointer)
{
    const QPoint place(133, 77);
    const auto voxel = view.voxelAt(place);
    for (const int angle : {120, 120, 360, -120, 60}) {
        const double before = view.zoom();
        turn_wheel(place, angle, Qt::ControlModifier);
        EXPECT_EQ(view.zoom() > before, angle > 0);
        EXPECT_EQ(view.voxelAt(place), voxel);
    }
    EXPECT_EQ(session.frame(), 4);
}

TEST_F(ImageView, WheelTurnsFrames)
{
    turn_wheel({10, 10}, -120);
    EXPECT_EQ(session.frame(), 5);
    turn_wheel({10, 10}, 240);
    EXPECT_EQ(session.frame(), 3);
    for (int i = 0; i < 3; ++i)
        turn_wheel({10, 10}, -40); // a fine wheel
    EXPECT_EQ(session.frame(), 4);
    turn_wheel({10, 10}, -12000);
    EXPECT_EQ(session.frame(), 8);
}

TEST_F(ImageView, WheelDoesNotLeaveTheFrameDuringAStroke)
{
    press(at(3, 5));
    turn_wheel(at(3, 5), -120);
    press_key(Qt::Key_Down);
    EXPECT_EQ(session.frame(), 4);
    EXPECT_TRUE(session.isPainting());
    release(at(3, 5));
    turn_wheel(at(3, 5), -120);
    EXPECT_EQ(session.frame(), 5);
}

TEST_F(ImageView, DoubleMiddleClickFits)
{
    turn_wheel({133, 77}, 600, Qt::ControlModifier);
    QMouseEvent click(QEvent::MouseButtonDblClick, QPointF(10, 10), view.mapToGlobal(QPointF(10, 10)), Qt::MiddleButton,
        Qt::MiddleButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &click);
    EXPECT_EQ(view.zoom(), 10);
    EXPECT_EQ(view.voxelAt({0, 0}), (Voxel{0, 0, 4}));
}

TEST_F(ImageView, TellsWhereThePointerIs)
{
    std::vector<std::optional<Voxel>> told;
    QObject::connect(&view, &workbench::ImageView::pointerMoved, [&](auto voxel) { told.push_back(voxel); });
    move(at(3, 5));
    move(at(3, 5) + QPoint(2, 2)); // the same voxel
    move(at(4, 5));
    session.setFrame(6);
    leave();
    EXPECT_EQ(told, (std::vector<std::optional<Voxel>>{Voxel{3, 5, 4}, Voxel{4, 5, 4}, Voxel{4, 5, 6}, std::nullopt}));
}

TEST_F(ImageView, TellsThePanelsWhereThePointerIs)
{
    move(at(3, 5));
    EXPECT_NE(hostkit::Object_Variable<Strato_2D>("$FRAME_OVR"), nullptr);
    const auto* place =
        static_cast<float*>(hostkit::Variable_Define("$MOUSE_FRM", hostkit::Variable_Type::Four_Floats));
    EXPECT_EQ(int(place[1]), 3);
    EXPECT_EQ(int(place[2]), 5);
    leave();
    EXPECT_EQ(hostkit::Object_Variable<Strato_2D>("$FRAME_OVR"), nullptr);
}

}
