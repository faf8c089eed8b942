#include "workbench/model/commands.h"

#include "workbench/model/session.h"

#include <utility>

namespace workbench {

LabelCommand::LabelCommand(Session& session, const QString& text, std::vector<document::MaskDifference> steps,
    std::uint64_t before, std::uint64_t after, bool redone)
    : QUndoCommand(text), session_(session), steps_(std::move(steps)), before_(before), after_(after), redone_(redone)
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

RenameCommand::RenameCommand(Session& session, const QString& text, Renaming renaming)
    : QUndoCommand(text), session_(session), renaming_(std::move(renaming))
{
}

void RenameCommand::undo()
{
    name(renaming_.before);
}

void RenameCommand::redo()
{
    if (!std::exchange(first_, false))
        name(renaming_.after);
}

void RenameCommand::name(const std::string& text)
{
    session_.setTagName(renaming_.tag, text);
}

}
