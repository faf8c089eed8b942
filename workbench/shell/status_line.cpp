#include "workbench/shell/status_line.h"

#include "workbench/shell/elided_label.h"
#include "workbench/shell/theme.h"

#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace workbench {

namespace {

constexpr int messageTime = 12000; // milliseconds

// As much room as a usual text needs, so that the line does not jump with every voxel.
void reserve(QLabel* label, const char* longest)
{
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QLatin1String(longest)) + theme::spacing);
}

}

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent), message_(new ElidedLabel), progress_(new QProgressBar),
      cancel_(new QPushButton(tr("Cancel"))), index_(new QLabel), position_(new QLabel), value_(new QLabel),
      tag_(new QLabel)
{
    setSizeGripEnabled(false);
    message_->setObjectName(QStringLiteral("message"));
    setContentsMargins(theme::spacing, 0, theme::spacing, 0);
    addWidget(message_, 1);
    addWidget(progress_);
    addWidget(cancel_);
    progress_->setTextVisible(false);
    progress_->setFixedWidth(120);
    cancel_->setFocusPolicy(Qt::NoFocus);
    for (QLabel* label : {index_, position_, value_, tag_}) {
        addPermanentWidget(label);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    index_->setProperty("role", "quiet");
    position_->setProperty("role", "quiet");
    tag_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    tag_->setContentsMargins(theme::spacing, 0, 0, 0);
    reserveWidths();
    endWork();

    clearing_.setSingleShot(true);
    connect(&clearing_, &QTimer::timeout, this, [this] { message_->setText({}); });
    connect(cancel_, &QPushButton::clicked, this, &StatusLine::cancelled);
}

void StatusLine::say(const QString& text)
{
    message_->setText(text);
    clearing_.start(messageTime);
}

QString StatusLine::message() const
{
    return message_->text();
}

void StatusLine::showWork(const QString& title)
{
    clearing_.stop();
    message_->setText(title);
    progress_->setRange(0, 0); // busy, until it is known how far it is
    progress_->show();
    cancel_->show();
    showPositionIfItFits();
}

void StatusLine::showProgress(int percent)
{
    progress_->setRange(0, 100);
    progress_->setValue(percent);
}

void StatusLine::endWork()
{
    message_->setText({});
    progress_->hide();
    cancel_->hide();
    showPositionIfItFits();
}

void StatusLine::showVoxel(const VoxelText& voxel)
{
    index_->setText(voxel.index);
    position_->setText(voxel.position);
    value_->setText(voxel.value);
    tag_->setText(tag_->fontMetrics().elidedText(voxel.tag, Qt::ElideRight, tag_->maximumWidth()));
}

void StatusLine::changeEvent(QEvent* event)
{
    QStatusBar::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        reserveWidths();
}

void StatusLine::reserveWidths()
{
    if (!tag_)
        return;
    reserve(index_, "000, 000, 000");
    reserve(position_, "-000.0, -000.0, -000.0 mm");
    reserve(value_, "-00000 HU");
    reserve(tag_, "Left kidney");
    tag_->setMaximumWidth(2 * tag_->minimumWidth());
    showPositionIfItFits();
}

void StatusLine::resizeEvent(QResizeEvent* event)
{
    QStatusBar::resizeEvent(event);
    showPositionIfItFits();
}

// Of all that stands here the position is missed least while there is work going on, or in large letters.
void StatusLine::showPositionIfItFits()
{
    const int message = width() / 4;
    int needed = message;
    for (const QLabel* label : {index_, position_, value_, tag_})
        needed += label->minimumWidth() + theme::spacing;
    position_->setVisible(cancel_->isHidden() && needed <= width());
}

}
