#pragma once

#include "host/basics.h"
#include "host/gadgets.h"
#include "host/structures.h"
#include "hostkit/embedding/panel_slot.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "tests/support/reports.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// What the panels' tests share: a fresh host with one window, the reports and broadcasts that a panel sends, and mouse
/// and keyboard events as window messages.
namespace test {

/// A place in a window, y growing upward from the lower edge as widgets count.
struct Place {
    int x;
    int y;
};

class Panel_Host : public ::testing::Test {
protected:
    Panel_Host();
    ~Panel_Host() override;

    /// The words that were delivered since the last call.
    std::vector<unsigned long long> broadcasts() { return std::exchange(broadcasts_, {}); }

    HWND main_window() const { return main_window_; }

    Reports reports;

private:
    HWND main_window_;
    std::vector<unsigned long long> broadcasts_;
    hostkit::Subscription subscription_;
};

enum class Button { left, middle, right };

/// Mouse and keyboard events to a panel's window, with the buttons' state as it is while they happen.
void press(HWND window, Place place, Button button = Button::left);
void release(HWND window, Place place);
void click(HWND window, Place place, Button button = Button::left);
void move(HWND window, Place place);
void turn_wheel(HWND window, Place place, int delta);
void type(HWND window, const std::string& text);
void key(HWND window, int virtual_key);

/// Which keys are held from now on, while mouse events happen.
void hold_keys(bool shift, bool control);

/// Records the pointer without telling a panel: for calling its events directly.
void point(HWND window, Place place);

/// The pixel at a place.
Colors pixel(HWND window, Place place);

/// All pixels of a window, row by row from the top, 0x00BBGGRR.
std::vector<COLORREF> pixels(HWND window);

/// The middle of a widget.
inline Place middle(const Tools& widget)
{
    return {widget.x + widget.width / 2, widget.y + widget.height / 2};
}

/// Writes what a window shows to out/NAME.png, for looking at.
void keep_picture(HWND window, const std::string& name);

}
