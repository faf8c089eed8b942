#include "db/edit_state.h"
#include "tests/db/diagram.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

// What the diagram looks like: pictures to be looked at, and what can be told of their pixels.

using namespace test;

namespace {

constexpr Colors yellow{255, 255, 0};
constexpr Colors refusing{0xF0, 0x70, 0x30};

Place beside_middle(Place handle)
{
    return {handle.x + 5, handle.y + 3};
}

}

class DatabaseDiagramPicture : public Database_Diagram {
protected:
    Colors face(const Strato_2D* object, db::Diagram_Part handle)
    {
        return pixel(window(), beside_middle(part(object, handle)));
    }
};

TEST_F(DatabaseDiagramPicture, AllStates)
{
    add(root, "Locked", "cannot be selected", 0x2010);
    add(study_y, "Surface", "of another kind", 0x2100);
    add(study_y, "Frame", "a name that is longer than its box is wide, so that it has to be cut", hostkit::frame_class);
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    lay_out(790, 560);
    keep_picture(window(), "database_diagram");
    click(window(), part(study_y, db::fold_handle));
    move(window(), body(study_x));
    keep_picture(window(), "database_diagram_folded_hovered");
    press(window(), part(root, db::children_handle));
    move(window(), part(study_y, db::children_handle));
    keep_picture(window(), "database_diagram_dragged");
    release(window(), empty_space());
    press(window(), part(study_x, db::parent_handle));
    panel().horizontal.value = 330;
    panel().Draw();
    move(window(), part(series_a, db::children_handle));
    keep_picture(window(), "database_diagram_refused");
    release(window(), empty_space());
}

TEST_F(DatabaseDiagramPicture, WhatIsUnderThePointerIsHighlightedAndThenNot)
{
    move(window(), empty_space());
    const auto before = pixels(window());
    move(window(), part(study_y, db::parent_handle));
    EXPECT_EQ(face(study_y, db::parent_handle), yellow);
    move(window(), part(root, db::children_handle));
    EXPECT_NE(face(study_y, db::parent_handle), yellow);
    EXPECT_EQ(face(root, db::children_handle), yellow);
    move(window(), part(root, db::fold_handle));
    EXPECT_EQ(face(root, db::fold_handle), yellow);
    move(window(), body(study_x));
    const auto box = pixels(window());
    EXPECT_NE(box, before);
    move(window(), empty_space());
    EXPECT_EQ(pixels(window()), before);
    move(window(), body(root));
    EXPECT_EQ(pixels(window()), before) << "the root's box is as good as nothing";
}

TEST_F(DatabaseDiagramPicture, ADragIsShownAndTakenAway)
{
    move(window(), empty_space());
    const auto before = pixels(window());
    press(window(), part(study_y, db::parent_handle));
    EXPECT_EQ(face(study_y, db::parent_handle), yellow);
    const auto pressed = pixels(window());
    for (const Place to : {empty_space(), body(study_x), part(root, db::children_handle), body(study_y)}) {
        move(window(), to);
        EXPECT_NE(pixels(window()), pressed);
        EXPECT_EQ(face(study_y, db::parent_handle), yellow) << "it stays so";
    }
    move(window(), empty_space());
    release(window(), empty_space());
    EXPECT_EQ(pixels(window()), before);
}

TEST_F(DatabaseDiagramPicture, DraggedChildrenStayHighlightedWhenTheViewScrolls)
{
    press(window(), part(root, db::children_handle));
    EXPECT_EQ(face(study_x, db::parent_handle), yellow);
    EXPECT_EQ(face(study_y, db::parent_handle), yellow);
    turn_wheel(window(), empty_space(), -120);
    EXPECT_EQ(face(study_y, db::parent_handle), yellow);
    release(window(), empty_space());
    EXPECT_NE(face(study_y, db::parent_handle), yellow);
}

TEST_F(DatabaseDiagramPicture, ADropThatWouldDoNothingIsRefused)
{
    lay_out(1400, 500);
    press(window(), part(study_x, db::parent_handle));
    move(window(), part(series_a, db::children_handle));
    EXPECT_EQ(face(series_a, db::children_handle), refusing) << "below what is dragged";
    move(window(), part(study_y, db::children_handle));
    EXPECT_EQ(face(study_y, db::children_handle), yellow);
    EXPECT_NE(face(series_a, db::children_handle), refusing);
    release(window(), empty_space());
    press(window(), part(four, db::parent_handle));
    move(window(), part(study_y, db::children_handle));
    EXPECT_EQ(face(study_y, db::children_handle), refusing) << "it is there";
    release(window(), empty_space());
    press(window(), part(root, db::children_handle));
    move(window(), part(series_a, db::children_handle));
    EXPECT_EQ(face(series_a, db::children_handle), yellow) << "one of the two can go there";
    release(window(), empty_space());
}

