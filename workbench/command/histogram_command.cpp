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

#include <QImage>

#include <cstdio>

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
        tree_.replace(volume_, 0);
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
        if (request_.fit)
            panel().Fit();
        return std::nullopt;
    }

    std::string title() const
    {
        const int count = tree_.frameCount();
        const auto [first, last] = request_.frames.value_or(HistogramRequest::Frames{1, count});
        const std::string all = std::to_string(count) + (count == 1 ? " frame" : " frames");
        const bool part = last - first + 1 != count;
        return document::quoted(request_.inputs.front()) + ": " +
               (part ? "frames " + std::to_string(first) + " to " + std::to_string(last) + " of " : "") + all + " of " +
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

    // The window is opened as a person does, by the panel's button.
    MaybeFailure saveGraph()
    {
        if (request_.graphFile.empty())
            return std::nullopt;
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
        return document::replace_file(target, static_cast<std::uint64_t>(picture.sizeInBytes()),
            [&](const std::filesystem::path& file) -> MaybeFailure {
                const QString name = QString::fromStdString(file.string());
                if (picture.save(name, "PNG") && QImage(name) == picture)
                    return std::nullopt;
                return Failure{
                    document::quoted(target) +
                    " could not be written whole; the disk may be full. Make room, or choose another folder."};
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
    constexpr int details = 11;
    auto opened = document::open(paths(request.inputs));
    if (!opened) {
        complain(opened.failure().message);
        return failed;
    }
    for (const std::string& notice : opened->notices)
        complain(notice);
    const ReportRecorder recorder([](int level) { return level == details; });
    HistogramRun run(request, std::move(*opened));
    for (const auto part : {&HistogramRun::select, &HistogramRun::compute}) {
        if (const auto failure = (run.*part)()) {
            complain(failure->message);
            return failed;
        }
    }
    if (request.json)
        print(histogramJson(run.panel(), request.fit ? &recorder.reports() : nullptr));
    else
        print(histogramTable(run.panel(), run.title(), run.factor()));
    if (const std::string warnings = recorder.warnings(); !warnings.empty())
        complain(warnings);
    return finish(run);
}

}
