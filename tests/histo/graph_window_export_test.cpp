#include "tests/histo/graph_window.h"

#include "hostkit/structures/save_chooser.h"
#include "hostkit/structures/tree.h"

#include <filesystem>
#include <fstream>
#include <optional>

// "Export" of the graph window.

using namespace test;

namespace {

class GraphExport : public Graph_Window {
protected:
    GraphExport()
    {
        give({1, 2, 3});
        hostkit::Window_Add("View");
        hostkit::Variable<unsigned char>("$REGIONAL_SEPARATOR") = ';';
        std::filesystem::create_directories(folder_);
    }

    ~GraphExport() override
    {
        hostkit::Set_Save_Chooser(nullptr);
        std::filesystem::remove_all(folder_);
    }

    /// Presses "Export"; the question is answered by this.
    void export_with(hostkit::Save_Chooser chooser)
    {
        hostkit::Set_Save_Chooser(std::move(chooser));
        const HWND target = window();
        test::press(target, middle(graph().save));
        if (window() == target)
            release(middle(graph().save));
    }

    std::string path(const char* name) const { return (folder_ / name).string(); }

private:
    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "vetra-graph-export";
};

std::string content(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}

TEST_F(GraphExport, OffersANameInTheHostsFolder)
{
    char folder[] = "/somewhere/else/";
    hostkit::String_Variable("$DEFAULT_FILE_PATH") = folder;
    open();
    std::string offered, title, extension, filter;
    int pressed = 0;
    export_with([&](const hostkit::Save_Question& question) -> std::optional<std::string> {
        offered = question.offered;
        title = question.title;
        extension = question.extension;
        filter = question.filter;
        pressed = graph().save.pressed;
        return std::nullopt;
    });
    EXPECT_EQ(offered, "/somewhere/else/histogram");
    EXPECT_EQ(title, "Write histogram info to file");
    EXPECT_EQ(extension, "csv");
    EXPECT_EQ(filter, "DB Files");
    EXPECT_EQ(pressed, 1);
    EXPECT_EQ(graph().save.pressed, 0);
}

TEST_F(GraphExport, WithoutAFolderTheNameAloneIsOffered)
{
    hostkit::String_Variable("$DEFAULT_FILE_PATH") = nullptr;
    open();
    std::string offered;
    export_with([&](const hostkit::Save_Question& question) -> std::optional<std::string> {
        offered = question.offered;
        return std::nullopt;
    });
    EXPECT_EQ(offered, "histogram");
}

TEST_F(GraphExport, AFolderOfAnyLengthIsHarmless)
{
    std::string folder(5000, 'x');
    hostkit::String_Variable("$DEFAULT_FILE_PATH") = folder.data();
    open();
    size_t length = 0;
    export_with([&](const hostkit::Save_Question& question) -> std::optional<std::string> {
        length = std::string(question.offered).size();
        return std::nullopt;
    });
    EXPECT_EQ(length, 1023u);
}

TEST_F(GraphExport, AConfirmedNameIsWritten)
{
    open();
    export_with([&](const auto&) { return std::optional(path("confirmed.csv")); });
    panel.Write(path("panel.csv").data());
    EXPECT_FALSE(content(path("confirmed.csv")).empty());
    EXPECT_EQ(content(path("confirmed.csv")), content(path("panel.csv")));
}

TEST_F(GraphExport, ADismissedQuestionWritesNothing)
{
    open();
    reports.clear();
    export_with([](const auto&) { return std::nullopt; });
    EXPECT_TRUE(reports.texts(2).empty());
    EXPECT_EQ(graph().save.pressed, 0);
}

TEST_F(GraphExport, AFileThatCannotBeWrittenIsReported)
{
    open();
    reports.clear();
    export_with([&](const auto&) { return std::optional(path("no/such/folder.csv")); });
    EXPECT_FALSE(reports.texts(2).empty());
    EXPECT_EQ(graph().save.pressed, 0);
}

TEST_F(GraphExport, AWindowThatIsClosedMeanwhileWritesNothing)
{
    open();
    export_with([&](const auto&) {
        close();
        return std::optional(path("closed.csv"));
    });
    EXPECT_EQ(window(), nullptr);
    EXPECT_FALSE(std::filesystem::exists(path("closed.csv")));
}

TEST_F(GraphExport, AHistogramThatVanishesMeanwhileIsNotWritten)
{
    open();
    export_with([&](const auto&) {
        panel.histo->nb_bins = 0;
        return std::optional(path("vanished.csv"));
    });
    panel.histo->nb_bins = 3;
    EXPECT_FALSE(std::filesystem::exists(path("vanished.csv")));
    EXPECT_EQ(graph().save.pressed, 0);
}

TEST_F(GraphExport, WhatIsWrittenIsTheHistogramAsItIsThen)
{
    open();
    export_with([&](const auto&) {
        give({7, 8, 9, 10});
        return std::optional(path("changed.csv"));
    });
    panel.Write(path("panel.csv").data());
    EXPECT_EQ(content(path("changed.csv")), content(path("panel.csv")));
}
