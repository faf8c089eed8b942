#include "workbench/shell/marker_menu.h"

#include "workbench/model/session.h"
#include "workbench/shell/colour_dialog.h"
#include "workbench/shell/files.h"
#include "workbench/view/image_view.h"

#include <QInputDialog>
#include <QMainWindow>
#include <QMenuBar>

namespace workbench {

MarkerMenu::MarkerMenu(QMainWindow& window, Session& session, Files& files, ImageView& view, QObject* parent)
    : QObject(parent), window_(window), session_(session), files_(files), view_(view),
      menu_(*window.menuBar()->addMenu(tr("&Markers")))
{
    QAction* place = menu_.addAction(tr("&Place markers"), QKeySequence(tr("M")), &view, &ImageView::setPlacing);
    place->setCheckable(true);
    connect(&view, &ImageView::placingChanged, place, &QAction::setChecked);
    needImage_ << place;
    needImage_ << menu_.addAction(tr("&Next marker"), QKeySequence(tr("N")), this, [this] { showNext(1); });
    needImage_ << menu_.addAction(tr("Previous mar&ker"), QKeySequence(tr("Shift+N")), this, [this] { showNext(-1); });
    menu_.addSeparator();
    name_ = menu_.addAction(QString(), QKeySequence(tr("F2")), this, &MarkerMenu::chooseName);
    colour_ = menu_.addAction(QString(), this, &MarkerMenu::chooseColour);
    shown_ = menu_.addAction(QString(), QKeySequence(tr("H")), this, &MarkerMenu::toggleShown);
    needImage_ << menu_.addAction(tr("&Delete marker"), QKeySequence(tr("Del")), this, &MarkerMenu::remove);
    menu_.addSeparator();
    addFileEntries();

    connect(&session, &Session::imageChanged, this, &MarkerMenu::followSession);
    connect(&session.markers(), &Markers::changed, this, &MarkerMenu::followSession);
    connect(&session.markers(), &Markers::currentChanged, this, &MarkerMenu::followSession);
    followSession();
}

void MarkerMenu::addFileEntries()
{
    needImage_ << menu_.addAction(tr("&Open markers..."), this, [this] { files_.chooseMarkers(); });
    needImage_ << menu_.addAction(tr("&Save markers"), this, [this] { files_.saveMarkers(); });
    needImage_ << menu_.addAction(tr("Save markers &as..."), this, [this] { files_.saveMarkersAs(); });
}

void MarkerMenu::followSession()
{
    for (QAction* action : needImage_)
        action->setEnabled(session_.hasImage());
    const Markers& markers = session_.markers();
    QString title = markers.title(markers.current());
    title.replace(QLatin1Char('&'), QLatin1String("&&"));
    name_->setText(tr("&Rename \"%1\"...").arg(title));
    colour_->setText(tr("&Colour of \"%1\"...").arg(title));
    shown_->setText(
        markers.at(markers.current()).enabled ? tr("&Hide \"%1\"").arg(title) : tr("S&how \"%1\"").arg(title));
}

// The only way to name marker 0, which the panel never renames.
void MarkerMenu::chooseName()
{
    const unsigned marker = session_.markers().current();
    auto* dialog = new QInputDialog(&window_);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Rename %1").arg(session_.markers().title(marker)));
    dialog->setLabelText(tr("Name:"));
    dialog->setTextValue(session_.markers().name(marker));
    connect(dialog, &QInputDialog::textValueSelected, this,
        [this, marker](const QString& name) { session_.markers().setName(marker, name.trimmed()); });
    dialog->open();
}

void MarkerMenu::chooseColour()
{
    const unsigned marker = session_.markers().current();
    workbench::chooseColour(window_, tr("Colour of %1").arg(session_.markers().title(marker)),
        session_.markers().colour(marker),
        [this, marker](const QColor& colour) { session_.markers().setColour(marker, colour); });
}

void MarkerMenu::showNext(int way)
{
    if (!session_.markers().showNext(way))
        emit session_.message(tr("No marker is set. Press M and click where the first one should be."));
}

void MarkerMenu::toggleShown()
{
    Markers& markers = session_.markers();
    markers.setShown(markers.current(), !markers.at(markers.current()).enabled);
}

// The one that is pointed at, or else the current one, wherever it is.
void MarkerMenu::remove()
{
    Markers& markers = session_.markers();
    const unsigned marker = view_.markerUnderPointer().value_or(markers.current());
    if (!markers.isSet(marker)) {
        emit session_.message(tr("There is no marker to delete: point at one, or choose one."));
        return;
    }
    const QString title = markers.title(marker);
    markers.remove(marker);
    emit session_.message(tr("%1 is deleted; Undo brings it back.").arg(title));
}

}
