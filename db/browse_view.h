#pragma once

#include "db/db_list.h"

class Tool_DB_List;

// The list as an indented tree, and how its rows are chosen.

/// Whether the lines are numbered before they are painted. What only scrolls or selects leaves their numbers alone.
enum class DB_Lines : unsigned char { anew, as_they_are };

/// Numbers the lines and paints the rows that are seen; sets the ranges of the sliders, without drawing them. Without
/// a window the lines are numbered all the same.
/// @return 1, or 0 when there is no list
int DB_2D_Class_List_Paint(Tool_DB_List* panel, DB_Lines lines = DB_Lines::anew);

/// Gives the sliders the look of a list that fits.
void DB_2D_Class_List_Reset_Sliders(Tool_DB_List* panel);

/// A mouse event in the list box: a press on a row's lead shows or hides what is below it, any other begins a drag;
/// a release ends it.
/// @return 1 when a drag ended, so that the selection has to be applied, else 0
int DB_2D_Class_List_Click(Tool_DB_List* panel, int up_down);

/// Selects what the drag that ended went over, or with Shift what lies between the last row that was chosen and this
/// one; with Ctrl besides what is selected. Rolls up, paints, and tells the host. @return 1
int DB_2D_Class_List_Select(Tool_DB_List* panel);

/// Draws the rubber band to the pointer. @return 1 while there is a drag, else 0
int DB_2D_Class_List_Motion(Tool_DB_List* panel, int up_down);

/// Derives what is selected of each folder from the leaves below it, and which rows are the last of their siblings.
void DB_2D_Class_List_Roll_Up(int nb, DB_List* list);
