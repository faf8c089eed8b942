#include "histo/tool_histo_blow.h"
#include "platform/qt/window_widget.h"
#include "workbench/shell/database_dock.h"
#include "workbench/shell/main_window.h"
#include "workbench/tour/database_rows.h"
#include "workbench/tour/tour_steps.h"

#include <QDir>

// Several studies, and the other trees of the database.

namespace workbench {

namespace {

constexpr int studyLevel = 1;

QStringList foldersOfImages()
{
    const QDir patients(QStringLiteral("/usr/lib/python3/dist-packages/pydicom/data/test_files/dicomdirtests"));
    QStringList folders;
    for (const char* series : {"77654033/CT2", "98892001/CT2N", "98892001/CT5N", "98892003/MR700"})
        if (patients.exists(QLatin1String(series)))
            folders << patients.filePath(QLatin1String(series));
    return folders;
}

void require(bool condition, const char* otherwise)
{
    if (!condition)
        throw StepFailed(QLatin1String(otherwise));
}

}

QString TourSteps::openStudies()
{
    if (QWidget* const graph = Widget_From_Window(Histo_Graph_Window()))
        graph->close();
    window_.activateWindow();
    Driver::waitFor([this] { return window_.isActiveWindow(); });
    const QStringList folders = foldersOfImages();
    if (!folders.isEmpty()) {
        driver_.key(Qt::Key_W, Qt::ControlModifier);
        require(session_.series().empty(), "the sample was not closed");
        window_.files().open(folders);
        Driver::waitFor([this] { return !window_.files().busy(); });
        require(session_.series().size() > 1, "the folders of real images were not opened");
    }
    window_.database().showStudies();
    Driver::settle();
    return QStringLiteral("%1 series are open").arg(session_.series().size());
}

QString TourSteps::chooseVolume()
{
    DatabaseDock& database = window_.database();
    const QWidget& button = database.chooser().button(3);
    driver_.click(button, button.rect().center());
    const Tool_DB_Class& volumes = database.trees().panel();
    const int volume = volumes.nb - 1;
    driver_.click(database.classWidget(), rowPlace(volumes, database.classWidget(), volume));
    require(session_.selection().choice() == FrameSelection::Choice::all, "the slices of the volume are not selected");
    return QStringLiteral("\"%1\" is shown").arg(QString::fromUtf8(volumes.list_pt[volume].name));
}

QString TourSteps::chooseSignals()
{
    DatabaseDock& database = window_.database();
    const QWidget& button = database.chooser().button(1);
    driver_.click(button, button.rect().center());
    const Tool_DB_Class& histograms = database.trees().panel();
    int study = -1;
    for (int row = rowOfLevel(histograms, studyLevel); row >= 0; row = rowOfLevel(histograms, studyLevel, row))
        study = row;
    require(study >= 0, "no study is listed");
    driver_.click(database.classWidget(), rowPlace(histograms, database.classWidget(), study));
    const int selected = session_.selection().count();
    require(selected > 0, "nothing is selected");
    return QStringLiteral("%1 slices of \"%2\" are selected")
        .arg(selected)
        .arg(QString::fromUtf8(histograms.list_pt[study].name));
}

}
