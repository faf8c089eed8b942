#pragma once

#include "hostkit/structures/broadcast.h"
#include "workbench/model/tree_objects.h"

#include <QObject>
#include <QString>
#include <QUndoStack>

#include <functional>

namespace workbench {

/// What a user changes of the database's trees, each a step that can be undone: moving objects, taking them out,
/// renaming them. Panels do it in the trees themselves; when they tell of it, the step is found in what is different.
class DatabaseEdits final : public QObject {
    Q_OBJECT
public:
    /// The objects must outlive it.
    explicit DatabaseEdits(TreeObjects& objects);

    QUndoStack& steps() { return steps_; }

    /// What a user knows an object by, shortened; empty for what is no object of the trees, and for null.
    QString label(const Strato* object) const;

    /// Ignored for what is no object of the trees and when nothing changes. @param name  may be empty
    void rename(const Strato* object, const QString& name);

    /// Brings the trees back to what the files say, as one step. @return false when that is what they are
    bool updateDatabase();

    /// Series were opened or closed: what is in the trees now came or went with them, not by a user. Steps of which
    /// nothing is left are dropped when they would be the next ones.
    void followSeries();

signals:
    void message(const QString& text); ///< for the status bar

private:
    friend class DatabaseStep;

    void know();
    void dropEmptySteps();
    void hostChanged(unsigned long long flags);
    void withMemory(const std::function<void()>& work);
    void push(const QString& text, const TreeChange& change, bool isDone);
    void put(const TreeChange& change, TreeObjects::Side side);
    void tell(const TreeChange& change) const;
    static void tellOfSelection(const TreeChange& change);
    QString textOf(const TreeChange& change) const;
    QString movesText(const TreeChange::Moves& moves) const;

    TreeObjects& objects_;
    TreeState known_; // as the last step left it
    QUndoStack steps_;
    hostkit::Subscription updates_;
};

}
