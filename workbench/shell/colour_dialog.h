#pragma once

#include <QColor>

#include <functional>

class QString;
class QWidget;

namespace workbench {

/// Asks for a colour. Returns at once; `chosen` is called when one was chosen.
void chooseColour(QWidget& parent, const QString& title, const QColor& now, std::function<void(const QColor&)> chosen);

}
