#include "hostkit/structures/segmentation.h"
#include "tests/workbench/shell/shell_test.h"
#include "workbench/shell/elided_label.h"
#include "workbench/shell/theme.h"

#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>

using namespace workbench;

namespace {

bool holdsText(const QWidget* widget)
{
    const auto* label = qobject_cast<const QLabel*>(widget);
    const auto* button = qobject_cast<const QPushButton*>(widget);
    return (label && !label->text().isEmpty()) || (button && !button->text().isEmpty());
}

class Layout : public test::Shell {
protected:
    ~Layout() override { theme::setInterfaceSize(100); }

    // Every text has the room it asks for, and lies inside of what it is part of.
    void expectNothingClipped()
    {
        int texts = 0;
        for (const QWidget* widget : window.findChildren<QWidget*>()) {
            if (!widget->isVisible() || !holdsText(widget))
                continue;
            ++texts;
            const QString what =
                QStringLiteral("%1 \"%2\"").arg(widget->metaObject()->className(), widget->property("text").toString());
            EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << what.toStdString();
            EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << what.toStdString();
            EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << what.toStdString();
        }
        EXPECT_GT(texts, 6);
    }

    void expectNothingOverlaps()
    {
        for (const QWidget* parent : window.findChildren<QWidget*>())
            expectSiblingsApart(*parent);
    }

    void expectSiblingsApart(const QWidget& parent)
    {
        const auto children = parent.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (const QWidget* one : children) {
            for (const QWidget* other : children) {
                const bool shown = one->isVisible() && other->isVisible() && !other->isWindow();
                if (one == other || !shown || !holdsText(one))
                    continue;
                EXPECT_FALSE(one->geometry().intersects(other->geometry()))
                    << one->property("text").toString().toStdString() << " and " << other->metaObject()->className();
            }
        }
    }

    void expectRoomForAll()
    {
        Driver::settle();
        expectNothingClipped();
        expectNothingOverlaps();
        EXPECT_EQ(window.size(), QSize(1024, 700));
    }

    void lookAt(const QString& name)
    {
        showImage({181, 217, 9});
        paint();
        hostkit::Tag_Label_Set(1, "Liver");
        Fct_Update(1ull << 47, nullptr, nullptr, nullptr);
        driver.moveTo(window.view(), window.view().positionOf(90, 108).toPoint());
        expectRoomForAll();
        test::keepPicture(window, name);
        window.statusLine().showWork("Opening ch2.nii.gz");
        window.statusLine().showProgress(40);
        expectRoomForAll();
        test::keepPicture(window, name + QStringLiteral("-working"));
    }
};

class LayoutOfSize : public Layout, public ::testing::WithParamInterface<int> {};

QString scaleText()
{
    return QString::number(qApp->devicePixelRatio() * 100);
}

}

TEST_F(Layout, HoldsItsTextsInTheSmallestWindow)
{
    lookAt(QStringLiteral("workbench-1024x700-scale-%1").arg(scaleText()));
}

TEST_P(LayoutOfSize, HoldsItsTexts)
{
    window.setInterfaceSize(GetParam());
    lookAt(QStringLiteral("workbench-interface-%1-scale-%2").arg(GetParam()).arg(scaleText()));
}

INSTANTIATE_TEST_SUITE_P(Percent, LayoutOfSize, ::testing::ValuesIn(theme::interfaceSizes));

TEST_F(Layout, TheTagPanelShowsAllRowsWhereTheyFit)
{
    EXPECT_EQ(window.panels().tagWidget().height(), Tool_Tag().Height(4));
}

TEST_F(Layout, TheInterfaceSizeChangesThePanels)
{
    const int tags = window.panels().tagWidget().height();
    const int brushes = window.panels().brushWidget().height();
    window.setInterfaceSize(200);
    Driver::settle();
    EXPECT_GT(window.panels().tagWidget().height(), 3 * tags / 2);
    EXPECT_GT(window.panels().brushWidget().height(), 3 * brushes / 2);
    window.setInterfaceSize(100);
    Driver::settle();
    EXPECT_EQ(window.panels().tagWidget().height(), tags);
    EXPECT_EQ(window.panels().brushWidget().height(), brushes);
}

TEST_F(Layout, ALongMessageIsShortenedNotClipped)
{
    const QString text = QString("A long word to the user. ").repeated(40);
    window.statusLine().say(text);
    Driver::settle();
    EXPECT_EQ(window.width(), 1024);
    EXPECT_EQ(window.statusLine().findChild<QWidget*>("message")->toolTip(), text.simplified());
}

// The screen's scale is fixed when a program starts: the same tests in programs of their own.
TEST(LayoutAtScale, HoldsItsTextsAt150And200Percent)
{
    if (qEnvironmentVariableIsSet("QT_SCALE_FACTOR"))
        return;
    for (const char* scale : {"1.5", "2"}) {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_SCALE_FACTOR", scale);
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=Layout.*:Percent/*"});
        ASSERT_TRUE(program.waitForFinished(120000));
        const std::string output = program.readAll().toStdString();
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0) << output;
        EXPECT_NE(output.find("[  PASSED  ] 8 tests"), std::string::npos) << output;
    }
}
