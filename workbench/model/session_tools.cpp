#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "workbench/model/commands.h"
#include "workbench/model/host_words.h"
#include "workbench/model/session.h"

// Tags and brushes: the host's variables, and telling the host of their changes.

namespace workbench {

namespace {

unsigned short& number(const char* name)
{
    return hostkit::Variable<unsigned short>(name);
}

void tell(unsigned long long flags)
{
    Fct_Update(flags, nullptr, nullptr, nullptr);
}

QString title(unsigned tag, const QString& name)
{
    if (!name.isEmpty())
        return name;
    return tag == 0 ? Session::tr("Background") : Session::tr("Tag %1").arg(tag);
}

}

unsigned Session::tagCount() const
{
    return number("$TAG_NB");
}

unsigned Session::currentTag() const
{
    return number("$TAG_CUR");
}

void Session::setCurrentTag(unsigned tag)
{
    if (tag >= tagCount())
        return;
    number("$TAG_CUR") = static_cast<unsigned short>(tag);
    tell(word::current_tag);
}

QString Session::tagName(unsigned tag) const
{
    return QString::fromUtf8(hostkit::Tag_Label(tag));
}

QString Session::tagTitle(unsigned tag) const
{
    return title(tag, tagName(tag));
}

QColor Session::tagColour(unsigned tag) const
{
    const Colors colour = hostkit::Tag_Color(tag);
    return QColor(colour.red, colour.green, colour.blue);
}

bool Session::isTagLocked(unsigned tag) const
{
    return hostkit::Tag_Locked(tag);
}

void Session::toggleLock(unsigned tag)
{
    if (tag >= tagCount())
        return;
    hostkit::Tag_Lock(tag, !hostkit::Tag_Locked(tag));
    tell(word::tag_locks);
}

void Session::pushRenamings()
{
    for (const Renaming& renaming : names_.takeChanges()) {
        const QString before = title(renaming.tag, QString::fromStdString(renaming.before));
        const QString after = QString::fromStdString(renaming.after);
        const QString text =
            after.isEmpty() ? tr("Clear the name of %1").arg(before) : tr("Rename %1 to %2").arg(before, after);
        undo_.push(new RenameCommand(*this, text, renaming));
    }
}

void Session::setTagName(unsigned tag, const std::string& name)
{
    if (!hostkit::Tag_Label_Set(tag, name.c_str())) {
        emit message(tr("There is not enough memory to rename the tag."));
        return;
    }
    names_.takeChanges(); // made by a step of undo, so it is none of its own
    tell(word::tag_names);
}

unsigned Session::brushCount() const
{
    return number("$BRUSH_NB");
}

unsigned Session::currentBrush() const
{
    return number("$BRUSH_CUR");
}

void Session::setCurrentBrush(unsigned brush)
{
    if (brush >= brushCount())
        return;
    number("$BRUSH_CUR") = static_cast<unsigned short>(brush);
    tell(word::brushes);
}

void Session::smallerBrush()
{
    if (currentBrush() > 0)
        setCurrentBrush(currentBrush() - 1);
}

void Session::largerBrush()
{
    setCurrentBrush(currentBrush() + 1);
}

unsigned Session::brushRadius() const
{
    const auto* radii = hostkit::Array_Variable<unsigned short>("$BRUSH_SIZE");
    return radii && currentBrush() < brushCount() ? radii[currentBrush()] : 0;
}

}
