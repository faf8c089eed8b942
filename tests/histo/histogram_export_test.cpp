#include "tests/histo/own_host.h"

#include "histo/tool_histo_peak.h"

#include <clocale>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>

// What is written for a spreadsheet, byte for byte, and what is told when it cannot be.

using namespace test;

namespace {

namespace fs = std::filesystem;

class HistogramExport : public Own_Host {
protected:
    HistogramExport()
    {
        fs::remove_all(folder);
        fs::create_directories(folder);
        show(1, 1);
        panel.histo = panel_record(Histogram(0, 1, {7, 8}));
        reports.clear();
    }
    ~HistogramExport() override { fs::remove_all(folder); }

    void show(int selected, int all)
    {
        frames.clear();
        std::vector<own_frames::Frame*> shown;
        for (int i = 0; i < all; ++i) {
            shown.push_back(&frames.emplace_back());
            frames.back().selected = i < selected;
        }
        own_frames::show(shown);
    }

    /// Gives the panel another histogram.
    void give(float min, float width, Counts counts)
    {
        delete[] panel.histo->count;
        panel.histo = panel_record(Histogram(min, width, std::move(counts)));
    }

    void give_peaks(const std::vector<std::vector<double>>& params)
    {
        panel.Fit(); // for its list
        auto* const list = const_cast<Histo_Peaks*>(panel.Peaks());
        list->Release();
        list->smooth = new double[1]();
        Histo_Peak* tail = nullptr;
        for (const auto& param : params) {
            const Histo_Peak* const peak = Peak_Add(list, &tail, 0, 1, 1);
            for (int k = 0; k < 3; ++k)
                (*peak->param)[k] = param[static_cast<size_t>(k)];
        }
        reports.clear();
    }

    int write(std::string path) { return panel.Write(path.data()); }
    std::string path() const { return (folder / "histogram.csv").string(); }

