#include "workbench/shell/opacity_row.h"

#include "workbench/shell/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>

#include <cmath>

namespace workbench {

OpacityRow::OpacityRow(QWidget* parent) : QWidget(parent), slider_(new QSlider(Qt::Horizontal)), number_(new QLabel)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(theme::spacing);
    row->addWidget(slider_, 1);
    row->addWidget(number_);

    slider_->setRange(0, 100);
    slider_->setPageStep(10);
    slider_->setFocusPolicy(Qt::TabFocus);
    slider_->setToolTip(tr("How strongly the tags cover the image"));
    number_->setProperty("role", "quiet");
    number_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(slider_, &QSlider::valueChanged, this, [this](int percent) { emit opacityChosen(percent / 100.0); });
}

void OpacityRow::setOpacity(double opacity)
{
    const int percent = static_cast<int>(std::lround(opacity * 100));
    const QSignalBlocker quiet(slider_);
    slider_->setValue(percent);
    number_->setMinimumWidth(number_->fontMetrics().horizontalAdvance(QStringLiteral("100 %")));
    number_->setText(tr("%1 %").arg(percent));
}

}
