#include "histo/tool_histo_blow.h"
#include "hostkit/basics/report.h"
#include "tests/histo/seen_drawing.h"
#include "tests/histo/vectors.h"
#include "tests/platform/test_window.h"

#include <algorithm>
#include <utility>

// What a panel draws, keeps and posts.

namespace test {

namespace {

// What can be seen of a line in one column: where it comes in, how far it goes down and up, and where it leaves.
struct Column {
    LONG x;
    LONG first, lowest, highest, last;
    bool operator==(const Column&) const = default;
};

std::vector<Column> columns_of(const std::vector<POINT>& points)
{
    std::vector<Column> columns;
    for (const POINT& point : points) {
        if (columns.empty() || columns.back().x != point.x)
            columns.push_back({point.x, point.y, point.y, point.y, point.y});
        Column& column = columns.back();
        column.lowest = std::min(column.lowest, point.y);
        column.highest = std::max(column.highest, point.y);
        column.last = point.y;
    }
    return columns;
}

std::vector<POINT> points_of(const json& points)
{
    std::vector<POINT> result;
    for (const json& point : points)
        result.push_back({point[0].get<LONG>(), point[1].get<LONG>()});
    return result;
}

bool are_equal(const std::vector<POINT>& some, const std::vector<POINT>& others)
{
    return std::equal(some.begin(), some.end(), others.begin(), others.end(),
        [](const POINT& one, const POINT& other) { return one.x == other.x && one.y == other.y; });
}

template <size_t... index>
int set_ranges(Tool_Histo& panel, unsigned short n, const std::vector<double>& arguments, std::index_sequence<index...>)
{
    std::vector<double> all(arguments);
    all.resize(std::max(all.size(), 3 * sizeof...(index)));
    const auto set = [&](auto... each) { return panel.Set(n, each...); };
    return std::apply(
        set, std::tuple_cat(std::tuple(static_cast<int>(all[3 * index]), all[3 * index + 1], all[3 * index + 2])...));
}

int set_ranges(Tool_Histo& panel, int n, const std::vector<double>& arguments)
{
    return set_ranges(panel, static_cast<unsigned short>(n), arguments, std::make_index_sequence<33>());
}

// ------------------------------------------------------------------------------------------------------ drawing

class Draw_Case : public Vector_Case {
public:
    using Vector_Case::Vector_Case;

    void TestBody() override
    {
        prepare();
        const json& expected = one_.at("expected");
        ASSERT_EQ(Histo_Paint(&panel), 1);
        const Seen_Drawing drawing = take_seen_drawing();
        compare_bands(drawing, expected.at("bands"));
        compare_outline(drawing, expected.at("outline"));
        EXPECT_EQ(panel.cursor_x, -1);
        compare_cursors(expected.at("cursor_grey"), false);
        compare_cursors(expected.at("cursor_colour"), true);
    }

private:
    void prepare()
    {
        for (unsigned tag = 0; tag < 256; ++tag) {
            red_[tag] = static_cast<unsigned short>(tag << 8 | 0x11);
            green_[tag] = static_cast<unsigned short>((tag * 7 & 0xff) << 8 | 0x22);
            blue_[tag] = static_cast<unsigned short>((255 - tag) << 8 | 0x33);
        }
        own_registry::define_array("$TAG_RED", red_);
        own_registry::define_array("$TAG_GRN", green_);
        own_registry::define_array("$TAG_BLU", blue_);
        const json& box = one_.at("box");
        panel.window = window_.handle();
        panel.x = box.at("x");
        panel.y = box.at("y");
        panel.width = box.at("w");
        panel.height = box.at("h");
        panel.border = box.at("border");
        panel.zoom.value = one_.at("zoom");
        panel.color_component = one_.at("component");
        auto* const histogram = panel_record(histogram_of(one_.at("histo")));
        histogram->max_count = one_["histo"].at("max_count");
        panel.histo = histogram;
        std::vector<double> ranges;
        for (const json& range : one_.at("ranges"))
            ranges.insert(ranges.end(), range.begin(), range.end());
        EXPECT_EQ(set_ranges(panel, static_cast<int>(one_["ranges"].size()), ranges),
            one_["expected"].at("set_result").get<int>());
        take_seen_drawing();
    }

    COLORREF color_of(unsigned tag) const { return RGB(red_[tag] >> 8, green_[tag] >> 8, blue_[tag] >> 8); }

