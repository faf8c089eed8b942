#include "platform/qt/context.h"

#include "platform/qt/memory_context.h"
#include "platform/qt/window.h"

#include <QPointer>
#include <QSet>

#include <algorithm>
#include <cmath>

// Device contexts: mapping, clip, and the objects that are selected.

namespace {

QSet<const Device_Context*>& live_contexts()
{
    static QSet<const Device_Context*>& contexts = *new QSet<const Device_Context*>;
    return contexts;
}

int scaled(int value, int extent, int by)
{
    if (by == 0 || extent == by)
        return value;
    return extent == -by ? -value : static_cast<int>(std::lround(static_cast<double>(value) * extent / by));
}

QPainter::CompositionMode composition(int operation)
{
    switch (operation) {
    case R2_XORPEN:
        return QPainter::RasterOp_SourceXorDestination;
    case R2_NOT:
        return QPainter::RasterOp_NotDestination;
    default:
        return QPainter::CompositionMode_SourceOver;
    }
}

}

Device_Context::Device_Context(Window& window) : window_(&window)
{
    state.pen = black_pen();
    state.brush = white_brush();
    state.font = system_font();
    window.open_painter();
    live_contexts().insert(this);
}

Device_Context::~Device_Context()
{
    live_contexts().remove(this);
    window_->close_painter(drawn_);
}

Device_Context* Device_Context::of(HDC context)
{
    auto* found = reinterpret_cast<Device_Context*>(context);
    return live_contexts().contains(found) ? found : nullptr;
}

void forget_contexts_of(const Window* window)
{
    const auto contexts = live_contexts();
    for (const Device_Context* context : contexts) {
        if (context->window() == window)
            delete context;
    }
}

QPainter& Device_Context::painter(Meets meets)
{
    QPainter& shared = window_->open_painter();
    window_->close_painter({});
    if (!fresh_ || window_->painter_user != this) {
        if (state.clip)
            shared.setClipRect(*state.clip);
        else
            shared.setClipping(false);
        window_->painter_user = this;
        fresh_ = true;
    }
    const auto mode = meets == Meets::covering ? QPainter::CompositionMode_SourceOver : composition(state.operation);
    if (shared.compositionMode() != mode)
        shared.setCompositionMode(mode);
    return shared;
}

const QImage& Device_Context::picture() const
{
    return window_->picture();
}

QPoint Device_Context::to_device(int x, int y) const
{
    if (state.map_mode == MM_TEXT)
        return QPoint(x, y) + state.viewport_origin;
    return QPoint(scaled(x, state.viewport_extent.width(), state.window_extent.width()),
               scaled(y, state.viewport_extent.height(), state.window_extent.height())) +
           state.viewport_origin;
}

QPolygon Device_Context::to_device(const POINT* points, int count) const
{
    QPolygon polygon(count);
    std::transform(
        points, points + count, polygon.begin(), [this](const POINT& point) { return to_device(point.x, point.y); });
    return polygon;
}

QPoint Device_Context::to_logical(const QPoint& device) const
{
    const QPoint from_origin = device - state.viewport_origin;
    if (state.map_mode == MM_TEXT)
        return from_origin;
    return {scaled(from_origin.x(), state.window_extent.width(), state.viewport_extent.width()),
        scaled(from_origin.y(), state.window_extent.height(), state.viewport_extent.height())};
}

QRect Device_Context::to_device(int left, int top, int right, int bottom) const
{
    const QPoint one = to_device(left, top);
    const QPoint other = to_device(right, bottom);
    return {std::min(one.x(), other.x()), std::min(one.y(), other.y()), std::abs(one.x() - other.x()),
        std::abs(one.y() - other.y())};
}

const Drawing_Object& Device_Context::pen() const
{
    const Drawing_Object* object = object_of(state.pen);
    return object ? *object : *black_pen();
}

const Drawing_Object& Device_Context::brush() const
{
    const Drawing_Object* object = object_of(state.brush);
    return object ? *object : *white_brush();
}

Drawing_Object::Font& Device_Context::font() const
{
    Drawing_Object* object = object_of(state.font);
    return object && object->font ? *object->font : *system_font()->font;
}

QColor Device_Context::color_of(const Drawing_Object& ink) const
{
    return ink.context_color ? to_qcolor(state.brush_color) : ink.color;
}

QBrush Device_Context::to_qbrush(const Drawing_Object& brush) const
{
    if (brush.hollow)
        return Qt::NoBrush;
    return brush.pattern.style() == Qt::NoBrush ? QBrush(color_of(brush)) : brush.pattern;
}

void Device_Context::fill(const QRect& rectangle, const Drawing_Object& ink, Meets meets)
{
    if (rectangle.isEmpty() || ink.hollow)
        return;
    if (ink.pattern.style() == Qt::NoBrush)
        painter(meets).fillRect(rectangle, color_of(ink));
    else
        painter(meets).fillRect(rectangle, ink.pattern);
    mark(rectangle);
}

