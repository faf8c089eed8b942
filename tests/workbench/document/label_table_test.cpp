#include "tests/workbench/document/fixtures.h"
#include "workbench/document/label_table.h"
#include "workbench/document/text.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace document;
using namespace document_test;

namespace {

const LabelEntry clear = {.tag = 0, .opacity = 0, .visible = false, .mesh = false, .name = "Clear Label"};
const LabelEntry liver = {.tag = 3, .red = 255, .green = 7, .blue = 60, .name = "Liver", .thresholds = {{-150.5, 200}}};
const LabelEntry plain = {.tag = 12, .red = 1, .green = 22, .blue = 133};

constexpr std::string_view header = R"(################################################
# ITK-SnAP Label Description File
# File format:
# IDX   -R-  -G-  -B-  -A--  VIS MSH  LABEL
# Fields:
#    IDX:   Zero-based index
#    -R-:   Red color component (0..255)
#    -G-:   Green color component (0..255)
#    -B-:   Blue color component (0..255)
#    -A-:   Label opacity (0.00 .. 1.00)
#    VIS:   Label visibility (0 or 1)
#    MSH:   Label mesh visibility (0 or 1)
#  LABEL:   Label description
################################################
)";

std::string saved(const Path& path, const LabelTable& table)
{
    const auto notices = save_label_table(path, table);
    if (!notices)
        return notices.failure().message;
    std::string all;
    for (const auto& notice : *notices)
        all += notice;
    return all;
}

LabelTable loaded(const Path& path)
{
    const auto table = load_label_table(path);
    EXPECT_TRUE(table) << table.failure().message;
    return table ? *table : LabelTable();
}

class LabelTableFile : public ::testing::Test {
protected:
    LabelTable read(std::string_view text)
    {
        write_file(folder / "seg.label", text);
        return loaded(folder / "seg.label");
    }

    std::string refusal(std::string_view text)
    {
        write_file(folder / "seg.label", text);
        const auto table = load_label_table(folder / "seg.label");
        return table ? "nothing" : table.failure().message;
    }

    static std::string line_refusal(int line, const std::string& complaint)
    {
        return "\"seg.label\", line " + std::to_string(line) + ": " + complaint +
               ". Correct or remove this line in a text editor.";
    }

    Folder folder;
};

}

// --------------------------------------------------------------------------------------------------------- writing

TEST_F(LabelTableFile, IsWrittenByteForByte)
{
    LabelEntry faint = {.tag = 1000, .red = 9, .opacity = 0.5f, .mesh = false, .name = "Faint"};
    ASSERT_EQ(saved(folder / "seg.label", {clear, liver, plain, faint}),
        "Some programs skip tags that are partly transparent: 1000.");
    EXPECT_EQ(bytes_of_file(folder / "seg.label"), std::string(header) +
                                                       R"(    0     0    0    0        0  0  0    "Clear Label"
    3   255    7   60        1  1  1    "Liver"
# vetra: threshold 3 -150.5 200
   12     1   22  133        1  1  1    ""
  1000     9    0    0      0.5  1  0    "Faint"
)");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"seg.label"});
}

TEST_F(LabelTableFile, AnEmptyTableIsItsHeader)
{
    EXPECT_EQ(saved(folder / "seg.txt", {}), "");
    EXPECT_EQ(bytes_of_file(folder / "seg.txt"), header);
    EXPECT_TRUE(loaded(folder / "seg.txt").empty());
}

TEST_F(LabelTableFile, ReadsBackEqual)
{
    LabelTable table = {liver, clear, {.tag = 65534, .name = "B\xC3\xA4r \xE8\x82\x9D \xF0\x9F\xA6\xB4 #1 ; \\"}};
    for (int tag = 20; tag < 600; ++tag)
        table.push_back({.tag = tag, .opacity = float(tag % 2), .name = std::string(std::size_t(tag), 'x')});
    EXPECT_EQ(saved(folder / "seg.label", table), "");
    EXPECT_EQ(loaded(folder / "seg.label"), table);
}

TEST_F(LabelTableFile, NumbersReadBackExactly)
{
    using Limits = std::numeric_limits<double>;
    const Thresholds ranges[] = {{0.1, 0.1 + Limits::epsilon()}, {-Limits::max(), Limits::max()},
        {-Limits::denorm_min(), 1.0 / 3}, {-1024, -0.0}, {1e22, 1e23}};
    LabelTable table;
    for (const auto& range : ranges)
        table.push_back({.tag = int(table.size()), .opacity = 1.0f / float(3 + table.size()), .thresholds = range});
    ASSERT_TRUE(save_label_table(folder / "seg.label", table));
    EXPECT_EQ(loaded(folder / "seg.label"), table);
}

