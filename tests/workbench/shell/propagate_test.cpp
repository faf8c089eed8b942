#include "tests/workbench/shell/shell_test.h"

#include "hostkit/structures/registry.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <numbers>

using namespace workbench;
using document::CarryMode;

namespace {

class Propagate : public test::Shell {
protected:
    // Five slices, the middle one shown and painted on.
    Propagate()
    {
        showImage();
        paint();
    }

    PropagateSection& section() { return window.panels().propagation(); }
    QWidget& panel() { return section().panelWidget(); }
    QComboBox& mode() { return *section().findChild<QComboBox*>(); }
    QSpinBox& count() { return *section().findChild<QSpinBox*>(); }
    QPushButton& button(const QString& text)
    {
        for (auto* found : section().findChildren<QPushButton*>())
            if (found->text() == text)
                return *found;
        throw std::runtime_error("no such button");
    }
    void press(QWidget& widget) { driver.click(widget, widget.rect().center()); }

    // In the panel: two buttons at the ends of the row, the list between them.
    QPoint inRow(double along) { return {static_cast<int>(along * panel().width()), panel().height() - 12}; }
    void pressDown() { driver.click(panel(), inRow(0.12)); }
    void pressUp() { driver.click(panel(), inRow(0.88)); }

    std::size_t painted(int z) const
    {
        const auto tags = session.labels().frame(z);
        return tags.size() - static_cast<std::size_t>(std::ranges::count(tags, std::uint8_t{0}));
    }
    bool areAlike(int z, int other) const
    {
        return std::ranges::equal(session.labels().frame(z), session.labels().frame(other));
    }
};

}

TEST_F(Propagate, UpCarriesTheTagsToTheNextSlice)
{
    ASSERT_GT(painted(2), 0u);
    pressUp();
    EXPECT_EQ(session.frame(), 3);
    EXPECT_TRUE(areAlike(2, 3));
    EXPECT_EQ(session.undoStack().undoText(), "Propagate to slice 4");
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(painted(3), 0u);
}

TEST_F(Propagate, DownCarriesTheTagsToThePreviousSlice)
{
    pressDown();
    pressDown();
    pressDown();
    EXPECT_EQ(session.frame(), 0);
    EXPECT_TRUE(areAlike(2, 0));
    EXPECT_EQ(session.undoStack().count(), 3);
}

TEST_F(Propagate, TheInterfaceIsFreeAgainAfterwards)
{
    pressUp();
    EXPECT_EQ(hostkit::Variable<unsigned char>("$INTERFACE_LOCK_FOCUS"), 0);
}

TEST_F(Propagate, TheWheelOverTheListOnlyChangesTheSlice)
{
    driver.wheel(panel(), inRow(0.5), -1);
    EXPECT_EQ(session.frame(), 3);
    EXPECT_EQ(painted(3), 0u);
}

TEST_F(Propagate, KeysOverTheListChangeTheSlice)
{
    driver.moveTo(panel(), inRow(0.5));
    driver.key(Qt::Key_Right);
    EXPECT_EQ(session.frame(), 3);
    driver.key(Qt::Key_Home);
    EXPECT_EQ(session.frame(), 0);
}

