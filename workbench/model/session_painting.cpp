#include "hostkit/structures/segmentation.h"
#include "workbench/model/session.h"

#include <new>

// Strokes, from press to release.

namespace workbench {

QString Session::beginStroke(QPoint pixel, bool erase)
{
    endStroke();
    const unsigned tag = erase ? 0 : currentTag();
    if (const QString why = paintingRefused(tag); !why.isEmpty())
        return why;
    auto brush = BrushShape::current();
    if (brush.empty())
        return tr("This brush has no shape. Choose another brush.");
    strokeText_ = tag == 0 ? tr("Erase") : tr("Paint %1").arg(tagTitle(tag));
    stroke_ = std::make_unique<Stroke>(image_->labels, frame(), std::move(brush), std::uint8_t(tag), lockedTags());
    continueStroke(pixel);
    return {};
}

QString Session::paintingRefused(unsigned tag) const
{
    if (!image_)
        return tr("Open an image to paint on.");
    if (!showsFrame())
        return tr("No slice is shown. Choose one in the database, or turn the wheel.");
    if (isTagLocked(tag))
        return tr("%1 is locked. Unlock it to paint with it.").arg(tagTitle(tag));
    return {};
}

LockedTags Session::lockedTags() const
{
    LockedTags locked{};
    for (unsigned tag = 0; tag < locked.size(); ++tag)
        locked[tag] = hostkit::Tag_Locked(tag);
    return locked;
}

void Session::continueStroke(QPoint pixel)
{
    if (!stroke_)
        return;
    try {
        const QRect changed = stroke_->move_to(pixel);
        if (!changed.isEmpty())
            emit labelsChanged(stroke_->z(), changed);
    } catch (const std::bad_alloc&) {
        strokeFailed();
    }
}

void Session::endStroke()
{
    if (!stroke_)
        return;
    try {
        Steps steps;
        if (auto step = stroke_->difference()) {
            steps.push_back(std::move(*step));
            pushSteps(strokeText_, std::move(steps));
        }
        stroke_.reset();
    } catch (const std::bad_alloc&) {
        strokeFailed();
    }
}

void Session::cancelStroke()
{
    if (!stroke_)
        return;
    const auto stroke = std::move(stroke_);
    stroke->revert();
    if (!stroke->touched().isEmpty())
        emit labelsChanged(stroke->z(), stroke->touched());
}

void Session::strokeFailed()
{
    cancelStroke();
    emit message(tr("There is not enough memory for this stroke; it was taken back. Close other programs."));
}

}
