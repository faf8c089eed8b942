#include "workbench/view/frame_picture.h"

#include "workbench/document/render.h"

#include <array>
#include <cmath>
#include <new>

namespace workbench {

namespace {

/// Lays one tag's colour over pixels.
struct Glaze {
    std::uint32_t share = 0;               // of the tag, out of 256
    std::uint32_t red_blue = 0, green = 0; // of the tag, times its share

    Glaze() = default;
    Glaze(QColor colour, std::uint32_t of_256)
        : share(of_256), red_blue((colour.rgb() & 0xFF00FFu) * of_256), green((colour.rgb() & 0xFF00u) * of_256)
    {
    }

    // Two channels at once: each has eight bits of room above it.
    std::uint32_t over(std::uint32_t pixel) const
    {
        const std::uint32_t rest = 256 - share;
        const std::uint32_t mixed_red_blue = ((pixel & 0xFF00FFu) * rest + red_blue) >> 8;
        const std::uint32_t mixed_green = ((pixel & 0xFF00u) * rest + green) >> 8;
        return 0xFF000000u | (mixed_red_blue & 0xFF00FFu) | (mixed_green & 0xFF00u);
    }
};

std::array<Glaze, 256> glazes(const Session& session)
{
    const auto share = std::uint32_t(std::lround(session.overlayOpacity() * 256));
    std::array<Glaze, 256> table;
    for (unsigned tag = 1; tag < table.size(); ++tag)
        table[tag] = Glaze(session.tagColour(tag), share);
    return table;
}

std::uint32_t* line(QImage& image, int y)
{
    return reinterpret_cast<std::uint32_t*>(image.scanLine(y));
}

}

void FramePicture::render(const Session& session)
{
    if (!session.hasImage()) {
        grey_ = shown_ = {};
        return;
    }
    const auto& volume = session.volume();
    const QSize size(volume.width(), volume.height());
    if (grey_.size() != size) {
        grey_ = QImage(size, QImage::Format_RGB32);
        shown_ = QImage(size, QImage::Format_RGB32);
    }
    if (grey_.isNull() || shown_.isNull())
        throw std::bad_alloc();
    render_frame(volume, session.frame(), session.window(), {0, 0, size.width(), size.height()}, line(grey_, 0),
        grey_.bytesPerLine() / 4);
    blend(session);
}

void FramePicture::blend(const Session& session, QRect part)
{
    part &= grey_.rect();
    if (part.isEmpty())
        return;
    const auto table = glazes(session);
    const auto tags = session.labels().frame(session.frame());
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const auto* grey = reinterpret_cast<const std::uint32_t*>(grey_.constScanLine(y));
        const auto* row = tags.data() + std::ptrdiff_t(y) * grey_.width();
        std::uint32_t* target = line(shown_, y);
        for (int x = part.left(); x <= part.right(); ++x)
            target[x] = row[x] == 0 ? grey[x] : table[row[x]].over(grey[x]);
    }
}

}
