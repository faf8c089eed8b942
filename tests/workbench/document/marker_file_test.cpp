#include "tests/workbench/document/fixtures.h"
#include "workbench/document/marker_file.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace document;
using namespace document_test;

namespace {

const Marker nasion = {.label = "Nasion", .position = {{1.5, -80, 12.25}}, .colour = Rgb{230, 75, 60}};
const Marker hidden = {
    .label = "A \"b\", c", .position = {{0.1, 0, -0.0}}, .enabled = false, .selected = false, .locked = true};
const Marker unset = {.label = "Inion", .colour = Rgb{0, 0, 0}, .description = "still to be found"};

const std::string schema =
    R"("@schema": "https://raw.githubusercontent.com/slicer/slicer/master/Modules/Loadable/Markups/)"
    R"(Resources/Schema/markups-schema-v1.0.3.json#")";

class MarkerFiles : public ::testing::Test {
protected:
    MarkerFile read(std::string_view text, const std::string& name = "points.mrk.json")
    {
        write_file(folder / name, text);
        const auto file = load_markers(folder / name);
        EXPECT_TRUE(file) << file.failure().message;
        return file ? *file : MarkerFile();
    }

    std::string refusal(std::string_view text, const std::string& name = "points.mrk.json")
    {
        write_file(folder / name, text);
        const auto file = load_markers(folder / name);
        return file ? "nothing" : file.failure().message;
    }

    std::string saved(const std::string& name, const MarkerList& markers)
    {
        const auto notices = save_markers(folder / name, markers);
        if (!notices)
            return notices.failure().message;
        std::string all;
        for (const auto& notice : *notices)
            all += notice;
        return all;
    }

    MarkerList loaded(const std::string& name)
    {
        const auto file = load_markers(folder / name);
        EXPECT_TRUE(file) << file.failure().message;
        return file ? file->markers : MarkerList();
    }

    // A file with these lists, and one with one list of these points.
    static std::string lists(const std::string& text) { return "{" + schema + ", \"markups\": [" + text + "]}"; }
    static std::string points(const std::string& text, const std::string& more = "")
    {
        return lists("{\"type\": \"Fiducial\"" + more + ", \"controlPoints\": [" + text + "]}");
    }

    Folder folder;
};

MarkerList numbered(std::size_t count)
{
    MarkerList markers;
    for (std::size_t i = 0; i < count; ++i)
        markers.push_back({.label = "P" + std::to_string(i), .position = {{double(i), 1, 2}}});
    return markers;
}

}

// ------------------------------------------------------------------------------------------------------------- JSON

TEST_F(MarkerFiles, AreWrittenByteForByte)
{
    ASSERT_EQ(saved("points.mrk.json", {nasion, unset}), "");
    EXPECT_EQ(bytes_of_file(folder / "points.mrk.json"), "{\n    " + schema + R"(,
    "markups": [
        {
            "type": "Fiducial",
            "coordinateSystem": "LPS",
            "coordinateUnits": "mm",
            "controlPoints": [
                {
                    "id": "1",
                    "label": "Nasion",
                    "position": [
                        1.5,
                        -80.0,
                        12.25
                    ],
                    "selected": true,
                    "locked": false,
                    "visibility": true,
                    "positionStatus": "defined",
                    "vetraColor": [
                        230,
                        75,
                        60
                    ]
                },
                {
                    "id": "2",
                    "label": "Inion",
                    "description": "still to be found",
                    "selected": true,
                    "locked": false,
                    "visibility": true,
                    "positionStatus": "undefined",
                    "vetraColor": [
                        0,
                        0,
                        0
                    ]
                }
            ]
        }
    ]
}
)");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"points.mrk.json"});
}

