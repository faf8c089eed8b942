#pragma once

#include "tests/hostkit/gadgets/widget_fixture.h"

namespace test {

constexpr unsigned upright = 0xA000004;
constexpr unsigned upright_from_the_top = 0xE000004;
constexpr unsigned lying = 0xA000000;

/// A valuator of three decades, 150 pixels high. Its thumb has 8 pixels, so that its start moves over 142.
class Valuator : public Widgets {
protected:
    Valuator()
    {
        Place_Widget(valuator, 20, 30, 16, 150);
        valuator.state = upright;
        valuator.minimum = 0.001f;
        valuator.maximum = 1;
        valuator.value = 1;
        Point_Away();
    }

    /// Makes it one of an even travel from 0 to 100.
    void Make_Even(float value)
    {
        valuator.minimum = 0;
        valuator.maximum = 100;
        valuator.value = value;
    }

    void Press(int position)
    {
        Point(28, 30 + position);
        ASSERT_NE(valuator.Select(left_press), 0);
    }

    void Drag(int position)
    {
        Point(28, 30 + position);
        ASSERT_NE(valuator.Select(left_drag), 0);
    }

    Valuators valuator;
};

}
