#pragma once

#include "hostkit/structures/tree.h"

#include <functional>
#include <map>
#include <optional>
#include <QPointF>
#include <string>
#include <vector>

struct File_Record;

namespace document {
class Volume;
}

namespace workbench {

/// What panels see of the open series: root -> study -> series -> frames in the host's 2D tree, the files that they
/// were read from, and the window that shows one of the frames. Of the series one is the current one; a frame's number
/// counts from 0 within it.
class ImageTree {
public:
    ImageTree();
    ~ImageTree();
    ImageTree(const ImageTree&) = delete;
    ImageTree& operator=(const ImageTree&) = delete;

    /// Adds the series of a volume, under the study that it belongs to, with its files; nothing of it is selected. The
    /// volume must stay where it is until the series is removed. Throws std::bad_alloc, or std::length_error when there
    /// are too many files; everything is as it was then.
    Strato_2D* add(const document::Volume& volume);
    /// Takes a series out again, and its study with the last one. It is the current one no longer.
    void remove(Strato_2D* series);
    /// Says which series is the current one; null for none.
    void setCurrent(Strato_2D* series) { series_ = series; }

    /// Tells the panels of series that were added or removed.
    static void tellOfChange();

    /// The series whose frame the window shows; null when it shows none.
    Strato_2D* shownSeries() const;
    /// The frame of the current series that the window shows; nothing when it shows none or another series.
    std::optional<int> shown() const;
    /// Lets the window show another one of the current series; it must exist.
    void show(int z);
    void show(Strato_2D* frame);

    int frameCount() const;

    /// Which frame of the current series an object of the tree is; nothing when it is none of them.
    std::optional<int> indexOf(const Strato_2D* frame) const;

    /// Selects the current series' frames from first to last and no others; tells the panels if that changes anything.
    void select(int first, int last);
    bool isSelected(int z) const;
    /// How many frames of other series are selected.
    int selectedElsewhere() const;

    /// The first frame that is selected in the tree, if the shown one is not.
    Strato_2D* selectedInstead() const;

    /// What grey values are multiplied by before panels see them; 1 for nearly all images.
    double greyFactor() const;

    /// The pointer is at a position of the shown frame, or over none.
    void setPointer(std::optional<QPointF> position);

private:
    struct Study {
        std::string key;
        Strato_2D* object;
    };

    Strato_2D* studyOf(const document::Volume& volume);
    void removeEmptyStudies();
    void removeObjects(Strato_2D* series);
    static void forEachFrame(const std::function<bool(Strato_2D* frame)>& visit);

    Strato_Window* window_;
    Strato_2D* series_ = nullptr;
    std::vector<Study> studies_;
    std::map<Strato_2D*, std::vector<File_Record*>> files_; // of each series
};

}
