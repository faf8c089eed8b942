#pragma once

#include <QObject>

namespace workbench {

class ImageTree;

/// Which frames of the open image are selected: all, only the shown one, wherever one goes, or a range. The selection
/// itself is in the tree, where panels change it as well.
class FrameSelection final : public QObject {
    Q_OBJECT
public:
    enum class Choice { all, shown, range, other };

    /// The tree must outlive it.
    explicit FrameSelection(ImageTree& tree) : tree_(tree) {}

    Choice choice() const;
    int count() const; ///< selected frames
    int first() const; ///< of the selected ones, from 0; 0 when there are none
    int last() const;

    void chooseAll();
    void chooseShown();
    void chooseRange(int first, int last); ///< in either order; clamped to the frames that there are

    /// The window shows another frame.
    void followShown();
    /// The selection in the tree is another one.
    void followTree();
    /// Another image, all selected.
    void reset();

signals:
    void changed();

private:
    ImageTree& tree_;
    bool followsShown_ = false;
};

}
