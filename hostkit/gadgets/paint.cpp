#include "hostkit/gadgets/paint.h"

#include <algorithm>
#include <memory>
#include <new>

namespace hostkit {

namespace {

// The device leaves out the row of the larger device coordinate: below the lowest one, as y grows upward.
RECT to_rect(const Area& area)
{
    return {area.x, area.y + area.height - 1, area.x + area.width, area.y - 1};
}

std::basic_string<WCHAR> widened(std::string_view text)
{
    const int bytes = static_cast<int>(text.size());
    const int units = bytes == 0 ? 0 : MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
    std::basic_string<WCHAR> wide(static_cast<size_t>(units), WCHAR{});
    if (units > 0)
        MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, wide.data(), units);
    return wide;
}

int measured(const std::basic_string<WCHAR>& text)
{
    SIZE size{};
    GetTextExtentPoint32W(Y_DC, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

int letter_height()
{
    TEXTMETRICA metrics{};
    GetTextMetricsA(Y_DC, &metrics);
    return metrics.tmHeight;
}

bool is_second_half(WCHAR unit)
{
    return (unit & 0xfc00) == 0xdc00;
}

// A font that is selected for as long as this lives.
class Selected_Font {
public:
    explicit Selected_Font(HFONT font) : before_(font ? SelectObject(Y_DC, font) : nullptr) {}
    ~Selected_Font()
    {
        if (before_)
            SelectObject(Y_DC, before_);
    }
    Selected_Font(const Selected_Font&) = delete;
    Selected_Font& operator=(const Selected_Font&) = delete;

private:
    HGDIOBJ before_;
};

}

Area area_of(const Tools& widget)
{
    return {widget.x, widget.y, widget.width, widget.height};
}

Colors blend(Colors one, Colors other, int share)
{
    const auto mixed = [share](int first, int second) {
        return static_cast<unsigned char>((first * share + second * (255 - share)) / 255);
    };
    return {mixed(one.red, other.red), mixed(one.green, other.green), mixed(one.blue, other.blue)};
}

unsigned to_picture_pixel(Colors color)
{
    return unsigned{color.red} << 16 | unsigned{color.green} << 8 | color.blue;
}

Colors from_picture_pixel(unsigned pixel)
{
    const auto channel = [pixel](int shift) { return static_cast<unsigned char>(pixel >> shift & 0xff); };
    return {channel(16), channel(8), channel(0)};
}

namespace {

// Texts are drawn with a font selected; one that there is no memory for is not drawn.
template <class Work>
void with_font(HFONT font, const Work& work)
{
    const Selected_Font selected(font);
    try {
        work();
    } catch (const std::bad_alloc&) {
    }
}

}

Upright::Upright(const Area& area) : corner{area.x, area.y + area.height - 1}
{
    LPtoDP(Y_DC, &corner, 1);
    state_ = SaveDC(Y_DC);
    SetMapMode(Y_DC, MM_TEXT);
    SetViewportOrgEx(Y_DC, 0, 0, nullptr);
}

Upright::~Upright()
{
    RestoreDC(Y_DC, state_);
}

Paint::Paint(HWND window, const char* caller) : open_(window != nullptr), ready_(window && Y_setup(window, caller)) {}

Paint::~Paint()
{
    if (open_)
        Y_release();
}

void Paint::fill(const Area& area, Colors color) const
{
    if (!ready_ || area.empty())
        return;
    const RECT rectangle = to_rect(area);
    SetDCBrushColor(Y_DC, color.get());
    FillRect(Y_DC, &rectangle, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void Paint::frame(const Area& area, int thickness, Colors color) const
{
    if (thickness <= 0 || area.empty())
        return;
    const int sides = std::max(area.height - 2 * thickness, 0);
    fill({area.x, area.y, area.width, std::min(thickness, area.height)}, color);
    fill({area.x, area.y + area.height - thickness, area.width, std::min(thickness, area.height)}, color);
    fill({area.x, area.y + thickness, thickness, sides}, color);
    fill({area.x + area.width - thickness, area.y + thickness, thickness, sides}, color);
}

// As much of the text as fits, with an ellipsis behind it.
Paint::Wide Paint::fitted(const Wide& text, int width) const
{
    if (measured(text) <= width)
        return text;
    const WCHAR ellipsis = 0x2026;
    size_t fits = 0;
    for (size_t reach = text.size(); fits < reach;) {
        const size_t middle = (fits + reach + 1) / 2;
        if (measured(text.substr(0, middle) + ellipsis) <= width)
            fits = middle;
        else
            reach = middle - 1;
    }
    if (fits > 0 && fits < text.size() && is_second_half(text[fits]))
        --fits;
    return fits == 0 ? Wide() : text.substr(0, fits) + ellipsis;
}

// Nothing of a text leaves its area.
void Paint::write(const Area& area, const Wide& text, int x, int top, Colors color) const
{
    const int state = SaveDC(Y_DC);
    const RECT clip = to_rect(area);
    IntersectClipRect(Y_DC, clip.left, clip.top, clip.right, clip.bottom);
    SetBkMode(Y_DC, TRANSPARENT);
    SetTextColor(Y_DC, color.get());
    SetTextAlign(Y_DC, TA_LEFT | TA_TOP);
    TextOutW(Y_DC, x, top, text.data(), static_cast<int>(text.size()));
    RestoreDC(Y_DC, state);
}

void Paint::line(const Area& area, const Wide& text, int x, Colors color) const
{
    const int top = area.y + area.height - 1 - (area.height - letter_height()) / 2;
    write(area, text, x, top, color);
}

void Paint::text(const Area& area, const char* text, HFONT font, Colors color) const
{
    if (!ready_ || area.empty())
        return;
    with_font(font, [&] { line(area, fitted(widened(text), area.width), area.x, color); });
}

void Paint::centred_text(const Area& area, const char* text, HFONT font, Colors color) const
{
    if (!ready_ || area.empty())
        return;
    with_font(font, [&] {
        const Wide shown = fitted(widened(text), area.width);
        line(area, shown, area.x + (area.width - measured(shown)) / 2, color);
    });
}

// The letters' tops are to the left, the text's start is at the bottom.
void Paint::upward_text(const Area& area, const char* text, HFONT turned_font, Colors color) const
{
    if (!ready_ || area.empty())
        return;
    with_font(turned_font, [&] {
        const Wide shown = widened(text);
        const int left = area.x + (area.width - letter_height()) / 2;
        write(area, shown, left, area.y - 1 + (area.height - measured(shown)) / 2, color);
    });
}

void Paint::scrolled_text(const Area& area, std::string_view text, int hidden, HFONT font, Colors color) const
{
    if (!ready_ || area.empty())
        return;
    with_font(font, [&] { line(area, widened(text), area.x - hidden, color); });
}

int Paint::text_width(std::string_view text, HFONT font) const
{
    int width = 0;
    if (ready_)
        with_font(font, [&] { width = measured(widened(text)); });
    return width;
}

int Paint::line_height(HFONT font) const
{
    TEXTMETRICA metrics{};
    if (ready_)
        with_font(font, [&] { GetTextMetricsA(Y_DC, &metrics); });
    return metrics.tmHeight;
}

void Paint::picture(const Area& area, const unsigned* pixels) const
{
    if (!ready_ || area.empty() || !pixels)
        return;
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = area.width;
    description.bmiHeader.biHeight = -area.height;
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 32;
    description.bmiHeader.biCompression = BI_RGB;
    const Upright upright(area);
    StretchDIBits(Y_DC, upright.corner.x, upright.corner.y, area.width, area.height, 0, 0, area.width, area.height,
        pixels, &description, DIB_RGB_COLORS, SRCCOPY);
}

void Paint::faint_picture(const Area& area, const unsigned* pixels, Colors back) const
{
    if (!ready_ || area.empty() || !pixels)
        return;
    const auto count = static_cast<size_t>(area.width) * static_cast<size_t>(area.height);
    const std::unique_ptr<unsigned[]> faint(new (std::nothrow) unsigned[count]);
    if (!faint)
        return fill(area, back);
    std::transform(pixels, pixels + count, faint.get(), [back](unsigned pixel) {
        constexpr int share = 90;
        return to_picture_pixel(blend(from_picture_pixel(pixel), back, share));
    });
    picture(area, faint.get());
}

}
