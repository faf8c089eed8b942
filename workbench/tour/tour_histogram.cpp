#include "histo/tool_histo_blow.h"
#include "platform/qt/window_widget.h"
#include "workbench/shell/database_dock.h"
#include "workbench/shell/main_window.h"
#include "workbench/shell/tool_panels.h"
#include "workbench/tour/tour_steps.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>

// The histogram: its peaks, its file, its window.

namespace workbench {

namespace {

QPoint middle(const QWidget& widget)
{
    return widget.rect().center();
}

const QPushButton& button(HistogramSection& section, const char* name)
{
    const auto* found = section.findChild<QPushButton*>(QLatin1String(name));
    if (!found || !found->isEnabled())
        throw StepFailed(QStringLiteral("the histogram has no button \"%1\" to press").arg(QLatin1String(name)));
    return *found;
}

}

QImage TourSteps::picture() const
{
    if (const HWND graph = Histo_Graph_Window())
        return Window_Picture(graph);
    DatabaseEditor* const editor = window_.database().editor();
    return editor ? Driver(*editor).picture() : driver_.picture();
}

QString TourSteps::fitPeaks()
{
    HistogramSection& section = window_.panels().histogram();
    const QPushButton& fit = button(section, "fitPeaks");
    driver_.click(fit, middle(fit));
    driver_.moveTo(window_.view(), middle(window_.view())); // the cursor shows the value there
    Driver::settle();
    const Histo_Peaks* found = section.histogram().panel().Peaks();
    if (!found)
        throw StepFailed(QStringLiteral("no peaks were sought"));
    return QStringLiteral("%1 peaks in %2 slices").arg(found->nb).arg(session_.selection().countInSeries());
}

QString TourSteps::exportHistogram()
{
    HistogramSection& section = window_.panels().histogram();
    const QString file = QFileInfo(labelFile_).dir().absoluteFilePath(QStringLiteral("histogram.csv"));
    QFile::remove(file); // of the last tour
    const QPushButton& wanted = button(section, "exportHistogram");
    driver_.click(wanted, middle(wanted));
    writeIntoDialog(file);
    Driver::waitFor([&] { return QFileInfo::exists(file); });
    QFile written(file);
    if (!written.open(QIODevice::ReadOnly))
        throw StepFailed(QStringLiteral("%1 was not written").arg(file));
    const auto lines = written.readAll().count('\n');
    if (lines < section.histogram().panel().histo->nb_bins)
        throw StepFailed(QStringLiteral("%1 is not whole").arg(file));
    return QStringLiteral("%1, %2 lines").arg(QFileInfo(file).fileName()).arg(lines);
}

QString TourSteps::openGraph()
{
    HistogramSection& section = window_.panels().histogram();
    const Buttons& blow = section.histogram().panel().blow;
    const QWidget& panel = *Widget_From_Window(section.histogram().window());
    constexpr int eachPeak = 2;
    Histo_Graph_Display(eachPeak, 1, 1);
    driver_.click(panel, {blow.x + blow.width / 2, panel.height() - 1 - (blow.y + blow.height / 2)});
    Driver::settle();
    if (!Histo_Graph_Window())
        throw StepFailed(QStringLiteral("the graph window did not open"));
    return QStringLiteral("the graph window, with each peak");
}

}
