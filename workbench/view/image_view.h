#pragma once

#include "workbench/model/session.h"
#include "workbench/view/brush_outline.h"
#include "workbench/view/frame_picture.h"
#include "workbench/view/marker_marks.h"
#include "workbench/view/view_transform.h"

#include <optional>
#include <QRegion>
#include <QWidget>

namespace workbench {

/// Shows the session's frame with its labels, and is where one paints.
///
/// - left drag paints the current tag, with Shift it erases; Escape takes the stroke back
/// - while markers are placed, or with Alt: left click sets a marker, left drag moves one; Escape takes the move back,
///   or ends the placing
/// - right drag: window; to the right wider, upward brighter
/// - middle drag or Space + left drag moves the picture, Ctrl + wheel zooms at the pointer, a double click with the
///   middle button or the key 0 fits the picture into the view
/// - wheel, arrow keys, PageUp and PageDown change the frame, Home and End show the first and the last
///
/// Pictures are shown with square millimetres: unequal spacing stretches them. Files are dropped on its parents.
class ImageView : public QWidget {
    Q_OBJECT
public:
    /// The session must outlive the view.
    explicit ImageView(Session& session, QWidget* parent = nullptr);

    /// Widget pixels for one voxel; 1 is 100 %.
    double zoom() const { return place_.zoom(); }
    void zoomIn(); ///< around the middle
    void zoomOut();
    void fit();

    /// The voxel at a position of the widget, if there is one.
    std::optional<Voxel> voxelAt(QPointF position) const;
    /// The centre of a pixel of the shown frame in the widget: where a test or a tour clicks.
    QPointF positionOf(int x, int y) const;

    /// Whether the left button sets and moves markers instead of painting.
    bool isPlacing() const { return placing_; }
    void setPlacing(bool placing); ///< without an image it stays off
    std::optional<unsigned> markerUnderPointer() const;

    QSize sizeHint() const override { return {640, 560}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

signals:
    /// The pointer is over another voxel, or over none.
    void pointerMoved(std::optional<workbench::Voxel> voxel);
    /// Nothing was painted or set; the text says why.
    void strokeRefused(const QString& why);
    /// zoom() or the part of the picture that is seen.
    void viewChanged();
    void placingChanged(bool placing);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    enum class Drag { none, paint, marker, window, pan };

    void followSession();
    void showImage();
    void showFrame();
    void showLabels(int z, const QRect& box);
    void showOutline();
    void showMarkers();
    void zoomBy(double factor, QPointF anchor);
    void moveView();

    void begin(Drag drag, QMouseEvent* event);
    void beginPainting(QMouseEvent* event);
    void beginMarking(QMouseEvent* event);
    void dragWindow(QPointF position);
    void dragView(QPointF position);
    void endDrag();
    void takeBack(QKeyEvent* event);
    bool keepsFrame() const { return session_.isPainting() || drag_ == Drag::marker; }
    void turnFrames(int angle);
    bool showFrameOfKey(int key);
    void setPointer(std::optional<QPointF> position);
    void tellPointer();
    void setSpace(bool held);
    void setErasing(bool erasing);
    void updateCursor();

    const BrushOutline& outline() const;
    QPoint pixelAt(QPointF position) const;
    QRect outlineRect() const;
    QColor outlineColour() const;
    void paintEmpty(QPainter& painter) const;
    void paintOutline(QPainter& painter) const;
    void paintMarkers(QPainter& painter);
    QRegion markedRegion() const;
    std::optional<unsigned> markerAt(QPointF position) const;

    Session& session_;
    FramePicture picture_;
    ViewTransform place_;
    mutable BrushOutline outline_; // empty until it is asked for
    Drag drag_ = Drag::none;
    Qt::MouseButton dragButton_ = Qt::NoButton;
    QPointF dragStart_, dragLast_;
    document::Window windowAtStart_;
    std::optional<QPointF> pointer_; // in the widget
    std::optional<Voxel> told_;      // with the last pointerMoved
    int wheelRest_ = 0;              // what is left of the wheel's turn below one notch
    QRegion marked_;                 // where marks are on the screen
    QPointF grip_;                   // from the pointer to the marker that is dragged, pixels of the frame
    bool placing_ = false;
    bool space_ = false;
    bool erasing_ = false; // Shift is held
};

}
