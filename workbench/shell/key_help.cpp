#include "workbench/shell/key_help.h"

#include "workbench/shell/theme.h"

#include <QCoreApplication>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>

namespace workbench {

namespace {

struct Entry {
    const char* keys;
    const char* meaning; // empty: `keys` is a heading
};

constexpr Entry entries[] = {
    {QT_TRANSLATE_NOOP("KeyHelp", "Painting"), ""},
    {QT_TRANSLATE_NOOP("KeyHelp", "Left drag"), QT_TRANSLATE_NOOP("KeyHelp", "paint the current tag")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Shift + left drag"), QT_TRANSLATE_NOOP("KeyHelp", "erase")},
    {QT_TRANSLATE_NOOP("KeyHelp", "[   ]"), QT_TRANSLATE_NOOP("KeyHelp", "smaller, larger brush")},
    {QT_TRANSLATE_NOOP("KeyHelp", "T   Shift + T"), QT_TRANSLATE_NOOP("KeyHelp", "next, previous tag")},
    {QT_TRANSLATE_NOOP("KeyHelp", "E"),
        QT_TRANSLATE_NOOP("KeyHelp", "edit the current tag: name, colour, grey values")},
    {QT_TRANSLATE_NOOP("KeyHelp", "L"), QT_TRANSLATE_NOOP("KeyHelp", "lock or unlock the current tag")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Ctrl + Page Down, Page Up"),
        QT_TRANSLATE_NOOP("KeyHelp", "carry the tags to the next, previous slice")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Ctrl + Shift + Page Down, Page Up"),
        QT_TRANSLATE_NOOP("KeyHelp", "carry the tags over several slices")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Escape"), QT_TRANSLATE_NOOP("KeyHelp", "take back the stroke being painted")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Ctrl + Z   Ctrl + Shift + Z"), QT_TRANSLATE_NOOP("KeyHelp", "undo, redo")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Markers"), ""},
    {QT_TRANSLATE_NOOP("KeyHelp", "M"),
        QT_TRANSLATE_NOOP("KeyHelp", "place markers, and end it: a click sets one, a drag moves one")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Alt + left click, Alt + left drag"),
        QT_TRANSLATE_NOOP("KeyHelp", "set or move one at any time")},
    {QT_TRANSLATE_NOOP("KeyHelp", "N   Shift + N"), QT_TRANSLATE_NOOP("KeyHelp", "go to the next, previous marker")},
    {QT_TRANSLATE_NOOP("KeyHelp", "F2"), QT_TRANSLATE_NOOP("KeyHelp", "rename the current marker")},
    {QT_TRANSLATE_NOOP("KeyHelp", "H"), QT_TRANSLATE_NOOP("KeyHelp", "hide or show the current marker")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Delete"),
        QT_TRANSLATE_NOOP("KeyHelp", "delete the marker under the pointer, or the current one")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Looking"), ""},
    {QT_TRANSLATE_NOOP("KeyHelp", "Wheel, Page Up, Page Down"),
        QT_TRANSLATE_NOOP("KeyHelp", "move through the slices")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Right drag"),
        QT_TRANSLATE_NOOP("KeyHelp", "window (sideways) and level (up, down)")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Ctrl + wheel"), QT_TRANSLATE_NOOP("KeyHelp", "zoom at the pointer")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Middle drag, Space + left drag"), QT_TRANSLATE_NOOP("KeyHelp", "move the image")},
    {QT_TRANSLATE_NOOP("KeyHelp", "0"), QT_TRANSLATE_NOOP("KeyHelp", "fit the image into the window")},
    {QT_TRANSLATE_NOOP("KeyHelp", "O   Shift + O"), QT_TRANSLATE_NOOP("KeyHelp", "tags stronger, fainter")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Database"), ""},
    {QT_TRANSLATE_NOOP("KeyHelp", "D"), QT_TRANSLATE_NOOP("KeyHelp", "show or hide it")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Click, drag"),
        QT_TRANSLATE_NOOP("KeyHelp", "select slices; with Ctrl add or take away, with Shift up to there")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Click on + or \u2212"), QT_TRANSLATE_NOOP("KeyHelp", "unfold or fold")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Ctrl + W"), QT_TRANSLATE_NOOP("KeyHelp", "close the series that is shown")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Over its lists: F2"),
        QT_TRANSLATE_NOOP("KeyHelp", "rename what was clicked last, instead of a marker")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Over its lists: Ctrl + Z   Ctrl + Y"),
        QT_TRANSLATE_NOOP("KeyHelp", "undo, redo what was edited in it")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Edit database"), ""},
    {QT_TRANSLATE_NOOP("KeyHelp", "Shift + D"), QT_TRANSLATE_NOOP("KeyHelp", "open or close its window")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Drag the left handle"),
        QT_TRANSLATE_NOOP("KeyHelp", "move a class to the right handle of another")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Drag the right handle"),
        QT_TRANSLATE_NOOP("KeyHelp", "move all that is below it there")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Click on + or \u2212"), QT_TRANSLATE_NOOP("KeyHelp", "unfold or fold")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Delete"),
        QT_TRANSLATE_NOOP("KeyHelp", "take out the class under the pointer; what is below takes its place")},
    {QT_TRANSLATE_NOOP("KeyHelp", "F2, right click"), QT_TRANSLATE_NOOP("KeyHelp", "rename it")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Ctrl + Z   Ctrl + Y"), QT_TRANSLATE_NOOP("KeyHelp", "undo, redo")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Tools"), ""},
    {QT_TRANSLATE_NOOP("KeyHelp", "Left click on a tag or marker"),
        QT_TRANSLATE_NOOP("KeyHelp", "make it the current one; of a marker, go to its slice")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Right click on a tag or marker"),
        QT_TRANSLATE_NOOP("KeyHelp", "rename it: Enter keeps, Escape leaves it as it was")},
    {QT_TRANSLATE_NOOP("KeyHelp", "Alt + wheel"),
        QT_TRANSLATE_NOOP("KeyHelp", "scroll the column, wherever the pointer is")},
};

QLabel* label(const char* text, const char* role)
{
    auto* result = new QLabel(QCoreApplication::translate("KeyHelp", text));
    result->setProperty("role", role);
    return result;
}

}

void showKeyHelp(QWidget* parent)
{
    auto* dialog = new QDialog(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QCoreApplication::translate("KeyHelp", "Mouse and keys"));
    auto* grid = new QGridLayout(dialog);
    grid->setHorizontalSpacing(3 * theme::spacing);
    grid->setVerticalSpacing(theme::smallSpacing);
    grid->setContentsMargins(2 * theme::spacing, 2 * theme::spacing, 2 * theme::spacing, 2 * theme::spacing);
    constexpr int halfway = 24; // rows, after which the next heading begins the columns at the right
    int row = 0, column = 0;
    for (const Entry& entry : entries) {
        const bool heading = *entry.meaning == '\0';
        if (heading && row > halfway) {
            row = 0;
            column += 2;
        } else if (heading && row > 0) {
            ++row;
        }
        grid->addWidget(label(entry.keys, heading ? "title" : ""), row, column);
        if (!heading)
            grid->addWidget(label(entry.meaning, "quiet"), row, column + 1);
        ++row;
    }
    dialog->setSizeGripEnabled(false);
    dialog->show();
}

}
