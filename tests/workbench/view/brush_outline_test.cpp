#include "tests/workbench/session_fixture.h"
#include "workbench/view/brush_outline.h"

#include <QImage>
#include <QPainter>

namespace {

using workbench::BrushOutline;
using workbench::BrushShape;

class Outline : public test::SessionTest {
protected:
    // Ten picture pixels a pixel; the outline in white, its halo and the rest not.
    static QImage drawn(unsigned brush, QPoint centre)
    {
        QImage image(500, 500, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        BrushOutline outline;
        outline.setShape(BrushShape::of(brush));
        outline.paint(painter, QTransform::fromScale(10, 10), centre, Qt::white);
        return image;
    }

    static bool white_near(const QImage& image, int x, int y)
    {
        for (int dy = -1; dy <= 0; ++dy)
            for (int dx = -1; dx <= 0; ++dx)
                if (image.pixel(x + dx, y + dy) == 0xFFFFFFFFu)
                    return true;
        return false;
    }
};

// A side between two pixels is drawn exactly when one of them is covered.
TEST_F(Outline, RunsBetweenCoveredAndOtherPixels)
{
    for (const unsigned brush : {0u, 1u, 2u, 3u, 4u}) {
        const QImage image = drawn(brush, {25, 25});
        const int radius = hostkit::Array_Variable<unsigned short>("$BRUSH_SIZE")[brush];
        const auto covered = [&](int x, int y) {
            const int square = (x - 25) * (x - 25) + (y - 25) * (y - 25);
            return radius < 2 ? square == 0 : square < radius * radius;
        };
        for (int y = 1; y < 49; ++y)
            for (int x = 1; x < 49; ++x) {
                EXPECT_EQ(white_near(image, 10 * x, 10 * y + 5), covered(x, y) != covered(x - 1, y)) << x << " " << y;
                EXPECT_EQ(white_near(image, 10 * x + 5, 10 * y), covered(x, y) != covered(x, y - 1)) << x << " " << y;
            }
    }
}

TEST_F(Outline, ItsBoxHoldsTheStamp)
{
    BrushOutline outline;
    EXPECT_TRUE(outline.empty());
    outline.setShape(BrushShape::of(2));
    EXPECT_EQ(outline.box({10, 20}), QRect(7, 17, 7, 7)); // radius 4 without its rim
    EXPECT_FALSE(outline.empty());
}

}
