#include "workbench/shell/files.h"

#include "workbench/document/text.h"
#include "workbench/shell/file_dialogs.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

#include <filesystem>
#include <utility>

namespace workbench {

namespace {

std::filesystem::path systemPath(const QString& path)
{
    return std::filesystem::path(path.toStdU16String());
}

QString fileName(const QString& path)
{
    return QFileInfo(QDir::cleanPath(path)).fileName();
}

QMessageBox* messageBox(QWidget& parent, QMessageBox::Icon icon, const QString& text)
{
    auto* box = new QMessageBox(icon, QStringLiteral("Vetra"), text, QMessageBox::NoButton, &parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    return box;
}

}

Files::Files(Session& session, QWidget& window) : session_(session), window_(window)
{
    connect(
        &worker_, &Worker::finished, this,
        [this] {
            if (const auto next = std::exchange(whenIdle_, nullptr))
                next();
        },
        Qt::QueuedConnection);
}

void Files::tell(const QString& text)
{
    messageBox(window_, QMessageBox::Warning, text)->open();
}

void Files::complain(const document::Failure& failure)
{
    if (failure.cancelled)
        emit said(tr("Stopped. Nothing has changed."));
    else
        tell(QString::fromStdString(failure.message));
}

bool Files::refuseWhileBusy()
{
    if (busy())
        emit said(tr("Another file is being read or written; wait for its end or cancel it."));
    return busy();
}

// --------------------------------------------------------------------------------------------------------- opening

void Files::open(const QStringList& paths)
{
    if (paths.isEmpty() || refuseWhileBusy())
        return;
    std::vector<std::filesystem::path> files;
    for (const QString& path : paths)
        files.push_back(systemPath(path));
    auto result = std::make_shared<std::optional<Opening>>();
    worker_.start(
        tr("Opening %1").arg(fileName(paths.front())),
        [files, result](const document::Progress& progress) { result->emplace(document::open(files, progress)); },
        [this, result] { opened(result); },
        [this, name = fileName(paths.front())](
            const QString& reason) { tell(tr("\"%1\" could not be opened: %2").arg(name, reason)); });
}

// Asked only now: for a file that cannot be opened there is nothing to give up.
void Files::opened(const std::shared_ptr<std::optional<Opening>>& result)
{
    if (!**result)
        return complain((*result)->failure());
    whenNothingIsLost([this, result] { adopt(***result); });
}

void Files::adopt(document::Opened& opened)
{
    QStringList notices;
    for (const std::string& notice : opened.notices)
        notices << QString::fromStdString(notice);
    if (const auto failure = session_.adoptImage(std::move(opened)))
        return complain(*failure);
    emit said(notices.join(QLatin1Char(' ')));
}

void Files::openLabels(const QString& path)
{
    if (refuseWhileBusy())
        return;
    if (!session_.hasImage())
        return tell(tr("A label map belongs to an image. Open the image first, then \"%1\".").arg(fileName(path)));
    auto result = std::make_shared<std::optional<document::Result<document::LabelMap>>>();
    worker_.start(
        tr("Opening %1").arg(fileName(path)),
        [file = systemPath(path), geometry = session_.volume().geometry, result](
            const document::Progress& progress) { result->emplace(document::load_labels(file, geometry, progress)); },
        [this, path, result] {
            if (!**result)
                return complain((*result)->failure());
            if (const auto failure = session_.adoptLabels(***result, path))
                return complain(*failure);
            emit said(tr("Labels of \"%1\" are shown; Undo brings the former ones back.").arg(fileName(path)));
        },
        [this, path](
            const QString& reason) { tell(tr("\"%1\" could not be opened: %2").arg(fileName(path), reason)); });
}

// ---------------------------------------------------------------------------------------------------------- saving

void Files::saveAndThen(const std::function<void()>& then)
{
    if (!session_.hasImage())
        return;
    if (session_.labelPath().isEmpty())
        chooseTarget(then);
    else
        saveTo(session_.labelPath(), then);
}

bool Files::isImageFile(const QString& path) const
{
    const QFileInfo target(path);
    for (const QString& file : session_.imageFiles()) {
        const QFileInfo image(file);
        if (target == image || (target.exists() && target.canonicalFilePath() == image.canonicalFilePath()))
            return true;
    }
    return false;
}

void Files::saveTo(const QString& path, std::function<void()> then)
{
    if (!session_.hasImage() || refuseWhileBusy())
        return;
    if (isImageFile(path)) {
        return tell(tr("\"%1\" is the open image itself; the labels would take its place. Choose another name.")
                        .arg(fileName(path)));
    }
    auto snapshot = session_.snapshot();
    if (!snapshot)
        return complain(snapshot.failure());
    auto copy = std::make_shared<Session::Snapshot>(std::move(*snapshot));
    auto failure = std::make_shared<std::optional<document::Failure>>();
    worker_.start(
        tr("Saving %1").arg(fileName(path)),
        [copy, failure, file = systemPath(path)](
            const document::Progress&) { *failure = document::save_labels(file, copy->labels); },
        [this, copy, failure, path, then] {
            if (*failure)
                return complain(**failure);
            session_.markSaved(path, copy->revision);
            emit said(tr("Labels saved to \"%1\".").arg(fileName(path)));
            if (then)
                then();
        },
        [this, path](const QString& reason) { tell(tr("\"%1\" could not be saved: %2").arg(fileName(path), reason)); });
}

void Files::whenNothingIsLost(std::function<void()> then)
{
    if (busy())
        whenIdle_ = [this, then = std::move(then)] { whenNothingIsLost(then); };
    else if (session_.isModified())
        askToSave(then);
    else
        then();
}

void Files::askToSave(const std::function<void()>& then)
{
    auto* box =
        messageBox(window_, QMessageBox::Question, tr("The labels of \"%1\" are not saved.").arg(session_.imageName()));
    box->setInformativeText(tr("Without saving, what was painted since the last time is lost."));
    box->setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    box->setDefaultButton(QMessageBox::Save);
    connect(box, &QMessageBox::finished, this, [this, then](int button) {
        if (button == QMessageBox::Save)
            saveAndThen(then);
        else if (button == QMessageBox::Discard)
            then();
    });
    box->open();
}

// --------------------------------------------------------------------------------------------------------- choosing

QString Files::folder() const
{
    const QStringList files = session_.imageFiles();
    return files.isEmpty() ? QDir::homePath() : QFileInfo(files.front()).absolutePath();
}

void Files::chooseImage()
{
    chooseImageFiles(window_, folder(), [this](const QStringList& paths) { open(paths); });
}

void Files::chooseFolder()
{
    chooseImageFolder(window_, folder(), [this](const QStringList& paths) { open(paths); });
}

void Files::chooseLabels()
{
    chooseLabelFile(window_, folder(), [this](const QStringList& paths) { openLabels(paths.front()); });
}

void Files::chooseTarget(const std::function<void()>& then)
{
    if (!session_.hasImage())
        return;
    const QString offered = session_.labelPath().isEmpty() ? usualLabelPath(session_) : session_.labelPath();
    chooseLabelTarget(window_, offered, [this, then](const QStringList& paths) { saveTo(paths.front(), then); });
}

QString usualLabelPath(const Session& session)
{
    const QStringList files = session.imageFiles();
    const QFileInfo beside(files.isEmpty() ? QDir::homePath() : QFileInfo(files.front()).absolutePath());
    const QString folder = beside.isWritable() ? beside.filePath() : QDir::homePath();
    QString name = session.imageName();
    const std::string extension = document::extension_of(systemPath(name));
    if (files.size() == 1)
        name.chop(static_cast<int>(extension.size()));
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    return QDir(folder).filePath(name + QStringLiteral("-labels.nii.gz"));
}

}
