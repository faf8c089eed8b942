#pragma once

#include "platform/qt/objects.h"

#include <QPainter>
#include <QPolygon>

#include <optional>
#include <vector>

class Window;

/// What stands behind an HDC: where and how to draw, on the picture of a window.
class Device_Context {
public:
    explicit Device_Context(Window& window);
    ~Device_Context();

    /// The context behind a handle; null when it is none (any more).
    static Device_Context* of(HDC context);
    HDC handle() { return reinterpret_cast<HDC>(this); }
    Window* window() const { return window_; }

    /// How what is drawn meets what is there: pens and brushes by the raster operation, the rest covers it.
    enum class Meets { covering, by_operation };

    /// The painter, set up with this context's clip.
    QPainter& painter(Meets meets);
    const QImage& picture() const;
    void mark(const QRect& drawn) { drawn_ |= drawn; }

    QPoint to_device(int x, int y) const;
    QPolygon to_device(const POINT* points, int count) const;
    QPoint to_logical(const QPoint& device) const;

    /// The pixels between two corners: those of the larger coordinates are left out.
    QRect to_device(int left, int top, int right, int bottom) const;

    struct State {
        int map_mode = MM_TEXT;
        QSize window_extent{1, 1};
        QSize viewport_extent{1, 1};
        QPoint viewport_origin;
        const void* pen;
        const void* brush;
        const void* font;
        int operation = R2_COPYPEN;
        QPoint position;
        std::optional<QRect> clip;
        COLORREF text_color = 0;
        COLORREF brush_color = 0xFFFFFF;
        UINT text_align = TA_LEFT | TA_TOP;
        int background_mode = 2;
    };
    State state;
    std::vector<State> saved;

    const Drawing_Object& pen() const;
    const Drawing_Object& brush() const;
    Drawing_Object::Font& font() const;

    /// What a brush fills with here.
    QBrush to_qbrush(const Drawing_Object& brush) const;

    /// Fills device pixels with what a brush or a pen draws with.
    void fill(const QRect& rectangle, const Drawing_Object& ink, Meets meets);
    void changed() { fresh_ = false; }

private:
    QColor color_of(const Drawing_Object& ink) const;

    Window* window_;
    QRect drawn_;
    bool fresh_ = false; // the painter is set up as this context wants it
};
