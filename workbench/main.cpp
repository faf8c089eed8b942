// The workbench: `vetra-workbench [FILE or FOLDER ...]`, or with --tour a session that plays itself.

#include "workbench/shell/application.h"
#include "workbench/shell/main_window.h"
#include "workbench/tour/tour.h"

#include <CLI/CLI.hpp>

#include <QFileInfo>
#include <QScreen>
#include <QTimer>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

constexpr int wrongUsage = 2;
constexpr const char* sample = "/usr/share/mricron/templates/ch2.nii.gz";

struct Arguments {
    std::vector<std::string> paths;
    std::string tourFolder;
};

QStringList toQt(const std::vector<std::string>& paths)
{
    QStringList result;
    for (const std::string& path : paths)
        result << QFile::decodeName(path.c_str());
    return result;
}

QtMessageHandler usualMessages = nullptr;

// The offscreen platform complains of what it cannot do each time that a window shows.
void showMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QLatin1String("This plugin does not support")))
        usualMessages(type, context, message);
}

int tour(const Arguments& arguments)
{
    QStringList paths = toQt(arguments.paths);
    if (paths.isEmpty())
        paths << QString::fromLatin1(sample);
    if (arguments.paths.empty() && !QFileInfo::exists(paths.front())) {
        std::fprintf(
            stderr, "The sample %s is missing. Install Debian's package mricron-data, or name a file.\n", sample);
        return 1;
    }
    return workbench::runTour(QFile::decodeName(arguments.tourFolder.c_str()), paths);
}

int run(const Arguments& arguments)
{
    workbench::Session session;
    workbench::MainWindow window(session);
    window.resize(window.size().boundedTo(window.screen()->availableSize()));
    window.show();
    QTimer::singleShot(0, &window, [&] { window.files().open(toQt(arguments.paths)); });
    return QCoreApplication::exec();
}

int start(int argc, char** argv, const Arguments& arguments)
{
    const bool plays = !arguments.tourFolder.empty();
    if (plays && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // so that it does not take the user's pointer
    workbench::choosePlatform();
    usualMessages = qInstallMessageHandler(showMessage);
    workbench::Application application(argc, argv);
    return plays ? tour(arguments) : run(arguments);
}

}

int main(int argc, char** argv)
{
    Arguments arguments;
    CLI::App options{"Vetra: view medical images and paint label maps on them."};
    options.add_option("paths", arguments.paths, "Images, and folders with DICOM series")->type_name("FILE or FOLDER");
    options
        .add_option("--tour", arguments.tourFolder,
            "Play a short session without a display and leave a picture of each step, the label map labels.nii.gz "
            "and its label table in FOLDER; opens a sample when no file is named")
        ->type_name("FOLDER");
    try {
        options.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return options.exit(error) == 0 ? 0 : wrongUsage;
    }
    try {
        return start(argc, argv, arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vetra-workbench could not go on: %s\n", error.what());
        return 1;
    }
}
