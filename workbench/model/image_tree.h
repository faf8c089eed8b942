#pragma once

#include "workbench/model/study_folders.h"
#include "workbench/model/tree_objects.h"

#include <map>
#include <optional>
#include <QPointF>
#include <string>
#include <unordered_map>
#include <vector>

struct File_Record;

namespace document {
class Volume;
}

namespace workbench {

/// What panels see of the open series: root -> study -> series -> frames in the host's 2D tree, the files that they
/// were read from, and the window that shows one of the frames. Of the series one is the current one; a frame's number
/// counts from 0 within it, wherever a user has moved it.
///
/// Two more trees are other views of the same selection: root -> study -> a volume for each series in 3D, and root ->
/// study -> series -> its histogram in 1D. Either is selected when any frame of its series is.
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
    /// Takes a series out again, wherever its objects are, and its study with the last one, unless something else was
    /// put there. It is the current one no longer.
    void remove(Strato_2D* series);
    /// Says which series is the current one; null for none.
    void setCurrent(Strato_2D* series) { current_ = series; }

    /// All objects, for changing the trees.
    TreeObjects& objects() { return objects_; }

    /// Tells the panels of series that were added or removed.
    static void tellOfChange();

    /// The series whose frame the window shows; null when it shows none.
    Strato_2D* shownSeries() const;
    /// The frame of the current series that the window shows; nothing when it shows none or another series.
    std::optional<int> shown() const;
    /// Whether the window shows what is no frame: panels go through all children of a class.
    bool showsNoFrame() const;
    /// Lets the window show another one of the current series; it must exist.
    void show(int z);
    void show(Strato_2D* frame);

    int frameCount() const;
    int listedFrames() const; ///< those that nobody took out of the tree
    /// A frame of a series; it must exist.
    Strato_2D* frame(Strato_2D* series, int z) const;

    /// Which frame of the current series an object of the tree is; nothing when it is none of them.
    std::optional<int> indexOf(const Strato_2D* frame) const;

    /// Selects the current series' frames from first to last and no others; tells the panels if that changes anything.
    void select(int first, int last);
    bool isSelected(int z) const;
    /// How many frames of other series are selected.
    int selectedElsewhere() const;

    /// The first frame that is selected in the tree, if the shown one is not.
    Strato_2D* selectedInstead() const;

    /// The selection of the frames has changed: makes that of volumes and signals follow.
    void followFrames();
    /// Their selection has changed: where one was selected or deselected, all frames of its series are.
    void followVolumes();
    void followSignals();

    /// What grey values are multiplied by before panels see them; 1 for nearly all images.
    double greyFactor() const;

    /// The pointer is at a position of the shown frame, or over none.
    void setPointer(std::optional<QPointF> position);

private:
    /// What there is of a series.
    struct Parts {
        std::string study; ///< its key
        std::vector<Strato_2D*> frames;
        Strato_3D* volume = nullptr;
        Strato_1D* signalSeries = nullptr; ///< the series in the 1D tree
        Strato_1D* signal = nullptr;
        std::vector<File_Record*> files;
    };
    struct Place {
        Strato_2D* series;
        int z;
    };

    const Parts* parts() const; // of the current series; null when there is none
    void addFrames(const document::Volume& volume, Strato_2D* series, Parts& parts);
    void addOtherViews(const document::Volume& volume, Parts& parts);
    void removeObjects(Strato_2D* series);
    template <class Tree>
    void follow(Tree* Parts::*leaf);

    Strato_Window* window_;
    Strato_2D* current_ = nullptr;
    TreeObjects objects_;
    StudyFolders<Strato_2D> imageStudies_;
    StudyFolders<Strato_3D> volumeStudies_;
    StudyFolders<Strato_1D> signalStudies_;
    std::map<Strato_2D*, Parts> series_;
    std::unordered_map<const Strato_2D*, Place> places_; // of the frames
};

}
