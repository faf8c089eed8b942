#include "hostkit/gadgets/paint.h"

namespace {

// Along the upper edge, quieter than what the box is about.
void draw_caption(const Boxs& box, const hostkit::Paint& paint, const hostkit::Area& area)
{
    if (!*box.name.get())
        return;
    constexpr int margin = 6;
    const int height = paint.line_height(box.font) + 4;
    paint.text({area.x + margin, area.y + area.height - height, area.width - 2 * margin, height}, box.name.get(),
        box.font, hostkit::blend(box.text, box.back, 170));
}

}

void Boxs::Init(HWND owner)
{
    Set_Window(owner);
}

void Boxs::Draw()
{
    constexpr unsigned sunken = 1u << 4;
    constexpr unsigned filled = 1u << 6;
    const hostkit::Paint paint(window, "Boxs::Draw");
    const hostkit::Area area = hostkit::area_of(*this);
    if (state & filled)
        paint.fill(area, back);
    paint.frame(area, border > 0 ? 1 : 0, state & sunken ? hostkit::blend(frame, back, 128) : frame);
    draw_caption(*this, paint, area);
}

int Boxs::Select(int)
{
    return Pointer_Inside();
}
