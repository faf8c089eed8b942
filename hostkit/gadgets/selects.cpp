#include "hostkit/gadgets/keys.h"
#include "hostkit/gadgets/paint.h"
#include "hostkit/gadgets/select_chooser.h"

#include <algorithm>
#include <utility>

using hostkit::Area;
using hostkit::blend;
using hostkit::Paint;
namespace keys = hostkit::keys;

namespace {

constexpr unsigned greyed_bit = 1u << 5;
constexpr int question = 4;

// A downward triangle in the middle of an area.
void draw_arrow(const Paint& paint, const Area& area, Colors color)
{
    constexpr int rows = 4;
    const int tip = area.x + (area.width - 1) / 2;
    const int low = area.y + (area.height - rows) / 2;
    for (int row = 0; row < rows; ++row)
        paint.fill({tip - row, low + row, 2 * row + 1, 1}, color);
}

// Where the recorded key moves to from `index`; the caller keeps the result within the list.
int moved_by_key(int key, int index, int last)
{
    constexpr int page = 10;
    switch (key) {
    case keys::page_up:
        return index - page;
    case keys::page_down:
        return index + page;
    case keys::end:
        return last;
    case keys::home:
        return 0;
    case keys::left:
    case keys::delete_forward:
        return index - 1;
    case keys::right:
    case keys::insert:
        return index + 1;
    default:
        return index;
    }
}

}

void Selects::Init(HWND owner)
{
    Set_Window(owner);
    drawn_ = 0;
}

void Selects::Grow(int count, int)
{
    items_.resize(count);
    drawn_ = 0;
}

void Selects::Set_Item(int index, const char* caption)
{
    items_.set(index, caption);
    if (index == value)
        drawn_ = 0;
}

// A number for everything that the drawing depends on and that changes by itself.
unsigned Selects::Look() const
{
    const bool greyed = (state & greyed_bit) != 0;
    return value * 4u + highlight_ * 2u + greyed;
}

void Selects::Draw()
{
    drawn_ = 0;
    if (!Shown() || !window || width <= 0 || height <= 0)
        return;
    const Paint paint(window, "Selects::Draw");
    const Area area = hostkit::area_of(*this);
    const bool greyed = (state & greyed_bit) != 0;
    const Colors face = blend(text, back, greyed ? 6 : highlight_ ? 40 : 16);
    const Colors ink = greyed ? blend(text, back, 90) : text;
    paint.fill(area, face);
    paint.frame(area, std::min<int>(border, BORDER), greyed ? blend(frame, back, 90) : frame);
    const Area inside = area.inset(3);
    const int arrow_x = inside.x + inside.width - arrow;
    const int caption_width = std::min(paint.text_width(name.get(), font), arrow_x - inside.x);
    const int item_x = inside.x + caption_width;
    paint.text({inside.x, inside.y, caption_width, inside.height}, name.get(), font, ink);
    paint.text({item_x, inside.y, arrow_x - item_x, inside.height}, Item(value), font, ink);
    if (arrow > 0)
        draw_arrow(paint, {arrow_x, inside.y, arrow, inside.height}, ink);
    drawn_ = Look() + 1;
}

void Selects::Adjust()
{
    if (drawn_ != Look() + 1)
        Draw();
}

int Selects::Select(int up_down)
{
    const bool inside = Active() && Count() > 0 && Pointer_Inside();
    if (up_down == question)
        return inside;
    pressed_ = inside && (up_down & 2) != 0;
    highlight_ = inside;
    Adjust();
    return pressed_;
}

int Selects::Read()
{
    if (!std::exchange(pressed_, static_cast<unsigned char>(0)))
        return -1;
    const int chosen = hostkit::Choose_Item(*this);
    return chosen < Count() ? std::max(chosen, -1) : -1;
}

int Selects::Scroll(int amount)
{
    if (!Active() || Count() == 0)
        return 0;
    constexpr int largest_value = 65535;
    const int last = std::min(Count() - 1, largest_value);
    const int wanted = amount != 0 ? value + amount : moved_by_key(std::exchange(YKey, 0), value, last);
    const auto moved = static_cast<unsigned short>(std::clamp(wanted, 0, last));
    if (moved == value)
        return 0;
    value = moved;
    Draw();
    return 1;
}

void Selects::Deselect()
{
    highlight_ = 0;
    pressed_ = 0;
    Adjust();
}