    /// What the panel writes, its lines ending as this program's files do.
    std::string written()
    {
        EXPECT_EQ(write(path()), 1);
        std::ifstream file(path());
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    std::string rows()
    {
        const std::string text = written(), header = "GLI Value;Nb of pixels\n";
        const size_t at = text.find(header);
        return at == std::string::npos ? "no header" : text.substr(at + header.size());
    }

    void expect_not_opened(const std::string& bad_path, int error)
    {
        reports.clear();
        EXPECT_EQ(write(bad_path), 0);
        const std::wstring reason = Error_Perror(error);
        int line = 0;
        ASSERT_EQ(reports.all().size(), 4u);
        EXPECT_EQ(std::sscanf(reports.lines()[0].c_str(), "11 file:tool_histo line:%d", &line), 1)
            << reports.lines()[0];
        EXPECT_EQ(reports.lines()[1], "2 \xf1\x05WARNING:\x02 Unable to open the file");
        EXPECT_EQ(reports.lines()[2], "2 \xf1\t \x01" + bad_path);
        EXPECT_EQ(reports.lines()[3], "2 \xf1\t " + std::string(reason.begin(), reason.end()));
        EXPECT_GT(line, 0);
    }

    const fs::path folder = fs::path(::testing::TempDir()) / "histogram export";
    std::deque<own_frames::Frame> frames;
};

}

TEST_F(HistogramExport, WritesASeparatorATitleAndARowForEachBin)
{
    EXPECT_EQ(written(), "sep=;\n"
                         "=========== Histogram information (1 frames) =========\n"
                         "\n"
                         "GLI Value;Nb of pixels\n"
                         "0;7\n"
                         "1;8\n"
                         "\n");
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(HistogramExport, CountsTheFramesOfTheWindow)
{
    show(3, 3);
    EXPECT_NE(written().find(" information (3 frames) ="), std::string::npos);
    show(3, 12);
    EXPECT_NE(written().find(" information (3 frames out of 12) ="), std::string::npos);
    show(0, 12);
    EXPECT_NE(written().find(" information (0 frames out of 12) ="), std::string::npos);
    show(0, 0);
    EXPECT_NE(written().find(" information (0 frames) ="), std::string::npos);
}

TEST_F(HistogramExport, GoesThroughAllFramesAndThenThroughTheSelectedOnes)
{
    own_frames::take_calls();
    written();
    char next[100];
    std::snprintf(next, sizeof next, "next 0x2fff %p ", window());
    EXPECT_EQ(own_frames::take_calls(), (std::vector<std::string>{"begin Tool_Histo::Write", std::string(next) + "all",
                                            "end", "begin Tool_Histo::Write", std::string(next) + "selected", "end"}));
}

TEST_F(HistogramExport, WithoutAnIteratorItCountsNoFrames)
{
    show(2, 5);
    own_frames::fail_to_open({1});
    EXPECT_NE(written().find("(2 frames out of 0)"), std::string::npos);
    own_frames::fail_to_open({2});
    EXPECT_NE(written().find("(0 frames out of 5)"), std::string::npos);
    own_frames::fail_to_open({1, 2});
    EXPECT_NE(written().find("(0 frames)"), std::string::npos);
}

TEST_F(HistogramExport, TheSeparatorIsTheLowByteOfItsVariable)
{
    own_registry::define_number("$REGIONAL_SEPARATOR", 0x3b2c);
    EXPECT_TRUE(written().starts_with("sep=,\n"));
    EXPECT_NE(written().find("GLI Value,Nb of pixels\n0,7\n"), std::string::npos);
}

TEST_F(HistogramExport, WithoutASeparatorItIsATab)
{
    for (const unsigned short none : std::initializer_list<unsigned short>{0x0000, 0x3b00}) {
        own_registry::define_number("$REGIONAL_SEPARATOR", none);
        EXPECT_TRUE(written().starts_with("sep=\t\n"));
        EXPECT_NE(written().find("GLI Value\tNb of pixels\n0\t7\n"), std::string::npos);
    }
}

TEST_F(HistogramExport, BinsAreNamedByTheWholePartOfTheirCentre)
{
    give(12, 1, {7});
    EXPECT_EQ(rows(), "12;7\n\n");
    give(-1, 1, {1, 2});
    EXPECT_EQ(rows(), "0;1\n0;2\n\n") << "-0.5 is cut to 0";
    give(-3, 1, {1, 2});
    EXPECT_EQ(rows(), "-2;1\n-1;2\n\n");
    give(0, 0.25f, {1, 1, 1, 1, 1});
    EXPECT_EQ(rows(), "0;1\n0;1\n0;1\n0;1\n1;1\n\n");
}

TEST_F(HistogramExport, CentresAreComputedInSinglePrecision)
{
    give(16777216, 1, {1, 2, 3});
    EXPECT_EQ(rows(), "16777216;1\n16777218;2\n16777218;3\n\n");
    give(3e9f, 1, {1});
    EXPECT_EQ(rows(), "2147483647;1\n\n");
}

TEST_F(HistogramExport, CountsAreSigned)
{
    give(0, 1, {2147483647u, 2147483648u, 3000000000u, 4294967295u});
    EXPECT_EQ(rows(), "0;2147483647\n1;-2147483648\n2;-1294967296\n3;-1\n\n");
}

TEST_F(HistogramExport, OfColoursItWritesTheCountsOfAllPixels)
{
    panel.histo->flags = 1;
    panel.color_component = 1;
    panel.histo->red = new unsigned[2]{50, 60};
    EXPECT_EQ(rows(), "0;7\n1;8\n\n");
}

TEST_F(HistogramExport, PeaksFollowBelowTheBins)
{
    give(-10, 0.5f, {7, 8});
    give_peaks({{30.25, 1234.567, 4.125}, {100, 0.005, 1}});
    EXPECT_EQ(rows(), "-9;7\n"
                      "-9;8\n"
                      "\n"
                      "\n"
                      "\n"
                      "We have 2 Gausian peaks \n"
                      "Peak Number;Peak Center;Peak Height;Peak Width;\n"
                      "1;5.12;1234.57;4.12\n"
                      "2;40.00;0.01;1.00\n"
                      "\n")
        << "centres as grey values, widths in bins";
}

TEST_F(HistogramExport, NumbersAreWrittenAsPrintfWould)
{
    const std::vector<double> numbers{0.125, 0.135, 2.675, 1.005, -0.001, 1e15, 123456789.985, 1e300};
    for (const double number : numbers) {
        give(0, 1, {7});
        give_peaks({{number, number, number}});
        char row[1000];
        std::snprintf(row, sizeof row, "1;%.2f;%.2f;%.2f\n", number, number, number);
        EXPECT_NE(rows().find(row), std::string::npos) << row;
    }
}

TEST_F(HistogramExport, WithoutPeaksNothingFollows)
{
    give_peaks({});
    EXPECT_EQ(rows(), "0;7\n1;8\n\n");
}

TEST_F(HistogramExport, NumbersAreTheSameInEveryLanguage)
{
    give_peaks({{1.5, 2.5, 3.5}});
    const std::string usual = written();
    const char* found = nullptr;
    for (const char* language : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "German_Germany.1252"})
        found = found ? found : std::setlocale(LC_NUMERIC, language);
    if (!found)
        GTEST_SKIP() << "no language with a decimal comma";
    EXPECT_EQ(written(), usual) << found;
    std::setlocale(LC_NUMERIC, "C");
}

TEST_F(HistogramExport, WritesOverAFileThatIsThere)
{
    std::ofstream(path()) << std::string(5000, 'x');
    EXPECT_TRUE(written().ends_with("1;8\n\n"));
    EXPECT_LT(fs::file_size(path()), 200u);
}

TEST_F(HistogramExport, WithoutAWindowTheFileStaysEmpty)
{
    own_registry::define_array("$WINDOW_CUR", nullptr);
    EXPECT_EQ(write(path()), 0);
    ASSERT_TRUE(fs::exists(path()));
    EXPECT_EQ(fs::file_size(path()), 0u);
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(HistogramExport, WithoutAHistogramThereIsNoFile)
{
    Tool_Histo empty;
    std::string name = path();
    EXPECT_EQ(empty.Write(name.data()), 0);
    delete[] panel.histo->count;
    panel.histo->count = nullptr;
    EXPECT_EQ(write(path()), 0);
    EXPECT_FALSE(fs::exists(path()));
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(HistogramExport, WhatCannotBeOpenedIsReported)
{
    expect_not_opened((folder / "missing" / "file.csv").string(), ENOENT);
    expect_not_opened((folder / "100% %s %n").string() + "/file.csv", ENOENT);
    expect_not_opened("", ENOENT);
    const std::string long_name = (folder / std::string(3000, 'x')).string();
    reports.clear();
    EXPECT_EQ(write(long_name), 0);
    ASSERT_EQ(reports.all().size(), 4u);
    EXPECT_EQ(reports.lines()[2], "2 \xf1\t \x01" + long_name);
}

TEST_F(HistogramExport, AFolderCannotBeOpened)
{
    EXPECT_EQ(write(folder.string()), 0);
    ASSERT_EQ(reports.all().size(), 4u);
    EXPECT_EQ(reports.lines()[2], "2 \xf1\t \x01" + folder.string());
}

TEST_F(HistogramExport, NoPathIsOneThatCannotBeOpened)
{
    EXPECT_EQ(panel.Write(nullptr), 0);
    ASSERT_EQ(reports.all().size(), 4u);
    EXPECT_EQ(reports.lines()[2], "2 \xf1\t \x01");
}

TEST_F(HistogramExport, NamesMayHaveAnyLetters)
{
    EXPECT_EQ(write((folder / "Gr\xc3\xbc\xc3\x9f"
                              "e \xe2\x82\xac.csv")
                        .string()),
        1);
    EXPECT_TRUE(fs::exists(folder / "Gr\xc3\xbc\xc3\x9f"
                                    "e \xe2\x82\xac.csv"));
}

TEST_F(HistogramExport, AFullDiskIsNotNoticed)
{
    if (!fs::exists("/dev/full"))
        GTEST_SKIP() << "no device that is always full";
    EXPECT_EQ(write("/dev/full"), 1) << "whoever needs the file whole checks it";
}
