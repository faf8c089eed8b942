#include "workbench/document/text.h"
#include "workbench/model/commands.h"
#include "workbench/model/session.h"

#include <algorithm>
#include <new>
#include <QFileInfo>

// The labels as a whole: loading, saving, steps of undo.

namespace workbench {

namespace {

document::Failure no_memory(const char* for_what)
{
    return {std::string("There is not enough memory to ") + for_what + ". Close other programs and try again."};
}

}

std::optional<document::Failure> Session::adoptLabels(
    const document::LabelMap& labels, const QString& path, const std::optional<document::LabelTable>& table)
{
    if (!image_)
        return document::Failure{"Labels belong to an image. Open the image first."};
    if (labels.geometry().size != image_->labels.geometry().size)
        return document::Failure{"The labels are " + document::size_text(labels.geometry().size) +
                                 " voxels, the image is " + document::size_text(image_->labels.geometry().size) + "."};
    cancelStroke();
    const QString text = tr("Load %1").arg(QFileInfo(path).fileName());
    try {
        auto step = std::make_unique<QUndoCommand>(text);
        if (Steps steps = stepsTo(labels); !steps.empty())
            new LabelCommand(*this, text, std::move(steps), image_->revision, ++lastRevision_, false, step.get());
        if (const auto tags = table ? table_.of(*table) : table_.state(); *tags != *table_.state())
            new TagCommand(*this, text, table_.state(), tags, step.get());
        if (step->childCount() > 0)
            undoStack().push(step.release());
    } catch (const std::bad_alloc&) {
        return no_memory("keep the labels that were there");
    }
    if (table)
        markTableSaved(table_.state());
    image_->savedRevision = image_->revision;
    image_->labelPath = otherWithLabels(path) ? QString() : path; // two series never write into one file
    emit titleChanged();
    return {};
}

// Frame by frame, so that the bytes before and after never lie in memory twice.
Session::Steps Session::stepsTo(const document::LabelMap& labels) const
{
    const auto& size = labels.geometry().size;
    Steps steps;
    for (int z = 0; z < size[2]; ++z) {
        const document::Box frame{0, 0, z, size[0], size[1], 1};
        if (auto step = document::MaskDifference::between(frame, image_->labels.frame(z), labels.frame(z)))
            steps.push_back(std::move(*step));
    }
    return steps;
}

document::Result<Session::Snapshot> Session::snapshot()
{
    endStroke();
    const document::LabelMap& labels = image_->labels;
    auto memory = document::PixelMemory::allocate(labels.tags().size());
    if (!memory)
        return no_memory("copy the labels for saving");
    std::copy(labels.tags().begin(), labels.tags().end(), reinterpret_cast<std::uint8_t*>(memory.data()));
    return Snapshot{document::LabelMap(labels.geometry(), std::move(memory)), image_->revision, image_};
}

void Session::markSaved(const QString& path, const Snapshot& saved)
{
    const Series series = saved.series.lock();
    if (!series)
        return;
    series->labelPath = path;
    series->savedRevision = saved.revision;
    emit titleChanged();
}

void Session::pushSteps(const QString& text, Steps steps)
{
    undoStack().push(new LabelCommand(*this, text, std::move(steps), image_->revision, ++lastRevision_, true));
}

void Session::applySteps(const Steps& steps)
{
    cancelStroke(); // a difference fits only the state that it was made from
    for (const auto& step : steps)
        step.redo(image_->labels);
    for (const auto& step : steps) {
        const document::Box& box = step.box();
        emit labelsChanged(box.z, QRect(box.x, box.y, box.width, box.height));
    }
}

// What is taken back is seen to be taken back.
void Session::showSteps(const Steps& steps)
{
    if (steps.size() == 1)
        setFrame(steps[0].box().z);
}

void Session::setRevision(std::uint64_t revision)
{
    image_->revision = revision;
    emit titleChanged();
}

}
