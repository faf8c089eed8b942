#pragma once

#include <QObject>

class QMainWindow;

namespace workbench {

class DatabaseDock;
class Session;

/// The menu of the database.
class DatabaseMenu final : public QObject {
    Q_OBJECT
public:
    DatabaseMenu(QMainWindow& window, Session& session, DatabaseDock& database, QObject* parent);
};

}
