#include "tests/tools/grid_panel_fixture.h"

namespace test {

namespace {

constexpr COLORREF cover_color = RGB(0xfe, 0x01, 0xfd);

int client_height(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    return client.bottom;
}

}

Extent Grid::button(int item) const
{
    const int place = count - 1 - item;
    const int width = list.width / 4;
    return {list.x + (3 - place % 4) * width, list.y + place / 4 * pitch - offset, width, pitch};
}

bool Grid::visible(int item) const
{
    const int y = button(item).y;
    return has_place(item) && y >= list.y - 1 && y <= list.y + 1 + (list.height - pitch);
}

Grid grid_of(const Boxs& area, int count)
{
    const short space = hostkit::Variable<short>("$INTERFACE_SPACE_DIM");
    const short cursor = hostkit::Variable<short>("$INTERFACE_CURSOR_DIM");
    const int margin = area.border + 2;
    const int slider_height = area.height - 2 * margin;
    Grid grid;
    grid.count = count;
    grid.pitch =
        hostkit::Variable<short>("$INTERFACE_BORDER_DIM") + hostkit::Variable<short>("$INTERFACE_BUTTON_DIM_SML");
    grid.content = count / 4 * grid.pitch;
    grid.scrolled = grid.content > area.height - 2 * SPACE;
    grid.offset = grid.scrolled ? grid.content - slider_height : 0;
    const int taken = grid.scrolled ? cursor + space : 0;
    grid.slider = {area.x + margin, area.y + margin, cursor, slider_height};
    grid.list = {area.x + margin + taken, area.y + margin, area.width - 2 * margin - taken, slider_height};
    return grid;
}

std::vector<COLORREF> picture(HWND window, Extent part)
{
    const int top = client_height(window) - part.y - part.height;
    std::vector<COLORREF> result;
    const HDC context = GetDC(window);
    for (int y = top; y < top + part.height; ++y) {
        for (int x = part.x; x < part.x + part.width; ++x)
            result.push_back(GetPixel(context, x, y));
    }
    ReleaseDC(window, context);
    return result;
}

void cover(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    const HDC context = GetDC(window);
    const HBRUSH brush = CreateSolidBrush(cover_color);
    FillRect(context, &client, brush);
    DeleteObject(brush);
    ReleaseDC(window, context);
}

bool covered(HWND window, Extent part)
{
    for (const COLORREF color : picture(window, part)) {
        if (color != cover_color)
            return false;
    }
    return true;
}

HWND make_reference_window()
{
    const HWND window = CreateWindowExA(
        0, "Vetra test", "", WS_OVERLAPPEDWINDOW, 0, 0, 800, 800, nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    ShowWindow(window, SW_SHOW);
    return window;
}

void set_area(Boxs& area, HWND window, Extent place, unsigned state, short border)
{
    area.window = window;
    area.x = static_cast<short>(place.x);
    area.y = static_cast<short>(place.y);
    area.width = static_cast<short>(place.width);
    area.height = static_cast<short>(place.height);
    area.border = border;
    area.state = state;
    area.frame = area_frame;
    area.back = area_back;
    area.text = area_text;
}

void place_reference(Tools& widget, const Boxs& area, Extent place)
{
    widget.x = static_cast<short>(place.x);
    widget.y = static_cast<short>(place.y);
    widget.width = static_cast<short>(place.width);
    widget.height = static_cast<short>(place.height);
    widget.frame = area.frame;
    widget.back = area.back;
    widget.text = area.text;
    widget.font = area.font;
}

Extent extent_of(Place inside, const std::function<int(Place)>& answer)
{
    const int expected = answer(inside);
    const auto same = [&](int x, int y) { return answer({x, y}) == expected; };
    int left = inside.x, right = inside.x, low = inside.y, high = inside.y;
    while (same(left - 1, inside.y))
        --left;
    while (same(right + 1, inside.y))
        ++right;
    while (same(inside.x, low - 1))
        --low;
    while (same(inside.x, high + 1))
        ++high;
    return {left, low, right - left + 1, high - low + 1};
}

}

using namespace test;

GridPanel::GridPanel() : reference_window(make_reference_window()) {}

GridPanel::~GridPanel()
{
    DestroyWindow(reference_window);
}

Row_Look GridPanel::current(int item) const
{
    Row_Look look = usual(item);
    look.current = true;
    return look;
}

Row_Look GridPanel::greyed(int item) const
{
    Row_Look look = usual(item);
    look.greyed = true;
    return look;
}

Row_Look GridPanel::pressed(int item) const
{
    Row_Look look = usual(item);
    look.pressed = true;
    return look;
}

bool GridPanel::shows(int item, const Row_Look& look)
{
    const Extent place = grid.button(item);
    Buttons reference;
    place_reference(reference, area, place);
    reference.state = (area.state & 0x100000 ? 0x500000u : 0x400000u) | (look.greyed ? 35u : 0u);
    reference.Set_Color(look.color.red, look.color.green, look.color.blue);
    reference.Set_Name(look.caption.c_str());
    reference.cur = look.current;
    reference.pressed = look.pressed;
    reference.Init(reference_window);
    reference.Draw();
    return picture(main_window(), place) == picture(reference_window, place);
}

bool GridPanel::shows_editor(int item, const std::string& content)
{
    const Extent place = grid.button(item);
    Texts reference;
    place_reference(reference, area, place);
    reference.state = 0x80000003;
    reference.Init(reference_window);
    Texts* const active = hostkit::Active_Text();
    reference.Read(content.c_str());
    reference.state = 0x80000000;
    reference.Draw();
    if (active)
        active->Draw(); // it is the active one again
    return picture(main_window(), place) == picture(reference_window, place);
}

bool GridPanel::shows_slider(float value)
{
    place_reference(reference_slider, area, grid.slider);
    reference_slider.state = 0x8000004;
    reference_slider.maximum = static_cast<float>(grid.content - grid.slider.height);
    reference_slider.value = value;
    reference_slider.Larg_Adjust(static_cast<float>(grid.slider.height), static_cast<float>(grid.content));
    reference_slider.Init(reference_window);
    reference_slider.Draw();
    return picture(main_window(), grid.slider) == picture(reference_window, grid.slider);
}
