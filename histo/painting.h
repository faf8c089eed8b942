#pragma once

#include "frame/painting.h"

#include <array>
#include <cstddef>

/// What panel and graph window draw with, into Y_DC.
namespace histo {

constexpr COLORREF black = 0x000000;
constexpr COLORREF white = 0xFFFFFF;
constexpr COLORREF yellow = 0x00FFFF;
constexpr COLORREF red = 0x0000FF;
constexpr COLORREF green = 0x00FF00;
constexpr COLORREF blue = 0xFF0000;

using frame::Clip;
using frame::Selected;
using frame::Xor_Drawing;

/// Fills a rectangle and deletes the brush.
void fill(const RECT& rectangle, HBRUSH brush);

/// A brush with the colour on every other pixel of each row and column, black between.
HBRUSH checker(COLORREF color);

/// The cursor: a vertical white line two pixels wide. Drawn a second time it is gone.
void toggle_cursor(int x, int bottom, int height);

/// Joins points in increasing x. Of those in one column of pixels only the first, the lowest, the highest and the last
/// are kept: joined, they cover the same pixels as all.
class Joined_Points {
public:
    virtual ~Joined_Points() = default;
    void add(POINT point);
    void finish();

protected:
    /// Joins some of the points, at least one; the last of them is the first of the next some. There is room for two
    /// more behind them.
    virtual void join(POINT* points, int count) = 0;

private:
    static constexpr std::size_t capacity = 1024;

    void keep(POINT point);
    void end_column();

    std::array<POINT, capacity + 2> points_;
    std::size_t used_ = 0;
    POINT last_{};
    LONG lowest_ = 0; // of the column's points before the last
    LONG highest_ = 0;
};

/// A line with the selected pen.
class Joined_Line final : public Joined_Points {
    void join(POINT* points, int count) override;
};

/// The area between the line and a base level, with the selected pen and brush.
class Joined_Area final : public Joined_Points {
public:
    explicit Joined_Area(int base) : base_(base) {}

private:
    void join(POINT* points, int count) override;

    int base_;
};

}
