#pragma once

#include "frame/change_flags.h"
#include "frame/export.h"
#include "tools/button_grid.h"

/// The panel of the segmentation tags: a grid of coloured, named buttons, one per tag.
///
/// Reads `"$TAG_NB"`, `"$TAG_CUR"`, `"$TAG_RED"`, `"$TAG_GRN"`, `"$TAG_BLU"`, `"$TAG_LABEL"`, `"$TAG_ENABLE"`,
/// `"$TAG_SELECT"`, `"$TAG_LOCK"` and the interface's dimensions; writes names into `"$TAG_LABEL"`. Tags beyond 256
/// have no button; of a count that is no multiple of four the lowest tags have no place. Copies share their buttons.
class VETRA_TOOLS_API Tool_Tag {
public:
    /// Which tag state a button shows. `Tool_Tag()` has option `greys_unusable`.
    enum Option : unsigned short {
        marks_selected = 1,   ///< the pressed mark follows `"$TAG_SELECT"`
        marks_locked = 16,    ///< the pressed mark follows `"$TAG_LOCK"`
        greys_unusable = 32,  ///< unselected and locked tags are greyed
        marks_enabled = 256,  ///< the pressed mark follows `"$TAG_ENABLE"`
        greys_disabled = 512, ///< disabled tags are greyed
    };

    Tool_Tag();
    explicit Tool_Tag(unsigned short options);
    Tool_Tag(const Tool_Tag&);
    Tool_Tag& operator=(const Tool_Tag&);
    ~Tool_Tag();

    /// Lays the panel out. @param area the panel's rectangle, window, colours, font, frame width and, with bit 20 of
    /// its state, whether buttons show their pressed marks @return 1
    int Resize(Boxs* area);

    /// The height at which `rows` rows of four tags show without a slider, pixels.
    int Height(unsigned short rows);
    void Draw();

    /// A mouse press or release. A right press on a tag but tag 0 starts editing its name.
    /// @return the tag that was chosen, for the host to make current, or -1
    int Click(int up_down);

    /// The pointer moved. @return 1 when the grid was scrolled by the slider
    int Motion(int up_down);

    /// A key for the name being edited. A finished name goes into `"$TAG_LABEL"`, and bit 47 is sent.
    /// @return 1 when it was used
    int Keyboard(int key);

    /// The wheel, in notches away from the user. @return 1
    int Scroll(int amount);

    /// Follows the host: bits 22, 38, 44, 45, 46 and 47. A variable that is missing ends the call, nothing is redrawn.
    void Update(unsigned long long flags);
    void Leave();

    /// The current tag, as the last Click or Update made it.
    int Read();

private:
    bool Update_Buttons(frame::Change_Flags flags, unsigned& redo);
    bool Update_Enables(unsigned& redo);
    bool Update_Selections(unsigned& redo);
    bool Update_Locks(unsigned& redo);
    bool Update_Current(unsigned& redo);
    bool Update_Labels(unsigned& redo);
    bool Update_Colors(unsigned& redo);

    unsigned short current_ = 0;
    unsigned short options_ = greys_unusable;
    tools::Button_Grid grid_;
};
