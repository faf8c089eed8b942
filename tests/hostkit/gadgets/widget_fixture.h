#pragma once

#include "tests/support/panel_host.h"

#include <algorithm>

/// A dark window for single widgets, and looks at what they draw.
namespace test {

constexpr Colors dark{0x20, 0x24, 0x28};
constexpr Colors edge{0x3a, 0x40, 0x48};
constexpr Colors light{0xd6, 0xda, 0xde};
constexpr Colors untouched{0xff, 0x00, 0xff}; ///< no widget has it

constexpr int left_press = 18;
constexpr int right_press = 66;
constexpr int left_drag = 17;
constexpr int question = 4;

class Widgets : public Panel_Host {
protected:
    Widgets()
    {
        SPACE = 4;
        BORDER = 2;
        Wipe();
    }

    /// Makes every pixel of the window tell whether it was drawn on.
    void Wipe()
    {
        Boxs all;
        all.width = all.height = 800;
        all.window = main_window();
        all.Clear(untouched);
    }

    /// Gives a widget its place and the look of a dark reading room.
    template <class Widget>
    void Place_Widget(Widget& widget, short x, short y, short width, short height)
    {
        widget.x = x;
        widget.y = y;
        widget.width = width;
        widget.height = height;
        widget.frame = edge;
        widget.back = dark;
        widget.text = light;
        widget.border = 1;
        widget.Init(main_window());
    }

    void Point(int x, int y) { point(main_window(), {x, y}); }
    void Point_Away() { Point(790, 5); }
    Colors Pixel(int x, int y) { return pixel(main_window(), {x, y}); }

    /// The pixels of a widget's rectangle, its lowest row first.
    std::vector<COLORREF> Look(const Tools& widget)
    {
        RECT client{};
        GetClientRect(main_window(), &client);
        const HDC context = GetDC(main_window());
        std::vector<COLORREF> result;
        for (int y = widget.y; y < widget.y + widget.height; ++y) {
            for (int x = widget.x; x < widget.x + widget.width; ++x)
                result.push_back(GetPixel(context, x, client.bottom - 1 - y));
        }
        ReleaseDC(main_window(), context);
        return result;
    }

    bool Untouched(const Tools& widget)
    {
        const auto look = Look(widget);
        return std::all_of(look.begin(), look.end(), [](COLORREF color) { return color == untouched.get(); });
    }

    /// Whether anything was drawn beside the widget's rectangle, one pixel around it.
    bool Spills(const Tools& widget)
    {
        Boxs around;
        around.x = static_cast<short>(widget.x - 1);
        around.y = static_cast<short>(widget.y - 1);
        around.width = static_cast<short>(widget.width + 2);
        around.height = static_cast<short>(widget.height + 2);
        const auto all = Look(around);
        const auto drawn = [](const std::vector<COLORREF>& pixels) {
            return std::count_if(pixels.begin(), pixels.end(), [](COLORREF color) { return color != untouched.get(); });
        };
        return drawn(all) != drawn(Look(widget));
    }
};

/// Holds a key down for as long as it lives.
class Held_Key {
public:
    explicit Held_Key(int key) : key_(key) { Set(0x80); }
    ~Held_Key() { Set(0); }
    Held_Key(const Held_Key&) = delete;
    Held_Key& operator=(const Held_Key&) = delete;

private:
    void Set(BYTE state) const
    {
        BYTE keys[256] = {};
        GetKeyboardState(keys);
        keys[key_] = state;
        SetKeyboardState(keys);
    }
    int key_;
};

}
