#pragma once

#include <QObject>

class QAction;
class QMenu;
class QMainWindow;

namespace workbench {

class DatabaseDock;
class Files;
class ImageView;
class Session;

/// The menus, and with them the shortcuts.
class Menus final : public QObject {
    Q_OBJECT
public:
    Menus(QMainWindow& window, Session& session, Files& files, ImageView& view, DatabaseDock& database);

signals:
    void interfaceSizeChosen(int percent);
    void tagEditChosen();
    void propagateChosen(int direction);     ///< to the next (1) or the previous slice (-1)
    void propagateOverChosen(int direction); ///< over several of them

private:
    void addFileMenu();
    void addEditMenu();
    void addTagMenu();
    void addPropagateMenu(QMenu& tag);
    void addViewMenu();
    void addSizeMenu(QMenu& view);
    void addHelpMenu();
    void followSession();
    void chooseTag(int steps);

    /// An entry that does something.
    template <class Function>
    QAction* add(QMenu& menu, const QString& text, const QKeySequence& keys, Function function);

    QMainWindow& window_;
    Session& session_;
    Files& files_;
    ImageView& view_;
    QAction* edit_ = nullptr;
    QAction* lock_ = nullptr;
    QList<QAction*> needImage_;
    QList<QAction*> needSlices_; // more than one
};

}
