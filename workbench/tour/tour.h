#pragma once

#include <QString>
#include <QStringList>

namespace workbench {

/// Plays a short session with the real window and leaves in `folder` a picture after each step (01-open.png, 02-...)
/// and the label map (labels.nii.gz); prints a line for each step. Ends at the first step that does not do what it
/// should, and says which.
/// @param paths  what to open
/// @return the program's exit code: 0 or 1
int runTour(const QString& folder, const QStringList& paths);

}
