#include "tests/histo/graph_window.h"

#include "histo/tool_histo_blow.h"
#include "hostkit/gadgets/select_chooser.h"
#include "hostkit/structures/save_chooser.h"

#include <cmath>

namespace test {

Graph_Window::Graph_Window()
{
    hostkit::Variable<short>("$INTERFACE_BUTTON_DIM_BIG") = 24;
    Histo_Graph_Display(0, 0, 0);
    // Nobody is there to answer an opened list or a dialog.
    hostkit::Set_Select_Chooser([](const Selects&) { return -1; });
    hostkit::Set_Save_Chooser([](const hostkit::Save_Question&) { return std::nullopt; });
}

Graph_Window::~Graph_Window()
{
    if (window())
        DestroyWindow(window());
    hostkit::Set_Select_Chooser(nullptr);
    hostkit::Set_Save_Chooser(nullptr);
    Flag_Trace = 0;
}

void Graph_Window::open(int width, int height)
{
    lay_out();
    point(main_window(), middle(panel.blow));
    ASSERT_EQ(panel.Click(left_press), 1);
    ASSERT_NE(window(), nullptr);
    resize(width, height);
    reports.clear();
}

void Graph_Window::resize(int width, int height)
{
    MoveWindow(window(), 0, 0, width, height, TRUE);
    RECT client{};
    GetClientRect(window(), &client);
    if (client.right != width || client.bottom != height) // where the size is the frame's
        MoveWindow(window(), 0, 0, 2 * width - client.right, 2 * height - client.bottom, TRUE);
    deliver();
    repaint();
}

void Graph_Window::repaint()
{
    InvalidateRect(window(), nullptr, TRUE);
    UpdateWindow(window());
}

void Graph_Window::deliver()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&message);
}

void Graph_Window::drag(Place from, Place to)
{
    press(from);
    drag_to(to);
    release(to);
}

void Graph_Window::choose(const Selects& list, int item)
{
    const auto before = hostkit::Set_Select_Chooser([item](const Selects&) { return item; });
    test::click(window(), middle(list));
    hostkit::Set_Select_Chooser(before);
}

Counts Graph_Window::counts_of_bumps(int bins, const std::vector<Bump>& bumps)
{
    Counts counts(static_cast<size_t>(bins));
    for (int bin = 0; bin < bins; ++bin) {
        double sum = 0;
        for (const Bump& bump : bumps)
            sum += bump.height * std::exp(-0.5 * std::pow((bin - bump.center) / bump.sigma, 2));
        counts[static_cast<size_t>(bin)] = static_cast<unsigned>(std::lround(sum));
    }
    return counts;
}

void Graph_Window::give_peaks(int bins, const std::vector<Bump>& bumps)
{
    give(counts_of_bumps(bins, bumps));
    histo::peak_settings.last_crossing = 0;
    panel.Fit();
    ASSERT_NE(panel.Peaks(), nullptr);
    ASSERT_EQ(panel.Peaks()->nb, static_cast<int>(bumps.size()));
}

int Graph_Window::count_of(Colors color) const
{
    const Boxs& box = graph().plot;
    const HDC context = GetDC(window());
    int found = 0;
    for (int y = graph().height - box.y - box.height; y < graph().height - box.y; ++y) {
        for (int x = box.x; x < box.x + box.width; ++x)
            found += GetPixel(context, x, y) == color.get();
    }
    ReleaseDC(window(), context);
    return found;
}

bool Graph_Window::is_near(int x, int y, Colors color) const
{
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            if (seen(x + dx, y + dy) == color)
                return true;
        }
    }
    return false;
}

}