TEST_F(MarkerFiles, ReadBackEqual)
{
    const double numbers[] = {0.1, 1.0 / 3, -1e-310, 1.7e308, std::numeric_limits<double>::epsilon(), -0.0};
    MarkerList markers = {
        nasion, hidden, unset, {}, {.label = "B\xC3\xA4r \xE8\x82\x9D \xF0\x9F\xA6\xB4 \t\r\n \\u0041 \x7f"}};
    for (const double number : numbers)
        markers.push_back({.position = {{number, -number, number}}});
    for (const char* name : {"points.mrk.json", "points.json", "POINTS.MRK.JSON"}) {
        ASSERT_EQ(saved(name, markers), "");
        EXPECT_EQ(loaded(name), markers);
    }
    ASSERT_EQ(saved("none.mrk.json", {}), "");
    EXPECT_TRUE(loaded("none.mrk.json").empty());
}

TEST_F(MarkerFiles, OfOthersAreRead)
{
    const auto file = read(R"({
    "@schema": "https://example.org/x/markups-schema-v1.12.0.json##", "unknown": {"deep": [1, 2]},
    "markups": [{
        "type": "Fiducial", "coordinateSystem": "RAS", "coordinateUnits": "mm", "locked": false, "labelFormat": "%N-%d",
        "controlPoints": [
            {"id": "1", "label": "F-1", "description": "", "associatedNodeID": "vtk1", "position": [1, 2.5, 3],
             "orientation": [1,0,0,0,1,0,0,0,1], "selected": true, "locked": true, "visibility": false,
             "positionStatus": "defined", "new": null},
            {"position": [0, 0, 0], "positionStatus": "preview", "selected": false},
            {"label": null}
        ],
        "display": {"visibility": true, "color": [0.4, 1.0, 0.0], "selectedColor": [1.0, 0.5, 0.5]}
    }, {"type": "Fiducial", "controlPoints": [{"label": "second", "position": [1, 2, 3]}]},
       {"type": "Fiducial"}]})");
    const MarkerList expected = {
        {.label = "F-1", .position = {{-1, -2.5, 3}}, .enabled = false, .colour = Rgb{255, 128, 128}, .locked = true},
        {.colour = Rgb{102, 255, 0}, .selected = false}, {.colour = Rgb{255, 128, 128}},
        {.label = "second", .position = {{1, 2, 3}}}};
    EXPECT_EQ(file.markers, expected);
    EXPECT_TRUE(file.notices.empty());
}

TEST_F(MarkerFiles, RightAndFrontAreTurnedWithoutNegativeZeros)
{
    const auto file = read(points("{\"position\": [0, 0, -1]}", ", \"coordinateSystem\": \"RAS\""));
    for (const double value : {(*file.markers.at(0).position)[0], (*file.markers.at(0).position)[1]})
        EXPECT_FALSE(std::signbit(value));
}

TEST_F(MarkerFiles, MarkupsThatAreNoPointsAreNamed)
{
    const std::string others = "{\"type\": \"Line\"}, {\"type\": \"ROI\"}, {\"type\": \"ROI\", \"roiType\": \"Box\"}";
    const auto file = read(lists(others + ", {\"type\": \"Fiducial\", \"controlPoints\": [{}]}"));
    EXPECT_EQ(file.markers.size(), 1u);
    EXPECT_EQ(file.notices,
        std::vector<std::string>{"Only points are shown; left out of \"points.mrk.json\": 1 Line, 2 ROI."});
    EXPECT_EQ(refusal(lists(others)),
        "\"points.mrk.json\" holds no points, only markups of other kinds (1 Line, 2 ROI)."
        " Choose a file with markups (.mrk.json).");
}

TEST_F(MarkerFiles, ColoursThatMakeNoSenseAreLeftToTheProgram)
{
    for (const char* colour : {"[1, 2]", "\"red\"", "null", "[0, \"x\", 0]", "7"})
        EXPECT_EQ(read(points("{\"vetraColor\": " + std::string(colour) + "}")).markers, MarkerList{{}}) << colour;
    EXPECT_EQ(read(points("{\"vetraColor\": [300, -5, 127.6]}")).markers[0].colour, (Rgb{255, 0, 128}));
}

