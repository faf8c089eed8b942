#include "workbench/shell/elided_label.h"

#include <QPainter>

namespace workbench {

ElidedLabel::ElidedLabel(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::setText(const QString& text)
{
    text_ = text.simplified();
    setToolTip(shown() == text_ ? QString() : text_);
    update();
}

QSize ElidedLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text_), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, fontMetrics().height()};
}

QString ElidedLabel::shown() const
{
    return fontMetrics().elidedText(text_, Qt::ElideRight, width());
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown());
}

void ElidedLabel::resizeEvent(QResizeEvent*)
{
    setToolTip(shown() == text_ ? QString() : text_);
}

}
