#include "workbench/shell/files.h"

#include "workbench/document/text.h"
#include "workbench/shell/file_dialogs.h"
#include "workbench/shell/file_names.h"

#include <algorithm>
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

// What was begun for a series goes on with it, whichever is shown by now; not when it was closed.
bool Files::returnTo(const Series& series)
{
    session_.showSeries(series);
    return session_.currentSeries() == series;
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
        [files, result](const document::Progress& progress) { result->emplace(document::open_all(files, progress)); },
        [this, result] {
            if (!**result)
                return complain((*result)->failure());
            adopt(***result);
        },
        [this, name = fileName(paths.front())](
            const QString& reason) { tell(tr("\"%1\" could not be opened: %2").arg(name, reason)); });
}

void Files::adopt(document::OpenedImages& opened)
{
    const auto count = static_cast<int>(opened.images.size());
    QStringList notices;
    if (count > 1)
        notices << tr("%1 series were opened.").arg(count);
    for (const document::Opened& image : opened.images)
        for (const std::string& notice : image.notices)
            notices << QString::fromStdString(count > 1 ? image.volume.series + ": " + notice : notice);
    QStringList failures;
    for (const std::string& reason : opened.unreadable)
        failures << QString::fromStdString(reason);
    for (const document::Failure& failure : session_.adoptImages(std::move(opened.images)))
        failures << QString::fromStdString(failure.message);
    emit said(notices.join(QLatin1Char(' ')));
    if (!failures.isEmpty())
        tell(unreadableText(failures));
}

// A folder may hold dozens that cannot be read, for a few reasons.
QString Files::unreadableText(const QStringList& failures)
{
    constexpr int most = 5;
    QString text = failures.mid(0, most).join(QLatin1Char('\n'));
    if (failures.size() > most)
        text += QLatin1Char('\n') + tr("%1 more could not be opened.").arg(failures.size() - most);
    return text;
}

// -------------------------------------------------------------------------------------- before something is lost

void Files::closeSeries()
{
    if (const Series series = session_.currentSeries())
        whenSaved(series, [this, series] {
            session_.showSeries(series);
            session_.closeSeries();
        });
}

void Files::whenNothingIsLost(std::function<void()> then)
{
    if (busy())
        whenIdle_ = [this, then = std::move(then)] { whenNothingIsLost(then); };
    else
        whenAllAreSaved(session_.series(), [this, then = std::move(then)] { whenRestIsSaved(then); });
}

void Files::whenAllAreSaved(std::vector<Series> rest, std::function<void()> then)
{
    if (rest.empty())
        return then();
    const Series next = rest.back();
    rest.pop_back();
    whenSaved(next, [this, rest, then] { whenAllAreSaved(rest, then); });
}

// What the question is about is seen behind it.
void Files::whenSaved(const Series& series, std::function<void()> then)
{
    const auto& open = session_.series();
    if (busy()) {
        whenIdle_ = [this, series, then = std::move(then)] { whenSaved(series, then); };
    } else if (std::ranges::find(open, series) == open.end() || !session_.isModified(*series)) {
        then();
    } else {
        session_.showSeries(series);
        const auto again = [this, series, then] { whenSaved(series, then); };
        askToSave(
            unsavedText(), [this, again] { saveWhatIsUnsaved(again); }, then);
    }
}

void Files::whenRestIsSaved(std::function<void()> then)
{
    if (busy()) {
        whenIdle_ = [this, then = std::move(then)] { whenRestIsSaved(then); };
    } else if (!session_.hasImage() && session_.markers().isModified()) {
        const auto again = [this, then] { whenRestIsSaved(then); };
        askToSave(
            tr("The markers are not saved."), [this, again] { saveMarkersAndThen(again); }, then);
    } else if (session_.isTableModified()) {
        const auto again = [this, then] { whenRestIsSaved(then); };
        askToSave(
            tr("Names, colours and thresholds of the tags are not saved."), [this, again] { saveTable(again); }, then);
    } else {
        then();
    }
}

QString Files::unsavedText() const
{
    const bool labels = session_.areLabelsModified(), markers = session_.markers().isModified();
    if (labels && markers)
        return tr("The labels and the markers of \"%1\" are not saved.").arg(session_.imageName());
    return labels ? tr("The labels of \"%1\" are not saved.").arg(session_.imageName())
                  : tr("The markers of \"%1\" are not saved.").arg(session_.imageName());
}

void Files::askToSave(const QString& text, const std::function<void()>& save, const std::function<void()>& discarded)
{
    auto* box = messageBox(QMessageBox::Question, text);
    box->setInformativeText(tr("Without saving, what was done since the last time is lost."));
    box->setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    box->setDefaultButton(QMessageBox::Save);
    connect(box, &QMessageBox::finished, this, [save, discarded](int button) {
        if (button == QMessageBox::Save)
            save();
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

// Series of one folder may have the same name.
template <class IsTaken>
QString freeBesideImage(const Session& session, const QString& ending, const IsTaken& isTaken)
{
    QString path = besideImage(session, ending);
    for (int number = 2; isTaken(path); ++number)
        path = besideImage(session, QStringLiteral("-%1").arg(number) + ending);
    return path;
}

}

QString usualLabelPath(const Session& session)
{
    return freeBesideImage(session, QStringLiteral("-labels.nii.gz"),
        [&](const QString& path) { return session.otherWithLabels(path) != nullptr; });
}

QString usualMarkerPath(const Session& session)
{
    return freeBesideImage(session, QStringLiteral("-markers.mrk.json"),
        [&](const QString& path) { return session.otherWithMarkers(path) != nullptr; });
}

QString usualHistogramPath(const Session& session)
{
    return besideImage(session, QStringLiteral("-histogram.csv"));
}

}