TEST_F(Propagate, ShortcutsDoWhatThePanelDoes)
{
    driver.key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(session.frame(), 3);
    EXPECT_TRUE(areAlike(2, 3));
    driver.key(Qt::Key_PageUp, Qt::ControlModifier);
    driver.key(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(session.frame(), 1);
    EXPECT_TRUE(areAlike(2, 1));
}

TEST_F(Propagate, TheListChoosesHow)
{
    ASSERT_EQ(mode().currentText(), "Add");
    mode().setFocus();
    driver.key(Qt::Key_Down);
    EXPECT_EQ(session.carryMode(), CarryMode::replace);
    driver.key(Qt::Key_Down);
    EXPECT_EQ(session.carryMode(), CarryMode::adapt);
    session.setCarryMode(CarryMode::add);
    EXPECT_EQ(mode().currentText(), "Add");
}

TEST_F(Propagate, OverSeveralSlicesAtOnce)
{
    count().setValue(2);
    press(button("Up"));
    waitUntilIdle();
    EXPECT_EQ(session.frame(), 4);
    EXPECT_TRUE(areAlike(2, 3));
    EXPECT_TRUE(areAlike(2, 4));
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(painted(3) + painted(4), 0u);

    session.setFrame(2);
    driver.key(Qt::Key_PageUp, Qt::ControlModifier | Qt::ShiftModifier);
    waitUntilIdle();
    EXPECT_EQ(session.frame(), 0);
    EXPECT_TRUE(areAlike(2, 0));
}

TEST_F(Propagate, OverNoMoreSlicesThanThereAre)
{
    count().setValue(100);
    QStringList works;
    QObject::connect(
        &window.files().worker(), &Worker::started, &section(), [&](const QString& title) { works << title; });
    press(button("Up"));
    waitUntilIdle();
    EXPECT_EQ(session.frame(), 4);
    session.setFrame(1);
    press(button("Down"));
    waitUntilIdle();
    EXPECT_EQ(session.frame(), 0);
    EXPECT_EQ(works, QStringList({"Propagating over 2 slices", "Propagating to slice 1"}));
}

TEST_F(Propagate, AtTheEndsTheButtonsAreGreyedAndTheKeysSayWhy)
{
    const std::pair<int, Qt::Key> ends[] = {{0, Qt::Key_PageUp}, {4, Qt::Key_PageDown}};
    for (const auto& [end, key] : ends) {
        session.setFrame(end);
        EXPECT_EQ(button("Down").isEnabled(), end != 0);
        EXPECT_EQ(button("Up").isEnabled(), end != 4);
        for (const auto shift : {Qt::NoModifier, Qt::ShiftModifier}) {
            window.statusLine().say({});
            driver.key(key, Qt::ControlModifier | shift);
            EXPECT_EQ(window.statusLine().message(), end == 0 ? "This is the first slice: there is none before it."
                                                              : "This is the last slice: there is none after it.");
            EXPECT_FALSE(window.files().busy());
        }
    }
    session.setFrame(2);
    EXPECT_TRUE(button("Down").isEnabled() && button("Up").isEnabled());
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(Propagate, TheSectionIsTitledByItsPanelOnly)
{
    for (const auto* label : window.findChildren<QLabel*>())
        EXPECT_NE(label->text(), "Propagate");
}

TEST_F(Propagate, CancelLeavesEverythingAsItWas)
{
    showImage({300, 300, 60});
    auto& view = window.view(); // from corner to corner: all of each slice is compared
    driver.drag(view, {view.positionOf(1, 1).toPoint(), view.positionOf(298, 298).toPoint()});
    session.setCarryMode(CarryMode::adapt);
    const auto steps = session.undoStack().count();
    count().setValue(29);
    press(button("Up"));
    ASSERT_TRUE(window.files().busy());
    int refusals = 0;
    const auto count_refusal = [&](const QString& text) { refusals += text == Worker::busyText(); };
    QObject::connect(&window.files(), &Files::said, &section(), count_refusal);
    QObject::connect(&section(), &PropagateSection::said, &section(), count_refusal);
    window.files().open({path("other.nii")}); // not now
    press(button("Down"));
    EXPECT_EQ(refusals, 2);
    emit window.statusLine().cancelled();
    waitUntilIdle();
    EXPECT_EQ(session.undoStack().count(), steps);
    EXPECT_EQ(session.frame(), 30);
    EXPECT_EQ(painted(31), 0u);
    EXPECT_EQ(window.statusLine().message(), "Stopped. Nothing has changed.");
}

TEST_F(Propagate, AnotherImageIsFollowed)
{
    showImage({30, 20, 3});
    paint();
    pressUp();
    EXPECT_EQ(session.frame(), 2);
    EXPECT_TRUE(areAlike(1, 2));
    pressUp(); // greyed at the last slice
    EXPECT_EQ(session.frame(), 2);
    EXPECT_EQ(session.undoStack().count(), 2);
}

TEST_F(Propagate, ASingleSliceHasNothingToPress)
{
    showImage({40, 30, 1});
    EXPECT_FALSE(button("Up").isEnabled());
    EXPECT_FALSE(button("Down").isEnabled());
    paint();
    pressUp();
    pressDown();
    driver.key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(Propagate, PictureOfTheSection)
{
    pressUp();
    driver.moveTo(window.view(), {10, 10});
    test::keepPicture(window, "propagate-section");
}

TEST_F(Propagate, PictureOfARegionThatWasAdapted)
{
    auto head = document::open({"/usr/share/mricron/templates/ch2.nii.gz"});
    ASSERT_TRUE(head) << head.failure().message;
    ASSERT_FALSE(session.adoptImage(std::move(*head)));
    Driver::settle();
    session.setFrame(78); // through the lateral ventricles
    session.setCurrentTag(3);
    session.setCurrentBrush(3);
    const auto place = [&](double angle) {
        return window.view().positionOf(90 + int(40 * std::cos(angle)), 105 + int(55 * std::sin(angle))).toPoint();
    };
    std::vector<QPoint> outline;
    for (int i = 0; i <= 32; ++i)
        outline.push_back(place(2 * std::numbers::pi * i / 32));
    driver.drag(window.view(), outline);
    test::keepPicture(window, "propagate-before");
    session.setCarryMode(CarryMode::adapt);
    driver.key(Qt::Key_PageDown, Qt::ControlModifier | Qt::ShiftModifier);
    waitUntilIdle();
    EXPECT_EQ(session.frame(), 88);
    EXPECT_GT(painted(88), 0u);
    test::keepPicture(window, "propagate-adapted");
}
