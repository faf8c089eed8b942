#include "platform/qt/objects.h"

#include <QSet>

#include <algorithm>
#include <cstdlib>

// Pens, brushes, fonts, regions and bitmaps.

namespace {

QSet<const void*>& live_objects()
{
    static QSet<const void*>& objects = *new QSet<const void*>;
    return objects;
}

Drawing_Object* keep(Drawing_Object object)
{
    auto* made = new Drawing_Object(std::move(object));
    live_objects().insert(made);
    return made;
}

Drawing_Object* keep_stock(Drawing_Object object)
{
    object.stock = true;
    return keep(std::move(object));
}

Drawing_Object* context_brush()
{
    static auto* brush = keep_stock({.kind = Drawing_Object::Kind::brush, .context_color = true});
    return brush;
}

Drawing_Object* null_pen()
{
    static auto* pen = keep_stock({.kind = Drawing_Object::Kind::pen, .style = Qt::NoPen});
    return pen;
}

}

Drawing_Object* object_of(const void* handle)
{
    return live_objects().contains(handle) ? static_cast<Drawing_Object*>(const_cast<void*>(handle)) : nullptr;
}

Drawing_Object* null_brush()
{
    static auto* brush = keep_stock({.kind = Drawing_Object::Kind::brush, .hollow = true});
    return brush;
}

Drawing_Object* black_pen()
{
    static auto* pen = keep_stock({.kind = Drawing_Object::Kind::pen, .color = Qt::black});
    return pen;
}

Drawing_Object* white_brush()
{
    static auto* brush = keep_stock({.kind = Drawing_Object::Kind::brush, .color = Qt::white});
    return brush;
}

Drawing_Object* system_font()
{
    static auto* font =
        keep_stock({.kind = Drawing_Object::Kind::font, .font = std::make_unique<Drawing_Object::Font>()});
    return font;
}

Drawing_Object* no_bitmap()
{
    static auto* none = keep_stock({.kind = Drawing_Object::Kind::bitmap});
    return none;
}

const Drawing_Object::Laid_Out_Text& Drawing_Object::Font::lay_out(const QString& text)
{
    if (const Laid_Out_Text* known = texts_.object(text))
        return *known;
    auto* made = new Laid_Out_Text{QStaticText(text), metrics.horizontalAdvance(text)};
    made->text.setTextFormat(Qt::PlainText);
    made->text.setPerformanceHint(QStaticText::AggressiveCaching);
    texts_.insert(text, made);
    return *made;
}

QColor to_qcolor(COLORREF color)
{
    return QColor(GetRValue(color), GetGValue(color), GetBValue(color));
}

QPen to_qpen(const Drawing_Object& pen)
{
    return QPen(pen.color, pen.width, pen.style, Qt::FlatCap, Qt::MiterJoin);
}

QImage upright(const BITMAPINFOHEADER& header, const void* pixels)
{
    if (!pixels || header.biBitCount != 32 || header.biCompression != BI_RGB)
        return {};
    const QImage stored(
        static_cast<const uchar*>(pixels), header.biWidth, std::abs(header.biHeight), QImage::Format_RGB32);
    return header.biHeight < 0 ? stored : stored.mirrored();
}

HPEN CreatePen(int style, int width, COLORREF color)
{
    const Qt::PenStyle line = style == PS_NULL ? Qt::NoPen : style == PS_DOT ? Qt::DotLine : Qt::SolidLine;
    return reinterpret_cast<HPEN>(keep(
        {.kind = Drawing_Object::Kind::pen, .color = to_qcolor(color), .width = std::max(width, 1), .style = line}));
}

HBRUSH CreateSolidBrush(COLORREF color)
{
    return reinterpret_cast<HBRUSH>(keep({.kind = Drawing_Object::Kind::brush, .color = to_qcolor(color)}));
}

HBRUSH CreateDIBPatternBrushPt(const void* packed, UINT usage)
{
    if (!packed || usage != DIB_RGB_COLORS)
        return nullptr;
    const auto& header = *static_cast<const BITMAPINFOHEADER*>(packed);
    const auto* pixels = static_cast<const BYTE*>(packed) + header.biSize + header.biClrUsed * sizeof(RGBQUAD);
    // The fourth byte of a pixel is anything in a bitmap; in a picture it must not be.
    const QImage tile = upright(header, pixels).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (tile.isNull())
        return nullptr;
    return reinterpret_cast<HBRUSH>(keep({.kind = Drawing_Object::Kind::brush, .pattern = QBrush(tile)}));
}

HFONT CreateFontA(int height, int, int escapement, int, int weight, DWORD italic, DWORD underline, DWORD strike_out,
    DWORD, DWORD, DWORD, DWORD, DWORD, LPCSTR face)
{
    QFont font;
    if (face && *face)
        font.setFamily(QString::fromUtf8(face));
    if (height != 0)
        font.setPixelSize(std::abs(height));
    font.setBold(weight >= FW_BOLD);
    font.setItalic(italic != 0);
    font.setUnderline(underline != 0);
    font.setStrikeOut(strike_out != 0);
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return reinterpret_cast<HFONT>(keep(
        {.kind = Drawing_Object::Kind::font, .font = std::make_unique<Drawing_Object::Font>(font, escapement / 10.0)}));
}

HGDIOBJ GetStockObject(int index)
{
    switch (index) {
    case NULL_BRUSH:
        return null_brush();
    case NULL_PEN:
        return null_pen();
    case DC_BRUSH:
        return context_brush();
    default:
        return nullptr;
    }
}

BOOL DeleteObject(HGDIOBJ object)
{
    Drawing_Object* found = object_of(object);
    if (!found || found->stock)
        return found != nullptr;
    live_objects().remove(found);
    delete found;
    return TRUE;
}

HRGN CreateRectRgn(int left, int top, int right, int bottom)
{
    const QRect rectangle(std::min(left, right), std::min(top, bottom), std::abs(right - left), std::abs(bottom - top));
    return reinterpret_cast<HRGN>(keep({.kind = Drawing_Object::Kind::region, .region = rectangle}));
}

HBITMAP CreateDIBSection(HDC, const BITMAPINFO* description, UINT usage, void** bits, HANDLE, DWORD)
{
    if (!description || !bits || usage != DIB_RGB_COLORS)
        return nullptr;
    const BITMAPINFOHEADER& header = description->bmiHeader;
    if (header.biBitCount != 32 || header.biCompression != BI_RGB || header.biHeight > 0)
        return nullptr;
    QImage bitmap(header.biWidth, -header.biHeight, QImage::Format_ARGB32_Premultiplied);
    if (bitmap.isNull())
        return nullptr;
    bitmap.fill(0);
    auto* made = keep({.kind = Drawing_Object::Kind::bitmap, .bitmap = std::move(bitmap)});
    *bits = made->bitmap.bits();
    return reinterpret_cast<HBITMAP>(made);
}
