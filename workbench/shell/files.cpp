#include "workbench/shell/files.h"

#include "workbench/document/text.h"
#include "workbench/shell/file_dialogs.h"
#include "workbench/shell/file_names.h"

#include <utility>

namespace workbench {

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

QMessageBox* Files::messageBox(QMessageBox::Icon icon, const QString& text)
{
    auto* box = new QMessageBox(icon, QStringLiteral("Vetra"), text, QMessageBox::NoButton, &window_);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    return box;
}

void Files::tell(const QString& text)
{
    messageBox(QMessageBox::Warning, text)->open();
}

void Files::complain(const document::Failure& failure)
{
    if (failure.cancelled)
        emit said(tr("Stopped. Nothing has changed."));
    else
        tell(QString::fromStdString(failure.message));
}

QString Files::joined(QStringList texts, const std::vector<std::string>& notices)
{
    for (const std::string& notice : notices)
        texts << QString::fromStdString(notice);
    return texts.join(QLatin1Char(' '));
}

bool Files::refuseWhileBusy()
{
    if (busy())
        emit said(Worker::busyText());
    return busy();
}

// --------------------------------------------------------------------------------------------------------- opening

void Files::open(const QStringList& paths)
{
    if (paths.isEmpty() || refuseWhileBusy())
        return;
    if (paths.size() == 1 && isMarkerFile(paths.front()))
        return openMarkers(paths.front());
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

// Asked only now: for a file that cannot be opened there is nothing to give up. The tags stay with the next image.
void Files::opened(const std::shared_ptr<std::optional<Opening>>& result)
{
    if (!**result)
        return complain((*result)->failure());
    whenSaved(&Session::isImageWorkModified, [this, result] { adopt(***result); });
}

void Files::adopt(document::Opened& opened)
{
    const QString notices = joined({}, opened.notices);
    if (const auto failure = session_.adoptImage(std::move(opened)))
        return complain(*failure);
    emit said(notices);
}

// -------------------------------------------------------------------------------------- before something is lost

void Files::whenSaved(bool (Session::*modified)() const, std::function<void()> then)
{
    if (busy())
        whenIdle_ = [this, modified, then = std::move(then)] { whenSaved(modified, then); };
    else if ((session_.*modified)())
        askToSave([this, modified, then] { whenSaved(modified, then); }, then);
    else
        then();
}

QString Files::unsavedText() const
{
    const bool labels = session_.areLabelsModified(), markers = session_.markers().isModified();
    if (labels && markers)
        return tr("The labels and the markers of \"%1\" are not saved.").arg(session_.imageName());
    if (labels)
        return tr("The labels of \"%1\" are not saved.").arg(session_.imageName());
    if (markers && session_.isTableModified())
        return tr("The markers, and names, colours and thresholds of the tags, are not saved.");
    return markers ? tr("The markers are not saved.") : tr("Names, colours and thresholds of the tags are not saved.");
}

void Files::askToSave(const std::function<void()>& saved, const std::function<void()>& discarded)
{
    const bool labels = session_.areLabelsModified();
    auto* box = messageBox(QMessageBox::Question, unsavedText());
    box->setInformativeText(labels ? tr("Without saving, what was painted since the last time is lost.")
                                   : tr("Without saving, what was changed since the last time is lost."));
    box->setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    box->setDefaultButton(QMessageBox::Save);
    connect(box, &QMessageBox::finished, this, [this, saved, discarded](int button) {
        if (button == QMessageBox::Save)
            saveWhatIsUnsaved(saved);
        else if (button == QMessageBox::Discard)
            discarded();
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

void Files::chooseTable()
{
    chooseTableFile(window_, folder(), [this](const QStringList& paths) { openTable(paths.front()); });
}

void Files::chooseTarget(const std::function<void()>& then)
{
    if (!session_.hasImage())
        return;
    const QString offered = session_.labelPath().isEmpty() ? usualLabelPath(session_) : session_.labelPath();
    chooseLabelTarget(window_, offered, [this, then](const QStringList& paths) { saveTo(paths.front(), then); });
}

void Files::chooseTableTarget(const std::function<void()>& then)
{
    const QString labels = session_.labelPath().isEmpty() ? usualLabelPath(session_) : session_.labelPath();
    const QString offered = session_.hasImage() ? userPath(document::label_table_path(systemPath(labels)))
                                                : QDir::home().filePath(QStringLiteral("tags.label"));
    workbench::chooseTableTarget(
        window_, offered, [this, then](const QStringList& paths) { saveTableTo(paths.front(), then); });
}

namespace {

// A file beside the image, or at home where nothing can be written there.
QString besideImage(const Session& session, const QString& ending)
{
    const QStringList files = session.imageFiles();
    const QFileInfo beside(files.isEmpty() ? QDir::homePath() : QFileInfo(files.front()).absolutePath());
    const QString folder = beside.isWritable() ? beside.filePath() : QDir::homePath();
    QString name = session.imageName();
    const std::string extension = document::extension_of(systemPath(name));
    if (files.size() == 1)
        name.chop(static_cast<int>(extension.size()));
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    return QDir(folder).filePath(name + ending);
}

}

QString usualLabelPath(const Session& session)
{
    return besideImage(session, QStringLiteral("-labels.nii.gz"));
}

QString usualMarkerPath(const Session& session)
{
    return besideImage(session, QStringLiteral("-markers.mrk.json"));
}

QString usualHistogramPath(const Session& session)
{
    return besideImage(session, QStringLiteral("-histogram.csv"));
}

}
