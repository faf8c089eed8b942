#include "workbench/shell/colour_button.h"

#include "workbench/shell/colour_dialog.h"

#include <QPixmap>

namespace workbench {

ColourButton::ColourButton(QWidget* parent) : QPushButton(parent)
{
    setAutoDefault(false); // Enter is for the dialog
    connect(this, &QPushButton::clicked, this, &ColourButton::choose);
}

void ColourButton::setColour(const QColor& colour)
{
    colour_ = colour;
    ensurePolished(); // so that the font is the one that will be seen
    const int side = fontMetrics().height();
    QPixmap swatch(2 * side, side);
    swatch.fill(colour);
    setIconSize(swatch.size());
    setIcon(swatch);
    setText(QLatin1Char(' ') + colour.name());
}

void ColourButton::choose()
{
    chooseColour(*this, tr("Colour"), colour_, [this](const QColor& colour) { setColour(colour); });
}

}