TEST_F(MarkerFiles, TheFirst64AreReadAndTheRestCounted)
{
    std::string all;
    for (const auto& marker : numbered(70))
        all += (all.empty() ? "" : ", ") + std::string("{\"label\": \"") + marker.label + "\"}";
    const auto file = read(points(all));
    ASSERT_EQ(file.markers.size(), 64u);
    EXPECT_EQ(file.markers.back().label, "P63");
    EXPECT_EQ(file.notices,
        std::vector<std::string>{"\"points.mrk.json\" holds 70 markers: the first 64 are there, 6 are left out."});
    ASSERT_EQ(saved("full.mrk.json", numbered(64)), "");
    EXPECT_EQ(loaded("full.mrk.json"), numbered(64));
}

TEST_F(MarkerFiles, NamesSurviveWithAnyBytes)
{
    const auto file =
        read(points("{\"label\": \"B\xE4r\"},\n{\"label\": \"B\xC3\xA4r\"},\n{\"label\": \"a\\u0000b\"}"));
    EXPECT_EQ(file.markers[0].label, "B\xC3\xA4r");
    EXPECT_EQ(file.markers[1].label, "B\xC3\xA4r");
    EXPECT_EQ(file.markers[2].label, "a b");
    for (const char* name : {"bytes.mrk.json", "bytes.csv"}) {
        std::string every;
        for (int byte = 1; byte < 256; ++byte)
            every += static_cast<char>(byte);
        ASSERT_EQ(saved(name, {{.label = every}}).find("could not"), std::string::npos);
        EXPECT_TRUE(loaded(name).at(0).label.starts_with("\x01\x02"));
        EXPECT_TRUE(loaded(name)[0].label.ends_with("\xC3\xBE\xC3\xBF"));
    }
}

TEST_F(MarkerFiles, ThatAreNoJsonNameTheLine)
{
    const auto line_refusal = [](int line) {
        return "\"points.mrk.json\", line " + std::to_string(line) +
               ": this is no JSON. Correct it in a text editor, or get a complete copy of the file.";
    };
    EXPECT_EQ(refusal("{\n\"a\": 1,\n\"b\": nonsense\n}"), line_refusal(3));
    EXPECT_EQ(refusal("{\n\"a\": [1,\n\n"), line_refusal(4));
    EXPECT_EQ(refusal("Hello"), line_refusal(1));
    EXPECT_EQ(refusal(points("{\"position\": [NaN, 0, 0]}")), line_refusal(1));
    EXPECT_EQ(refusal(std::string("\x1f\x8b\0\0", 4)), line_refusal(1));
    EXPECT_EQ(refusal(std::string(100000, '[')), line_refusal(1));
}

TEST_F(MarkerFiles, OfAnotherStructureAreRefused)
{
    const std::string choose = " Choose a file with markups (.mrk.json).";
    EXPECT_EQ(refusal("[1, 2]"), "\"points.mrk.json\" holds no markups: it has no \"@schema\"." + choose);
    EXPECT_EQ(refusal("{\"@schema\": 3, \"markups\": []}"),
        "\"points.mrk.json\" holds no markups: it has no \"@schema\"." + choose);
    for (const std::string name : {"markups-schema-v2.0.0.json", "markups-schema-v1..3.json", "markups-schema-v1.0.json",
             "markups-schema-v1.0.3.json?", "markups-schema-v1.0.3", "schema-v1.0.3.json", "markups-schema-v1.", ""})
        EXPECT_EQ(refusal("{\"@schema\": \"" + name + "\", \"markups\": []}"),
            "\"points.mrk.json\" is of a kind that is not known here: \"" + name + "\"." + choose);
    EXPECT_EQ(refusal("{" + schema + "}"), "\"points.mrk.json\" has no list \"markups\"." + choose);
    EXPECT_EQ(refusal("{" + schema + ", \"markups\": {}}"), "\"points.mrk.json\" has no list \"markups\"." + choose);
}

