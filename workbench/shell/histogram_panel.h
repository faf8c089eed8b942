#pragma once

#include "histo/tool_histo.h"
#include "hostkit/embedding/panel_slot.h"

#include <QObject>
#include <QString>

#include <optional>

namespace document {
struct Failure;
}

namespace workbench {

class Session;

/// The histogram panel of the selected frames with what the workbench adds to it: the thresholds of tags as ranges, and
/// peaks that are found again whenever the histogram becomes another one.
class HistogramPanel final : public QObject {
    Q_OBJECT
public:
    /// The session must outlive it.
    explicit HistogramPanel(Session& session);

    hostkit::Panel_Window& host() { return slot_.host(); }
    HWND window() const { return slot_.window(); }
    Tool_Histo& panel() { return slot_.panel(); }
    const Tool_Histo& panel() const { return slot_.panel(); }
    bool hasHistogram() const { return panel().Ready(); }

    /// Finds peaks and shows them, and from now on finds them in each histogram to come.
    void fit();
    bool isFitted() const { return fitted_; }

    /// What the fit could not do, for the user; empty when it did all.
    QString fitWarning() const { return warning_; }

    /// The unit of grey values, and what panels see them multiplied by.
    QString unit() const;
    double greyFactor() const;

    /// The panel's vertical zoom, which a layout sets to 1.
    float zoom() const { return panel().zoom.value; }
    void setZoom(float zoom);

    void setColourComponent(unsigned char component);

    /// Writes histogram and peaks; what was there stays when that fails. Only when there is a histogram.
    std::optional<document::Failure> exportTo(const QString& path);

signals:
    void changed(); ///< the histogram or its peaks

private:
    void hostChanged(unsigned long long flags);
    void showRanges();
    void findPeaks();

    Session& session_;
    hostkit::Panel_Slot<Tool_Histo> slot_;
    bool fitted_ = false;
    bool newImage_ = false; // whose histogram is still to come
    QString warning_;
    hostkit::Subscription updates_;
};

}
