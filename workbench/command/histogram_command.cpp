#include "workbench/command/histogram_command.h"

#include "histo/tool_histo.h"
#include "histo/tool_histo_blow.h"
#include "hostkit/embedding/panel_slot.h"
#include "hostkit/structures/registry.h"
#include "platform/qt/window_widget.h"
#include "workbench/command/histogram_report.h"
#include "workbench/document/open.h"
#include "workbench/document/safe_file.h"
#include "workbench/document/text.h"
#include "workbench/histogram/histogram_file.h"
#include "workbench/histogram/report_recorder.h"
#include "workbench/model/fresh_host.h"
#include "workbench/model/host_words.h"
#include "workbench/model/image_tree.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace workbench {

namespace {

using document::Failure;
using MaybeFailure = std::optional<Failure>;

constexpr int failed = 1;

std::vector<std::filesystem::path> paths(const std::vector<std::string>& names)
{
    return {names.begin(), names.end()};
}

void complain(const std::string& message)
{
    std::fprintf(stderr, "%s\n", message.c_str());
}

// The image in a host of its own, with the panel that looks at it.
class HistogramRun {
public:
    HistogramRun(const HistogramRequest& request, document::Opened opened)
        : request_(request), volume_(std::move(opened.volume))
    {
        hostkit::Variable<unsigned char>("$GLI_COLOR_COMPONENT") = request.component;
        hostkit::Variable<unsigned char>("$REGIONAL_SEPARATOR") = request.separator;
        if (request.mostBins)
            hostkit::Variable<unsigned short>("$GLI_HISTO_BINS_MAX") = *request.mostBins;
        tree_.setCurrent(tree_.add(volume_));
        tree_.show(0);
    }

    MaybeFailure select()
    {
        const int count = tree_.frameCount();
        const auto [first, last] = request_.frames.value_or(HistogramRequest::Frames{1, count});
        if (first < 1 || last > count || first > last)
            return Failure{document::quoted(request_.inputs.front()) + " has the frames 1 to " + std::to_string(count) +
                           "; give --frames within them."};
        tree_.select(first - 1, last - 1);
        return std::nullopt;
    }

    MaybeFailure compute()
    {
        panel().Update(word::selection_2D);
        if (!panel().Ready())
            return Failure{document::quoted(request_.inputs.front()) + " has no grey values that could be counted."};
        return std::nullopt;
    }

    std::string title() const
    {
        const int count = tree_.frameCount();
        const auto [first, last] = request_.frames.value_or(HistogramRequest::Frames{1, count});
        const std::string all = std::to_string(count) + (count == 1 ? " frame" : " frames");
        std::string part;
        if (last - first + 1 != count)
            part = (first == last ? "frame " + std::to_string(first)
                                  : "frames " + std::to_string(first) + " to " + std::to_string(last)) +
                   " of ";
        return document::quoted(request_.inputs.front()) + ": " + part + all + " of " +
               std::to_string(volume_.width()) + " x " + std::to_string(volume_.height());
    }

    MaybeFailure exportTable()
    {
        return request_.exportFile.empty() ? std::nullopt : exportHistogram(panel(), request_.exportFile);
    }

    MaybeFailure savePicture()
    {
        if (request_.pictureFile.empty())
            return std::nullopt;
        showPanel();
        return saveWindow(slot_.window(), request_.pictureFile);
    }

    // The window is opened as a person does, by the panel's button. Peaks that are to be seen are found.
    MaybeFailure saveGraph()
    {
        if (request_.graphFile.empty())
            return std::nullopt;
        if (request_.peaks != 0 && !panel().Peaks())
            panel().Fit();
        showPanel();
        const Buttons& blow = panel().blow;
        RECT client{};
        GetClientRect(slot_.window(), &client);
        Y_Cursor(slot_.window(), blow.x + blow.width / 2, client.bottom - 1 - (blow.y + blow.height / 2));
        Histo_Graph_Display(request_.peaks, 0, 0);
        panel().Click(leftPress);
        const HWND graph = Histo_Graph_Window();
        if (!graph)
            return Failure{"The graph window could not be opened."};
        if (request_.size)
            MoveWindow(graph, 0, 0, request_.size->width, request_.size->height, TRUE);
        UpdateWindow(graph);
        return saveWindow(graph, request_.graphFile);
    }

