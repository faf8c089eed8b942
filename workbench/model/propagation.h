#pragma once

#include "workbench/document/mask_difference.h"
#include "workbench/document/progress.h"
#include "workbench/document/propagate.h"

#include <memory>
#include <vector>

namespace workbench {

/// Carrying tags over several frames, one after the other. It has all that it needs for itself: it may run in any
/// thread while the user paints on.
class Propagation {
public:
    /// From the tags of frame `first` on to frame `last`, which may lie before it. Throws std::bad_alloc.
    Propagation(std::shared_ptr<const document::Volume> volume, const document::LabelMap& labels, int first, int last,
        document::CarryMode mode, const document::TagSet& free);

    /// @return false when it was told to stop. Throws std::bad_alloc.
    bool run(const document::Progress& progress);

    const document::Volume* volume() const { return volume_.get(); }
    int first() const { return first_; }
    int last() const { return last_; }

    /// What brings the outcome into the labels; pixels that have become something else since the beginning stay as they
    /// are. Only after run() returned true. Throws std::bad_alloc.
    std::vector<document::MaskDifference> steps(const document::LabelMap& labels) const;

private:
    using Tags = std::vector<std::uint8_t>;
    struct Slice {
        int z;
        Tags before, after;
    };

    std::shared_ptr<const document::Volume> volume_;
    int first_, last_;
    document::CarryMode mode_;
    document::TagSet free_;
    Tags source_; // of the first frame
    std::vector<Slice> slices_;
};

}
