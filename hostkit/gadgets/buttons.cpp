#include "hostkit/gadgets/button_mark.h"
#include "hostkit/gadgets/fitting_font.h"
#include "hostkit/gadgets/paint.h"

#include <algorithm>

using hostkit::Area;
using hostkit::blend;
using hostkit::Paint;

namespace {

constexpr unsigned vertical_bit = 1u << 2;
constexpr unsigned greyed_bit = 1u << 5;
constexpr unsigned shows_mark_bit = 1u << 20;
constexpr int question = 4;
constexpr int room_for_mark = 15; // at the right end of a row button

bool pressed_on_mark = false; // the last press that a row button took

// Colours of a row button for how it is looked at and used.
struct Row_Colors {
    Colors face;
    Colors swatch;
    Colors caption;
};

Row_Colors row_colors(const Buttons& button, int highlight)
{
    const bool greyed = (button.state & greyed_bit) != 0;
    const int lift = (greyed ? 6 : button.cur ? 52 : 16) + (highlight == 1 ? 18 : highlight == 2 ? 34 : 0);
    const Colors face = blend(button.text, button.back, lift);
    return {face, greyed ? blend(button.color, face, 90) : button.color,
        greyed ? blend(button.text, face, 90) : button.text};
}

bool shows_mark(const Buttons& button)
{
    constexpr int narrowest = 26; // caption and mark side by side
    return (button.state & shows_mark_bit) != 0 && button.width >= narrowest;
}

bool pointer_on_mark(const Buttons& button)
{
    POINT pointer{YCursor_X, YCursor_Y};
    return shows_mark(button) && ScreenToClient(button.window, &pointer) &&
           pointer.x >= button.x + button.width - 1 - room_for_mark;
}

// On or off, at the right end of a row button.
void draw_mark(const Paint& paint, const Area& face, bool on, Colors color, Colors back)
{
    constexpr int size = 7;
    const Area dot{face.x + face.width - size - 4, face.y + (face.height - size) / 2, size, size};
    paint.frame(dot, 1, color);
    paint.fill(dot.inset(2), on ? color : back);
}

}

void Buttons::Init(HWND owner)
{
    Set_Window(owner);
    pictures_.release();
    shown = 0;
}

int Buttons::Picture_To_Show() const
{
    if (pressed || highlight_ == 2)
        return 3;
    if (cur)
        return 4;
    return highlight_ ? 2 : 1;
}

// A number for everything that the drawing depends on and that changes by itself.
unsigned short Buttons::Look() const
{
    const bool greyed = (state & greyed_bit) != 0;
    if (!Row())
        return static_cast<unsigned short>(Picture_To_Show() - 1 + 4 * greyed);
    return static_cast<unsigned short>(highlight_ + 3 * (cur != 0) + 6 * (pressed != 0) + 12 * greyed);
}

void Buttons::Draw()
{
    if (!Shown())
        shown = 0;
    if (!Shown() || !window || width <= 0 || height <= 0)
        return;
    if (Row())
        Draw_Row();
    else
        Draw_Picture();
    shown = static_cast<unsigned short>(Look() + 1);
}

void Buttons::Adjust()
{
    if (!Shown() || shown != Look() + 1)
        Draw();
}

// A swatch of the item's colour, its caption, and its mark.
void Buttons::Draw_Row()
{
    const Paint paint(window, "Buttons::Draw");
    const Row_Colors colors = row_colors(*this, highlight_);
    const Area face = hostkit::area_of(*this).inset(1);
    paint.frame(hostkit::area_of(*this), 1, back);
    paint.fill(face, colors.face);
    const int swatch = std::min(14, face.width / 5);
    const int gap = swatch < 14 ? 4 : 6;
    paint.fill({face.x, face.y, swatch, face.height}, colors.swatch);
    if (cur)
        paint.frame(face, 1, text);

    const bool marked = shows_mark(*this);
    const int left = face.x + swatch + gap;
    const int right = face.x + face.width - (marked ? room_for_mark : 3);
    paint.text({left, face.y, right - left, face.height}, name.get(), font, colors.caption);
    if (marked)
        draw_mark(paint, face, pressed != 0, colors.caption, colors.face);
}

void Buttons::Draw_Picture()
{
    const Paint paint(window, "Buttons::Draw");
    const Area area = hostkit::area_of(*this);
    const bool greyed = (state & greyed_bit) != 0;
    if (const unsigned* pixels = Picture(greyed ? 1 : Picture_To_Show())) {
        if (greyed)
            paint.faint_picture(area, pixels, back);
        else
            paint.picture(area, pixels);
    } else {
        paint.fill(area, blend(text, back, 8));
        paint.frame(area, std::min<int>(border, BORDER), blend(frame, back, 128));
    }
    if (!*name.get())
        return;
    const Colors caption = greyed ? blend(text, back, 90) : text;
    if ((state & vertical_bit) == 0)
        return paint.centred_text(area.inset(2), name.get(), font, caption);
    const hostkit::Fitting_Font upward(width, true);
    if (upward.get())
        paint.upward_text(area.inset(2), name.get(), upward.get(), caption);
}

int Buttons::Select(int up_down)
{
    const bool inside = Active() && Pointer_Inside();
    if (up_down == question)
        return inside;
    const bool down = (up_down & 3) != 0;
    highlight_ = !inside ? 0 : down ? 2 : 1;
    Adjust();
    const bool taken = inside && (up_down & 2) != 0;
    if (taken)
        pressed_on_mark = Row() && pointer_on_mark(*this);
    return taken;
}

void Buttons::Deselect()
{
    if (highlight_ == 0)
        return;
    highlight_ = 0;
    Adjust();
}

bool hostkit::Pressed_On_Mark()
{
    return pressed_on_mark;
}