    void compare_bands(const Seen_Drawing& drawing, const json& bands) const
    {
        const json& expected = one_.at("expected");
        const LONG bottom = expected.at("y0"), top = bottom + expected.at("H").get<LONG>();
        ASSERT_EQ(drawing.fills.size(), 1 + bands.size()) << "the background and a band for each range";
        size_t polygon = 0;
        for (size_t i = 0; i < bands.size(); ++i) {
            SCOPED_TRACE("range " + std::to_string(i));
            const COLORREF color = color_of(bands[i].at("tag"));
            const Seen_Fill& fill = drawing.fills[1 + i];
            const LONG left = bands[i].at("x_left"), right = bands[i].at("x_right");
            EXPECT_EQ(fill.rectangle.left, std::min(left, right));
            EXPECT_EQ(fill.rectangle.right, std::max(left, right));
            EXPECT_EQ(std::minmax(fill.rectangle.top, fill.rectangle.bottom), std::minmax(bottom, top));
            const DWORD pixel = DWORD{GetRValue(color)} << 16 | DWORD{GetGValue(color)} << 8 | GetBValue(color);
            EXPECT_EQ(fill.pattern, (std::vector<DWORD>{pixel, 0, 0, pixel}));
            for (const json& points : bands[i].at("polygons")) {
                ASSERT_LT(polygon, drawing.polygons.size());
                EXPECT_EQ(drawing.polygons[polygon].pen, color);
                EXPECT_TRUE(are_equal(drawing.polygons[polygon++].points, points_of(points)));
            }
        }
        EXPECT_EQ(polygon, drawing.polygons.size());
    }

    static void compare_outline(const Seen_Drawing& drawing, const json& outline)
    {
        ASSERT_EQ(drawing.lines.size(), 1u);
        EXPECT_EQ(drawing.lines[0].pen, outline.at("colour").get<COLORREF>());
        EXPECT_TRUE(columns_of(drawing.lines[0].points) == columns_of(points_of(outline.at("points"))));
    }

    void compare_cursors(const json& cursors, bool color)
    {
        static own_frames::Frame frame;
        frame.color = color;
        own_registry::define_array("$FRAME_OVR", &frame);
        own_registry::define_floats("$MOUSE_FRM", {0, 3, 4, 0});
        const LONG bottom = one_["expected"].at("y0"), top = bottom + one_["expected"].at("H").get<LONG>();
        for (const json& cursor : cursors) {
            SCOPED_TRACE(cursor.dump());
            frame.raw = color ? cursor.at("raw").get<int>() : own_frames::raw_of(cursor.at("value"));
            panel.cursor_x = 0;
            take_seen_drawing();
            EXPECT_EQ(Histo_Cursor(&panel), 1);
            const Seen_Drawing drawing = take_seen_drawing();
            const LONG x = cursor.at("x");
            ASSERT_EQ(drawing.lines.size(), 1u);
            EXPECT_TRUE(are_equal(drawing.lines[0].points, {{x, bottom}, {x, top}}));
            EXPECT_EQ(panel.cursor_x, x);
        }
    }

    Test_Window window_{nullptr, 500, 300};
    unsigned short red_[256], green_[256], blue_[256];
};

// ------------------------------------------------------------------------------------------------------- others

class Set_Case : public Vector_Case {
public:
    using Vector_Case::Vector_Case;

    void TestBody() override
    {
        for (size_t call = 0; call < one_.at("calls").size(); ++call) {
            const json& expected = one_.at("expected")[call];
            const int result = set_ranges(panel, one_["calls"][call].at("n"), one_["calls"][call].at("args"));
            EXPECT_EQ(result, expected.at("result").get<int>());
            ASSERT_EQ(panel.range_nb, expected.at("range_nb").get<int>());
            for (size_t i = 0; i < panel.range_nb; ++i) {
                const json& range = expected.at("ranges")[i];
                EXPECT_EQ(panel.range_tag[i], range[0].get<int>());
                EXPECT_EQ(panel.range_min[i], range[1].get<float>());
                EXPECT_EQ(panel.range_max[i], range[2].get<float>());
            }
        }
    }
};

std::vector<std::string> steps;

class Update_Case : public Vector_Case {
public:
    using Vector_Case::Vector_Case;

    void TestBody() override
    {
        histo::graph::open(&panel);
        ASSERT_TRUE(histo::graph::exists());
        steps.clear();
        hostkit::Set_Report_Sink({[](const hostkit::Report& report) {
                                      const std::string& text = report.text;
                                      for (const char* step : {"Compute", "Paint", "Cursor"}) {
                                          if (text == std::string("in Histo_") + step + "()")
                                              steps.push_back(static_cast<char>(step[0] + 32) + std::string(step + 1));
                                      }
                                      return true;
                                  },
            [](int) { return true; }});
        on_post = [](UINT message) { steps.push_back(message == 0x400 ? "post 0x400" : "post 0x401"); };
        panel.Update(std::stoull(one_.at("flags").get<std::string>(), nullptr, 16));
        on_post = nullptr;
        EXPECT_EQ(steps, one_.at("expected").get<std::vector<std::string>>());
    }
};

}

std::unique_ptr<Vector_Case> make_panel_case(const json& one)
{
    const std::string type = one.at("type");
    if (type == "draw")
        return std::make_unique<Draw_Case>(one);
    if (type == "set")
        return std::make_unique<Set_Case>(one);
    return std::make_unique<Update_Case>(one);
}

}
