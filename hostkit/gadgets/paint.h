#pragma once

#include "host/gadgets.h"

#include <string>
#include <string_view>

/// What the widgets draw with: filled areas, frames, pictures and one-line texts, in widget coordinates (y upward).
namespace hostkit {

/// A rectangle; (x, y) is its lower-left corner.
struct Area {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool empty() const { return width <= 0 || height <= 0; }
    Area inset(int by) const { return {x + by, y + by, width - 2 * by, height - 2 * by}; }
};

Area area_of(const Tools& widget);

/// `share` of 255 of the one colour, the rest of the other.
Colors blend(Colors one, Colors other, int share);

/// The pixels of pictures have blue in the low byte.
unsigned to_picture_pixel(Colors color);
Colors from_picture_pixel(unsigned pixel);

/// The device's own coordinates, y downward, for as long as this lives: upward y would turn a picture over. Texts and
/// shapes keep to the widgets' axes.
class Upright {
public:
    explicit Upright(const Area& area);
    ~Upright();
    Upright(const Upright&) = delete;
    Upright& operator=(const Upright&) = delete;

    POINT corner; ///< the area's upper left one

private:
    int state_;
};

/// The drawing context of a window, for as long as it lives. Without a window everything does nothing.
class Paint {
public:
    Paint(HWND window, const char* caller);
    ~Paint();
    Paint(const Paint&) = delete;
    Paint& operator=(const Paint&) = delete;

    bool ready() const { return ready_; }
    void fill(const Area& area, Colors color) const;

    /// A frame that lies inside the area.
    void frame(const Area& area, int thickness, Colors color) const;

    /// A text at the left of the area, vertically centred, cut with an ellipsis when it is too long.
    void text(const Area& area, const char* text, HFONT font, Colors color) const;

    /// The same in the middle of the area.
    void centred_text(const Area& area, const char* text, HFONT font, Colors color) const;

    /// The same, reading upward in a font that is turned so.
    void upward_text(const Area& area, const char* text, HFONT turned_font, Colors color) const;

    /// A text of which `hidden` pixels lie to the left of the area; nothing is drawn outside.
    void scrolled_text(const Area& area, std::string_view text, int hidden, HFONT font, Colors color) const;
    int text_width(std::string_view text, HFONT font) const;
    int line_height(HFONT font) const; ///< of a text

    /// 32-bit pixels, width x height of the area, the top row first.
    void picture(const Area& area, const unsigned* pixels) const;

    /// The same, faded towards a background.
    void faint_picture(const Area& area, const unsigned* pixels, Colors back) const;

private:
    using Wide = std::basic_string<WCHAR>;
    Wide fitted(const Wide& text, int width) const;
    void line(const Area& area, const Wide& text, int x, Colors color) const;
    void write(const Area& area, const Wide& text, int x, int top, Colors color) const;

    bool open_;
    bool ready_;
};

}
