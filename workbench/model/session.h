#pragma once

#include "hostkit/structures/broadcast.h"
#include "workbench/document/open.h"
#include "workbench/model/database_edits.h"
#include "workbench/model/frame_selection.h"
#include "workbench/model/fresh_host.h"
#include "workbench/model/image_tree.h"
#include "workbench/model/markers.h"
#include "workbench/model/open_series.h"
#include "workbench/model/propagation.h"
#include "workbench/model/stroke.h"
#include "workbench/model/tag_table.h"
#include "workbench/model/voxel.h"

#include <memory>
#include <optional>
#include <QColor>
#include <QObject>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QUndoGroup>
#include <QUndoStack>
#include <vector>

namespace workbench {

/// What is open and what is being done with it: the series, their label maps, the shown frame, the window, the current
/// tag and brush, the stroke that is being painted and the steps that can be undone. It knows no widget; views and
/// panels follow its signals and the host's broadcasts.
///
/// Of the series that are open one is the current one: that whose frame the window shows, or showed last. What is asked
/// of or done with "the image" concerns that one.
///
/// The current tag, tag names, colours, locks and brushes are the host's shared variables, which panels change as well;
/// a session only gives them a face. There is one session at a time: making it makes the host afresh, so make it before
/// any panel. For the interface thread only.
class Session : public QObject {
    Q_OBJECT
public:
    explicit Session(QObject* parent = nullptr);
    ~Session() override;

    // ------------------------------------------------------------------------------------------------- the series

    /// Those that are open, in the order of opening.
    using Series = std::shared_ptr<OpenSeries>;
    const std::vector<Series>& series() const { return series_; }
    const Series& currentSeries() const { return image_; } ///< null when none is open

    /// Opens another image, with an empty label map and its suggested window, shows its middle frame and selects all
    /// its frames and no others. One that is open already, read from the same files, is only shown. Fails when memory
    /// is short; nothing has changed then.
    std::optional<document::Failure> adoptImage(document::Opened opened);

    /// The same with several, of which the one with the most frames is shown. @return why some could not be opened
    std::vector<document::Failure> adoptImages(std::vector<document::Opened> images);

    /// Shows a series that is open and selects its frames; ignored when it is shown already or not open.
    void showSeries(const Series& series);

    /// Closes the current series with all that belongs to it and its steps of undo, saved or not: ask before. The one
    /// that was opened after it is shown then, or before it.
    void closeSeries();

    /// What a series is called, for titles: the name of its file, or of its series. Empty for null.
    static QString nameOf(const OpenSeries* series);

    /// Whether anything would be lost with it: labels or markers.
    bool isModified(const OpenSeries& series) const;

    // -------------------------------------------------------------------------------------------------- the image

    bool hasImage() const { return image_ != nullptr; }

    /// Only when there is an image.
    const document::Volume& volume() const { return image_->volume; }
    const document::LabelMap& labels() const { return image_->labels; }

    QString imageName() const { return nameOf(image_.get()); }
    /// The full names of the files it was read from.
    QStringList imageFiles() const;

    // ----------------------------------------------------------------------------------------------------- labels

    /// Makes `labels`, which were loaded from `path`, the labels of the image, and `table`, when there is one with
    /// them, the tags' names, colours and thresholds: one step that can be undone. Fails when the labels do not have
    /// the size of the image or memory is short; nothing has changed then. Labels that are another series' keep
    /// belonging to that: labelPath() is empty then.
    std::optional<document::Failure> adoptLabels(
        const document::LabelMap& labels, const QString& path, const std::optional<document::LabelTable>& table = {});

    /// A copy of the labels for a thread that saves it while the user paints on. A stroke in progress is ended first.
    /// Only when there is an image.
    struct Snapshot {
        document::LabelMap labels;
        std::uint64_t revision;           ///< these two for markSaved
        std::weak_ptr<OpenSeries> series; ///< that they belong to
    };
    document::Result<Snapshot> snapshot();

    /// What was taken is in the file `path` now. Without effect when the series is no longer open.
    void markSaved(const QString& path, const Snapshot& saved);

    /// The file that the labels were saved to or loaded from; empty when there is none yet.
    QString labelPath() const { return image_ ? image_->labelPath : QString(); }

    /// Another series whose label map is this file; null when there is none.
    const OpenSeries* otherWithLabels(const QString& path) const;
    /// The same for markers.
    const OpenSeries* otherWithMarkers(const QString& path) const;

    /// Whether the labels differ from that file, or from an empty map when there is none. Exact through undo and redo.
    bool areLabelsModified() const { return image_ && image_->areLabelsModified(); }

