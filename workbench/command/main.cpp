// The command line: `vetra histogram [options] INPUT...` does what the workbench's panels do, without a window.

#include "workbench/command/histogram_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <clocale>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include <QByteArray>
#include <QString>

namespace {

using workbench::HistogramRequest;

constexpr int wrongUsage = 2;

// Two whole numbers with a sign between them, or one that stands for both where `one_alone` says so.
bool parse_pair(std::string_view text, char between, bool one_alone, int& first, int& second)
{
    const char* const end = text.data() + text.size();
    auto [rest, error] = std::from_chars(text.data(), end, first);
    if (error != std::errc() || first < 1)
        return false;
    second = first;
    if (rest == end)
        return one_alone;
    if (*rest != between)
        return false;
    const auto [last, second_error] = std::from_chars(rest + 1, end, second);
    return second_error == std::errc() && last == end && second >= 1;
}

std::string take_frames(HistogramRequest& request, const std::string& text)
{
    HistogramRequest::Frames frames{};
    if (!parse_pair(text, '-', true, frames.first, frames.last) || frames.first > frames.last)
        return "give frames as A-B, counted from 1, e.g. 10-20";
    request.frames = frames;
    return {};
}

std::string take_size(HistogramRequest& request, const std::string& text)
{
    constexpr int most = 8192;
    HistogramRequest::Size size{};
    if (!parse_pair(text, 'x', false, size.width, size.height) || size.width > most || size.height > most)
        return "give the size as WxH, in pixels up to 8192, e.g. 800x400";
    request.size = size;
    return {};
}

std::string take_separator(HistogramRequest& request, const std::string& text)
{
    if (text == "tab" || text == "\\t")
        request.separator = '\t';
    else if (text.size() == 1 && (text == "\t" || std::isprint(static_cast<unsigned char>(text[0]))))
        request.separator = static_cast<unsigned char>(text[0]);
    else
        return "give one character, or tab";
    return {};
}

template <std::size_t count>
std::optional<int> index_of(std::string_view text, const std::array<const char*, count>& names)
{
    const auto found = std::find(names.begin(), names.end(), text);
    if (found == names.end())
        return {};
    return static_cast<int>(found - names.begin());
}

std::string take_component(HistogramRequest& request, const std::string& text)
{
    const auto component = index_of<5>(text, {"max", "red", "green", "blue", "grey"});
    if (!component)
        return "give max, red, green, blue or grey";
    request.component = static_cast<unsigned char>(*component);
    return {};
}

std::string take_peaks(HistogramRequest& request, const std::string& text)
{
    const auto peaks = index_of<3>(text, {"off", "composite", "individual"});
    if (!peaks)
        return "give off, composite or individual";
    request.peaks = *peaks;
    return {};
}

// An option whose text is looked at by one of the functions above.
template <class Take>
CLI::Option* add(CLI::App& command, HistogramRequest& request, const char* name, Take take, const char* help)
{
    return command.add_option_function<std::string>(
        name,
        [&request, take, name](const std::string& text) {
            if (const std::string wrong = take(request, text); !wrong.empty())
                throw CLI::ValidationError(name, wrong);
        },
        help);
}

void describe(CLI::App& command, HistogramRequest& request)
{
    command.add_option("inputs", request.inputs, "Files of one image, or a folder with a DICOM series")
        ->type_name("INPUT")
        ->required();
    add(command, request, "--frames", take_frames, "Only these frames, counted from 1")->type_name("A-B");
    add(command, request, "--component", take_component, "Of colour images: max, red, green, blue or grey")
        ->type_name("NAME");
    command.add_option("--bins-max", request.mostBins, "At most so many bins; 4352 without")
        ->check(CLI::Range(1, 65535))
        ->type_name("N");
    add(command, request, "--separator", take_separator, "Between the columns of the exported file; a tab without")
        ->type_name("C");
    command.add_flag("--fit", request.fit, "Find peaks and fit Gaussians to them");
    command.add_option("--export", request.exportFile, "Write the histogram and the peaks for a spreadsheet")
        ->type_name("FILE.csv");
    command.add_option("--picture", request.pictureFile, "Draw the panel")->type_name("FILE.png");
    command.add_option("--graph", request.graphFile, "Draw the graph window")->type_name("FILE.png");
    add(command, request, "--peaks", take_peaks, "In the graph: off, composite or individual")->type_name("NAME");
    add(command, request, "--size", take_size, "Of the pictures, in pixels; 320x160 and 800x400 without")
        ->type_name("WxH");
    command.add_flag("--json", request.json, "Print one JSON object instead of a table");
}

// The library that draws has remarks on a missing desktop.
void ignoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

}

int main(int argc, char** argv)
{
    HistogramRequest request;
    CLI::App program{"Vetra: medical images on the command line."};
    program.require_subcommand(1);
    describe(*program.add_subcommand("histogram", "Count grey values, find peaks, export the result"), request);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? 0 : wrongUsage;
    }
    qInstallMessageHandler(ignoreMessage);
    qputenv("QT_QPA_PLATFORM", "offscreen"); // pictures are drawn without a display
    std::setlocale(LC_NUMERIC, "C");
    try {
        return workbench::runHistogram(request);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vetra could not go on: %s\n", error.what());
        return 1;
    }
}
