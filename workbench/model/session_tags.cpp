#include "hostkit/structures/segmentation.h"
#include "workbench/model/commands.h"
#include "workbench/model/host_words.h"
#include "workbench/model/session.h"

#include <QFileInfo>

// The tags as a label table: names, colours, thresholds, and their steps of undo.

namespace workbench {

namespace {

QString textOf(const document::LabelEntry& entry)
{
    return QString::fromStdString(entry.name);
}

QRgb colourOf(const document::LabelEntry& entry)
{
    return qRgb(entry.red, entry.green, entry.blue);
}

}

std::optional<Thresholds> Session::thresholds(unsigned tag) const
{
    return tag < hostkit::most_tags ? table_.entry(tag).thresholds : std::nullopt;
}

void Session::setThresholds(unsigned tag, std::optional<Thresholds> thresholds)
{
    if (tag >= tagCount())
        return;
    document::LabelEntry entry = tagEntry(tag);
    entry.thresholds = thresholds;
    editTag(entry);
}

void Session::setTagColour(unsigned tag, const QColor& colour)
{
    if (tag >= tagCount())
        return;
    document::LabelEntry entry = tagEntry(tag);
    entry.red = static_cast<std::uint8_t>(colour.red());
    entry.green = static_cast<std::uint8_t>(colour.green());
    entry.blue = static_cast<std::uint8_t>(colour.blue());
    editTag(entry);
}

void Session::editTag(const document::LabelEntry& entry)
{
    if (entry.tag <= 0 || entry.tag >= static_cast<int>(tagCount()))
        return;
    pushTags(stepText(tagEntry(static_cast<unsigned>(entry.tag)), entry), table_.with(entry));
}

void Session::adoptTable(const document::LabelTable& table, const QString& path)
{
    pushTags(tr("Load %1").arg(QFileInfo(path).fileName()), table_.of(table));
    markTableSaved(table_.state());
}

void Session::markTableSaved(const TagTable::State& state)
{
    table_.markSaved(state);
    emit titleChanged();
}

void Session::pushRenamings()
{
    for (const document::LabelEntry& entry : table_.renamed())
        pushTags(stepText(tagEntry(static_cast<unsigned>(entry.tag)), entry), table_.with(entry));
}

void Session::pushTags(const QString& text, const TagTable::State& after)
{
    if (*after != *table_.state())
        undoStack().push(new TagCommand(*this, text, table_.state(), after));
}

// Words are sent when all is in place. Names that did not get into the host are not told of: whoever asks for names
// takes a difference between host and table for a name that was typed.
void Session::changeTags(const TagTable::State& from, const TagTable::State& to)
{
    const TagTable::Changes changes = table_.show(table_.changed(from, to));
    if (changes.outOfMemory)
        emit message(tr("There is not enough memory to rename the tag."));
    else if (changes.names)
        word::tell(word::tag_names);
    if (changes.colours)
        word::tell(word::tag_colours);
    if (changes.thresholds)
        emit thresholdsChanged();
    emit titleChanged();
}

QString Session::titleOf(unsigned tag, const QString& name)
{
    if (!name.isEmpty())
        return name;
    return tag == 0 ? tr("Background") : tr("Tag %1").arg(tag);
}

QString Session::stepText(const document::LabelEntry& before, const document::LabelEntry& after)
{
    const auto tag = static_cast<unsigned>(after.tag);
    const QString was = titleOf(tag, textOf(before)), is = textOf(after);
    const bool renamed = before.name != after.name;
    const bool coloured = colourOf(before) != colourOf(after);
    const bool bounded = before.thresholds != after.thresholds;
    if (renamed + coloured + bounded != 1)
        return tr("Edit %1").arg(titleOf(tag, is));
    if (renamed)
        return is.isEmpty() ? tr("Clear the name of %1").arg(was) : tr("Rename %1 to %2").arg(was, is);
    if (coloured)
        return tr("Set colour of %1").arg(was);
    return after.thresholds ? tr("Set thresholds of %1").arg(was) : tr("Clear thresholds of %1").arg(was);
}

}
