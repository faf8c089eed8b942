#include "workbench/document/text.h"
#include "workbench/shell/file_names.h"
#include "workbench/shell/files.h"

#include <QAbstractButton>

#include <algorithm>

// Label maps and the label tables beside them.

namespace workbench {

namespace {

using Path = std::filesystem::path;

/// One name for each file.
Path identityOf(const Path& path)
{
    std::error_code error;
    const Path result = std::filesystem::weakly_canonical(path, error);
    return error ? path : result;
}

bool isThere(const Path& path)
{
    std::error_code error;
    return std::filesystem::exists(path, error);
}

QString quoted(const Path& path)
{
    return QString::fromStdString(document::quoted(path));
}

QStringList noticesOf(const document::LabelTable& table)
{
    if (std::ranges::none_of(table, [](const auto& entry) { return entry.tag > 255; }))
        return {};
    return {Files::tr("Tags above 255 are kept in the table, but cannot be shown.")};
}

}

// --------------------------------------------------------------------------------------------------------- opening

/// A label map and what lies beside it.
struct Files::Labels {
    std::optional<document::Result<document::LabelMap>> map;
    std::optional<document::Result<document::LabelTable>> table; // nothing when there is none
    Path tablePath;
};

void Files::openLabels(const QString& path)
{
    if (refuseWhileBusy())
        return;
    if (!session_.hasImage())
        return tell(tr("A label map belongs to an image. Open the image first, then \"%1\".").arg(fileName(path)));
    auto opened = std::make_shared<Labels>();
    opened->tablePath = document::label_table_path(systemPath(path));
    worker_.start(
        tr("Opening %1").arg(fileName(path)),
        [file = systemPath(path), geometry = session_.volume().geometry, opened](const document::Progress& progress) {
            opened->map.emplace(document::load_labels(file, geometry, progress));
            if (*opened->map && isThere(opened->tablePath))
                opened->table.emplace(document::load_label_table(opened->tablePath));
        },
        [this, path, opened, series = session_.currentSeries()] {
            if (returnTo(series))
                labelsOpened(path, *opened);
        },
        [this, path](
            const QString& reason) { tell(tr("\"%1\" could not be opened: %2").arg(fileName(path), reason)); });
}

void Files::labelsOpened(const QString& path, const Labels& opened)
{
    if (!*opened.map)
        return complain(opened.map->failure());
    const bool described = opened.table && *opened.table;
    const auto table = described ? std::optional(**opened.table) : std::nullopt;
    if (const auto failure = session_.adoptLabels(**opened.map, path, table))
        return complain(*failure);
    QStringList texts{tr("Labels of \"%1\" are shown; Undo brings the former ones back.").arg(fileName(path))};
    if (described) {
        ownTables_.insert(identityOf(opened.tablePath));
        texts << noticesOf(*table);
    }
    emit said(texts.join(QLatin1Char(' ')));
    if (opened.table && !described)
        tell(tr("%1 The labels are shown without it.").arg(QString::fromStdString(opened.table->failure().message)));
}

void Files::openTable(const QString& path)
{
    if (refuseWhileBusy())
        return;
    auto table = std::make_shared<std::optional<document::Result<document::LabelTable>>>();
    worker_.start(
        tr("Opening %1").arg(fileName(path)),
        [file = systemPath(path), table](
            const document::Progress&) { table->emplace(document::load_label_table(file)); },
        [this, path, table] {
            if (!**table)
                return complain((*table)->failure());
            session_.adoptTable(***table, path);
            ownTables_.insert(identityOf(systemPath(path)));
            const QString text = tr("Tags are as in \"%1\"; Undo brings the former ones back.").arg(fileName(path));
            emit said((QStringList(text) << noticesOf(***table)).join(QLatin1Char(' ')));
        },
        [this, path](
            const QString& reason) { tell(tr("\"%1\" could not be opened: %2").arg(fileName(path), reason)); });
}

// ---------------------------------------------------------------------------------------------------------- saving

struct Files::Saving {
    Session::Snapshot labels;
    Session::TableSnapshot table;
    Table tableIs;
    Path tablePath;
    std::optional<document::Failure> failure;
    document::Result<std::vector<std::string>> tableNotices = std::vector<std::string>();
};

void Files::saveAndThen(const std::function<void()>& then)
{
    if (!session_.hasImage())
        return;
    if (session_.labelPath().isEmpty())
        chooseTarget(then);
    else
        saveTo(session_.labelPath(), then);
}

void Files::saveWhatIsUnsaved(const std::function<void()>& then)
{
    const auto next = [this, then, series = session_.currentSeries()] {
        if (returnTo(series) && session_.markers().isModified())
            saveMarkersAndThen(then);
        else
            then();
    };
    if (session_.areLabelsModified())
        saveAndThen(next);
    else
        next();
}

// Labels that are safe already need not be written again for the sake of a name.
void Files::saveTable(const std::function<void()>& then)
{
    const Path beside = document::label_table_path(systemPath(session_.labelPath()));
    if (session_.labelPath().isEmpty() || isForeign(beside))
        chooseTableTarget(then);
    else
        saveTableTo(userPath(beside), then);
}

// By name or, under another name, by being the same file; an image's own may be gone by now.
bool Files::isImageFile(const QString& path) const
{
    const QFileInfo target(path);
    const auto is = [&](const std::string& file) {
        const QFileInfo image(QString::fromStdString(file));
        return target.absoluteFilePath() == image.absoluteFilePath() ||
               (target.exists() && target.canonicalFilePath() == image.canonicalFilePath());
    };
    return std::ranges::any_of(
        session_.series(), [&](const Series& series) { return std::ranges::any_of(series->volume.files, is); });
}

bool Files::isOwn(const Path& table) const
{
    return isThere(table) && ownTables_.contains(identityOf(table));
}

bool Files::isForeign(const Path& table) const
{
    return isThere(table) && !ownTables_.contains(identityOf(table));
}

void Files::saveTo(const QString& path, std::function<void()> then)
{
    if (!session_.hasImage() || refuseWhileBusy())
        return;
    if (isImageFile(path)) {
        return tell(tr("\"%1\" is an open image itself; the labels would take its place. Choose another name.")
                        .arg(fileName(path)));
    }
    if (const OpenSeries* other = session_.otherWithLabels(path)) {
        return tell(tr("\"%1\" holds the labels of \"%2\", which is open too. Choose another name.")
                        .arg(fileName(path), Session::nameOf(other)));
    }
    const Path table = document::label_table_path(systemPath(path));
    if (!session_.needsTable() && !isOwn(table))
        saveTo(path, Table::needless, then);
    else if (!isForeign(table))
        saveTo(path, Table::written, then);
    else if (keptTables_.contains(identityOf(table)))
        saveTo(path, Table::kept, then);
    else
        askToReplaceTable(path, then);
}

void Files::askToReplaceTable(const QString& labels, const std::function<void()>& then)
{
    const Path table = document::label_table_path(systemPath(labels));
    auto* box = messageBox(
        QMessageBox::Question, tr("Beside the label map there is already a label table %1.").arg(quoted(table)));
    box->setInformativeText(
        tr("It was not opened here. Names, colours and thresholds of the tags can take its place; or keep it, and only "
           "the labels are saved."));
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    box->button(QMessageBox::Yes)->setText(tr("&Replace"));
    box->button(QMessageBox::No)->setText(tr("&Keep"));
    box->setDefaultButton(QMessageBox::No);
    connect(box, &QMessageBox::finished, this, [this, labels, table, then](int button) {
        if (button == QMessageBox::Yes) {
            saveTo(labels, Table::written, then);
        } else if (button == QMessageBox::No) {
            keptTables_.insert(identityOf(table));
            saveTo(labels, Table::kept, then);
        }
    });
    box->open();
}

void Files::saveTo(const QString& path, Table table, const std::function<void()>& then)
{
    if (!session_.hasImage() || refuseWhileBusy())
        return;
    auto snapshot = session_.snapshot();
    if (!snapshot)
        return complain(snapshot.failure());
    const Path file = systemPath(path);
    auto saving = std::make_shared<Saving>(
        Saving{std::move(*snapshot), session_.tableSnapshot(), table, document::label_table_path(file), {}});
    worker_.start(
        tr("Saving %1").arg(fileName(path)),
        [saving, file](const document::Progress&) {
            saving->failure = document::save_labels(file, saving->labels.labels);
            if (!saving->failure && saving->tableIs == Table::written)
                saving->tableNotices = document::save_label_table(saving->tablePath, saving->table.rows);
        },
        [this, path, saving, then] { labelsSaved(path, *saving, then); },
        [this, path](const QString& reason) { tell(tr("\"%1\" could not be saved: %2").arg(fileName(path), reason)); });
}

void Files::labelsSaved(const QString& path, const Saving& saving, const std::function<void()>& then)
{
    if (saving.failure)
        return complain(*saving.failure);
    session_.markSaved(path, saving.labels);
    const QString text = tr("Labels saved to \"%1\".").arg(fileName(path));
    if (!saving.tableNotices) {
        emit said(text);
        return complain(saving.tableNotices.failure());
    }
    if (saving.tableIs == Table::kept) {
        const QString kept = tr("Names, colours and thresholds are not: %1 is kept.").arg(quoted(saving.tablePath));
        emit said(joined({text, kept}, {}));
    } else {
        session_.markTableSaved(saving.table.state);
        emit said(joined({text}, *saving.tableNotices));
    }
    if (saving.tableIs == Table::written)
        ownTables_.insert(identityOf(saving.tablePath));
    if (then)
        then();
}

void Files::saveTableTo(const QString& path, std::function<void()> then)
{
    if (refuseWhileBusy())
        return;
    using Notices = document::Result<std::vector<std::string>>;
    auto notices = std::make_shared<Notices>(std::vector<std::string>());
    auto table = std::make_shared<Session::TableSnapshot>(session_.tableSnapshot());
    worker_.start(
        tr("Saving %1").arg(fileName(path)),
        [file = systemPath(path), table, notices](
            const document::Progress&) { *notices = document::save_label_table(file, table->rows); },
        [this, path, table, notices, then] {
            if (!*notices)
                return complain(notices->failure());
            ownTables_.insert(identityOf(systemPath(path)));
            session_.markTableSaved(table->state);
            const QString text = tr("Names, colours and thresholds saved to \"%1\".").arg(fileName(path));
            emit said(joined({text}, **notices));
            if (then)
                then();
        },
        [this, path](const QString& reason) { tell(tr("\"%1\" could not be saved: %2").arg(fileName(path), reason)); });
}

}
