#include "workbench/view/corner_texts.h"

#include "workbench/document/text.h"
#include "workbench/model/session.h"
#include "workbench/view/orientation.h"

#include <cmath>
#include <QPainter>

namespace workbench {

namespace {

void paint_text(QPainter& painter, const QRect& area, int flags, const QString& text)
{
    paint_on_ground(painter, area, flags, text, QColor(0xb4, 0xba, 0xc2));
}

QString window_text(document::Window window)
{
    const auto number = [](double value) { return QString::fromStdString(document::number_text(value)); };
    const auto rounded = [&](double value) { // to what the width leaves to see
        const double unit = std::pow(10.0, std::floor(std::log10(window.width)) - 2);
        return number(std::round(value / unit) * unit);
    };
    return QStringLiteral("W %1  L %2").arg(rounded(window.width), rounded(window.centre));
}

QString zoom_text(double zoom)
{
    return QStringLiteral("%1 %").arg(
        zoom < 0.1 ? QString::number(zoom * 100, 'f', 1) : QString::number(std::lround(zoom * 100)));
}

QString letter(char which)
{
    return which ? QString(QLatin1Char(which)) : QString();
}

void paint_sides(QPainter& painter, const QRect& area, const document::Geometry& geometry)
{
    const EdgeLetters across = edge_letters(shown_axis(geometry, 0)), down = edge_letters(shown_axis(geometry, 1));
    paint_text(painter, area, Qt::AlignRight | Qt::AlignVCenter, letter(across.towards));
    paint_text(painter, area, Qt::AlignLeft | Qt::AlignVCenter, letter(across.away));
    paint_text(painter, area, Qt::AlignHCenter | Qt::AlignBottom, letter(down.towards));
    paint_text(painter, area, Qt::AlignHCenter | Qt::AlignTop, letter(down.away));
}

// Photographs have no patient's left.
bool lies_in_patient(const document::Volume& volume)
{
    return volume.frame_count() > 1 || !volume.modality.empty();
}

}

void paint_on_ground(QPainter& painter, const QRect& area, int flags, const QString& text, const QColor& colour)
{
    if (text.isEmpty())
        return;
    const QRect ground = painter.boundingRect(area, flags, text).adjusted(-4, -1, 4, 1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x16, 0x18, 0x1b, 190));
    painter.drawRoundedRect(ground, 3, 3);
    painter.setPen(colour);
    painter.drawText(area, flags, text);
}

QRect corner_area(const QRect& view)
{
    constexpr int margin = 8;
    return view.adjusted(margin, margin, -margin, -margin);
}

void paint_corner_texts(QPainter& painter, const QRect& view, const Session& session, double zoom)
{
    const QRect area = corner_area(view);
    const auto& volume = session.volume();
    if (volume.frame_count() > 1)
        paint_text(painter, area, Qt::AlignLeft | Qt::AlignTop,
            QStringLiteral("%1 / %2").arg(session.frame() + 1).arg(volume.frame_count()));
    paint_text(painter, area, Qt::AlignLeft | Qt::AlignBottom, zoom_text(zoom));
    paint_text(painter, area, Qt::AlignRight | Qt::AlignBottom, window_text(session.window()));
    if (lies_in_patient(volume))
        paint_sides(painter, area, volume.geometry);
}

}
