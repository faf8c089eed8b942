#include "tests/histo/graph_window.h"

#include "histo/tool_histo_blow.h"

#include <cstdio>
#include <random>

// Pictures of the graph window, for looking at.

using namespace test;

namespace {

class GraphPictures : public Graph_Window {
protected:
    /// A head as a tomograph sees it, with peaks, tags and axes.
    void give_head()
    {
        Counts counts =
            counts_of_bumps(4096, {{60, 90000, 25}, {930, 30000, 60}, {1075, 160000, 40}, {1500, 9000, 200}});
        std::mt19937 engine(5);
        for (unsigned& count : counts)
            count = static_cast<unsigned>(count * (95 + engine() % 11) / 100 + engine() % 200);
        give(Histogram(-1024, 1, std::move(counts)));
        histo::peak_settings.last_crossing = 0;
        panel.Fit();
        name_axes("Grey level", "HU");
    }

    void give_photo()
    {
        const auto bump = [](double center) { return counts_of_bumps(256, {{center, 5000, 30}, {40, 900, 10}}); };
        give(Histogram(0, 1, bump(120), {bump(90), bump(140), bump(190), bump(210)}));
        panel.color_component = 1;
        name_axes("Grey level", "");
    }

    void name_axes(const char* x, const char* unit)
    {
        std::snprintf(panel.x_title, sizeof panel.x_title, "%s", x);
        std::snprintf(panel.x_unit, sizeof panel.x_unit, "%s", unit);
        std::snprintf(panel.y_title, sizeof panel.y_title, "%s", "Count");
    }

    void keep(const std::string& name)
    {
        open();
        for (const auto& [width, height] : {std::pair{320, 240}, {800, 400}, {1600, 900}}) {
            resize(width, height);
            test::click(window(), middle(graph().reset));
            drag_to({0, 0});
            const std::string picture_name = "graph-" + name + "-" + std::to_string(width);
            keep_picture(window(), picture_name);
            const Plot_Area inner = plot();
            drag({inner.x + inner.width / 5, inner.y + 2},
                {inner.x + inner.width * 3 / 5, inner.y + inner.height * 2 / 3});
            drag_to({0, 0});
            keep_picture(window(), picture_name + "-zoomed");
        }
    }
};

}

TEST_F(GraphPictures, Grey)
{
    give_head();
    keep("grey");
}

TEST_F(GraphPictures, IndividualPeaksAndTags)
{
    give_head();
    panel.Set(3, 1, -1000.0, -900.0, 2, -120.0, -60.0, 3, 20.0, 80.0);
    Histo_Graph_Display(2, 1, 0);
    keep("individual");
}

TEST_F(GraphPictures, CompositePeaks)
{
    give_head();
    Histo_Graph_Display(1, 0, 0);
    keep("composite");
}

TEST_F(GraphPictures, ColoursWithTags)
{
    give_photo();
    panel.Set(1, 4, 100.0, 150.0);
    Histo_Graph_Display(0, 1, 0);
    keep("colours");
}
