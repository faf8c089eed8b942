#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace workbench {

/// The column of tools at the side: titled sections, one below the other, with a scroll bar when they do not fit. The
/// wheel scrolls the column over titles, gaps and the bar, and over everything while Alt is held.
class ToolColumn final : public QScrollArea {
    Q_OBJECT
public:
    static constexpr int narrowest = 220;

    explicit ToolColumn(QWidget* parent = nullptr);

    /// Appends a section. @param title  empty when the content bears its own, and keeps the distance above it
    /// @param content  as wide as the column; its height is its own affair
    void addSection(const QString& title, QWidget* content);

    /// What is left of the visible height for `content` when everything else is shown in full, pixels.
    int heightLeftFor(const QWidget* content) const;

    QSize sizeHint() const override { return {280, 400}; }

signals:
    void resized();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void scroll(int delta);

    QVBoxLayout* sections_;
};

}
