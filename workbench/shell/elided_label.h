#pragma once

#include <QWidget>

namespace workbench {

/// A line of text that is shortened with an ellipsis where there is no room; the tool tip then has all of it.
class ElidedLabel final : public QWidget {
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    void setText(const QString& text);
    const QString& text() const { return text_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString shown() const;

    QString text_;
};

}
