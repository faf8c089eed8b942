#pragma once

#include "workbench/shell/theme.h"

#include <QHBoxLayout>
#include <QString>
#include <QWidget>

namespace workbench {

/// The layout of widgets side by side in a section of the tool column.
inline QHBoxLayout* rowIn(QWidget* row)
{
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(theme::smallSpacing);
    return layout;
}

/// A widget that leaves the keys to the image once it was used.
template <class Widget>
Widget* quiet(Widget* widget, const QString& toolTip)
{
    widget->setFocusPolicy(Qt::TabFocus);
    widget->setToolTip(toolTip);
    return widget;
}

}
