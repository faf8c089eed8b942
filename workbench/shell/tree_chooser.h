#pragma once

#include <QWidget>

class QButtonGroup;

namespace workbench {

/// Three quiet buttons side by side: which tree of the database is seen, "Images", "Volumes" or "Signals".
class TreeChooser final : public QWidget {
    Q_OBJECT
public:
    explicit TreeChooser(QWidget* parent = nullptr);

    /// @param dimension  2, 3 or 1, in the order of the buttons
    QWidget& button(int dimension) const;
    void setDimension(int dimension); ///< without telling

signals:
    void chosen(int dimension);

private:
    QButtonGroup* buttons_;
};

}