    Tool_Histo& panel() { return slot_.panel(); }
    double factor() const { return tree_.greyFactor(); }
    const std::string& unit() const { return volume_.unit; }

private:
    static constexpr int leftPress = 18;

    void showPanel()
    {
        const auto [width, height] = request_.size.value_or(HistogramRequest::Size{320, 160});
        MoveWindow(slot_.window(), 0, 0, width, height, TRUE);
        ShowWindow(slot_.window(), SW_SHOW);
    }

    static MaybeFailure saveWindow(HWND window, const std::string& target)
    {
        const QImage picture = Window_Picture(window);
        QByteArray png;
        QBuffer buffer(&png);
        picture.save(&buffer, "PNG");
        return document::replace_file(
            target, static_cast<std::uint64_t>(png.size()), [&](const std::filesystem::path& path) -> MaybeFailure {
                std::ofstream stream(path, std::ios::binary);
                stream.write(png.data(), png.size());
                stream.close();
                return stream ? std::nullopt : MaybeFailure(Failure{"the picture could not be written whole"});
            });
    }

    const HistogramRequest& request_;
    FreshHost host_;
    document::Volume volume_;
    ImageTree tree_;
    hostkit::Panel_Slot<Tool_Histo> slot_{nullptr, {}};
};

void print(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

void complain(const std::vector<std::string>& messages)
{
    for (const std::string& message : messages)
        complain(message);
}

void complainOfWarnings(const ReportRecorder& recorder)
{
    if (const std::string warnings = recorder.warnings(); !warnings.empty())
        complain(warnings);
}

// Files that are not there yet may have several names, too.
bool isSame(const std::filesystem::path& one, const std::filesystem::path& other)
{
    namespace fs = std::filesystem;
    std::error_code missing;
    const auto name = [&](const fs::path& path) { return fs::weakly_canonical(fs::absolute(path, missing), missing); };
    return one == other || fs::equivalent(one, other, missing) || name(one) == name(other);
}

// Results that would take the place of the image, or of each other.
MaybeFailure checkTargets(const HistogramRequest& request, const document::Volume& volume)
{
    const std::string* const targets[] = {&request.exportFile, &request.pictureFile, &request.graphFile};
    for (const auto* target : targets) {
        if (target->empty())
            continue;
        const auto isTarget = [&](const std::string& file) { return isSame(file, *target); };
        if (std::ranges::any_of(volume.files, isTarget) || std::ranges::any_of(request.inputs, isTarget))
            return Failure{document::quoted(*target) +
                           " is the image itself; the result would take its place. Choose another name."};
        for (const auto* other : targets) {
            if (other != target && isSame(*target, *other))
                return Failure{"Two results cannot be in one file. Choose another name for one of them."};
        }
    }
    return std::nullopt;
}

// Each part is tried, whatever became of the one before.
int finish(HistogramRun& run)
{
    int status = 0;
    for (const auto part : {&HistogramRun::exportTable, &HistogramRun::savePicture, &HistogramRun::saveGraph}) {
        if (const auto failure = (run.*part)()) {
            complain(failure->message);
            status = failed;
        }
    }
    if (std::ferror(stdout)) {
        complain("The result could not be printed whole; the disk may be full.");
        status = failed;
    }
    return status;
}

}

int runHistogram(const HistogramRequest& request)
{
    constexpr int progress = 4, details = 11;
    auto opened = document::open(paths(request.inputs));
    if (!opened) {
        complain(opened.failure().message);
        return failed;
    }
    complain(opened->notices);
    if (const auto failure = checkTargets(request, opened->volume)) {
        complain(failure->message);
        return failed;
    }
    const ReportRecorder recorder([](int level) { return level == details; });
    HistogramRun run(request, std::move(*opened));
    for (const auto part : {&HistogramRun::select, &HistogramRun::compute}) {
        const auto failure = (run.*part)();
        if (!failure)
            continue;
        complain(recorder.texts(progress));
        complainOfWarnings(recorder);
        complain(failure->message);
        return failed;
    }
    complain(recorder.texts(progress)); // what was left out; those of the fit are no news
    if (request.fit)
        run.panel().Fit();
    if (request.json)
        print(histogramJson(run.panel(), request.fit ? &recorder.reports() : nullptr));
    else
        print(histogramTable(run.panel(), run.title(), run.factor(), run.unit()));
    const int status = finish(run);
    complainOfWarnings(recorder);
    return status;
}

}
