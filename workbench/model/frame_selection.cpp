#include "workbench/model/frame_selection.h"

#include "workbench/model/image_tree.h"

#include <algorithm>

namespace workbench {

int FrameSelection::count() const
{
    return tree_.selectedElsewhere() + countInSeries();
}

int FrameSelection::countInSeries() const
{
    int selected = 0;
    for (int z = 0; z < tree_.frameCount(); ++z)
        selected += tree_.isSelected(z);
    return selected;
}

int FrameSelection::first() const
{
    for (int z = 0; z < tree_.frameCount(); ++z)
        if (tree_.isSelected(z))
            return z;
    return 0;
}

int FrameSelection::last() const
{
    for (int z = tree_.frameCount() - 1; z > 0; --z)
        if (tree_.isSelected(z))
            return z;
    return 0;
}

FrameSelection::Choice FrameSelection::choice() const
{
    const int selected = count();
    if (tree_.selectedElsewhere() > 0)
        return Choice::other;
    if (followsShown_ && selected == 1 && tree_.shown() && tree_.isSelected(*tree_.shown()))
        return Choice::shown;
    if (selected == tree_.listedFrames())
        return Choice::all;
    return selected > 0 && last() - first() + 1 == selected ? Choice::range : Choice::other;
}

void FrameSelection::chooseAll()
{
    followsShown_ = false;
    tree_.select(0, tree_.frameCount() - 1);
    emit changed();
}

void FrameSelection::chooseShown()
{
    followsShown_ = true;
    followShown();
    emit changed();
}

void FrameSelection::chooseRange(int first, int last)
{
    const int end = std::max(0, tree_.frameCount() - 1);
    followsShown_ = false;
    tree_.select(std::clamp(std::min(first, last), 0, end), std::clamp(std::max(first, last), 0, end));
    emit changed();
}

void FrameSelection::followShown()
{
    if (followsShown_ && tree_.shown())
        tree_.select(*tree_.shown(), *tree_.shown());
}

void FrameSelection::followTree()
{
    followsShown_ = followsShown_ && choice() == Choice::shown;
    emit changed();
}

}
