#include "workbench/shell/application.h"

#include "host/basics.h"
#include "workbench/shell/theme.h"

#include <clocale>
#include <exception>
#include <new>

namespace workbench {

Application::Application(int& argumentCount, char** arguments) : QApplication(argumentCount, arguments)
{
    std::setlocale(LC_NUMERIC, "C"); // Qt takes the user's; files and reports are written with a point
    setApplicationName(QStringLiteral("vetra-workbench"));
    setApplicationDisplayName(QStringLiteral("Vetra"));
    theme::apply();
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        Error_Fct(hwnd, 2, "There is not enough memory for that. Close other programs or open a smaller image.");
    } catch (const std::exception& error) {
        Error_Fct(hwnd, 2, "That could not be finished: %s", error.what());
    } catch (...) {
        Error_Fct(hwnd, 2, "That could not be finished, for an unknown reason.");
    }
    return true;
}

void choosePlatform()
{
    const bool display = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!display && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

}
