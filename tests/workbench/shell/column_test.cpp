#include "workbench/shell/tool_column.h"

#include "tests/workbench/shell/shell_test.h"

#include <QCoreApplication>
#include <QLabel>
#include <QScrollBar>
#include <QWheelEvent>

using namespace workbench;

namespace {

class Column : public test::Shell {
protected:
    ToolColumn& column() { return *window.findChild<ToolColumn*>(); }
    QScrollBar& bar() { return *column().verticalScrollBar(); }
    QLabel& title() { return *column().widget()->findChild<QLabel*>(); }

    // So low that the column has to scroll.
    void makeLow()
    {
        window.setMinimumSize(1, 1);
        window.resize(1024, 250);
        Driver::settle();
        ASSERT_GT(bar().maximum(), 0);
        ASSERT_EQ(bar().value(), 0);
    }
};

}

TEST_F(Column, HasNoBarWhenEverythingFits)
{
    window.resize(1280, 1200);
    Driver::settle();
    EXPECT_FALSE(bar().isVisible());
    EXPECT_EQ(bar().maximum(), 0);
}

TEST_F(Column, ShowsItsBarWhenItIsLow)
{
    makeLow();
    EXPECT_TRUE(bar().isVisible());
}

TEST_F(Column, WheelOverATitleScrollsTheColumn)
{
    makeLow();
    driver.wheel(title(), {5, 5}, -1);
    EXPECT_GT(bar().value(), 0);
}

TEST_F(Column, WheelOverAGapScrollsTheColumn)
{
    makeLow();
    driver.wheel(column(), {2, 60}, -1);
    EXPECT_GT(bar().value(), 0);
}

TEST_F(Column, WheelOverThePanelsIsTheirs)
{
    makeLow();
    driver.wheel(window.panels().tagWidget(), {20, 20}, -1);
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(Column, AltAndWheelScrollTheColumnOverThePanels)
{
    makeLow();
    driver.wheel(window.panels().tagWidget(), {20, 20}, -1, Qt::AltModifier);
    EXPECT_GT(bar().value(), 0);
    driver.wheel(window.panels().tagWidget(), {20, 60}, 1, Qt::AltModifier);
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(Column, AltAndTheWheelTurnedOnItsSideScrollTheColumn)
{
    makeLow();
    QWidget& panel = window.panels().tagWidget();
    const QPointF place(20, 20);
    QWheelEvent event(
        place, panel.mapToGlobal(place), {}, {-120, 0}, Qt::NoButton, Qt::AltModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&panel, &event);
    EXPECT_GT(bar().value(), 0);
}

TEST_F(Column, PanelsFollowItsWidth)
{
    const int before = window.panels().tagWidget().width();
    column().setMinimumWidth(400);
    Driver::settle();
    EXPECT_EQ(window.panels().tagWidget().width(), before + 400 - 280);
    EXPECT_EQ(window.panels().tagWidget().width(), window.panels().brushWidget().width());
}

TEST_F(Column, IsNeverNarrowerThanThePanelsNeed)
{
    EXPECT_EQ(column().minimumWidth(), ToolColumn::narrowest);
}
