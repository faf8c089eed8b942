#include "workbench/model/marker_command.h"

#include "workbench/model/markers.h"

#include <utility>

namespace workbench {

MarkerCommand::MarkerCommand(Markers& markers, const QString& text, MarkerTable::State before, MarkerTable::State after)
    : QUndoCommand(text), markers_(markers), before_(std::move(before)), after_(std::move(after))
{
}

void MarkerCommand::undo()
{
    put(after_, before_);
}

void MarkerCommand::redo()
{
    if (std::exchange(first_, false))
        markers_.put(after_);
    else
        put(before_, after_);
}

void MarkerCommand::put(const MarkerTable::State& from, const MarkerTable::State& to)
{
    markers_.held_.reset();
    markers_.put(to);
    markers_.goToChange(from, to);
}

}
