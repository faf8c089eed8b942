#pragma once

#include "workbench/document/mask_difference.h"
#include "workbench/model/tag_table.h"

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
        std::uint64_t before, std::uint64_t after, bool redone, QUndoCommand* parent = nullptr);
    void undo() override;
    void redo() override;

private:
    Session& session_;
    std::vector<document::MaskDifference> steps_; // one frame each, or any boxes that do not meet
    std::uint64_t before_, after_;                // revisions of the labels
    bool first_ = true;
    bool redone_;
};

/// A change of the tags' names, colours and thresholds. Tags are shared by all series, whose steps are apart: what was
/// changed meanwhile beside it stays.
class TagCommand : public QUndoCommand {
public:
    TagCommand(Session& session, const QString& text, TagTable::State before, TagTable::State after,
        QUndoCommand* parent = nullptr);
    void undo() override;
    void redo() override;

private:
    Session& session_;
    TagTable::State before_, after_;
};

}
