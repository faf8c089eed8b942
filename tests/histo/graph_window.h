#pragma once

#include "histo/graph_window.h"
#include "host/charts.h"
#include "tests/histo/histogram_panel.h"

namespace test {

/// The graph window of a panel in a host: opened with the panel's button, driven with window messages.
class Graph_Window : public Histogram_Panel {
protected:
    static constexpr Colors red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, magenta{255, 0, 255};

    Graph_Window();
    ~Graph_Window() override;

    /// Opens the window with a client area of this size and lets it paint. The spacing is 4 pixels, the height of large
    /// buttons 24, the frame's width 2: with 800 x 400 and no peaks the plot's box is 784 x 292 at (8, 100) and its
    /// curves lie within 715 x 223 at (60, 152).
    void open(int width = 800, int height = 400);
    void resize(int width, int height);
    void repaint();
    void close() { SendMessageA(window(), WM_CLOSE, 0, 0); }

    /// Handles what has been posted.
    static void deliver();

    /// Tells the window, and nobody else, that its histogram has changed.
    void changed() { SendMessageA(window(), WM_USER, 0, 0); }

    void press(Place place) { test::press(window(), place); }
    void drag_to(Place place) { test::move(window(), place); }
    void release(Place place) { test::release(window(), place); }

    /// Presses, moves and releases.
    void drag(Place from, Place to);
    void turn(Place place, int delta) { test::turn_wheel(window(), place, delta); }

    /// Chooses an item of one of the lists, as someone who opens it does.
    void choose(const Selects& list, int item);

    /// Counts of Gaussian peaks on grey values 0, 1, 2...; and the fit of them.
    struct Bump {
        double center, height, sigma;
    };
    static Counts counts_of_bumps(int bins, const std::vector<Bump>& bumps);
    void give_peaks(int bins = 400, const std::vector<Bump>& bumps = {{100, 1000, 12}, {250, 600, 15}});

    static histo::graph::Window& graph() { return histo::graph::the_window(); }
    static HWND window() { return graph().handle; }
    static Plot_Area plot() { return Plot_Area_Of(graph().plot); }

    /// Where a value stands, pixels.
    static int x_of(double grey) { return static_cast<int>(graph().x.pixel_of(grey)); }
    static int y_of(double count) { return static_cast<int>(graph().y.pixel_of(count)); }

    Colors seen(int x, int y) const { return pixel(window(), {x, y}); }
    std::vector<COLORREF> picture() const { return pixels(window()); }

    /// How many pixels of the plot's box have a colour.
    int count_of(Colors color) const;

    /// Whether a pixel of this colour is within a pixel of the place.
    bool is_near(int x, int y, Colors color) const;

    static constexpr int px = 60, py = 152, pw = 715, ph = 223;
};

}
