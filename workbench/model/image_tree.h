#pragma once

#include "hostkit/structures/tree.h"

#include <optional>
#include <QPointF>

namespace document {
class Volume;
}

namespace workbench {

/// What panels see of the open image: root -> series -> frames in the host's 2D tree, and the window that shows one of
/// them.
class ImageTree {
public:
    ImageTree();
    ~ImageTree();
    ImageTree(const ImageTree&) = delete;
    ImageTree& operator=(const ImageTree&) = delete;

    /// Puts the series of a volume in place of the one before, selects all its frames and shows its frame z; tells the
    /// panels once everything is in place. The volume must stay where it is until the next one takes its place. Throws
    /// std::bad_alloc and leaves everything as it was.
    void replace(const document::Volume& volume, int z);

    /// The frame that the window shows, from 0; 0 when it shows none.
    int shown() const;
    /// Lets the window show another one; the frame must exist.
    void show(int z);

    int frameCount() const;

    /// Which frame an object of the tree is, from 0; nothing when it is none of them.
    std::optional<int> indexOf(const Strato_2D* frame) const;

    /// Selects the frames from first to last and no others; tells the panels if that changes anything.
    void select(int first, int last);
    bool isSelected(int z) const;

    /// The first frame that is selected in the tree, if the shown one is not.
    std::optional<int> selectedInstead() const;

    /// What grey values are multiplied by before panels see them; 1 for nearly all images.
    double greyFactor() const;

    /// The pointer is at a position of the shown frame, or over none.
    void setPointer(std::optional<QPointF> position);

private:
    static void remove(Strato_2D* series);

    Strato_Window* window_;
    Strato_2D* series_ = nullptr;
};

}
