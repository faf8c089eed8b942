#include "workbench/model/propagation.h"

#include <utility>

namespace workbench {

namespace {

std::vector<std::uint8_t> copy_of(std::span<const std::uint8_t> tags)
{
    return {tags.begin(), tags.end()};
}

}

Propagation::Propagation(std::shared_ptr<const document::Volume> volume, const document::LabelMap& labels, int first,
    int last, document::CarryMode mode, const document::TagSet& free)
    : volume_(std::move(volume)), first_(first), last_(last), mode_(mode), free_(free),
      source_(copy_of(labels.frame(first)))
{
    const int direction = last < first ? -1 : 1;
    for (int z = first; z != last;) {
        z += direction;
        slices_.push_back({z, copy_of(labels.frame(z)), {}});
    }
}

bool Propagation::run(const document::Progress& progress)
{
    int from = first_;
    const Tags* source = &source_;
    for (std::size_t i = 0; i < slices_.size(); ++i) {
        if (progress.stop())
            return false;
        progress.at(double(i) / double(slices_.size()));
        Slice& slice = slices_[i];
        slice.after = document::carry(*volume_, from, slice.z, *source, slice.before, mode_, free_);
        from = slice.z;
        source = &slice.after;
    }
    progress.at(1);
    return !progress.stop();
}

std::vector<document::MaskDifference> Propagation::steps(const document::LabelMap& labels) const
{
    std::vector<document::MaskDifference> steps;
    for (const Slice& slice : slices_) {
        const auto now = labels.frame(slice.z);
        Tags wanted = copy_of(now);
        for (std::size_t i = 0; i < wanted.size(); ++i)
            if (wanted[i] == slice.before[i])
                wanted[i] = slice.after[i];
        const document::Box frame{0, 0, slice.z, volume_->width(), volume_->height(), 1};
        if (auto step = document::MaskDifference::between(frame, now, wanted))
            steps.push_back(std::move(*step));
    }
    return steps;
}

}
