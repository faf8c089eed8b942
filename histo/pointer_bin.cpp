#include "histo/pointer_bin.h"

#include "frame/registry.h"
#include "histo/int_part.h"
#include "histo/tool_histo.h"

#include <algorithm>

namespace histo {

namespace {

int color_bin(unsigned raw, unsigned char component)
{
    const auto red = static_cast<int>(raw & 0xff);
    const auto green = static_cast<int>(raw >> 8 & 0xff);
    const auto blue = static_cast<int>(raw >> 16 & 0xff);
    switch (component) {
    case 0:
        return std::max({red, green, blue});
    case 1:
        return red;
    case 2:
        return green;
    case 3:
        return blue;
    case 4:
        return red * 30 / 100 + green * 59 / 100 + blue * 11 / 100;
    default:
        return 0;
    }
}

// Of a colour frame the value itself, whatever the histogram's grid is.
int bin_of(const Tool_Histo& panel, Strato_2D_Frame* frame, int raw)
{
    if (frame->color)
        return color_bin(static_cast<unsigned>(raw), panel.color_component);
    return int_part((Fct_GLI_2_Float(frame, raw) - panel.histo->min) / panel.histo->width);
}

}

Pointer_Bin bin_under_pointer(const Tool_Histo& panel)
{
    using Found = Pointer_Bin::Found;
    static frame::Kept_Address<Strato_2D_Frame*> frame_over("$FRAME_OVR");
    static frame::Kept_Address<float> mouse("$MOUSE_FRM");
    Strato_2D_Frame* const frame = frame_over.value();
    const float* const position = mouse.get(); // x and y are the second and the third number
    if (!frame || !position)
        return {Found::no_frame, 0};
    const int raw = frame->Value_Get(
        {position[1], position[2], static_cast<float>(frame->index_z), static_cast<float>(frame->index_t)});
    if (raw == Strato_2D_Frame::no_value || raw == Strato_2D_Frame::no_value_yet)
        return {Found::no_value, 0};
    return {Found::bin, std::clamp(bin_of(panel, frame, raw), 0, panel.histo->nb_bins - 1)};
}

}
