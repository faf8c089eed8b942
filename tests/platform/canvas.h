#pragma once

#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <string>

namespace test {

constexpr COLORREF black = 0;
constexpr COLORREF white = 0xFFFFFF;

/// A visible child window, black all over, whose context is open for the length of a test.
class Canvas : public ::testing::Test {
protected:
    static constexpr int width = 60;
    static constexpr int height = 40;

    Canvas();
    ~Canvas() override;

    HWND window() const { return child_.handle(); }

    /// Device pixels (y downward): '.' black, '#' any other colour; a line for each row.
    std::string picture(int columns, int rows);

    /// Device pixel.
    COLORREF pixel(int x, int y);

    /// y upward from the lower-left corner, as the panels draw.
    void y_upward();

    /// Selected, and deleted at the end.
    void use_pen(int style, int pen_width, COLORREF color);
    void use_brush(COLORREF color);
    void use_font(int character_height, int tenths_of_degrees = 0);
    void use_no_pen() { SelectObject(dc, GetStockObject(NULL_PEN)); }
    void use_no_brush() { SelectObject(dc, GetStockObject(NULL_BRUSH)); }

    void fill(int left, int top, int right, int bottom, COLORREF color);
    void line(int x1, int y1, int x2, int y2);
    void fill_canvas(COLORREF color) { fill(0, 0, width, height, color); }

private:
    Test_Window parent_{nullptr, 300, 200};
    Test_Window child_{parent_.handle(), width, height};
    std::vector<HGDIOBJ> objects_;
    void use(HGDIOBJ object);

protected:
    HDC dc = nullptr;
};

}
