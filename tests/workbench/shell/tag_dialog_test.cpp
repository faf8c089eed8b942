#include "tests/workbench/shell/shell_test.h"
#include "workbench/shell/colour_button.h"
#include "workbench/shell/tag_dialog.h"

#include <QApplication>
#include <QColorDialog>
#include <QLabel>
#include <QLineEdit>

using namespace workbench;

namespace {

class TagDialogOf : public test::Shell {
protected:
    // With a CT on the screen and the pointer away from the panels.
    void openDialog(unsigned tag)
    {
        document::Opened opened;
        opened.volume.geometry.size = {8, 8, 1};
        opened.volume.pixels = document::PixelMemory::allocate(64);
        opened.volume.unit = "HU";
        opened.volume.frames.resize(1);
        ASSERT_FALSE(session.adoptImage(std::move(opened)));
        session.setCurrentTag(tag);
        driver.moveTo(window.view(), {100, 100});
        window.activateWindow(); // no window manager does it when another dialog has closed
        ASSERT_TRUE(Driver::waitFor([this] { return window.isActiveWindow(); }));
        driver.key(Qt::Key_E);
    }

    static TagDialog* dialog() { return qobject_cast<TagDialog*>(QApplication::activeModalWidget()); }

    static QString problem()
    {
        for (const QLabel* label : dialog()->findChildren<QLabel*>()) {
            if (label->property("role") == "problem")
                return label->isVisible() ? label->text() : QString();
        }
        return "no label";
    }

    void clearField()
    {
        driver.key(Qt::Key_A, Qt::ControlModifier);
        driver.key(Qt::Key_Delete);
    }

    // Into the two fields for grey values, then Enter.
    void enter(const QString& lower, const QString& upper)
    {
        driver.key(Qt::Key_G, Qt::AltModifier);
        clearField();
        driver.type(lower);
        driver.key(Qt::Key_Tab);
        clearField();
        driver.type(upper);
        driver.key(Qt::Key_Return);
    }
};

}

