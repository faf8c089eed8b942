#pragma once

#include "host/charts.h"
#include "tests/support/panel_host.h"

/// A box with axes in a window of its own.
namespace test {

constexpr Colors dark{0x20, 0x24, 0x28};
constexpr Colors edge{0x3a, 0x40, 0x48};
constexpr Colors light{0xd6, 0xda, 0xde};

struct Range {
    float from;
    float to;
};

class Axes : public Panel_Host {
protected:
    /// A box that fills the window but for a rim, cleared.
    void Make_Box(int width, int height, int rim = 0)
    {
        MoveWindow(main_window(), 0, 0, width + 2 * rim, height + 2 * rim, TRUE);
        box.x = box.y = static_cast<short>(rim);
        box.width = static_cast<short>(width);
        box.height = static_cast<short>(height);
        box.back = dark;
        box.frame = edge;
        box.text = light;
        box.Init(main_window());
        Clear();
    }

    void Clear()
    {
        Boxs all = box;
        all.x = all.y = 0;
        all.width = static_cast<short>(box.width + 2 * box.x);
        all.height = static_cast<short>(box.height + 2 * box.y);
        all.Clear(dark);
    }

    void Draw_X(Range range, short scale = 8, const char* title = "Pixel Intensity", const char* unit = "HU")
    {
        Plot_Window_Axes_X(&box, 144, scale, title, unit, "Nb of Pixels", "", range.from, range.to);
    }

    void Draw_Y(Range range, short scale = 8, const char* title = "Nb of Pixels", const char* unit = "")
    {
        Plot_Window_Axes_Y(&box, 144, scale, "Pixel Intensity", "HU", title, unit, range.from, range.to);
    }

    Boxs box;
};

}
