#pragma once

#include <QObject>

namespace workbench {

class ImageTree;

/// Which frames are selected: of the current series all, only the shown one, wherever one goes, or a range; or others,
/// perhaps of other series too. The selection itself is in the tree, where panels change it as well.
class FrameSelection final : public QObject {
    Q_OBJECT
public:
    enum class Choice { all, shown, range, other };

    /// The tree must outlive it.
    explicit FrameSelection(ImageTree& tree) : tree_(tree) {}

    Choice choice() const;
    int count() const;         ///< selected frames of all series
    int countInSeries() const; ///< selected frames of the current series
    int first() const;         ///< of the selected ones of the current series, from 0; 0 when there are none
    int last() const;

    /// Each deselects the frames of all other series.
    void chooseAll();
    void chooseShown();
    void chooseRange(int first, int last); ///< in either order; clamped to the frames that there are

    /// The window shows another frame.
    void followShown();
    /// The selection in the tree is another one.
    void followTree();

signals:
    void changed();

private:
    ImageTree& tree_;
    bool followsShown_ = false;
};

}
