#include "workbench/shell/tool_column.h"

#include "workbench/shell/theme.h"

#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace workbench {

ToolColumn::ToolColumn(QWidget* parent) : QScrollArea(parent)
{
    auto* content = new QWidget;
    sections_ = new QVBoxLayout(content);
    sections_->setContentsMargins(theme::spacing, theme::spacing, theme::spacing, theme::spacing);
    sections_->setSpacing(theme::smallSpacing);
    sections_->addStretch();
    setWidget(content);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumWidth(narrowest);
    setFocusPolicy(Qt::NoFocus);
}

void ToolColumn::addSection(const QString& title, QWidget* content)
{
    int end = sections_->count() - 1; // before the stretch
    if (!title.isEmpty()) {
        auto* label = new QLabel(title);
        label->setProperty("role", "title");
        label->setContentsMargins(0, end > 0 ? theme::spacing : 0, 0, 0);
        sections_->insertWidget(end++, label);
    }
    sections_->insertWidget(end, content);
    for (QWidget* part : content->findChildren<QWidget*>())
        part->installEventFilter(this);
    content->installEventFilter(this);
}

int ToolColumn::heightLeftFor(const QWidget* content) const
{
    const QMargins margins = sections_->contentsMargins();
    int used = margins.top() + margins.bottom() + (sections_->count() - 1) * sections_->spacing();
    for (int i = 0; i < sections_->count(); ++i) {
        QLayoutItem* item = sections_->itemAt(i);
        if (item->widget() != content)
            used += item->widget() ? item->sizeHint().expandedTo(item->minimumSize()).height() : 0;
    }
    return viewport()->height() - used;
}

// Tools keep the wheel for themselves, except with Alt held; Qt turns the wheel on its side then.
bool ToolColumn::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel)
        return QScrollArea::eventFilter(watched, event);
    auto* wheel = static_cast<QWheelEvent*>(event);
    if (!(wheel->modifiers() & Qt::AltModifier))
        return QScrollArea::eventFilter(watched, event);
    const QPoint delta = wheel->angleDelta();
    scroll(delta.y() != 0 ? delta.y() : delta.x());
    wheel->accept();
    return true;
}

void ToolColumn::scroll(int delta)
{
    constexpr int notch = 120;
    constexpr int linesPerNotch = 3;
    QScrollBar* bar = verticalScrollBar();
    bar->setValue(bar->value() - delta * linesPerNotch * bar->singleStep() / notch);
}

void ToolColumn::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    emit resized();
}

}
