#pragma once

#include "workbench/model/session.h"
#include "workbench/shell/worker.h"

#include <QMessageBox>
#include <QStringList>

#include <filesystem>
#include <functional>
#include <memory>
#include <set>

class QWidget;

namespace workbench {

class HistogramPanel;

/// Everything that has to do with files: opening beside the interface, saving, and asking before something is lost.
///
/// A label map "a.nii.gz" has the names, colours and thresholds of its tags beside it in a label table, "a.label": both
/// are opened and saved together. A table that was there before and that this program neither read nor wrote is only
/// replaced when the user says so.
///
/// What is open stays until the new image is there in full. Nobody waits in a dialog: calls return at once, and what
/// goes wrong is told in a message box.
class Files final : public QObject {
    Q_OBJECT
public:
    /// @param window  what message boxes and file dialogs belong to
    Files(Session& session, QWidget& window);

    /// Reading or writing is going on; until its end other requests are refused with a word in the status bar.
    bool busy() const { return worker_.busy(); }
    Worker& worker() { return worker_; }

    void chooseImage();
    void chooseFolder();
    void chooseLabels();
    void chooseTable();
    void open(const QStringList& paths); ///< images, or the markers of the one that is shown
    void openLabels(const QString& path);
    void openTable(const QString& path);

    /// Saves to the label map's file, or asks for one when there is none yet.
    void save() { saveAndThen({}); }
    void saveAs() { chooseTarget({}); }
    void saveTableAs() { chooseTableTarget({}); }

    /// Saves to this file, refused when it is an image's or another series' label map, and to the table beside it when
    /// there is something to say. @param then  called when they are saved
    void saveTo(const QString& path, std::function<void()> then = {});

    /// Saves names, colours and thresholds alone. @param then  called when they are saved
    void saveTableTo(const QString& path, std::function<void()> then = {});

    /// Markers of the open image; a name that ends in ".csv" makes a table. Saving asks for a file when there is none.
    void chooseMarkers();
    void openMarkers(const QString& path);
    void saveMarkers() { saveMarkersAndThen({}); }
    void saveMarkersAs() { chooseMarkersTarget({}); }
    /// Refused when the file is an image's or has another series' markers. @param then  called when they are saved
    void saveMarkersTo(const QString& path, std::function<void()> then = {});

    /// Asks for a file and exports the histogram into it.
    void chooseHistogramTarget(HistogramPanel& histogram);
    void exportHistogramTo(HistogramPanel& histogram, const QString& path);

    /// Closes the current series once the user has saved what is unsaved of it or given it up.
    void closeSeries();

    /// Calls `then` once nothing is being read or written and the user has saved what is unsaved of any series or given
    /// it up; never when the user goes back.
    void whenNothingIsLost(std::function<void()> then);

    /// Tells something that the user must not miss.
    void tell(const QString& text);

signals:
    void said(const QString& text); ///< for the status bar

private:
    using Opening = document::Result<document::OpenedImages>;
    using Series = Session::Series;

    enum class Table { written, kept, needless }; // what happens to the one beside a label map
    struct Labels;
    struct Saving;

    bool refuseWhileBusy();
    bool returnTo(const Series& series);
    void adopt(document::OpenedImages& opened);
    void whenSaved(const Series& series, std::function<void()> then);
    void whenAllAreSaved(std::vector<Series> rest, std::function<void()> then);
    void whenRestIsSaved(std::function<void()> then);
    void askToSave(const QString& text, const std::function<void()>& save, const std::function<void()>& discarded);
    void saveTable(const std::function<void()>& then);
    void saveWhatIsUnsaved(const std::function<void()>& then);
    void saveAndThen(const std::function<void()>& then);
    void chooseTarget(const std::function<void()>& then);
    void chooseTableTarget(const std::function<void()>& then);

    void markersOpened(const QString& path, const document::MarkerFile& file);
    void saveMarkersAndThen(const std::function<void()>& then);
    void chooseMarkersTarget(const std::function<void()>& then);
    QString unsavedText() const;
    static QString unreadableText(const QStringList& failures);

    void labelsOpened(const QString& path, const Labels& opened);
    void askToReplaceTable(const QString& labels, const std::function<void()>& then);
    void saveTo(const QString& path, Table table, const std::function<void()>& then);
    void labelsSaved(const QString& path, const Saving& saving, const std::function<void()>& then);
    bool isOwn(const std::filesystem::path& table) const;
    bool isForeign(const std::filesystem::path& table) const;

    QMessageBox* messageBox(QMessageBox::Icon icon, const QString& text);
    void complain(const document::Failure& failure);
    static QString joined(QStringList texts, const std::vector<std::string>& notices);
    bool isImageFile(const QString& path) const;
    QString folder() const;

    Session& session_;
    QWidget& window_;
    Worker worker_;
    std::function<void()> whenIdle_;
    std::set<std::filesystem::path> ownTables_;  // read or written
    std::set<std::filesystem::path> keptTables_; // foreign ones that the user does not want to be replaced
};

/// The file that labels of an image are offered to be saved to: beside the image, or at home where nothing can be
/// written there, with "-labels.nii.gz" behind its name.
QString usualLabelPath(const Session& session);

/// The same for its markers, with "-markers.mrk.json".
QString usualMarkerPath(const Session& session);

/// Whether a file of this name holds markers and nothing else.
bool isMarkerFile(const QString& path);

/// The same for its histogram, with "-histogram.csv".
QString usualHistogramPath(const Session& session);

}