TEST_F(TagDialogOf, NamesColoursAndBoundsATagByKeysAlone)
{
    openDialog(3);
    ASSERT_TRUE(dialog());
    EXPECT_EQ(dialog()->windowTitle(), "Edit tag 3");
    driver.type("Liver");
    driver.key(Qt::Key_Tab);
    driver.key(Qt::Key_Space);
    auto* colours = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(colours);
    colours->setCurrentColor(QColor(10, 200, 30));
    driver.key(Qt::Key_Return);
    ASSERT_TRUE(dialog());
    driver.key(Qt::Key_Tab);
    driver.type("-150.5");
    driver.key(Qt::Key_Tab);
    driver.type("200");
    test::keepPicture(*dialog(), "tag-dialog");
    driver.key(Qt::Key_Return);
    EXPECT_FALSE(dialog());
    EXPECT_EQ(session.tagName(3), "Liver");
    EXPECT_EQ(session.tagColour(3), QColor(10, 200, 30));
    EXPECT_EQ(session.thresholds(3), (Thresholds{-150.5, 200}));
    EXPECT_EQ(session.undoStack().undoText(), "Edit Liver");
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(TagDialogOf, ShowsWhatTheTagHasAndChangesNothingOfItself)
{
    auto entry = session.tagEntry(3);
    entry.name = " Liver ";
    entry.opacity = 0.5f;
    entry.thresholds = Thresholds{-1024, 1.0 / 3};
    session.editTag(entry);
    openDialog(3);
    ASSERT_TRUE(dialog());
    QStringList texts;
    for (const QLineEdit* field : dialog()->findChildren<QLineEdit*>())
        texts << field->text();
    EXPECT_EQ(texts.join('|'), " Liver |-1024|0.3333333333333333");
    EXPECT_EQ(dialog()->findChild<ColourButton*>()->text().trimmed(), session.tagColour(3).name());
    bool unit = false;
    for (const QLabel* label : dialog()->findChildren<QLabel*>())
        unit = unit || label->text() == "HU";
    EXPECT_TRUE(unit);
    driver.key(Qt::Key_Return);
    EXPECT_FALSE(dialog());
    EXPECT_EQ(session.tagEntry(3), entry);
    EXPECT_EQ(session.undoStack().count(), 0); // gone with the image before
}

TEST_F(TagDialogOf, EscapeAndCancelLeaveTheTag)
{
    openDialog(3);
    ASSERT_TRUE(dialog());
    driver.type("Liver");
    driver.key(Qt::Key_Escape);
    EXPECT_FALSE(dialog());
    openDialog(3);
    ASSERT_TRUE(dialog());
    driver.type("Liver");
    driver.key(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(Driver::waitFor([] { return !dialog(); }));
    EXPECT_EQ(session.tagName(3), "");
    EXPECT_EQ(session.undoStack().count(), 0);
}

TEST_F(TagDialogOf, ApplyShowsTheChangeAndGoesOn)
{
    openDialog(3);
    ASSERT_TRUE(dialog());
    driver.type("Liver");
    driver.key(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(Driver::waitFor([this] { return session.tagName(3) == "Liver"; }));
    ASSERT_TRUE(dialog());
    enter("1", "2");
    EXPECT_FALSE(dialog());
    EXPECT_EQ(session.undoStack().count(), 2);
    EXPECT_EQ(session.undoStack().undoText(), "Set thresholds of Liver");
}

TEST_F(TagDialogOf, EmptyFieldsAreNoThresholds)
{
    session.setThresholds(3, Thresholds{1, 2});
    openDialog(3);
    ASSERT_TRUE(dialog());
    enter(" ", "");
    EXPECT_FALSE(dialog());
    EXPECT_EQ(session.thresholds(3), std::nullopt);
    EXPECT_EQ(session.undoStack().undoText(), "Clear thresholds of Tag 3");
}

TEST_F(TagDialogOf, SaysWhatIsWrongWithTheGreyValues)
{
    openDialog(3);
    ASSERT_TRUE(dialog());
    const struct {
        const char *lower, *upper, *problem;
        int wrong; // field, from 0: the name
    } wrong[] = {
        {"low", "2", "\"low\" is no number. Write it like -150 or 0.5, with a point.", 1},
        {"1", "2,5", "\"2,5\" is no number. Write it like -150 or 0.5, with a point.", 2},
        {"1", "inf", "\"inf\" is no number. Write it like -150 or 0.5, with a point.", 2},
        {"1", "", "A lower and an upper grey value belong together. Fill in both, or leave both empty.", 2},
        {"", "1", "A lower and an upper grey value belong together. Fill in both, or leave both empty.", 1},
        {"200", "100.5", "The lower grey value 200 is above the upper one, 100.5.", 1},
    };
    for (const auto& [lower, upper, expected, field] : wrong) {
        enter(lower, upper);
        ASSERT_TRUE(dialog()) << lower << " to " << upper;
        EXPECT_EQ(problem(), expected);
        EXPECT_TRUE(dialog()->findChildren<QLineEdit*>()[field]->hasFocus()) << lower << " to " << upper;
    }
    test::keepPicture(*dialog(), "tag-dialog-problem");
    driver.type("1");
    EXPECT_EQ(problem(), "");
    EXPECT_EQ(session.undoStack().count(), 0);
    driver.key(Qt::Key_Return);
    EXPECT_FALSE(dialog());
    EXPECT_EQ(session.thresholds(3), (Thresholds{1, 100.5}));
}

TEST_F(TagDialogOf, TheBackgroundHasNothingToEdit)
{
    openDialog(0);
    EXPECT_FALSE(dialog());
    EXPECT_TRUE(window.statusLine().message().startsWith("The background"))
        << window.statusLine().message().toStdString();
}

TEST_F(TagDialogOf, IsDrawnAtTwiceTheSize)
{
    window.setInterfaceSize(200);
    openDialog(3);
    ASSERT_TRUE(dialog());
    test::keepPicture(*dialog(), "tag-dialog-200");
    EXPECT_LE(dialog()->width(), window.width());
    window.setInterfaceSize(100);
    driver.key(Qt::Key_Escape);
}
