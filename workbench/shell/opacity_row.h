#pragma once

#include <QWidget>

class QLabel;
class QSlider;

namespace workbench {

/// The section that says how strongly the tags cover the image: a slider and its number.
class OpacityRow final : public QWidget {
    Q_OBJECT
public:
    explicit OpacityRow(QWidget* parent = nullptr);

    void setOpacity(double opacity); ///< 0 to 1; tells nobody

signals:
    void opacityChosen(double opacity);

private:
    QSlider* slider_;
    QLabel* number_;
};

}
