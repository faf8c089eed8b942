#pragma once

#include <QApplication>

namespace workbench {

/// The application: no exception leaves an event handler, the user reads what went wrong and goes on.
class Application final : public QApplication {
public:
    Application(int& argumentCount, char** arguments);

    bool notify(QObject* receiver, QEvent* event) override;
};

/// Picks the picture-only platform when there is no display; to be called before the application is made.
void choosePlatform();

}
