#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "hostkit/structures/series_pixels.h"
#include "workbench/model/commands.h"
#include "workbench/model/session.h"

#include <algorithm>
#include <new>

// Carrying tags over to other frames.

namespace workbench {

namespace {

QString sizeText(const Strato_2D* frame)
{
    const auto [width, height] = hostkit::Frame_Size(frame);
    return QStringLiteral("%1 x %2").arg(width).arg(height);
}

QString titleOfFrame(const Strato_2D* frame)
{
    const QString number = QString::fromUtf8(frame->Name_Get()).section(QLatin1Char(','), 0, 0); // its place follows
    return Session::tr("Slice %1").arg(number);
}

}

void Session::setCarryMode(document::CarryMode mode)
{
    if (mode == carryMode_)
        return;
    carryMode_ = mode;
    emit carryModeChanged();
}

document::TagSet Session::freeTags() const
{
    const auto* enabled = hostkit::Array_Variable<unsigned char>("$TAG_ENABLE");
    document::TagSet free;
    for (unsigned tag = 0; tag < hostkit::most_tags; ++tag)
        free[tag] = !isTagLocked(tag) && (tag == 0 || !enabled || enabled[tag]);
    return free;
}

QString Session::propagationRefused(const Strato_2D* from, const Strato_2D* to) const
{
    if (!image_ || !from || !to)
        return tr("There is no slice to carry tags from or to.");
    if (hostkit::Frame_Size(from) != hostkit::Frame_Size(to))
        return tr("%1 has %2 pixels, %3 has %4: tags can only be carried between slices of the same size.")
            .arg(titleOfFrame(from), sizeText(from), titleOfFrame(to), sizeText(to));
    for (const Strato_2D* frame : {from, to})
        if (!tree_.indexOf(frame))
            return tr("%1 is no slice of the open image.").arg(titleOfFrame(frame));
    return {};
}

bool Session::propagate(const Strato_2D* from, const Strato_2D* to)
{
    if (const QString why = propagationRefused(from, to); !why.isEmpty()) {
        emit message(why);
        return false;
    }
    auto work = propagation(*tree_.indexOf(from), *tree_.indexOf(to));
    if (!work)
        return false;
    try {
        return work->run({}) && adoptPropagation(*work);
    } catch (const std::bad_alloc&) {
        propagationFailed();
        return false;
    }
}

std::unique_ptr<Propagation> Session::propagationOver(int count, int direction)
{
    const int last = std::clamp(frame() + count * direction, 0, std::max(0, frameCount() - 1));
    if (!showsFrame() || last == frame())
        return {};
    return propagation(frame(), last);
}

// The stroke in progress belongs to what is carried.
std::unique_ptr<Propagation> Session::propagation(int first, int last)
{
    endStroke();
    try {
        const std::shared_ptr<const document::Volume> volume(image_, &image_->volume);
        return std::make_unique<Propagation>(volume, image_->labels, first, last, carryMode_, freeTags());
    } catch (const std::bad_alloc&) {
        propagationFailed();
        return {};
    }
}

bool Session::adoptPropagation(const Propagation& work)
{
    const auto of = [&](const Series& series) { return work.volume() == &series->volume; };
    const auto series = std::ranges::find_if(series_, of);
    if (series == series_.end())
        return false;
    showSeries(*series);
    endStroke();
    const int count = std::abs(work.last() - work.first());
    try {
        if (Steps steps = work.steps(image_->labels); !steps.empty()) {
            const QString text = count == 1 ? tr("Propagate to slice %1").arg(work.last() + 1)
                                            : tr("Propagate over %1 slices").arg(count);
            undoStack().push(new LabelCommand(*this, text, std::move(steps), image_->revision, ++lastRevision_, false));
        } else {
            emit message(tr("Nothing was carried over: no pixel had to change."));
        }
    } catch (const std::bad_alloc&) {
        propagationFailed();
        return false;
    }
    setFrame(work.last());
    return true;
}

void Session::propagationFailed()
{
    emit message(tr("There is not enough memory to carry the tags over. Close other programs and try again."));
}

}