TEST_F(MarkerFiles, WhatIsWrongWithAPointIsNamed)
{
    const struct {
        std::string text;
        const char* complaint;
    } wrong[] = {
        {lists("{}"), "markup 1: it has no type."},
        {lists("7"), "markup 1: it has no type."},
        {lists("{\"type\": 7}"), "markup 1: its \"type\" is no text."},
        {points("", ", \"coordinateSystem\": \"scanner\""),
            "markup 1: its coordinates are \"scanner\", neither LPS nor RAS."},
        {points("", ", \"coordinateUnits\": \"um\""), "markup 1: its coordinates are in \"um\", not in millimetres."},
        {lists("{\"type\": \"Fiducial\", \"controlPoints\": {}}"), "markup 1: its \"controlPoints\" are no list."},
        {points("{}, 5"), "point 2 of markup 1: it is no control point."},
        {points("{\"label\": 5}"), "point 1 of markup 1: its \"label\" is no text."},
        {points("{\"visibility\": \"yes\"}"), "point 1 of markup 1: its \"visibility\" is neither true nor false."},
        {points("{\"position\": [1, 2]}"), "point 1 of markup 1: its position is not three numbers."},
        {points("{\"position\": [1, 2, \"3\"]}"), "point 1 of markup 1: its position is not three numbers."},
        {points("{\"position\": [1, 2, null]}"), "point 1 of markup 1: its position is not three numbers."},
        {points("{\"positionStatus\": \"defined\"}"), "point 1 of markup 1: its position is not three numbers."},
    };
    for (const auto& [text, complaint] : wrong)
        EXPECT_EQ(refusal(text), "\"points.mrk.json\", " + std::string(complaint) + " Correct it in a text editor.");
    EXPECT_EQ(refusal(points("{\"position\": [1e999, 0, 0]}")),
        "\"points.mrk.json\" holds a number that is too large. Correct it in a text editor.");
}

TEST_F(MarkerFiles, ThatAreNoneAreRefused)
{
    EXPECT_EQ(refusal(""), "\"points.mrk.json\" is empty. Get a complete copy of the file.");
    const auto message = [&](const char* name) { return load_markers(folder / name).failure().message; };
    EXPECT_NE(message("nowhere.csv").find("\"nowhere.csv\" does not exist"), std::string::npos);
    std::filesystem::create_directory(folder / "folder.mrk.json");
    EXPECT_EQ(message("folder.mrk.json"), "\"folder.mrk.json\" is a folder. Choose a file with markers.");
}

TEST_F(MarkerFiles, AreReplacedOnlyWhenAllIsWell)
{
    ASSERT_EQ(saved("points.mrk.json", {nasion}), "");
    const auto before = bytes_of_file(folder / "points.mrk.json");
    for (const double number : {double(NAN), double(INFINITY)})
        EXPECT_EQ(saved("points.mrk.json", {{.position = {{0, number, 0}}}}),
            "\"points.mrk.json\" cannot be saved: a marker lies at no finite position. Set it again.");
    EXPECT_EQ(bytes_of_file(folder / "points.mrk.json"), before);
    EXPECT_EQ(saved("points.nii.gz", {nasion}),
        "\"points.nii.gz\" is no name for markers. Let it end in \".mrk.json\" or \".csv\".");
    EXPECT_NE(saved("nowhere/points.csv", {nasion}).find("does not exist"), std::string::npos);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"points.mrk.json"});
}

// -------------------------------------------------------------------------------------------------------------- CSV

TEST_F(MarkerFiles, AsATableAreWrittenByteForByte)
{
    ASSERT_EQ(saved("points.csv", {nasion, hidden, unset}), "Colours have no place in a .csv file.");
    EXPECT_EQ(bytes_of_file(folder / "points.csv"), "label,l,p,s,defined,selected,visible,locked,description\n"
                                                    "Nasion,1.5,-80,12.25,1,1,1,0,\n"
                                                    "\"A \"\"b\"\", c\",0.1,0,-0,1,0,0,1,\n"
                                                    "Inion,0,0,0,0,1,1,0,still to be found\n");
}

