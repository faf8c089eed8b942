#include "workbench/shell/class_trees.h"

#include "platform/qt/window_widget.h"
#include "workbench/model/host_words.h"
#include "workbench/shell/class_rows.h"
#include "workbench/shell/drag_repeater.h"
#include "workbench/shell/theme.h"

namespace workbench {

ClassTrees::ClassTrees(As as, const std::function<void()>& clicked, QWidget* parent) : QStackedWidget(parent)
{
    const int mode = as == As::diagrams ? Tool_DB_List::edit_mode : 0;
    for (int dimension = 1; dimension <= 3; ++dimension) {
        auto& tree = trees_[static_cast<std::size_t>(dimension - 1)];
        const auto wasClicked = [this, dimension, clicked](int) {
            choose(dimension);
            clicked();
        };
        tree = std::make_unique<Tree>(nullptr, hostkit::Panel_Rules{.clicked = wasClicked}, dimension | mode);
        tree->host().Set_Look(theme::listLook());
        QWidget* widget = Widget_From_Window(tree->window());
        new DragRepeater(*widget);
        addWidget(widget);
    }
    setDimension(dimension_);
    updates_ = hostkit::On_Update([this](unsigned long long flags) { hostChanged(flags); });
    for (auto& tree : trees_)
        tree->panel().Update(word::tree_2D);
}

void ClassTrees::setDimension(int dimension)
{
    dimension_ = dimension;
    setCurrentWidget(Widget_From_Window(tree(dimension).window()));
}

QWidget& ClassTrees::panelWidget() const
{
    return *currentWidget();
}

std::vector<hostkit::Panel_Window*> ClassTrees::hosts() const
{
    std::vector<hostkit::Panel_Window*> hosts;
    for (const auto& tree : trees_)
        hosts.push_back(&tree->host());
    return hosts;
}

void ClassTrees::choose(int dimension)
{
    Tool_DB_Class& clicked = panel(dimension);
    if (const int row = clicked.Row_Under_Pointer(); row >= 0)
        chosen_[static_cast<std::size_t>(dimension - 1)] = objectOf(clicked, row);
}

Strato* ClassTrees::chosen() const
{
    const int row = panel().Edits() ? panel().Row_Under_Pointer() : -1;
    return row >= 0 ? objectOf(panel(), row) : chosen_[static_cast<std::size_t>(dimension_ - 1)];
}

void ClassTrees::layOut()
{
    for (const auto& tree : trees_)
        tree->host().Lay_Out();
}

// Of a selection only the panel of images hears; the word that a window is another one makes the others read theirs.
void ClassTrees::hostChanged(unsigned long long flags)
{
    const int dimension = word::says(flags, word::selection_1D) ? 1 : word::says(flags, word::selection_3D) ? 3 : 0;
    if (dimension == 0 || panel(dimension).Edits())
        return;
    const hostkit::Panel_Call call;
    panel(dimension).Update(word::current_window);
}

}
