#include "workbench/shell/histogram_section.h"

#include "platform/qt/window_widget.h"
#include "workbench/histogram/peak_table.h"
#include "workbench/model/session.h"
#include "workbench/shell/quiet_row.h"
#include "workbench/shell/theme.h"

#include <algorithm>
#include <cmath>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

namespace workbench {

namespace {

using Choice = FrameSelection::Choice;

constexpr int panelHeight = 140; // at the usual size

// As many digits as a fit is worth; counts are whole.
QString number(double value)
{
    constexpr int digits = 4;
    const bool whole = std::abs(value) >= 1000;
    return whole ? QLocale::c().toString(value, 'f', 0) : QString::number(value, 'g', digits);
}

}

HistogramSection::HistogramSection(Session& session, QWidget* parent)
    : QWidget(parent), session_(session), histogram_(session), panelWidget_(Widget_From_Window(histogram_.window())),
      frames_(new QComboBox), first_(new QSpinBox), last_(new QSpinBox), to_(new QLabel(tr("to"))),
      component_(new QComboBox), fit_(new QPushButton(tr("Fit peaks"))), export_(new QPushButton(tr("Export..."))),
      result_(new QLabel)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(theme::smallSpacing);
    layout->addWidget(makeFrameRow());
    layout->addWidget(panelWidget_);
    layout->addWidget(makeButtonRow());
    layout->addWidget(result_);
    result_->setProperty("role", "quiet");
    result_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    result_->setWordWrap(true);

    histogram_.host().Set_Look(theme::panelLook());
    panelWidget_->installEventFilter(this);
    panelWidget_->show();
    connect(&session, &Session::imageChanged, this, &HistogramSection::followImage);
    connect(&session.selection(), &FrameSelection::changed, this, &HistogramSection::followSelection);
    connect(&histogram_, &HistogramPanel::changed, this, &HistogramSection::showResult);
    layOut();
    followImage();
}

QWidget* HistogramSection::makeFrameRow()
{
    auto* row = new QWidget;
    auto* layout = rowIn(row);
    frames_->addItem(tr("All slices"), static_cast<int>(Choice::all));
    frames_->addItem(tr("Shown slice"), static_cast<int>(Choice::shown));
    frames_->addItem(tr("Slices"), static_cast<int>(Choice::range));
    layout->addWidget(quiet(frames_, tr("The slices that the histogram is of")), 1);
    layout->addWidget(quiet(first_, tr("The first slice. The image goes there when it shows none of them")));
    layout->addWidget(to_);
    layout->addWidget(quiet(last_, tr("The last slice")));
    for (const QString& name : {tr("Largest"), tr("Red"), tr("Green"), tr("Blue"), tr("Grey")})
        component_->addItem(name);
    layout->addWidget(quiet(component_, tr("The component of colours that is counted")));
    for (QSpinBox* spin : {first_, last_}) {
        spin->setKeyboardTracking(false);
        connect(spin, &QSpinBox::valueChanged, this, &HistogramSection::chooseRange);
    }
    connect(frames_, &QComboBox::activated, this, &HistogramSection::chooseFrames);
    connect(component_, &QComboBox::activated, this,
        [this](int index) { histogram_.setColourComponent(static_cast<unsigned char>(index)); });
    return row;
}

QWidget* HistogramSection::makeButtonRow()
{
    auto* row = new QWidget;
    auto* layout = rowIn(row);
    fit_->setObjectName(QStringLiteral("fitPeaks"));
    export_->setObjectName(QStringLiteral("exportHistogram"));
    layout->addWidget(quiet(fit_, tr("Find peaks and fit a Gaussian to each")), 1);
    layout->addWidget(quiet(export_, tr("Write histogram and peaks into a file for a spreadsheet")), 1);
    connect(fit_, &QPushButton::clicked, this, [this] { histogram_.fit(); });
    connect(export_, &QPushButton::clicked, this, &HistogramSection::exportWanted);
    return row;
}

void HistogramSection::layOut()
{
    const double scale = fontMetrics().height() / 15.0;
    panelWidget_->setFixedHeight(static_cast<int>(panelHeight * std::max(1.0, scale)));
    const float zoom = keptZoom_.value_or(histogram_.zoom());
    histogram_.host().Lay_Out();
    histogram_.setZoom(zoom);
}

// Another width lays the panel out; its zoom is the user's all the same. There may be several before it is set again.
bool HistogramSection::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == panelWidget_ && event->type() == QEvent::Resize && !keptZoom_) {
        keptZoom_ = histogram_.zoom();
        QTimer::singleShot(0, this, [this] { histogram_.setZoom(*std::exchange(keptZoom_, std::nullopt)); });
    }
    return QWidget::eventFilter(watched, event);
}

// ------------------------------------------------------------------------------------------------------ the slices

void HistogramSection::chooseFrames(int index)
{
    switch (static_cast<Choice>(frames_->itemData(index).toInt())) {
    case Choice::shown:
        return session_.selection().chooseShown();
    case Choice::range:
        return session_.selection().chooseRange(session_.frame(), session_.frame());
    default:
        return session_.selection().chooseAll();
    }
}

void HistogramSection::chooseRange()
{
    session_.selection().chooseRange(first_->value() - 1, last_->value() - 1);
}

void HistogramSection::followImage()
{
    const bool some = session_.hasImage();
    const int count = std::max(1, session_.frameCount());
    for (QSpinBox* spin : {first_, last_}) {
        const QSignalBlocker silent(spin);
        spin->setRange(1, count);
    }
    frames_->setEnabled(some && count > 1);
    component_->setVisible(some && session_.volume().is_colour());
    followSelection();
    showResult();
}

// The tree may be selected in ways that have no entry here; then it is told how many slices the histogram is of, which
// are those of the shown series.
void HistogramSection::followSelection()
{
    const FrameSelection& selection = session_.selection();
    const Choice choice = session_.hasImage() ? selection.choice() : Choice::all;
    const int entry = frames_->findData(static_cast<int>(choice));
    frames_->setCurrentIndex(entry);
    const int slices = selection.countInSeries();
    frames_->setPlaceholderText(slices == 1 ? tr("1 slice") : tr("%1 slices").arg(slices));
    for (QWidget* part : {static_cast<QWidget*>(first_), static_cast<QWidget*>(to_), static_cast<QWidget*>(last_)})
        part->setVisible(choice == Choice::range);
    if (choice != Choice::range)
        return;
    const QSignalBlocker silentFirst(first_), silentLast(last_);
    first_->setValue(selection.first() + 1);
    last_->setValue(selection.last() + 1);
}

// ------------------------------------------------------------------------------------------------------ the result

void HistogramSection::showResult()
{
    const bool some = histogram_.hasHistogram();
    fit_->setEnabled(some);
    export_->setEnabled(some);
    result_->setVisible(some && histogram_.isFitted());
    if (!result_->isHidden())
        result_->setText(peakLines());
}

QString HistogramSection::peakLines() const
{
    const auto peaks = fittedPeaks(histogram_.panel(), histogram_.greyFactor());
    const QString unit = histogram_.unit().isEmpty() ? QString() : QLatin1Char(' ') + histogram_.unit();
    QStringList lines;
    for (const FittedPeak& peak : peaks)
        lines << tr("%1%2 \u00b1 %3, height %4")
                     .arg(number(peak.centerValue), unit, number(peak.widthValue), number(peak.height));
    if (peaks.empty())
        lines << tr("No peak was found.");
    if (!histogram_.fitWarning().isEmpty())
        lines << histogram_.fitWarning();
    return lines.join(QLatin1Char('\n'));
}

}
