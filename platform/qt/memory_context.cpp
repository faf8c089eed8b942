#include "platform/qt/memory_context.h"

#include "platform/qt/context.h"

#include <QSet>

#include <cmath>

// Contexts that hold a bitmap, and drawing it with its alpha.

namespace {

struct Memory_Context {
    const void* bitmap = no_bitmap();
};

QSet<const Memory_Context*>& live_contexts()
{
    static QSet<const Memory_Context*>& contexts = *new QSet<const Memory_Context*>;
    return contexts;
}

Memory_Context* context_of(HDC context)
{
    auto* found = reinterpret_cast<Memory_Context*>(context);
    return live_contexts().contains(found) ? found : nullptr;
}

const Drawing_Object* bitmap_of(const void* handle)
{
    const Drawing_Object* object = object_of(handle);
    return object && object->kind == Drawing_Object::Kind::bitmap ? object : nullptr;
}

// Null when the context is none or its bitmap is gone.
const QImage* bitmap_in(HDC context)
{
    const Memory_Context* holder = context_of(context);
    const Drawing_Object* held = holder ? bitmap_of(holder->bitmap) : nullptr;
    return held ? &held->bitmap : nullptr;
}

// Pixel for pixel. Without the screen's scale, which would have Qt stretch what fits already.
void copy(QPainter& painter, const QRect& target, const QImage& bitmap, const QRect& part, qreal scale)
{
    if (scale == 1)
        return painter.drawImage(target.topLeft(), bitmap, part);
    painter.setWorldTransform(QTransform::fromScale(1 / scale, 1 / scale));
    painter.drawImage((QPointF(target.topLeft()) * scale).toPoint(), bitmap, part);
    painter.resetTransform();
}

void stretch(QPainter& painter, const QRect& target, const QImage& bitmap, const QRect& part)
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter.drawImage(target, bitmap, part);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
}

void draw(Device_Context& dc, const QRect& target, const QImage& bitmap, const QRect& part)
{
    QPainter& painter = dc.painter(Device_Context::Meets::covering);
    const qreal scale = dc.picture().devicePixelRatio();
    if (QSizeF(target.size()) * scale == QSizeF(part.size()))
        copy(painter, target, bitmap, part, scale);
    else
        stretch(painter, target, bitmap, part);
    dc.mark(target);
}

}

HGDIOBJ select_bitmap(HDC context, HGDIOBJ bitmap)
{
    Memory_Context* holder = context_of(context);
    return holder && bitmap_of(bitmap) ? const_cast<void*>(std::exchange(holder->bitmap, bitmap)) : nullptr;
}

HDC CreateCompatibleDC(HDC)
{
    auto* made = new Memory_Context;
    live_contexts().insert(made);
    return reinterpret_cast<HDC>(made);
}

BOOL DeleteDC(HDC context)
{
    const Memory_Context* found = context_of(context);
    live_contexts().remove(found);
    delete found;
    return found != nullptr;
}

BOOL AlphaBlend(HDC context, int x, int y, int width, int height, HDC source, int source_x, int source_y,
    int source_width, int source_height, BLENDFUNCTION how)
{
    Device_Context* dc = Device_Context::of(context);
    const QImage* bitmap = bitmap_in(source);
    const QRect part(source_x, source_y, source_width, source_height);
    const bool known = how.BlendOp == AC_SRC_OVER && how.SourceConstantAlpha == 255 && how.AlphaFormat == AC_SRC_ALPHA;
    if (!dc || !bitmap || !known || part.isEmpty() || !bitmap->rect().contains(part))
        return FALSE;
    draw(*dc, dc->to_device(x, y, x + width, y + height), *bitmap, part);
    return TRUE;
}

int GetDeviceCaps(HDC context, int index)
{
    const Device_Context* dc = Device_Context::of(context);
    if (!dc || (index != HORZRES && index != DESKTOPHORZRES))
        return 0;
    const int width = GetSystemMetrics(SM_CXSCREEN);
    return index == HORZRES ? width : static_cast<int>(std::lround(width * dc->picture().devicePixelRatio()));
}
