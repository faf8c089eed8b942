#include "host/basics.h"
#include "tests/workbench/shell/shell_test.h"
#include "workbench/shell/application.h"

#include <QLabel>
#include <QSlider>

#include <stdexcept>

using namespace workbench;

namespace {

using Window = test::Shell;

class Thrower final : public QObject {
public:
    bool event(QEvent*) override { throw std::runtime_error("nothing works"); }
};

}

TEST_F(Window, AClickOnATagMakesItCurrent)
{
    driver.click(window.panels().tagWidget(), tagPlace(7));
    EXPECT_EQ(session.currentTag(), 7u);
}

TEST_F(Window, AClickOnTagZeroIsAChoiceToo)
{
    session.setCurrentTag(4);
    driver.click(window.panels().tagWidget(), tagPlace(0));
    EXPECT_EQ(session.currentTag(), 0u);
}

TEST_F(Window, AClickBesideTheTagsChoosesNone)
{
    session.setCurrentTag(4);
    driver.click(window.panels().tagWidget(), {1, 1});
    EXPECT_EQ(session.currentTag(), 4u);
}

TEST_F(Window, AClickOnABrushChoosesIt)
{
    driver.click(window.panels().brushWidget(), brushPlace(1));
    EXPECT_EQ(session.currentBrush(), 1u);
    driver.click(window.panels().brushWidget(), brushPlace(4));
    EXPECT_EQ(session.currentBrush(), 4u);
}

TEST_F(Window, BrushesHaveShapesFromTheStart)
{
    for (unsigned brush = 0; brush < session.brushCount(); ++brush)
        EXPECT_FALSE(BrushShape::of(brush).empty()) << brush;
}

TEST_F(Window, TheSlicesSliderFollowsAndLeads)
{
    showImage({20, 20, 9});
    auto* slider = window.centralWidget()->findChild<QSlider*>(QString(), Qt::FindChildrenRecursively);
    for (QSlider* one : window.findChildren<QSlider*>()) {
        if (one->maximum() == 8)
            slider = one;
    }
    ASSERT_EQ(slider->maximum(), 8);
    session.setFrame(6);
    EXPECT_EQ(slider->value(), 6);
    slider->setValue(1);
    EXPECT_EQ(session.frame(), 1);
}

TEST_F(Window, TheStatusLineTellsTheVoxelUnderThePointer)
{
    showImage();
    paint();
    driver.moveTo(window.view(), window.view().positionOf(20, 15).toPoint());
    QStringList texts;
    for (const QLabel* label : window.statusLine().findChildren<QLabel*>())
        texts << label->text();
    EXPECT_TRUE(texts.contains("20, 15, 2")) << texts.join("|").toStdString();
    EXPECT_TRUE(texts.contains("20.0, 15.0, 2.0 mm")) << texts.join("|").toStdString();
    const int value = (2 * 40 * 30 + 15 * 40 + 20) % 251;
    EXPECT_TRUE(texts.contains(QString::number(value))) << texts.join("|").toStdString();
    EXPECT_TRUE(texts.contains(session.tagTitle(session.currentTag()))) << texts.join("|").toStdString();
}

TEST_F(Window, TheOpacitySliderAndTheKeysAgree)
{
    driver.type("o");
    EXPECT_NEAR(session.overlayOpacity(), 0.6, 1e-9);
    driver.type("O");
    driver.type("O");
    EXPECT_NEAR(session.overlayOpacity(), 0.4, 1e-9);
    bool shown = false;
    for (const QLabel* label : window.findChildren<QLabel*>())
        shown = shown || label->text() == "40 %";
    EXPECT_TRUE(shown);
}

TEST_F(Window, ALockedTagSaysWhyItDoesNotPaint)
{
    showImage();
    session.toggleLock(session.currentTag());
    paint();
    EXPECT_FALSE(session.isModified());
    EXPECT_TRUE(window.statusLine().message().contains(session.tagTitle(session.currentTag())))
        << window.statusLine().message().toStdString();
}

TEST_F(Window, AWarningOfAPanelIsToldWithoutItsMarkup)
{
    Error_Fct(hwnd, 2,
        "\xf1\x05"
        "WARNING:"
        "\x02"
        " no function");
    EXPECT_EQ(message(), "WARNING: no function");
    EXPECT_EQ(window.statusLine().message(), "WARNING: no function");
}

TEST_F(Window, ANoteOfAPanelIsOnlyInTheStatusLine)
{
    Error_Fct(hwnd, 4, "halfway");
    EXPECT_EQ(message(), "");
    EXPECT_EQ(window.statusLine().message(), "halfway");
}

TEST_F(Window, AnExceptionInAnEventIsToldAndTheProgramGoesOn)
{
    Thrower thrower;
    QCoreApplication::postEvent(&thrower, new QEvent(QEvent::User));
    Driver::settle();
    EXPECT_TRUE(message().contains("nothing works")) << message().toStdString();
    answer(QMessageBox::Ok);
    driver.click(window.panels().tagWidget(), tagPlace(2));
    EXPECT_EQ(session.currentTag(), 2u);
}
