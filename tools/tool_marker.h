#pragma once

#include "frame/change_flags.h"
#include "frame/export.h"
#include "tools/button_grid.h"

/// The panel of the point markers: a grid of coloured, named buttons, one per marker, built like the tag panel.
///
/// Reads `"$MARKER_NB"`, `"$MARKER_CUR"`, `"$MARKER_COLOR"`, `"$MARKER_LABEL"`, `"$MARKER_ENABLE"` and the interface's
/// dimensions; writes names into `"$MARKER_LABEL"`. Markers beyond 64 have no button; of a count that is no multiple of
/// four the lowest markers have no place. A changed count needs a new layout. Copies share their buttons.
class VETRA_TOOLS_API Tool_Marker {
public:
    Tool_Marker();
    Tool_Marker(const Tool_Marker&);
    Tool_Marker& operator=(const Tool_Marker&);
    ~Tool_Marker();

    /// Lays the panel out. @param area the panel's rectangle, window, colours, font, frame width and, with bit 20 of
    /// its state, whether buttons show which markers are enabled @return 1
    int Resize(Boxs* area);

    /// The height at which `rows` rows of four markers show without a slider, pixels.
    int Height(unsigned short rows);
    void Draw();

    /// A mouse press or release. A right press on a marker but marker 0 starts editing its name.
    /// @return the marker that was chosen, for the host to make current, or -1
    int Click(int up_down);

    /// The pointer moved. @return 1 when the grid was scrolled by the slider
    int Motion(int up_down);

    /// A key for the name being edited. A finished name goes into `"$MARKER_LABEL"`, and bit 47 is sent.
    /// @return 1 when it was used
    int Keyboard(int key);

    /// The wheel, in notches away from the user. @return 1
    int Scroll(int amount);

    /// Follows the host: bits 22, 38, 45 and 47. A variable that is missing ends the call, nothing is redrawn.
    void Update(unsigned long long flags);
    void Leave();

    /// The current marker, as the last Click or Update made it.
    int Read();

private:
    bool Update_Buttons(frame::Change_Flags flags, unsigned& redo);
    bool Update_Current(unsigned& redo);
    bool Update_Labels(unsigned& redo);
    bool Update_Enables(unsigned& redo);
    bool Update_Colors(unsigned& redo);

    unsigned short current_ = 0;
    tools::Button_Grid grid_;
};