TEST_F(LabelTableFile, WhatANameCannotHoldIsReplacedAndTold)
{
    LabelEntry quotes = liver, lines = plain;
    quotes.name = "The \"big\" one";
    lines.name = "two\r\nlines";
    EXPECT_EQ(saved(folder / "seg.label", {quotes, lines}),
        "Quotes and line ends in names cannot be saved: tag 3 is called \"The 'big' one\" in the file."
        "Quotes and line ends in names cannot be saved: tag 12 is called \"two  lines\" in the file.");
    const auto table = loaded(folder / "seg.label");
    EXPECT_EQ(table[0].name, "The 'big' one");
    EXPECT_EQ(table[1].name, "two  lines");
}

TEST_F(LabelTableFile, ReplacesTheOneThatWasThereOnlyWhenAllIsWell)
{
    ASSERT_EQ(saved(folder / "seg.label", {liver}), "");
    const auto before = bytes_of_file(folder / "seg.label");
    for (const LabelTable& wrong : {LabelTable{liver, liver}, LabelTable{{.tag = 65535}}, LabelTable{{.tag = -1}},
             LabelTable{{.opacity = 1.5f}}, LabelTable{{.opacity = std::nanf("")}},
             LabelTable{{.thresholds = {{2, 1}}}}, LabelTable{{.thresholds = {{0, INFINITY}}}}}) {
        const auto message = saved(folder / "seg.label", wrong);
        EXPECT_TRUE(message.starts_with("\"seg.label\" cannot be saved")) << message;
        EXPECT_EQ(bytes_of_file(folder / "seg.label"), before);
    }
    ASSERT_EQ(saved(folder / "seg.label", {plain}), "");
    EXPECT_EQ(loaded(folder / "seg.label"), LabelTable{plain});
    EXPECT_EQ(folder.names(), std::vector<std::string>{"seg.label"});
}

TEST_F(LabelTableFile, IsSavedOnlyUnderANameOfItsOwn)
{
    EXPECT_EQ(saved(folder / "seg.nii.gz", {liver}),
        "\"seg.nii.gz\" is no name for a label table. Let it end in \".label\" or \".txt\".");
    EXPECT_NE(saved(folder / "nowhere/seg.label", {liver}).find("does not exist"), std::string::npos);
    EXPECT_TRUE(folder.names().empty());
}

TEST(LabelTablePath, IsBesideTheLabelMap)
{
    EXPECT_EQ(label_table_path("/a/liver.nii.gz"), "/a/liver.label");
    EXPECT_EQ(label_table_path("/a.b/scan.v2.nii"), "/a.b/scan.v2.label");
    EXPECT_EQ(label_table_path("liver.NRRD"), "liver.label");
    EXPECT_EQ(label_table_path("liver.mha"), "liver.label");
    EXPECT_EQ(label_table_path("liver"), "liver.label");
}

// --------------------------------------------------------------------------------------------------------- reading

TEST_F(LabelTableFile, OfOthersIsRead)
{
    const auto table = read(std::string(header) + "\n"
                                                  "  # their own remark\n"
                                                  "    0     0    0    0        0  0  0    \"Clear Label\"\n"
                                                  "    7   255    0   10     0.33  1  0    \"Label 7\"\n");
    ASSERT_EQ(table.size(), 2u);
    EXPECT_EQ(table[0], clear);
    EXPECT_EQ(
        table[1], (LabelEntry{.tag = 7, .red = 255, .blue = 10, .opacity = 0.33f, .mesh = false, .name = "Label 7"}));
}

TEST_F(LabelTableFile, NeedsNeitherHeaderNorItsOwnLineEnds)
{
    const LabelTable expected = {
        {.tag = 1, .red = 2, .green = 3, .blue = 4, .name = "One"}, {.tag = 2, .thresholds = {{-1.5, 1e3}}}};
    EXPECT_EQ(read("1 2 3 4 1 1 1 \"One\"\n# vetra: threshold 2 -1.5 1e3\n2 0 0 0 1 1 1 \"\""), expected);
    EXPECT_EQ(read("\xEF\xBB\xBF# Labels\r\n\r\n1\t2  3 4 1.00 1 1 \"One\" \r\n"
                   "2 0 0 0 1 1 1 \"\"\r\n# vetra: threshold  2\t-1.5 1000 \r\n# vetra: something newer\r\n"),
        expected);
}

TEST_F(LabelTableFile, NamesThatAreNoUtf8AreLatin1)
{
    EXPECT_EQ(read("1 0 0 0 1 1 1 \"B\xE4r\"\n")[0].name, "B\xC3\xA4r");
    EXPECT_EQ(read("1 0 0 0 1 1 1 \"B\xC3\xA4r\"\n")[0].name, "B\xC3\xA4r");
}

