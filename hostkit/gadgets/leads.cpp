#include "hostkit/gadgets/paint.h"

#include <algorithm>

// A row reaches from the lead's y0 eighteen pixels up. Signs and lines lie where the text's small letters have their
// middle, and above the connectors that rows below draw up to a sign's lower edge.

namespace {

using hostkit::Area;

constexpr int row_height = 18;
constexpr int connector = 7;
constexpr int middle = 11;
constexpr int sign_reach = 4; // from its middle to its edge
constexpr int gap = 3;        // before the picture of the row

Colors current_color()
{
    return {GetRValue(Current_Color), GetGValue(Current_Color), GetBValue(Current_Color)};
}

// The picture of the parent may hang into what is above the row; the line ends below it.
int end_of_bare_background(const Boxs* box, int x, int from, int to)
{
    if (!box || !Y_DC)
        return to;
    from = std::clamp<int>(box->y, from, to); // what is below the box is not seen
    while (from < to && GetPixel(Y_DC, x, from) == box->back.get())
        ++from;
    return from;
}

// The lines of one row.
class Lead {
public:
    Lead(const Boxs* box, int x0, int x1, int y0, int y1)
        : paint_(Y_Window, "Icon_Lead"), x_(x0 + connector), y_(y0 + middle), bottom_(y0),
          top_(end_of_bare_background(box, x_, y0 + row_height, y1)), right_(x1 - gap)
    {
    }

    // To the connector above and, when there are siblings below, to the next one; they leave the sign's place free.
    void draw_connectors(bool more, int reach) const
    {
        across(x_ + reach, right_);
        upright(x_, y_ + reach, top_);
        if (more)
            upright(x_, bottom_, y_ + 1 - reach);
    }

    void draw_sign(bool plus) const
    {
        constexpr int stroke = sign_reach - 2;
        constexpr int size = 2 * sign_reach + 1;
        paint_.frame({x_ - sign_reach, y_ - sign_reach, size, size}, 1, color_);
        across(x_ - stroke, x_ + stroke + 1);
        if (plus)
            upright(x_, y_ - stroke, y_ + stroke + 1);
    }

    void draw_end_stop() const { upright(right_, y_ - 3, y_ + 4); }

private:
    void across(int from, int to) const { paint_.fill({from, y_, to - from, 1}, color_); }
    void upright(int x, int from, int to) const { paint_.fill({x, from, 1, to - from}, color_); }

    hostkit::Paint paint_;
    Colors color_ = current_color();
    int x_, y_, bottom_, top_, right_;
};

void draw_with_sign(const Boxs* box, bool plus, int more, int x0, int x1, int y0, int y1)
{
    const Lead lead(box, x0, x1, y0, y1);
    lead.draw_connectors(more != 0, sign_reach + 1);
    lead.draw_sign(plus);
}

}

void Icon_Lead_Leaf(const Boxs* box, int more, int x0, int x1, int y0, int y1)
{
    Lead(box, x0, x1, y0, y1).draw_connectors(more != 0, 0);
}

void Icon_Lead_Expand(const Boxs* box, int more, int x0, int x1, int y0, int y1)
{
    draw_with_sign(box, false, more, x0, x1, y0, y1);
}

void Icon_Lead_Collapse(const Boxs* box, int more, int x0, int x1, int y0, int y1)
{
    draw_with_sign(box, true, more, x0, x1, y0, y1);
}

void Icon_Lead_No_Access(const Boxs* box, int more, int x0, int x1, int y0, int y1)
{
    const Lead lead(box, x0, x1, y0, y1);
    lead.draw_connectors(more != 0, 0);
    lead.draw_end_stop();
}
