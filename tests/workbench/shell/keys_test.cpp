#include "tests/workbench/shell/shell_test.h"

#include <QDialog>

using namespace workbench;

namespace {

class Keys : public test::Shell {
protected:
    void beginEditing(unsigned tag)
    {
        driver.click(window.panels().tagWidget(), tagPlace(tag), Qt::RightButton);
        ASSERT_TRUE(window.panels().editing());
        driver.key(Qt::Key_Backspace);
        for (unsigned digits = tag; digits >= 10; digits /= 10)
            driver.key(Qt::Key_Backspace);
    }
};

}

TEST_F(Keys, LettersGoIntoTheNameBeforeTheyAreShortcuts)
{
    beginEditing(2);
    const unsigned current = session.currentTag();
    driver.type("tlo[");
    driver.key(Qt::Key_Return);
    EXPECT_EQ(session.tagName(2), "tlo[");
    EXPECT_EQ(session.currentTag(), current);
    EXPECT_FALSE(session.isTagLocked(current));
    EXPECT_DOUBLE_EQ(session.overlayOpacity(), 0.5);
}

TEST_F(Keys, NavigationKeysMoveTheCaret)
{
    beginEditing(2);
    driver.type("ac");
    driver.key(Qt::Key_Left);
    driver.type("b");
    driver.key(Qt::Key_Home);
    driver.key(Qt::Key_Delete);
    driver.key(Qt::Key_Return);
    EXPECT_EQ(session.tagName(2), "bc");
}

TEST_F(Keys, EscapeLeavesTheNameAsItWas)
{
    beginEditing(3);
    driver.type("x");
    driver.key(Qt::Key_Escape);
    EXPECT_FALSE(window.panels().editing());
    EXPECT_EQ(session.tagName(3), "");
}

TEST_F(Keys, ARenamingIsAStepOfUndo)
{
    beginEditing(3);
    driver.type("Liver");
    driver.key(Qt::Key_Return);
    ASSERT_EQ(session.tagName(3), "Liver");
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(session.tagName(3), "");
    driver.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(session.tagName(3), "Liver");
}

TEST_F(Keys, LeavingThePanelEndsTheEditAndGivesTheLettersBack)
{
    beginEditing(2);
    driver.moveTo(window.view(), {100, 100});
    ASSERT_FALSE(window.panels().editing());
    const unsigned current = session.currentTag();
    driver.type("t");
    EXPECT_EQ(session.currentTag(), current + 1);
    EXPECT_EQ(session.tagName(2), "");
}

TEST_F(Keys, WhatThePanelLeavesIsAShortcut)
{
    driver.click(window.panels().tagWidget(), tagPlace(5));
    ASSERT_EQ(session.currentTag(), 5u);
    driver.type("t");
    EXPECT_EQ(session.currentTag(), 6u);
    driver.type("l");
    EXPECT_TRUE(session.isTagLocked(6));
    driver.type("l");
    EXPECT_FALSE(session.isTagLocked(6));
    driver.type("T");
    EXPECT_EQ(session.currentTag(), 5u);
}

TEST_F(Keys, NextTagGoesRound)
{
    session.setCurrentTag(session.tagCount() - 1);
    driver.type("t");
    EXPECT_EQ(session.currentTag(), 0u);
    driver.type("T");
    EXPECT_EQ(session.currentTag(), session.tagCount() - 1);
}

TEST_F(Keys, BracketsChooseTheBrush)
{
    session.setCurrentBrush(2);
    driver.type("]");
    EXPECT_EQ(session.currentBrush(), 3u);
    driver.type("[");
    driver.type("[");
    EXPECT_EQ(session.currentBrush(), 1u);
}

TEST_F(Keys, SlicesChangeWhereverTheFocusIs)
{
    showImage();
    ASSERT_EQ(session.frame(), 2);
    driver.click(window.panels().tagWidget(), tagPlace(1));
    ASSERT_FALSE(window.view().hasFocus());
    driver.key(Qt::Key_PageDown);
    EXPECT_EQ(session.frame(), 3);
    driver.key(Qt::Key_Home);
    EXPECT_EQ(session.frame(), 0);
    driver.key(Qt::Key_PageDown);
    driver.key(Qt::Key_PageUp);
    EXPECT_EQ(session.frame(), 0);
}

TEST_F(Keys, OneKeyIsOneStep)
{
    showImage();
    driver.moveTo(window.view(), {200, 200});
    window.view().setFocus();
    driver.key(Qt::Key_PageDown);
    EXPECT_EQ(session.frame(), 3);
    driver.key(Qt::Key_Down);
    EXPECT_EQ(std::abs(session.frame() - 3), 1);
}

TEST_F(Keys, AreAllToldInADialogThatFitsOnASmallScreen)
{
    driver.key(Qt::Key_F1);
    QDialog* help = nullptr;
    for (QDialog* dialog : window.findChildren<QDialog*>())
        help = dialog;
    ASSERT_TRUE(help);
    EXPECT_LE(help->height(), 700);
    EXPECT_LE(help->width(), 1280);
    test::keepPicture(*help, "workbench-key-help");
}
