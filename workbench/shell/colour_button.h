#pragma once

#include <QColor>
#include <QPushButton>

namespace workbench {

/// Shows a colour, and asks for another when it is pressed.
class ColourButton final : public QPushButton {
    Q_OBJECT
public:
    explicit ColourButton(QWidget* parent = nullptr);

    QColor colour() const { return colour_; }
    void setColour(const QColor& colour);

private:
    void choose();

    QColor colour_;
};

}