TEST_F(MarkerFiles, AsATableReadBackEqualButForTheirColours)
{
    MarkerList markers = {hidden, {}, {.label = " two\r\nlines, \"\" "}, {.label = "\r"}, {.label = ","},
        {.label = "\""}, {.label = "B\xC3\xA4r", .position = {{1.0 / 3, 1e-310, -1.7e308}}, .description = "x,\ny"}};
    ASSERT_EQ(saved("points.csv", markers), "");
    EXPECT_EQ(loaded("points.csv"), markers);
}

TEST_F(MarkerFiles, AsTablesOfOthersAreRead)
{
    EXPECT_EQ(
        read("\xEF\xBB\xBF s , Label,R,a,defined,colour\r\n3,\"F,1\",1,2.5,1,red\r\n\r\n4,F-2,,,0,\r\n5,B\xE4r,0,-1,,",
            "points.csv")
            .markers,
        (MarkerList{{.label = "F,1", .position = {{-1, -2.5, 3}}}, {.label = "F-2"},
            {.label = "B\xC3\xA4r", .position = {{0, 1, 5}}}}));
    EXPECT_TRUE(read("label,l,p,s", "points.csv").markers.empty());
}

TEST_F(MarkerFiles, ALineOfATableThatIsWrongIsNamed)
{
    const auto line_refusal = [](int line, const std::string& complaint) {
        return "\"points.csv\", line " + std::to_string(line) + ": " + complaint +
               ". Correct or remove this line in a text editor.";
    };
    const auto table_refusal = [&](const std::string& row) {
        return refusal("label,l,p,s,defined\n\"two\nlines\",1,2,3,1\n" + row + "\n", "points.csv");
    };
    EXPECT_EQ(table_refusal("A,x,2,3,1"), line_refusal(4, "l is \"x\", not a number"));
    EXPECT_EQ(table_refusal("A,1,nan,3,1"), line_refusal(4, "p is \"nan\", not a number"));
    EXPECT_EQ(table_refusal("A,1,2,inf,1"), line_refusal(4, "s is \"inf\", not a number"));
    EXPECT_EQ(table_refusal("A,1,2,,1"), line_refusal(4, "s is \"\", not a number"));
    EXPECT_EQ(table_refusal("A,1,2,3,yes"), line_refusal(4, "defined is \"yes\", not 0 or 1"));
    EXPECT_EQ(table_refusal("A,1,2"), line_refusal(4, "it has 3 fields, the first line has 5"));
    EXPECT_EQ(table_refusal("A,1,2,3,1,6"), line_refusal(4, "it has 6 fields, the first line has 5"));
    EXPECT_EQ(table_refusal("\"A,1,2,3,1"), line_refusal(4, "a quote has no end, or something follows it"));
    EXPECT_EQ(table_refusal("\"A\"b,1,2,3,1"), line_refusal(4, "a quote has no end, or something follows it"));
    EXPECT_EQ(refusal("name,x,y,z\nA,1,2,3\n", "points.csv"),
        "\"points.csv\" is no table of markers: its first line does not name the columns label and l, p, s or r, a, s."
        " Choose another file.");
    EXPECT_EQ(refusal(std::string("label,l,p,s\n\0,1,2,3\n", 20), "points.csv"),
        "\"points.csv\" is no table of markers. Choose a text file with columns.");
}

TEST_F(MarkerFiles, TheFirst64OfATableAreReadAndTheRestCounted)
{
    std::string rows = "label,l,p,s\n";
    for (int i = 0; i < 65; ++i)
        rows += "P,1,2,3\n";
    const auto file = read(rows, "points.csv");
    EXPECT_EQ(file.markers.size(), 64u);
    EXPECT_EQ(file.notices,
        std::vector<std::string>{"\"points.csv\" holds 65 markers: the first 64 are there, 1 is left out."});
}
