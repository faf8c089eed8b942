#include "workbench/view/image_view.h"

#include "workbench/view/corner_texts.h"
#include "workbench/view/orientation.h"

#include <cmath>
#include <QPainter>
#include <QPaintEvent>

namespace workbench {

namespace {

// Under two screen pixels a voxel, seeing single voxels is worth less than an even picture.
constexpr double pixels_seen = 2;

QPalette dark_palette(QPalette palette)
{
    palette.setColor(QPalette::Window, QColor(0x16, 0x18, 0x1b));
    palette.setColor(QPalette::WindowText, QColor(0x9a, 0xa2, 0xab));
    return palette;
}

QRect grown(const QRectF& rect, int by)
{
    return rect.toAlignedRect().adjusted(-by, -by, by, by);
}

}

ImageView::ImageView(Session& session, QWidget* parent) : QWidget(parent), session_(session)
{
    setPalette(dark_palette(palette()));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Image"));
    followSession();
    showImage();
}

void ImageView::followSession()
{
    connect(&session_, &Session::imageChanged, this, &ImageView::showImage);
    connect(&session_, &Session::frameChanged, this, &ImageView::showFrame);
    connect(&session_, &Session::labelsChanged, this, &ImageView::showLabels);
    connect(&session_, &Session::currentTagChanged, this, &ImageView::showOutline);
    connect(&session_, &Session::windowChanged, this, [this] {
        picture_.render(session_);
        update();
    });
    connect(&session_.markers(), &Markers::changed, this, &ImageView::showMarkers);
    connect(&session_.markers(), &Markers::currentChanged, this, &ImageView::showMarkers);
    const auto blend = [this] {
        picture_.blend(session_);
        update();
    };
    connect(&session_, &Session::opacityChanged, this, blend);
    connect(&session_, &Session::tagsChanged, this, blend);
    connect(&session_, &Session::brushChanged, this, [this] {
        outline_ = {}; // who fills the shape may hear of the change only after this
        update();
    });
}

void ImageView::showImage()
{
    drag_ = Drag::none;
    picture_.render(session_);
    if (session_.hasImage()) {
        const auto& geometry = session_.volume().geometry;
        place_.setFrame(picture_.image().size(), {geometry.spacing[0], geometry.spacing[1]}, usual_view(geometry));
    }
    moveView();
    updateCursor();
}

void ImageView::showFrame()
{
    if (drag_ == Drag::marker)
        endDrag(); // it stays in the frame where it was held
    picture_.render(session_);
    tellPointer();
    update();
}

void ImageView::showLabels(int z, const QRect& box)
{
    if (z != session_.frame())
        return;
    picture_.blend(session_, box);
    // One more pixel around: smooth scaling looks at the neighbours.
    update(grown(place_.transform().mapRect(QRectF(box.adjusted(-1, -1, 1, 1))), 1));
}

void ImageView::showOutline()
{
    update(outlineRect());
}

// --------------------------------------------------------------------------------------------------------- places

std::optional<Voxel> ImageView::voxelAt(QPointF position) const
{
    if (!session_.showsFrame())
        return {};
    const QPoint pixel = pixelAt(position);
    const Voxel voxel{pixel.x(), pixel.y(), session_.frame()};
    if (!session_.volume().contains(voxel.x, voxel.y, voxel.z))
        return {};
    return voxel;
}

QPointF ImageView::positionOf(int x, int y) const
{
    return place_.toView({x + 0.5, y + 0.5});
}

QPoint ImageView::pixelAt(QPointF position) const
{
    const QPointF pixel = place_.toPixel(position);
    return {int(std::floor(pixel.x())), int(std::floor(pixel.y()))};
}

void ImageView::zoomIn()
{
    zoomBy(1.25, rect().center());
}

void ImageView::zoomOut()
{
    zoomBy(1 / 1.25, rect().center());
}

void ImageView::zoomBy(double factor, QPointF anchor)
{
    place_.setZoom(place_.zoom() * factor, anchor);
    moveView();
}

void ImageView::fit()
{
    place_.fit();
    moveView();
}

void ImageView::resizeEvent(QResizeEvent*)
{
    place_.setViewSize(size());
    moveView();
}

// The picture lies elsewhere now.
void ImageView::moveView()
{
    tellPointer();
    update();
    emit viewChanged();
}

// ------------------------------------------------------------------------------------------------------- painting

void ImageView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    if (!session_.showsFrame())
        return paintEmpty(painter);
    painter.save();
    painter.setTransform(place_.transform(), true);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, place_.zoom() * devicePixelRatioF() < pixels_seen);
    painter.drawImage(QPointF(), picture_.image());
    painter.restore();
    paintOutline(painter);
    paintMarkers(painter);
    paint_corner_texts(painter, rect(), session_, place_.zoom());
}

void ImageView::paintEmpty(QPainter& painter) const
{
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap,
        session_.hasImage() ? tr("Nothing is selected: choose slices in the database, or turn the wheel")
                            : tr("Open an image: Ctrl+O, or drop a file here"));
}

void ImageView::paintOutline(QPainter& painter) const
{
    if (!pointer_ || drag_ == Drag::pan || drag_ == Drag::window || space_ || placing_)
        return;
    outline().paint(painter, place_.transform(), pixelAt(*pointer_), outlineColour());
}

const BrushOutline& ImageView::outline() const
{
    if (outline_.empty())
        outline_.setShape(BrushShape::current());
    return outline_;
}

QColor ImageView::outlineColour() const
{
    const unsigned tag = session_.currentTag();
    return erasing_ || tag == 0 ? QColor(Qt::white) : session_.tagColour(tag);
}

QRect ImageView::outlineRect() const
{
    if (!pointer_ || !session_.showsFrame())
        return {};
    return grown(place_.transform().mapRect(QRectF(outline().box(pixelAt(*pointer_)))), 3);
}

}
