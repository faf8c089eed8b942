#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "workbench/model/host_words.h"
#include "workbench/model/session.h"

// Tags and brushes: the host's variables, and telling the host of their changes.

namespace workbench {

namespace {

unsigned short& number(const char* name)
{
    return hostkit::Variable<unsigned short>(name);
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
    word::tell(word::current_tag);
}

QString Session::tagName(unsigned tag) const
{
    return QString::fromUtf8(hostkit::Tag_Label(tag));
}

QString Session::tagTitle(unsigned tag) const
{
    return titleOf(tag, tagName(tag));
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
    word::tell(word::tag_locks);
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
    word::tell(word::brushes);
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
