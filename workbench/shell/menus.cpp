#include "workbench/shell/menus.h"

#include "workbench/model/session.h"
#include "workbench/shell/database_menu.h"
#include "workbench/shell/files.h"
#include "workbench/shell/key_help.h"
#include "workbench/shell/marker_menu.h"
#include "workbench/shell/theme.h"
#include "workbench/view/image_view.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>

namespace workbench {

Menus::Menus(QMainWindow& window, Session& session, Files& files, ImageView& view, DatabaseDock& database)
    : window_(window), session_(session), files_(files), view_(view)
{
    addFileMenu();
    addEditMenu();
    addTagMenu();
    new MarkerMenu(window, session, files, view, this);
    new DatabaseMenu(window, session, database, this);
    addViewMenu();
    addHelpMenu();
    for (const auto signal : {&Session::imageChanged, &Session::tagsChanged})
        connect(&session, signal, this, &Menus::followSession);
    connect(&session, &Session::currentTagChanged, this, &Menus::followSession);
    followSession();
}

template <class Function>
QAction* Menus::add(QMenu& menu, const QString& text, const QKeySequence& keys, Function function)
{
    auto* action = menu.addAction(text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, function);
    return action;
}

void Menus::addFileMenu()
{
    QMenu& menu = *window_.menuBar()->addMenu(tr("&File"));
    add(menu, tr("&Open image..."), QKeySequence::Open, [this] { files_.chooseImage(); });
    add(menu, tr("Open &folder..."), tr("Ctrl+Shift+O"), [this] { files_.chooseFolder(); });
    needImage_ << add(menu, tr("&Close series"), QKeySequence(tr("Ctrl+W")), [this] { files_.closeSeries(); });
    menu.addSeparator();
    needImage_ << add(menu, tr("Open &label map..."), tr("Ctrl+L"), [this] { files_.chooseLabels(); });
    needImage_ << add(menu, tr("&Save label map"), QKeySequence::Save, [this] { files_.save(); });
    needImage_ << add(menu, tr("Save label map &as..."), tr("Ctrl+Shift+S"), [this] { files_.saveAs(); });
    menu.addSeparator();
    add(menu, tr("Open label &table..."), {}, [this] { files_.chooseTable(); });
    add(menu, tr("Sa&ve label table as..."), {}, [this] { files_.saveTableAs(); });
    menu.addSeparator();
    add(menu, tr("&Quit"), tr("Ctrl+Q"), [this] { window_.close(); });
}

void Menus::addEditMenu()
{
    QMenu& menu = *window_.menuBar()->addMenu(tr("&Edit"));
    QAction* undo = session_.undoGroup().createUndoAction(this, tr("&Undo"));
    QAction* redo = session_.undoGroup().createRedoAction(this, tr("&Redo"));
    undo->setShortcut(QKeySequence(tr("Ctrl+Z")));
    redo->setShortcut(QKeySequence(tr("Ctrl+Shift+Z")));
    menu.addAction(undo);
    menu.addAction(redo);
}

void Menus::addTagMenu()
{
    QMenu& menu = *window_.menuBar()->addMenu(tr("&Tag"));
    add(menu, tr("&Next tag"), tr("T"), [this] { chooseTag(1); });
    add(menu, tr("&Previous tag"), tr("Shift+T"), [this] { chooseTag(-1); });
    edit_ = add(menu, {}, tr("E"), [this] { emit tagEditChosen(); });
    lock_ = add(menu, {}, tr("L"), [this] { session_.toggleLock(session_.currentTag()); });
    menu.addSeparator();
    add(menu, tr("&Smaller brush"), tr("["), [this] { session_.smallerBrush(); });
    add(menu, tr("&Larger brush"), tr("]"), [this] { session_.largerBrush(); });
    menu.addSeparator();
    addPropagateMenu(menu);
}

void Menus::addPropagateMenu(QMenu& tag)
{
    QMenu& menu = *tag.addMenu(tr("P&ropagate"));
    needSlices_ << add(menu, tr("To the &next slice"), tr("Ctrl+PgDown"), [this] { emit propagateChosen(1); });
    needSlices_ << add(menu, tr("To the &previous slice"), tr("Ctrl+PgUp"), [this] { emit propagateChosen(-1); });
    needSlices_ << add(
        menu, tr("Over several &later slices"), tr("Ctrl+Shift+PgDown"), [this] { emit propagateOverChosen(1); });
    needSlices_ << add(
        menu, tr("Over several &earlier slices"), tr("Ctrl+Shift+PgUp"), [this] { emit propagateOverChosen(-1); });
}

void Menus::addViewMenu()
{
    constexpr double opacityStep = 0.1;
    QMenu& menu = *window_.menuBar()->addMenu(tr("&View"));
    needImage_ << add(menu, tr("Zoom &in"), QKeySequence::ZoomIn, [this] { view_.zoomIn(); });
    needImage_ << add(menu, tr("Zoom &out"), QKeySequence::ZoomOut, [this] { view_.zoomOut(); });
    needImage_ << add(menu, tr("&Fit into the window"), tr("0"), [this] { view_.fit(); });
    menu.addSeparator();
    needImage_ << add(menu, tr("&Next slice"), tr("PgDown"), [this] { session_.setFrame(session_.frame() + 1); });
    needImage_ << add(menu, tr("&Previous slice"), tr("PgUp"), [this] { session_.setFrame(session_.frame() - 1); });
    needImage_ << add(menu, tr("&Reset window and level"), tr("R"), [this] { session_.resetWindow(); });
    menu.addSeparator();
    add(menu, tr("Tags &stronger"), tr("O"),
        [this] { session_.setOverlayOpacity(session_.overlayOpacity() + opacityStep); });
    add(menu, tr("Tags fa&inter"), tr("Shift+O"),
        [this] { session_.setOverlayOpacity(session_.overlayOpacity() - opacityStep); });
    menu.addSeparator();
    addSizeMenu(menu);
}

void Menus::addSizeMenu(QMenu& view)
{
    QMenu& menu = *view.addMenu(tr("Interface si&ze"));
    auto* sizes = new QActionGroup(&menu);
    for (const int percent : theme::interfaceSizes) {
        QAction* size = add(menu, tr("%1 %").arg(percent), {}, [this, percent] { emit interfaceSizeChosen(percent); });
        size->setCheckable(true);
        size->setChecked(percent == theme::interfaceSizes[0]);
        sizes->addAction(size);
    }
}

void Menus::addHelpMenu()
{
    QMenu& menu = *window_.menuBar()->addMenu(tr("&Help"));
    add(menu, tr("&Mouse and keys"), QKeySequence::HelpContents, [this] { showKeyHelp(&window_); });
}

void Menus::followSession()
{
    for (QAction* action : needImage_)
        action->setEnabled(session_.hasImage());
    for (QAction* action : needSlices_)
        action->setEnabled(session_.frameCount() > 1);
    const unsigned tag = session_.currentTag();
    QString title = session_.tagTitle(tag);
    title.replace(QLatin1Char('&'), QLatin1String("&&"));
    edit_->setText(tr("&Edit \"%1\"...").arg(title));
    lock_->setText(session_.isTagLocked(tag) ? tr("Un&lock \"%1\"").arg(title) : tr("&Lock \"%1\"").arg(title));
}

// Round and round, so that one key reaches every tag.
void Menus::chooseTag(int steps)
{
    const int count = static_cast<int>(session_.tagCount());
    if (count > 0)
        session_.setCurrentTag(
            static_cast<unsigned>((static_cast<int>(session_.currentTag()) + steps + count) % count));
}

}
