#include "workbench/shell/panel_keys.h"

#include "hostkit/embedding/panel_window.h"
#include "platform/qt/window_widget.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace workbench {

namespace {

int virtualKey(int key)
{
    switch (key) {
    case Qt::Key_PageUp:
        return VK_PRIOR;
    case Qt::Key_PageDown:
        return VK_NEXT;
    case Qt::Key_End:
        return VK_END;
    case Qt::Key_Home:
        return VK_HOME;
    case Qt::Key_Left:
        return VK_LEFT;
    case Qt::Key_Up:
        return VK_UP;
    case Qt::Key_Right:
        return VK_RIGHT;
    case Qt::Key_Down:
        return VK_DOWN;
    case Qt::Key_Insert:
        return VK_INSERT;
    case Qt::Key_Delete:
        return VK_DELETE;
    default:
        return 0;
    }
}

}

int panelKeyCode(const QKeyEvent& event)
{
    if (const int navigation = virtualKey(event.key()))
        return Parse_Keyboard(nullptr, WM_KEYDOWN, static_cast<WPARAM>(navigation), 0);
    const auto characters = event.text().toUcs4();
    return characters.isEmpty() ? 0 : Parse_Keyboard(nullptr, WM_CHAR, characters.front(), 0);
}

PanelKeys::PanelKeys(
    std::vector<hostkit::Panel_Window*> panels, std::function<bool(const QKeyEvent&)> first, QObject* parent)
    : QObject(parent), panels_(std::move(panels)), first_(std::move(first))
{
    QCoreApplication::instance()->installEventFilter(this);
}

// A key comes first as the question whether it is a shortcut, then, if it was none, as a key press.
bool PanelKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (event->type() == QEvent::KeyPress && std::exchange(usedKey_, 0) == key->key())
        return true;
    if (!offer(*key))
        return false;
    if (event->type() == QEvent::ShortcutOverride)
        usedKey_ = key->key();
    event->accept();
    return true;
}

bool PanelKeys::offer(const QKeyEvent& event)
{
    hostkit::Panel_Window* panel = panelUnderPointer();
    if (!panel)
        return false;
    if (first_ && first_(event))
        return true;
    const int code = panelKeyCode(event);
    return code != 0 && panel->Keyboard(code);
}

hostkit::Panel_Window* PanelKeys::panelUnderPointer() const
{
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return nullptr;
    for (hostkit::Panel_Window* panel : panels_) {
        const QWidget* widget = Widget_From_Window(panel->window());
        if (!widget || !widget->isVisible() || !widget->window()->isActiveWindow())
            continue;
        if (widget->visibleRegion().contains(widget->mapFromGlobal(QCursor::pos())))
            return panel;
    }
    return nullptr;
}

}