    /// Whether anything would be lost with the image: labels or markers.
    bool isImageWorkModified() const { return image_ && isModified(*image_); }

    /// Whether anything would be lost with the session: labels and markers of any series, or names, colours and
    /// thresholds of tags.
    bool isModified() const;

    // ------------------------------------------------------------------------------------------------- the frames

    int frameCount() const { return image_ ? image_->volume.frame_count() : 0; }

    /// The frame that the window shows, or showed last, from 0; 0 without an image.
    int frame() const;
    /// Whether it shows one: nothing is shown when nothing is selected in the database.
    bool showsFrame() const { return tree_.shown().has_value(); }
    /// Takes in what the window shows now, when it was changed without telling.
    void followWindow();
    /// Shows another; clamped to those that there are. A stroke in progress is ended.
    void setFrame(int z);

    /// Which of them are selected: what the histogram is of.
    FrameSelection& selection() { return selection_; }

    /// What grey values are multiplied by before panels see them; 1 for nearly all images.
    double greyFactor() const { return tree_.greyFactor(); }

    /// The grey values from black to white.
    document::Window window() const { return image_ ? image_->window : document::Window(); }
    void setWindow(document::Window window); ///< a width that is not above 0 is made small
    void resetWindow();                      ///< to the suggested one

    /// How much of a voxel's colour is its tag's, 0 to 1.
    double overlayOpacity() const { return opacity_; }
    void setOverlayOpacity(double opacity); ///< clamped

    /// The pointer is over this voxel of the shown frame (with its fraction), or over none: tells the panels.
    void setPointer(std::optional<QPointF> position);

    // ---------------------------------------------------------------------------------------------------- the tags

    unsigned tagCount() const;
    unsigned currentTag() const;
    void setCurrentTag(unsigned tag); ///< ignored when there is no such tag

    QString tagName(unsigned tag) const;  ///< as the user wrote it; may be empty
    QString tagTitle(unsigned tag) const; ///< never empty: the name, or "Tag 3"; "Background" for 0
    QColor tagColour(unsigned tag) const;

    /// The grey values that belong to a tag; nothing when it has none.
    std::optional<Thresholds> thresholds(unsigned tag) const;

    /// Steps that can be undone. Ignored when there is no such tag, or it is the background, or nothing changes.
    void setThresholds(unsigned tag, std::optional<Thresholds> thresholds); ///< finite, lower <= upper
    void setTagColour(unsigned tag, const QColor& colour);

    /// All that is known of a tag below 256, and the step that makes it so.
    document::LabelEntry tagEntry(unsigned tag) const { return table_.entry(tag); }
    void editTag(const document::LabelEntry& entry);

    bool isTagLocked(unsigned tag) const;
    void toggleLock(unsigned tag);

    // --------------------------------------------------------------------------------- the tags as a label table

    /// Names, colours and thresholds for saving. They stay when another image is opened.
    struct TableSnapshot {
        document::LabelTable rows;
        TagTable::State state; ///< for markTableSaved
    };
    TableSnapshot tableSnapshot() const { return {table_.rows(), table_.state()}; }

    /// Whether some tag has a name, a colour of its own or thresholds: something that a label map cannot hold.
    bool needsTable() const { return table_.needsFile(); }
    bool isTableModified() const { return table_.isModified(); }

    /// Makes a table that was loaded from `path` the tags' own, as one step that can be undone. Tags that it does not
    /// describe lose what they had.
    void adoptTable(const document::LabelTable& table, const QString& path);

    /// This state is in a file now.
    void markTableSaved(const TagTable::State& state);

    // ------------------------------------------------------------------------------------------------- the brushes

    unsigned brushCount() const;
    unsigned currentBrush() const;
    void setCurrentBrush(unsigned brush); ///< ignored when there is no such brush
    void smallerBrush();
    void largerBrush();
    unsigned brushRadius() const; ///< of the current brush, in pixels

    // ---------------------------------------------------------------------------------------------------- painting

    /// Begins a stroke with the current brush at a pixel of the shown frame, which may lie outside; with tag 0 when it
    /// erases. Returns why not ("Liver is locked. ..."), or an empty text.
    QString beginStroke(QPoint pixel, bool erase);
    void continueStroke(QPoint pixel); ///< without effect when there is no stroke
    void endStroke();                  ///< becomes a step, unless nothing changed
    void cancelStroke();               ///< takes it back
    bool isPainting() const { return stroke_ != nullptr; }

    // ------------------------------------------------------------------------------------------------- propagating

    /// How tags are carried over to other frames.
    document::CarryMode carryMode() const { return carryMode_; }
    void setCarryMode(document::CarryMode mode);

