#include "workbench/shell/histogram_panel.h"

#include "hostkit/structures/registry.h"
#include "workbench/histogram/first_zoom.h"
#include "workbench/histogram/histogram_file.h"
#include "workbench/histogram/report_recorder.h"
#include "workbench/histogram/tag_ranges.h"
#include "workbench/model/host_words.h"
#include "workbench/model/session.h"

#include <filesystem>
#include <utility>

namespace workbench {

namespace {

constexpr unsigned long long anySelection = 1ull << 8;

void tell(unsigned long long flags)
{
    Fct_Update(flags, nullptr, nullptr, nullptr);
}

}

// The panel takes in what changed before this does: it listens first.
HistogramPanel::HistogramPanel(Session& session)
    : session_(session), slot_(nullptr, hostkit::Panel_Rules{.redraw_bits = anySelection | word::image_data})
{
    updates_ = hostkit::On_Update([this](unsigned long long flags) { hostChanged(flags); });
    connect(&session, &Session::thresholdsChanged, this, &HistogramPanel::showRanges);
    connect(&session, &Session::imageOpened, this, [this] { newImage_ = true; });
}

void HistogramPanel::hostChanged(unsigned long long flags)
{
    const bool selected = (flags & word::selection_2D) == word::selection_2D;
    if (!selected && !(flags & (word::image_data | word::colour_component)))
        return;
    if (std::exchange(newImage_, false)) {
        zoomToShow(panel());
        panel().zoom.Adjust();
    }
    if (fitted_)
        findPeaks();
    showRanges();
    emit changed();
}

void HistogramPanel::showRanges()
{
    const double factor = greyFactor();
    std::vector<TagRange> ranges;
    for (unsigned tag = 0; tag < session_.tagCount(); ++tag) {
        if (const auto thresholds = session_.thresholds(tag))
            ranges.push_back({static_cast<int>(tag), thresholds->lower * factor, thresholds->upper * factor});
    }
    showTagRanges(panel(), ranges);
    tell(word::histogram_look);
}

// Warnings are told beside the peaks: a fit that stops early is nothing to interrupt anybody for.
void HistogramPanel::findPeaks()
{
    const ReportRecorder recorder;
    panel().Fit();
    warning_ = QString::fromStdString(recorder.warnings());
}

void HistogramPanel::fit()
{
    fitted_ = true;
    findPeaks();
    tell(word::histogram_look);
    emit changed();
}

QString HistogramPanel::unit() const
{
    return session_.hasImage() ? QString::fromStdString(session_.volume().unit) : QString();
}

void HistogramPanel::setZoom(float zoom)
{
    if (!(zoom > 0))
        return;
    panel().zoom.value = zoom;
    panel().zoom.Adjust();
    tell(word::histogram_look);
}

double HistogramPanel::greyFactor() const
{
    return session_.greyFactor();
}

void HistogramPanel::setColourComponent(unsigned char component)
{
    hostkit::Variable<unsigned char>("$GLI_COLOR_COMPONENT") = component;
    tell(word::colour_component);
}

std::optional<document::Failure> HistogramPanel::exportTo(const QString& path)
{
    return exportHistogram(panel(), std::filesystem::path(path.toStdU16String()));
}

}