TEST_F(DatabaseDiagramPicture, ScrolledItIsCutAtItsBox)
{
    for (int i = 0; i < 20; ++i)
        add(series_a, "Frame", std::to_string(i), hostkit::frame_class);
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    panel().vertical.value = 130;
    panel().horizontal.value = 170;
    panel().Draw();
    keep_picture(window(), "database_diagram_scrolled");
    const Boxs& box = panel().list_box;
    for (int x = box.x; x < box.x + box.width; ++x) {
        EXPECT_EQ(pixel(window(), {x, box.y - 1}), panel().box.back);
        EXPECT_EQ(pixel(window(), {x, box.y + box.height}), panel().box.back);
    }
    const auto before = pixels(window());
    panel().vertical.Draw();
    panel().Motion(0);
    EXPECT_EQ(pixels(window()), before);
}

// The line from a class to its next sibling crosses all that lies below the first one.
TEST_F(DatabaseDiagramPicture, LinesBetweenSiblingsCrossTheView)
{
    for (int i = 0; i < 60; ++i)
        add(series_a, "Frame", std::to_string(i), hostkit::frame_class);
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    lay_out(780, 400);
    panel().vertical.value = 1000;
    panel().Draw();
    const auto origin = panel().Origin();
    const Boxs& box = panel().list_box;
    for (int y = box.y; y < box.y + box.height; ++y)
        ASSERT_EQ(pixel(window(), {origin.x + 330 - 40, y}), (Colors{0, 0, 0})) << y;
    panel().vertical.value = panel().vertical.maximum;
    panel().Draw();
    keep_picture(window(), "database_diagram_end");
    const auto end = panel().Origin();
    const int below_last = end.y - 50 * panel().list_pt[row_of(study_y)].line - 40;
    EXPECT_EQ(pixel(window(), {end.x + 330 - 40, below_last}), panel().list_box.back) << "and ends at the last one";
}

TEST_F(DatabaseDiagramPicture, ContentHasItsExtent)
{
    lay_out(400, 200);
    const int space = hostkit::Variable<short>("$INTERFACE_SPACE_DIM");
    const Boxs& box = panel().list_box;
    EXPECT_EQ(panel().vertical.state, 0x0C000004u);
    EXPECT_EQ(panel().vertical.maximum, 2 * ((4 + 1) * 25 + space) - box.height);
    EXPECT_EQ(panel().horizontal.state, 0x08000000u);
    EXPECT_EQ(panel().horizontal.maximum, 2 * (3 * 165 + space) + 250 - box.width);
    lay_out(1600, 700);
    EXPECT_EQ(panel().vertical.state, 0x0C000027u);
    EXPECT_EQ(panel().horizontal.state, 0x08000023u);
}

TEST_F(DatabaseDiagramPicture, FoldingBringsTheViewBackIntoTheContent)
{
    for (int i = 0; i < 60; ++i)
        add(root, "Frame", std::to_string(i), hostkit::frame_class);
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    panel().vertical.value = panel().vertical.maximum;
    panel().list_pt[0].state &= static_cast<unsigned short>(~DB_List::expanded);
    panel().Draw();
    EXPECT_EQ(panel().vertical.value, 0);
}

TEST_F(DatabaseDiagramPicture, NamesOfAnyLengthAndBytesAreShown)
{
    for (const std::string& name : {std::string(), std::string(39, 'm'), std::string(40, 'm'), std::string(5000, 'm'),
             std::string("\x01\x02\xff\xfe/\\%s\n")})
        add(study_x, name, name);
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    move(window(), empty_space());
    keep_picture(window(), "database_diagram_names");
    const auto before = pixels(window());
    panel().Draw();
    panel().Draw(); // the message is the same again
    EXPECT_EQ(pixels(window()), before);
}

// ------------------------------------------------------------------------------------------------ marks and colours