    /// Carries the tags that are enabled and not locked from a frame of the image to another one and shows that, as one
    /// step of undo. A stroke in progress is ended first. @return whether it was done; if not, message() says why
    bool propagate(const Strato_2D* from, const Strato_2D* to);

    /// The same over `count` frames from the shown one on, or as many as there are; direction 1 or -1. The work is run
    /// in any thread and then adopted. Null, and message() says why, when it cannot be done; just null when there is no
    /// such frame.
    std::unique_ptr<Propagation> propagationOver(int count, int direction);

    /// Makes the outcome a step of undo and shows the last frame. What was painted meanwhile stays. @return false when
    /// the image is no longer open or memory is short
    bool adoptPropagation(const Propagation& work);

    // ----------------------------------------------------------------------------------------------------- markers

    /// The points that are set in the image.
    Markers& markers() { return markers_; }
    const Markers& markers() const { return markers_; }

    // ---------------------------------------------------------------------------------------------------- database

    /// What the user changes of the database's trees, with steps of their own.
    DatabaseEdits& databaseEdits() { return databaseEdits_; }

    // -------------------------------------------------------------------------------------------------------- undo

    /// Strokes, loaded labels, propagations, changes of tags and of markers; each step has a text. An undo takes back a
    /// stroke in progress first. Each series has its steps; these are the current one's.
    QUndoStack& undoStack() { return *undo_.activeStack(); }
    /// The steps of whichever series is the current one.
    QUndoGroup& undoGroup() { return undo_; }

signals:
    void imageOpened();                          ///< one more series, or several; imageChanged() comes with it
    void imageChanged();                         ///< another image, or none; everything below may have changed with it
    void frameChanged(int z);                    ///< another frame of the same image is shown, or none
    void windowChanged();                        ///< window()
    void opacityChanged(double opacity);         ///< overlayOpacity()
    void labelsChanged(int z, const QRect& box); ///< pixels of a frame, also while a stroke is painted
    void currentTagChanged(unsigned tag);
    void tagsChanged();                ///< colours, names or locks
    void thresholdsChanged();          ///< of any tag
    void brushChanged();               ///< the current brush, or the set of brushes
    void carryModeChanged();           ///< carryMode()
    void titleChanged();               ///< imageName(), labelPath() or isModified()
    void message(const QString& text); ///< for the status bar

private:
    friend class LabelCommand;
    friend class TagCommand;
    using Steps = std::vector<document::MaskDifference>;

    void hostChanged(unsigned long long flags);
    void showSelectedFrame();
    void tellOfSeries();
    document::Result<Series> made(document::Opened opened);
    Series openFrom(const std::vector<std::string>& files) const;
    const OpenSeries* otherWith(const QString& path, const QString& (*pathOf)(const OpenSeries&)) const;
    void makeCurrent(const Series& series);
    void pushRenamings();
    void pushTags(const QString& text, const TagTable::State& after);
    void changeTags(const TagTable::State& from, const TagTable::State& to);
    static QString titleOf(unsigned tag, const QString& name);
    static QString stepText(const document::LabelEntry& before, const document::LabelEntry& after);
    void pushSteps(const QString& text, Steps steps); // that the labels show already
    void applySteps(const Steps& steps);
    void showSteps(const Steps& steps);
    void setRevision(std::uint64_t revision);
    Steps stepsTo(const document::LabelMap& labels) const; // throws std::bad_alloc
    QString paintingRefused(unsigned tag) const;
    LockedTags lockedTags() const;
    void strokeFailed();
    document::TagSet freeTags() const; // enabled and not locked
    QString propagationRefused(const Strato_2D* from, const Strato_2D* to) const;
    std::unique_ptr<Propagation> propagation(int first, int last);
    void propagationFailed();

    FreshHost host_;
    ImageTree tree_;
    DatabaseEdits databaseEdits_{tree_.objects()};
    FrameSelection selection_{tree_};
    TagTable table_;
    Markers markers_{*this};
    QUndoGroup undo_;
    QUndoStack tagSteps_; // of tags while nothing is open
    std::vector<Series> series_;
    Series image_; // the current one; work in other threads may still need its pixels
    std::unique_ptr<Stroke> stroke_;
    QString strokeText_;
    double opacity_ = 0.5;
    document::CarryMode carryMode_ = document::CarryMode::add;
    std::optional<int> shownFrame_; // that the views know of
    int lastFrame_ = 0;             // that the window showed of the current series
    std::uint64_t lastRevision_ = 0;

    hostkit::Subscription updates_;
};

}
