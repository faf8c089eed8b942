#include "hostkit/gadgets/paint.h"

#include <algorithm>
#include <new>
#include <string>

// The parts of a box of a diagram. Its face is light, whatever the colours of the area: texts on it are dark.

namespace {

using hostkit::Area;

constexpr Colors ink{0x14, 0x18, 0x1c};

struct Look {
    Colors face;
    Colors field;
};

Look look_of(Color_Pair pair)
{
    constexpr Look looks[] = {{{0xf0, 0xec, 0xe0}, {0xd2, 0xc9, 0xb0}}, {{0xe2, 0xea, 0xf0}, {0xb6, 0xc6, 0xd3}}};
    return looks[pair == Color_Pair::first ? 0 : 1];
}

Colors face_of(const Look& look, Emphasis emphasis)
{
    constexpr Colors white{0xff, 0xff, 0xff};
    constexpr Colors warning{0xff, 0xb4, 0xac};
    constexpr int share = 120;
    if (emphasis == Emphasis::none)
        return look.face;
    return hostkit::blend(emphasis == Emphasis::hovered ? white : warning, look.face, share);
}

Colors outline_of(const Look& look, Emphasis emphasis)
{
    constexpr Colors accent{0x1f, 0x5f, 0xa8};
    constexpr Colors refusal{0xb4, 0x24, 0x1c};
    if (emphasis == Emphasis::none)
        return look.field;
    return emphasis == Emphasis::hovered ? accent : refusal;
}

constexpr int widest_outline = 2;

std::string without_marks(const char* caption)
{
    std::string text = caption;
    std::erase_if(text, [](char one) { return one == '\1' || one == '\2'; });
    return text;
}

}

void Tools::Fill_Select(Color_Pair pair, Emphasis emphasis)
{
    const Look look = look_of(pair);
    back = face_of(look, emphasis);
    text = ink;
    const hostkit::Paint paint(window, "Tools::Fill_Select");
    const Area area = hostkit::area_of(*this);
    paint.fill(area, back);
    paint.frame(area.inset(border), emphasis == Emphasis::none ? 1 : widest_outline, outline_of(look, emphasis));
}

void Tools::Cadre()
{
    const hostkit::Paint paint(window, "Tools::Cadre");
    paint.frame(hostkit::area_of(*this), border, frame);
}

int Tools::Icon(const char* folder, const char* file, Color_Pair pair, unsigned flags)
{
    constexpr unsigned without_field = 1;
    constexpr int side = 16;
    constexpr int lower = 2; // pictures lie that much too high in their squares, for the texts of a list
    const hostkit::Paint paint(window, "Tools::Icon");
    Area field = hostkit::area_of(*this).inset(border + widest_outline);
    field.width = std::min(field.width, field.height);
    if (!paint.ready() || field.empty())
        return 0;
    if ((flags & without_field) == 0)
        paint.fill(field, look_of(pair).field);
    return Icon_Draw_Image(
        nullptr, field.x + (field.width - side) / 2, field.y + (field.height - side) / 2 - lower, folder, file);
}

void Tools::Text(short left, short rows)
{
    constexpr unsigned at_the_left = 1u << 8;
    const int row = height / std::max<short>(rows, 1);
    const Area area{x + left, y + height - row, width - left - border, row};
    const hostkit::Paint paint(window, "Tools::Text");
    try {
        const std::string shown = without_marks(name.get());
        if (state & at_the_left)
            paint.text(area, shown.c_str(), font, text);
        else
            paint.centred_text(area, shown.c_str(), font, text);
    } catch (const std::bad_alloc&) {
    }
}

void Tools::Free()
{
    name.set(nullptr);
}
