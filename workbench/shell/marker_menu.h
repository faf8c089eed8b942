#pragma once

#include <QObject>

class QAction;
class QMainWindow;
class QMenu;

namespace workbench {

class Files;
class ImageView;
class Session;

/// The menu of the point markers, and with it their shortcuts.
class MarkerMenu final : public QObject {
    Q_OBJECT
public:
    MarkerMenu(QMainWindow& window, Session& session, Files& files, ImageView& view, QObject* parent);

private:
    void addFileEntries();
    void followSession();
    void chooseName();
    void chooseColour();
    void showNext(int way);
    void toggleShown();
    void remove();

    QMainWindow& window_;
    Session& session_;
    Files& files_;
    ImageView& view_;
    QMenu& menu_;
    QAction* name_ = nullptr;
    QAction* colour_ = nullptr;
    QAction* shown_ = nullptr;
    QList<QAction*> needImage_;
};

}
