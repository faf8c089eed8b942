#include "workbench/document/marker_file.h"
#include "workbench/document/text.h"
#include "workbench/shell/file_dialogs.h"
#include "workbench/shell/file_names.h"
#include "workbench/shell/files.h"

// The files of point markers.

namespace workbench {

bool isMarkerFile(const QString& path)
{
    return document::extension_of(systemPath(path)) == ".mrk.json";
}

// --------------------------------------------------------------------------------------------------------- opening

void Files::chooseMarkers()
{
    chooseMarkerFile(window_, folder(), [this](const QStringList& paths) { openMarkers(paths.front()); });
}

void Files::openMarkers(const QString& path)
{
    if (refuseWhileBusy())
        return;
    if (!session_.hasImage())
        return tell(tr("Markers belong to an image. Open the image first, then \"%1\".").arg(fileName(path)));
    auto file = std::make_shared<std::optional<document::Result<document::MarkerFile>>>();
    worker_.start(
        tr("Opening %1").arg(fileName(path)),
        [from = systemPath(path), file](const document::Progress&) { file->emplace(document::load_markers(from)); },
        [this, path, file, series = session_.currentSeries()] {
            if (!**file)
                return complain((*file)->failure());
            if (returnTo(series))
                markersOpened(path, ***file);
        },
        [this, path](
            const QString& reason) { tell(tr("\"%1\" could not be opened: %2").arg(fileName(path), reason)); });
}

void Files::markersOpened(const QString& path, const document::MarkerFile& file)
{
    const int beyond = session_.markers().adopt(file.markers, path);
    QStringList texts{tr("Markers are as in \"%1\"; Undo brings the former ones back.").arg(fileName(path))};
    if (beyond > 0)
        texts << (beyond == 1 ? tr("One lies beyond the image.") : tr("%1 lie beyond the image.").arg(beyond));
    emit said(joined(texts, file.notices));
}

// ---------------------------------------------------------------------------------------------------------- saving

void Files::saveMarkersAndThen(const std::function<void()>& then)
{
    if (session_.markers().path().isEmpty())
        chooseMarkersTarget(then);
    else
        saveMarkersTo(session_.markers().path(), then);
}

void Files::chooseMarkersTarget(const std::function<void()>& then)
{
    QString offered = session_.markers().path();
    if (offered.isEmpty())
        offered =
            session_.hasImage() ? usualMarkerPath(session_) : QDir::home().filePath(QStringLiteral("markers.mrk.json"));
    chooseMarkerTarget(
        window_, offered, [this, then](const QStringList& paths) { saveMarkersTo(paths.front(), then); });
}

void Files::saveMarkersTo(const QString& path, std::function<void()> then)
{
    if (refuseWhileBusy())
        return;
    if (isImageFile(path)) {
        return tell(tr("\"%1\" is an open image itself; the markers would take its place. Choose another name.")
                        .arg(fileName(path)));
    }
    if (const OpenSeries* other = session_.otherWithMarkers(path)) {
        return tell(tr("\"%1\" holds the markers of \"%2\", which is open too. Choose another name.")
                        .arg(fileName(path), Session::nameOf(other)));
    }
    using Notices = document::Result<std::vector<std::string>>;
    session_.markers().endMoving();
    auto notices = std::make_shared<Notices>(std::vector<std::string>());
    auto markers = std::make_shared<Markers::Snapshot>(session_.markers().snapshot());
    worker_.start(
        tr("Saving %1").arg(fileName(path)),
        [file = systemPath(path), markers, notices](
            const document::Progress&) { *notices = document::save_markers(file, markers->rows); },
        [this, path, markers, notices, then] {
            if (!*notices)
                return complain(notices->failure());
            session_.markers().markSaved(path, *markers);
            emit said(joined({tr("Markers saved to \"%1\".").arg(fileName(path))}, **notices));
            if (then)
                then();
        },
        [this, path](const QString& reason) { tell(tr("\"%1\" could not be saved: %2").arg(fileName(path), reason)); });
}

}
