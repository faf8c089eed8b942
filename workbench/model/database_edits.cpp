#include "workbench/model/database_edits.h"

#include "workbench/model/host_words.h"

#include <QUndoCommand>

#include <array>
#include <memory>
#include <new>
#include <utility>

namespace workbench {

namespace {

constexpr std::array tree_words = {word::tree_1D, word::tree_2D, word::tree_3D};
constexpr unsigned long long everything_2D = 0x0FFFFFFF;
constexpr unsigned long long everything_3D = 0x33FFFFFF00000000;

constexpr unsigned long long modified = 0x10000000;

void* storage_state()
{
    return reinterpret_cast<void*>(8);
}

QString shortened(const QString& label)
{
    constexpr int longest = 40;
    return label.size() <= longest ? label : label.left(longest - 1) + QChar(0x2026);
}

}

class DatabaseStep final : public QUndoCommand {
public:
    DatabaseStep(DatabaseEdits& edits, const QString& text, TreeChange change, bool isDone)
        : QUndoCommand(text), edits_(edits), change_(std::move(change)), isDone_(isDone)
    {
    }

    const TreeChange& change() const { return change_; }

    void undo() override { put(TreeObjects::Side::before); }

    void redo() override
    {
        if (!std::exchange(isDone_, false))
            put(TreeObjects::Side::after);
    }

private:
    DatabaseEdits& edits_;
    TreeChange change_;
    bool isDone_; // before it became a step

    void put(TreeObjects::Side side)
    {
        setObsolete(!edits_.objects_.concerns(change_));
        edits_.put(change_, side);
    }
};

DatabaseEdits::DatabaseEdits(TreeObjects& objects) : objects_(objects)
{
    constexpr int mostSteps = 200; // of large trees they are large
    steps_.setUndoLimit(mostSteps);
    know();
    connect(&steps_, &QUndoStack::indexChanged, this, &DatabaseEdits::dropEmptySteps);
    updates_ = hostkit::On_Update([this](unsigned long long flags) { hostChanged(flags); });
}

void DatabaseEdits::know()
{
    known_ = objects_.state();
}

void DatabaseEdits::followSeries()
{
    know();
    dropEmptySteps();
}

// Of what is no longer open nothing can be taken back. Such a step says so itself when its turn comes, and goes.
void DatabaseEdits::dropEmptySteps()
{
    const auto isEmpty = [this](int index) {
        return !objects_.concerns(static_cast<const DatabaseStep*>(steps_.command(index))->change());
    };
    while (steps_.canUndo() && isEmpty(steps_.index() - 1))
        steps_.undo();
    bool dropped = false;
    for (; steps_.canRedo() && isEmpty(steps_.index()); dropped = true)
        steps_.redo();
    if (!dropped)
        return;
    emit steps_.canRedoChanged(steps_.canRedo()); // of steps that go so the stack does not tell
    emit steps_.redoTextChanged(steps_.redoText());
}

void DatabaseEdits::hostChanged(unsigned long long flags)
{
    if (word::says(flags, word::tree_1D) || word::says(flags, word::tree_2D) || word::says(flags, word::tree_3D))
        withMemory([&] { push({}, changeBetween(known_, objects_.state()), true); });
}

// What could not be kept as a step is part of the next one.
void DatabaseEdits::withMemory(const std::function<void()>& work)
{
    try {
        work();
    } catch (const std::bad_alloc&) {
        emit message(tr("There is not enough memory to change the database as a step. Close other programs."));
    }
}

void DatabaseEdits::push(const QString& text, const TreeChange& change, bool isDone)
{
    if (change.isEmpty())
        return;
    const QString what = text.isEmpty() ? textOf(change) : text;
    auto step = std::make_unique<DatabaseStep>(*this, what, change, isDone);
    if (isDone) {
        know();
        tellOfSelection(change);
    }
    steps_.push(step.release());
}

void DatabaseEdits::put(const TreeChange& change, TreeObjects::Side side)
{
    withMemory([&] {
        objects_.put(change, side);
        know();
        tell(change);
    });
}

void DatabaseEdits::tell(const TreeChange& change) const
{
    const hostkit::Panel_Call until_complete;
    std::array<bool, 3> changed{};
    const auto note = [&](ObjectNumber object) {
        if (const int dimension = objects_.dimension(object))
            changed[static_cast<std::size_t>(dimension - 1)] = true;
    };
    for (const auto& arrangement : change.arrangements)
        note(arrangement.parent);
    for (const auto& renaming : change.renamings)
        note(renaming.object);
    for (std::size_t i = 0; i < changed.size(); ++i)
        if (changed[i])
            word::tell(tree_words[i]);
    tellOfSelection(change);
    Fct_Redraw(everything_2D | everything_3D, nullptr, nullptr, nullptr);
}

// Only what is in the trees is selected.
void DatabaseEdits::tellOfSelection(const TreeChange& change)
{
    const TreeChange::Moves moves = change.moves();
    if (!moves.takenOut.empty() || !moves.putBack.empty())
        word::tell(word::selection_2D);
}

QString DatabaseEdits::label(const Strato* object) const
{
    return shortened(objects_.label(objects_.numberOf(object)));
}

void DatabaseEdits::rename(const Strato* object, const QString& name)
{
    const ObjectNumber number = objects_.numberOf(object);
    if (!number)
        return;
    const std::string was = object->Name_Get(), is = name.toStdString();
    if (was == is)
        return;
    constexpr unsigned char of_itself_and_ancestors = 80;
    objects_.object(number)->Flag_Set_On(of_itself_and_ancestors, storage_state(), modified);
    withMemory([&] { push({}, {{}, {{number, was, is}}}, false); });
}

bool DatabaseEdits::updateDatabase()
{
    bool isOther = true;
    withMemory([&] {
        const TreeChange change = changeBetween(known_, objects_.made());
        isOther = !change.isEmpty();
        push(tr("Update DB"), change, false);
    });
    return isOther;
}

// ------------------------------------------------------------------------------------------------------------ texts

QString DatabaseEdits::textOf(const TreeChange& change) const
{
    const auto label = [this](ObjectNumber object) { return shortened(objects_.label(object)); };
    const TreeChange::Moves moves = change.moves();
    if (moves.takenOut.size() == 1)
        return tr("Delete %1").arg(label(moves.takenOut.front()));
    if (!moves.takenOut.empty())
        return tr("Delete %1 classes").arg(moves.takenOut.size());
    if (!moves.moved.empty())
        return movesText(moves);
    if (change.renamings.size() == 1) {
        const TreeChange::Renaming& renaming = change.renamings.front();
        return tr("Rename %1").arg(shortened(objects_.label(renaming.object, renaming.before)));
    }
    if (!change.renamings.empty())
        return tr("Rename %1 classes").arg(change.renamings.size());
    return tr("Reorder %1").arg(label(change.arrangements.front().parent));
}

QString DatabaseEdits::movesText(const TreeChange::Moves& moves) const
{
    const QString what = moves.moved.size() == 1 ? shortened(objects_.label(moves.moved.front()))
                                                 : tr("%1 classes").arg(moves.moved.size());
    if (!moves.target)
        return tr("Move %1").arg(what);
    return tr("Move %1 to %2").arg(what, shortened(objects_.label(moves.target)));
}

}