// --------------------------------------------------------------------------------------------------- the calls

HDC GetDC(HWND window)
{
    Window* found = Window::of(window);
    return found ? (new Device_Context(*found))->handle() : nullptr;
}

int ReleaseDC(HWND window, HDC context)
{
    Device_Context* found = Device_Context::of(context);
    if (!found || found->window()->handle() != window)
        return 0;
    delete found;
    return 1;
}

int SaveDC(HDC context)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return 0;
    dc->saved.push_back(dc->state);
    return static_cast<int>(dc->saved.size());
}

// A negative number counts from the latest.
BOOL RestoreDC(HDC context, int saved)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return FALSE;
    const int index = saved < 0 ? static_cast<int>(dc->saved.size()) + saved : saved - 1;
    if (index < 0 || index >= static_cast<int>(dc->saved.size()))
        return FALSE;
    if (dc->state.clip != dc->saved[static_cast<size_t>(index)].clip)
        dc->changed();
    dc->state = dc->saved[static_cast<size_t>(index)];
    dc->saved.resize(static_cast<size_t>(index));
    return TRUE;
}

int SetMapMode(HDC context, int mode)
{
    Device_Context* dc = Device_Context::of(context);
    return dc ? std::exchange(dc->state.map_mode, mode) : 0;
}

BOOL SetWindowExtEx(HDC context, int x, int y, SIZE* previous)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc || x == 0 || y == 0)
        return FALSE;
    if (previous)
        *previous = {dc->state.window_extent.width(), dc->state.window_extent.height()};
    dc->state.window_extent = {x, y};
    return TRUE;
}

BOOL SetViewportExtEx(HDC context, int x, int y, SIZE* previous)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc || x == 0 || y == 0)
        return FALSE;
    if (previous)
        *previous = {dc->state.viewport_extent.width(), dc->state.viewport_extent.height()};
    dc->state.viewport_extent = {x, y};
    return TRUE;
}

BOOL SetViewportOrgEx(HDC context, int x, int y, POINT* previous)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return FALSE;
    if (previous)
        *previous = {dc->state.viewport_origin.x(), dc->state.viewport_origin.y()};
    dc->state.viewport_origin = {x, y};
    return TRUE;
}

BOOL LPtoDP(HDC context, POINT* points, int count)
{
    Device_Context* dc = Device_Context::of(context);
    for (int i = 0; dc && i < count; ++i) {
        const QPoint device = dc->to_device(points[i].x, points[i].y);
        points[i] = {device.x(), device.y()};
    }
    return dc != nullptr;
}

BOOL DPtoLP(HDC context, POINT* points, int count)
{
    Device_Context* dc = Device_Context::of(context);
    for (int i = 0; dc && i < count; ++i) {
        const QPoint logical = dc->to_logical({points[i].x, points[i].y});
        points[i] = {logical.x(), logical.y()};
    }
    return dc != nullptr;
}

HGDIOBJ SelectObject(HDC context, HGDIOBJ object)
{
    Device_Context* dc = Device_Context::of(context);
    const Drawing_Object* chosen = object_of(object);
    if (!dc || !chosen)
        return select_bitmap(context, object);
    using Kind = Drawing_Object::Kind;
    const void** place = chosen->kind == Kind::pen     ? &dc->state.pen
                         : chosen->kind == Kind::brush ? &dc->state.brush
                         : chosen->kind == Kind::font  ? &dc->state.font
                                                       : nullptr;
    return place ? const_cast<void*>(std::exchange(*place, object)) : nullptr;
}

int SelectClipRgn(HDC context, HRGN region)
{
    Device_Context* dc = Device_Context::of(context);
    const Drawing_Object* object = object_of(region);
    if (!dc || (region && !object))
        return RGN_ERROR;
    dc->state.clip = region ? std::optional(object->region) : std::nullopt;
    dc->changed();
    return region && object->region.isEmpty() ? NULLREGION : SIMPLEREGION;
}

int IntersectClipRect(HDC context, int left, int top, int right, int bottom)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return RGN_ERROR;
    const QRect part = dc->to_device(left, top, right, bottom);
    dc->state.clip = dc->state.clip ? *dc->state.clip & part : part;
    dc->changed();
    return dc->state.clip->isEmpty() ? NULLREGION : SIMPLEREGION;
}

int SetROP2(HDC context, int operation)
{
    Device_Context* dc = Device_Context::of(context);
    if (!dc)
        return 0;
    return std::exchange(dc->state.operation, operation);
}

COLORREF SetDCBrushColor(HDC context, COLORREF color)
{
    Device_Context* dc = Device_Context::of(context);
    return dc ? std::exchange(dc->state.brush_color, color) : CLR_INVALID;
}
