#include "workbench/shell/file_dialogs.h"
#include "workbench/shell/file_names.h"
#include "workbench/shell/files.h"
#include "workbench/shell/histogram_panel.h"

namespace workbench {

void Files::chooseHistogramTarget(HistogramPanel& histogram)
{
    if (!histogram.hasHistogram()) {
        emit said(tr("There is no histogram yet: open an image."));
        return;
    }
    workbench::chooseHistogramTarget(window_, usualHistogramPath(session_),
        [this, &histogram](const QStringList& paths) { exportHistogramTo(histogram, paths.front()); });
}

void Files::exportHistogramTo(HistogramPanel& histogram, const QString& path)
{
    if (!histogram.hasHistogram())
        return;
    if (isImageFile(path)) {
        return tell(tr("\"%1\" is the open image itself; the histogram would take its place. Choose another name.")
                        .arg(fileName(path)));
    }
    if (const auto failure = histogram.exportTo(path))
        return complain(*failure);
    emit said(tr("Histogram written to \"%1\".").arg(fileName(path)));
}

}
