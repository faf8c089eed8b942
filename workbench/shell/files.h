#pragma once

#include "workbench/model/session.h"
#include "workbench/shell/worker.h"

#include <QStringList>

#include <functional>
#include <memory>

class QWidget;

namespace workbench {

/// Everything that has to do with files: opening beside the interface, saving, and asking before something is lost.
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
    void open(const QStringList& paths);
    void openLabels(const QString& path);

    /// Saves to the label map's file, or asks for one when there is none yet.
    void save() { saveAndThen({}); }
    void saveAs() { chooseTarget({}); }

    /// Saves to this file; refused when it is the image's own. @param then  called when it is saved
    void saveTo(const QString& path, std::function<void()> then = {});

    /// Calls `then` once nothing is being read or written and the user has saved the labels or given them up; never
    /// when the user goes back.
    void whenNothingIsLost(std::function<void()> then);

    /// Tells something that the user must not miss.
    void tell(const QString& text);

signals:
    void said(const QString& text); ///< for the status bar

private:
    using Opening = document::Result<document::Opened>;

    bool refuseWhileBusy();
    void opened(const std::shared_ptr<std::optional<Opening>>& result);
    void adopt(document::Opened& opened);
    void askToSave(const std::function<void()>& then);
    void saveAndThen(const std::function<void()>& then);
    void chooseTarget(const std::function<void()>& then);
    void complain(const document::Failure& failure);
    bool isImageFile(const QString& path) const;
    QString folder() const;

    Session& session_;
    QWidget& window_;
    Worker worker_;
    std::function<void()> whenIdle_;
};

/// The file that labels of an image are offered to be saved to: beside the image, or at home where nothing can be
/// written there, with "-labels.nii.gz" behind its name.
QString usualLabelPath(const Session& session);

}