TEST_F(DatabaseDiagramPicture, HandlesThatFoldShowWhatTheyDo)
{
    Strato_2D* const locked = add(root, "Locked", "cannot be selected", 0x2010);
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    lay_out(1340, 600);
    constexpr Colors black{0, 0, 0}, white{255, 255, 255}, red{0xD0, 0x20, 0x20};
    const auto at = [&](const Strato_2D* object, int dx, int dy) {
        const Place handle = part(object, db::fold_handle);
        return pixel(window(), {handle.x + dx, handle.y + dy});
    };
    EXPECT_EQ(at(series_a, 3, 0), black) << "a minus: it would fold";
    EXPECT_NE(at(series_a, 0, 3), black);
    click(window(), part(series_a, db::fold_handle));
    EXPECT_EQ(at(series_a, 3, 0), black) << "a plus: it would unfold";
    EXPECT_EQ(at(series_a, 0, 3), black);
    EXPECT_EQ(at(study_y, 0, 0), black) << "a line to an only child";
    EXPECT_EQ(at(study_y, 5, 3), panel().list_box.back);
    EXPECT_EQ(at(locked, 5, 3), red);
    EXPECT_EQ(at(locked, 3, 0), white);
    EXPECT_EQ(at(locked, -20, 0), black) << "its stub";
    EXPECT_EQ(at(four, 0, 0), panel().list_box.back) << "a leaf has none";
}

TEST_F(DatabaseDiagramPicture, BoxesHaveOneOfTwoColours)
{
    const auto face_of = [&](unsigned class_a) {
        Strato_2D* const added = add(root, "", "", class_a);
        Fct_Update(0x402, nullptr, nullptr, nullptr);
        lay_out(790, 700);
        const Place place = body(added);
        const Colors face = pixel(window(), {place.x + 60, place.y + 8});
        hostkit::Object_2D_Remove(added);
        return face;
    };
    const Colors first = face_of(0), second = face_of(64);
    EXPECT_NE(first, second);
    for (const unsigned class_a : {63u, 0x203Fu, 0x2000u, 0x2FFFu, 0xFFFu, 0x1F000u})
        EXPECT_EQ(face_of(class_a), first) << class_a;
    for (const unsigned class_a : {0x2040u, 0x2FFDu, 0x2FFEu, 0x100u})
        EXPECT_EQ(face_of(class_a), second) << class_a;
}

// Letters are soft at their edges: what is darkest lies between the face of the box and the colour.
TEST_F(DatabaseDiagramPicture, NamesHaveTheirColour)
{
    one->Name_Set("HHHHHHHHHHHH");
    panel().Draw();
    const Place place = body(one);
    const Colors face = pixel(window(), {place.x + 60, place.y + 8});
    Colors darkest = face;
    for (int y = place.y - 16; y < place.y; ++y) {
        for (int x = place.x - 70; x < place.x + 50; ++x) {
            const Colors here = pixel(window(), {x, y});
            darkest = here.blue < darkest.blue ? here : darkest;
        }
    }
    const double share = (face.blue - darkest.blue) / static_cast<double>(face.blue);
    EXPECT_GT(share, 0.5);
    EXPECT_NEAR(darkest.red, face.red + share * (100 - face.red), 4);
    EXPECT_NEAR(darkest.green, face.green + share * (100 - face.green), 4);
}

// The folder is the host's: a title leads to no other.
TEST_F(DatabaseDiagramPicture, IconsAreNamedByTitlesWithinTheirFolder)
{
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / "vetra_diagram_icons";
    fs::create_directories(folder / "class in");
    const auto write_red = [](const fs::path& file) {
        const unsigned char header[18] = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 16, 0, 16, 0, 24, 0};
        std::string bytes(reinterpret_cast<const char*>(header), sizeof header);
        for (int i = 0; i < 16 * 16; ++i)
            bytes += std::string("\x00\x00\xFF", 3);
        std::ofstream(file, std::ios::binary) << bytes;
    };
    write_red(folder / "class a_b_c.tga");
    write_red(folder / "class in" / "side.tga");
    write_red(folder / "class .tga");
    std::string path = folder.string();
    hostkit::String_Variable("$DEFAULT_ICON_PATH") = path.data();
    Strato_2D* const separated = add(root, "a/b\\c", "red");
    Strato_2D* const inside = add(root, "in/side", "none");
    Strato_2D* const untitled = add(root, "", "red");
    Strato_2D* const endless = add(root, std::string(4000, 'e'), "none");
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    lay_out(1340, 700);
    const auto icon = [&](const Strato_2D* object) {
        const Place place = body(object);
        return pixel(window(), {place.x - 125 + 20, place.y});
    };
    constexpr Colors red{255, 0, 0};
    EXPECT_EQ(icon(separated), red);
    EXPECT_NE(icon(inside), red);
    EXPECT_EQ(icon(untitled), red);
    EXPECT_NE(icon(endless), red);
    hostkit::String_Variable("$DEFAULT_ICON_PATH") = nullptr;
    fs::remove_all(folder);
}
