#include "workbench/tour/tour.h"

#include "workbench/shell/main_window.h"
#include "workbench/tour/tour_steps.h"

#include <QDir>

#include <cstdio>
#include <exception>

namespace workbench {

namespace {

struct Step {
    const char* name;
    QString (TourSteps::*play)();
};

constexpr Step steps[] = {
    {"open", &TourSteps::open},
    {"choose-tag", &TourSteps::chooseTag},
    {"rename", &TourSteps::rename},
    {"brush", &TourSteps::chooseBrush},
    {"paint", &TourSteps::paint},
    {"second-tag", &TourSteps::paintSecondTag},
    {"erase", &TourSteps::erase},
    {"undo", &TourSteps::undo},
    {"redo", &TourSteps::redo},
    {"propagate", &TourSteps::propagate},
    {"window", &TourSteps::changeWindow},
    {"zoom", &TourSteps::zoom},
    {"save", &TourSteps::save},
    {"browse", &TourSteps::browse},
    {"select-all", &TourSteps::selectAll},
    {"peaks", &TourSteps::fitPeaks},
    {"export", &TourSteps::exportHistogram},
    {"graph", &TourSteps::openGraph},
    {"studies", &TourSteps::openStudies},
    {"volume", &TourSteps::chooseVolume},
    {"signals", &TourSteps::chooseSignals},
    {"edit", &TourSteps::editDatabase},
    {"move", &TourSteps::moveSlice},
    {"delete", &TourSteps::deleteSeries},
    {"update", &TourSteps::updateDatabase},
};

void play(const Step& step, int number, TourSteps& tour, const QDir& folder)
{
    const QString title = QStringLiteral("%1-%2").arg(number, 2, 10, QLatin1Char('0')).arg(QLatin1String(step.name));
    const QString what = (tour.*step.play)();
    const QString picture = folder.filePath(title + QStringLiteral(".png"));
    if (!tour.picture().save(picture))
        throw StepFailed(QStringLiteral("the picture %1 could not be written").arg(picture));
    std::printf("%02d %s: %s\n", number, step.name, qUtf8Printable(what));
    std::fflush(stdout);
}

int fail(const char* name, const char* reason)
{
    std::fprintf(stderr, "The tour ends in step \"%s\": %s\n", name, reason);
    return 1;
}

}

int runTour(const QString& folder, const QStringList& paths)
{
    const QDir target(folder);
    if (!target.mkpath(QStringLiteral(".")))
        return fail("start", qUtf8Printable(QStringLiteral("the folder %1 cannot be made").arg(folder)));

    Session session;
    MainWindow window(session);
    TourSteps tour(session, window, paths, target.filePath(QStringLiteral("labels.nii.gz")));
    int number = 0;
    for (const Step& step : steps) {
        try {
            play(step, ++number, tour, target);
        } catch (const std::exception& error) {
            return fail(step.name, error.what());
        }
    }
    return 0;
}

}
