#include "workbench/model/commands.h"

#include "workbench/model/session.h"

#include <utility>

namespace workbench {

LabelCommand::LabelCommand(Session& session, const QString& text, std::vector<document::MaskDifference> steps,
    std::uint64_t before, std::uint64_t after, bool redone, QUndoCommand* parent)
    : QUndoCommand(text, parent), session_(session), steps_(std::move(steps)), before_(before), after_(after),
      redone_(redone)
{
}

void LabelCommand::undo()
{
    session_.applySteps(steps_);
    session_.showSteps(steps_);
    session_.setRevision(before_);
}

void LabelCommand::redo()
{
    const bool first = std::exchange(first_, false);
    if (!first || !redone_)
        session_.applySteps(steps_);
    if (!first)
        session_.showSteps(steps_);
    session_.setRevision(after_);
}

TagCommand::TagCommand(
    Session& session, const QString& text, TagTable::State before, TagTable::State after, QUndoCommand* parent)
    : QUndoCommand(text, parent), session_(session), before_(std::move(before)), after_(std::move(after))
{
}

void TagCommand::undo()
{
    session_.changeTags(after_, before_);
}

void TagCommand::redo()
{
    session_.changeTags(before_, after_);
}

}
