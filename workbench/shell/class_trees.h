#pragma once

#include "db/tool_db_class.h"
#include "hostkit/embedding/panel_slot.h"

#include <QStackedWidget>

#include <array>
#include <functional>
#include <memory>
#include <vector>

namespace workbench {

/// The three trees of the database, each as a panel of its own; one of them is seen.
class ClassTrees final : public QStackedWidget {
    Q_OBJECT
public:
    enum class As { lists, diagrams };

    /// @param clicked  called after each click in a panel
    ClassTrees(As as, const std::function<void()>& clicked, QWidget* parent = nullptr);

    int dimension() const { return dimension_; } ///< of the one that is seen
    void setDimension(int dimension);            ///< 1 to 3

    Tool_DB_Class& panel(int dimension) const { return tree(dimension).panel(); }
    Tool_DB_Class& panel() const { return panel(dimension_); }
    hostkit::Panel_Window& host() const { return tree(dimension_).host(); }
    QWidget& panelWidget() const; ///< of the one that is seen
    std::vector<hostkit::Panel_Window*> hosts() const;

    /// The class that the user means, in the tree that is seen: in a diagram the one that the pointer is on, else the
    /// one that was clicked last; null when there is none. It may have been removed since.
    Strato* chosen() const;

    /// Lays the panels out again, after a change of the interface's size.
    void layOut();

private:
    using Tree = hostkit::Panel_Slot<Tool_DB_Class>;

    Tree& tree(int dimension) const { return *trees_[static_cast<std::size_t>(dimension - 1)]; }
    void choose(int dimension);
    void hostChanged(unsigned long long flags);

    std::array<Strato*, 3> chosen_{};
    std::array<std::unique_ptr<Tree>, 3> trees_;
    int dimension_ = 2;
    hostkit::Subscription updates_;
};

}
