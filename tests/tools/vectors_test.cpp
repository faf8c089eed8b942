// Compares the brush panel with cases from a folder: vectors_runner [FOLDER], or the folder in VETRA_VECTORS. Without
// a folder there is nothing to compare.

#include "tests/tools/brush_panel_fixture.h"
#include "tools/brush_shape.h"

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <fstream>
#include <iostream>

using namespace test;
using hostkit::Array_Variable;
using hostkit::Variable;
using nlohmann::json;

namespace {

using Rows = std::vector<std::string>;

class BrushVectors : public BrushPanel {
public:
    explicit BrushVectors(json one) : one_(std::move(one)) {}

    void TestBody() override
    {
        const std::string type = one_.at("type");
        if (type == "shapes")
            compare_shapes();
        else if (type == "picture")
            compare_pictures();
        else if (type == "layout")
            compare_layout();
        else
            FAIL() << "cases of the type \"" << type << "\" are not known here";
    }

private:
    void set_sizes(const std::vector<unsigned short>& sizes)
    {
        sizes_ = sizes;
        Variable<unsigned short>("$BRUSH_NB") = static_cast<unsigned short>(sizes_.size());
        Array_Variable<unsigned short>("$BRUSH_SIZE") = sizes_.data();
    }

    // The host's grids, through the panel.
    void compare_shapes()
    {
        const unsigned short radius = one_.at("radius");
        const size_t side = 2u * radius + 1;
        set_sizes(one_.at("sizes"));
        std::vector<unsigned char> bytes(sizes_.size() * side * side);
        std::vector<unsigned char*> rows;
        std::vector<unsigned char**> grids;
        for (size_t row = 0; row < sizes_.size() * side; ++row)
            rows.push_back(bytes.data() + row * side);
        for (size_t brush = 0; brush < sizes_.size(); ++brush)
            grids.push_back(rows.data() + brush * side);
        Variable<unsigned short>("$BRUSH_RADIUS") = radius;
        Array_Variable<unsigned char**>("$BRUSH_PT") = grids.data();

        Tool_Brush panel;
        panel.Update(brushes_changed);
        const json& expected = one_.at("expected");
        ASSERT_EQ(expected.size(), sizes_.size());
        for (unsigned brush = 0; brush < sizes_.size(); ++brush) {
            EXPECT_EQ(shape(brush), expected[brush].at("rows").get<Rows>()) << "size " << sizes_[brush];
            EXPECT_EQ(points(brush), expected[brush].at("points").get<int>()) << "size " << sizes_[brush];
            EXPECT_EQ(tools::radius_squared(sizes_[brush]), expected[brush].at("square").get<int>());
        }
    }

    // Each disc by itself, and in the panel when all its buttons are alike.
    void compare_pictures()
    {
        constexpr unsigned color = 0x123456;
        const json& buttons = one_.at("buttons");
        for (size_t brush = 0; brush < buttons.size(); ++brush) {
            const json& expected = one_.at("expected")[brush];
            const int width = buttons[brush][0], height = buttons[brush][1];
            std::vector<unsigned> painted(static_cast<size_t>(width) * static_cast<size_t>(height));
            tools::paint_disc(painted.data(), width, height, expected.at("limit").get<short>(), color);
            EXPECT_EQ(rows_of(painted, width, color), expected.at("rows").get<Rows>()) << "brush " << brush;
        }
        if (buttons == json(buttons.size(), buttons[0]))
            compare_panel_pictures(buttons[0][0], buttons[0][1]);
    }

    void compare_panel_pictures(int width, int height)
    {
        set_sizes(one_.at("sizes"));
        BORDER = one_.at("border").get<short>();
        Variable<short>("$INTERFACE_SPACE_DIM") = 0;
        Variable<unsigned short>("$TAG_CUR") = 3;
        hostkit::Tag_Color_Set(3, {0x12, 0x34, 0x56});
        Tool_Brush panel;
        lay_out(panel, {0, 0, width * static_cast<int>(sizes_.size()), height}, BORDER);
        for (unsigned brush = 0; brush < sizes_.size(); ++brush) {
            const auto shown = picture(main_window(), button(static_cast<int>(brush)));
            const Rows expected = one_.at("expected")[brush].at("rows");
            EXPECT_EQ(rows_of({shown.begin(), shown.end()}, width, RGB(0x12, 0x34, 0x56)), expected) << brush;
        }
    }

    static Rows rows_of(const std::vector<unsigned>& pixels, int width, unsigned color)
    {
        Rows rows;
        for (size_t i = 0; i < pixels.size(); ++i) {
            if (i % static_cast<size_t>(width) == 0)
                rows.emplace_back();
            rows.back() += pixels[i] == color ? '1' : '0';
        }
        return rows;
    }

    // Where which brush takes a press. Of buttons that overlap the first one does.
    void compare_layout()
    {
        const json& place = one_.at("area");
        set_sizes(std::vector<unsigned short>(one_.at("n").get<size_t>(), 3));
        Variable<short>("$INTERFACE_SPACE_DIM") = one_.at("space").get<short>();
        Tool_Brush panel;
        lay_out(panel, {place[0], place[1], place[2], place[3]});
        for (int y = 0; y < area.y + area.height + 5; ++y) {
            for (int x = 0; x < area.x + area.width + 5; ++x) {
                const int brush = brush_at(x, y);
                ASSERT_EQ(click_at(panel, {x, y}), brush >= 0) << x << ',' << y;
                if (brush >= 0) {
                    ASSERT_EQ(panel.Read(), brush) << x << ',' << y;
                }
            }
        }
    }

    int brush_at(int x, int y) const
    {
        int brush = 0;
        for (const json& rectangle : one_.at("expected")) {
            const int left = rectangle[0], low = rectangle[1], width = rectangle[2], height = rectangle[3];
            if (x >= left && x < left + width && y >= low && y < low + height)
                return brush;
            ++brush;
        }
        return -1;
    }

    json one_;
    std::vector<unsigned short> sizes_;
};

int register_cases(const std::string& folder)
{
    std::ifstream file(folder + "/brush.json");
    const json cases = json::parse(file, nullptr, false);
    if (!cases.is_object() || !cases.contains("cases") || cases["cases"].empty()) {
        std::cerr << folder << "/brush.json cannot be read as a list of cases. Give the folder that holds it.\n";
        return 1;
    }
    for (const json& one : cases["cases"]) {
        const std::string name = one.at("name");
        testing::RegisterTest("BrushVectors", name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
            [one]() -> BrushPanel* { return new BrushVectors(one); });
    }
    return 0;
}

}

int main(int count, char** arguments)
{
    testing::InitGoogleTest(&count, arguments);
    const char* folder = count > 1 ? arguments[1] : std::getenv("VETRA_VECTORS");
    if (folder && register_cases(folder) != 0)
        return 1;
    return RUN_ALL_TESTS();
}
