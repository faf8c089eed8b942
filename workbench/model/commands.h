#pragma once

#include "workbench/document/mask_difference.h"
#include "workbench/model/tag_names.h"

#include <cstdint>
#include <QUndoCommand>
#include <vector>

namespace workbench {

class Session;

/// A change of the labels: a stroke, or another label map.
class LabelCommand : public QUndoCommand {
public:
    /// @param redone whether the labels show the change already, so that the first redo only counts
    LabelCommand(Session& session, const QString& text, std::vector<document::MaskDifference> steps,
        std::uint64_t before, std::uint64_t after, bool redone);
    void undo() override;
    void redo() override;

private:
    Session& session_;
    std::vector<document::MaskDifference> steps_; // one frame each, or any boxes that do not meet
    std::uint64_t before_, after_;                // revisions of the labels
    bool first_ = true;
    bool redone_;
};

/// A tag's new name, which the host has already when the command is made.
class RenameCommand : public QUndoCommand {
public:
    RenameCommand(Session& session, const QString& text, Renaming renaming);
    void undo() override;
    void redo() override;

private:
    void name(const std::string& text);

    Session& session_;
    Renaming renaming_;
    bool first_ = true;
};

}