TEST_F(LabelTableFile, ARowThatIsWrongIsNamed)
{
    const struct {
        const char* row;
        const char* complaint;
    } wrong[] = {
        {"x 0 0 0 1 1 1 \"A\"", "the number of the tag is \"x\", not a whole number from 0 to 65534"},
        {"-1 0 0 0 1 1 1 \"A\"", "the number of the tag is \"-1\", not a whole number from 0 to 65534"},
        {"65535 0 0 0 1 1 1 \"A\"", "the number of the tag is \"65535\", not a whole number from 0 to 65534"},
        {"99999999999 0 0 0 1 1 1 \"A\"",
            "the number of the tag is \"99999999999\", not a whole number from 0 to 65534"},
        {"1 256 0 0 1 1 1 \"A\"", "red is \"256\", not a whole number from 0 to 255"},
        {"1 0 1.5 0 1 1 1 \"A\"", "green is \"1.5\", not a whole number from 0 to 255"},
        {"1 0 0", "blue is missing"},
        {"1 0 0 0 1.01 1 1 \"A\"", "the opacity is \"1.01\", not a number from 0 to 1"},
        {"1 0 0 0 nan 1 1 \"A\"", "the opacity is \"nan\", not a number from 0 to 1"},
        {"1 0 0 0 0,5 1 1 \"A\"", "the opacity is \"0,5\", not a number from 0 to 1"},
        {"1 0 0 0 1 2 1 \"A\"", "the visibility is \"2\", not a whole number from 0 to 1"},
        {"1 0 0 0 1 1 yes \"A\"", "the visibility in three dimensions is \"yes\", not a whole number from 0 to 1"},
        {"1 0 0 0 1 1 1", "the name is not in quotes"},
        {"1 0 0 0 1 1 1 A", "the name is not in quotes"},
        {"1 0 0 0 1 1 1 \"A", "the name is not in quotes"},
        {"1 0 0 0 1 1 1 \"A \"big\" one\"", "there is more than belongs there (big\" one\")"},
        {"5 0 0 0 1 1 1 \"A\"", "tag 5 is described in line 2 already"},
        {"# vetra: threshold 5 1", "the upper grey value is missing"},
        {"# vetra: threshold five 1 2", "the number of the tag is \"five\", not a whole number from 0 to 65534"},
        {"# vetra: threshold 5 low 2", "the lower grey value is \"low\", not a number"},
        {"# vetra: threshold 5 1 inf", "the upper grey value is \"inf\", not a number"},
        {"# vetra: threshold 5 1 2 3", "there is more than belongs there (3)"},
        {"# vetra: threshold 5 2 1.5", "the lower grey value 2 is above the upper one, 1.5"},
        {"# vetra: threshold 6 1 2", "tag 6 has thresholds, but no row"},
    };
    for (const auto& [row, complaint] : wrong)
        EXPECT_EQ(refusal("# Labels\n5 0 0 0 1 1 1 \"Five\"\n" + std::string(row) + "\n"), line_refusal(3, complaint));
    EXPECT_EQ(refusal("5 0 0 0 1 1 1 \"Five\"\n# vetra: threshold 5 1 2\n\n# vetra: threshold 5 1 2\n"),
        line_refusal(4, "tag 5 has thresholds already"));
}

TEST_F(LabelTableFile, ThatIsNoneIsRefused)
{
    EXPECT_EQ(refusal(std::string("\x1f\x8b\0\0", 4)),
        "\"seg.label\" is no label table. Choose a text file that describes tags.");
    EXPECT_EQ(refusal(""), "\"seg.label\" is empty. Get a complete copy of the file.");
    const auto message = [](const Path& path) { return load_label_table(path).failure().message; };
    EXPECT_NE(message(folder / "nowhere.label").find("\"nowhere.label\" does not exist"), std::string::npos);
    std::filesystem::create_directory(folder / "folder.label");
    EXPECT_EQ(message(folder / "folder.label"), "\"folder.label\" is a folder. Choose a label table.");
    write_file(folder / "huge.label", "");
    std::filesystem::resize_file(folder / "huge.label", 100'000'000);
    EXPECT_EQ(
        message(folder / "huge.label"), "\"huge.label\" is too large for a label table (100 MB). Choose another file.");
}

// ------------------------------------------------------------------------------------------------------ texts in it

TEST(Utf8, IsToldFromOtherBytes)
{
    for (const char* text : {"", "a", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
             "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "x\xC3\xA4y"})
        EXPECT_TRUE(is_utf8(text)) << text;
    for (const char* text :
        {"\x80", "\xC3", "\xC3 ", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xE2\x82",
            "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF", "\xE4r"})
        EXPECT_FALSE(is_utf8(text)) << text;
    EXPECT_EQ(from_latin1("B\xE4r \xFF"), "B\xC3\xA4r \xC3\xBF");
}

TEST(ExactNumber, IsTheWholeTextAndNothingElse)
{
    EXPECT_EQ(exact_number<double>(" -150.5 "), -150.5);
    EXPECT_EQ(exact_number<int>("42"), 42);
    for (const char* text : {"", " ", "1 2", "1,5", "1.5x", "0x10", "inf", "nan", "1e999"})
        EXPECT_EQ(exact_number<double>(text), std::nullopt) << text;
    for (const char* text : {"1.0", "99999999999", "+"})
        EXPECT_EQ(exact_number<int>(text), std::nullopt) << text;
}
