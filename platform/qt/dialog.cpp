#include "platform/qt/dialog.h"

#include "platform/qt/key_table.h"

#include <QApplication>
#include <QHash>
#include <QScreen>

#include <algorithm>
#include <cstring>
#include <utility>

// Dialogs without controls, from a template.

namespace {

constexpr int base_unit_x = 8;
constexpr int base_unit_y = 16;

// Dialog units are quarters and eighths of the base units.
QPoint to_pixels(int x, int y)
{
    return {x * base_unit_x / 4, y * base_unit_y / 8};
}

// The 16-bit characters behind the template: an empty menu, an empty class, and the caption.
const std::byte* texts_of(const DLGTEMPLATE& description)
{
    return reinterpret_cast<const std::byte*>(&description) + sizeof description;
}

char16_t unit_at(const std::byte* texts, int index)
{
    char16_t unit;
    std::memcpy(&unit, texts + index * int{sizeof unit}, sizeof unit);
    return unit;
}

QString caption_of(const DLGTEMPLATE& description)
{
    constexpr int first = 2;
    QString caption;
    for (int i = first; const char16_t unit = unit_at(texts_of(description), i); ++i)
        caption += QChar(unit);
    return caption;
}

bool can_be_read(const DLGTEMPLATE& description)
{
    constexpr DWORD extended = 0xFFFF0001; // is another kind of template
    const std::byte* const texts = texts_of(description);
    return description.style != extended && description.cdit == 0 && unit_at(texts, 0) == 0 && unit_at(texts, 1) == 0;
}

Qt::WindowFlags flags_of(DWORD style)
{
    Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::MSWindowsFixedSizeDialogHint;
    if ((style & WS_CAPTION) == WS_CAPTION)
        flags |= Qt::WindowTitleHint;
    if (style & WS_SYSMENU)
        flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    return flags;
}

// Where all of the window, with its frame, is on the screen.
QPoint on_screen(QPoint place, HWND window)
{
    RECT whole{};
    GetWindowRect(window, &whole);
    const QScreen* at = QGuiApplication::screenAt(place);
    const QRect room = (at ? at : QGuiApplication::primaryScreen())->availableGeometry();
    return {std::max(std::min(place.x(), room.right() + 1 - (whole.right - whole.left)), room.left()),
        std::max(std::min(place.y(), room.bottom() + 1 - (whole.bottom - whole.top)), room.top())};
}

QHash<HWND, Dialog*>& dialogs()
{
    static auto& open = *new QHash<HWND, Dialog*>;
    return open;
}

}

Dialog* Dialog::of(HWND window)
{
    return dialogs().value(window, nullptr);
}

Dialog::Dialog(HINSTANCE instance, const DLGTEMPLATE& description, QWidget* owner, DLGPROC procedure)
    : owner_(owner), had_focus_(QApplication::focusWidget()), procedure_(procedure)
{
    const QColor back = QApplication::palette().color(QPalette::Window);
    background_ = CreateSolidBrush(RGB(back.red(), back.green(), back.blue()));
    take_input();
    auto* const window = new Window(owner, "#32770", Procedure, background_);
    window->instance = instance;
    window->takes_keys = true;
    window->setWindowFlags(flags_of(description.style));
    window->setWindowModality(disabled_ ? Qt::WindowModal : owner ? Qt::ApplicationModal : Qt::NonModal);
    window->setEnabled(true);
    window->setWindowTitle(caption_of(description));
    const QPoint size = to_pixels(description.cx, description.cy);
    window->setFixedSize(std::max(size.x(), 0), std::max(size.y(), 0));
    const QPoint corner = owner ? owner->mapToGlobal(QPoint(0, 0)) : QPoint(0, 0);
    window_ = window->handle();
    window->move(on_screen(corner + to_pixels(description.x, description.y), window_));
    dialogs().insert(window_, this);
    window->tell_size();
}

Dialog::~Dialog()
{
    give_input_back();
    DestroyWindow(window_);
    dialogs().remove(window_);
    DeleteObject(background_);
}

// ---------------------------------------------------------------------------------------------------- the input

// A window of Qt's would look disabled; the dialog's being modal is enough for it.
void Dialog::take_input()
{
    if (Window* captured = captured_window())
        captured->send(WM_CANCELMODE, 0, 0);
    auto* const window = dynamic_cast<Window*>(owner_.data());
    if (window && IsWindowEnabled(window->handle())) {
        disabled_ = window->handle();
        EnableWindow(disabled_, FALSE);
    }
    has_input_ = true;
}

// A button that opened the dialog may have come up over what the dialog kept from hearing of it.
void Dialog::give_input_back()
{
    if (!std::exchange(has_input_, false))
        return;
    EnableWindow(std::exchange(disabled_, nullptr), TRUE);
    ShowWindow(window_, SW_HIDE);
    Key_Table::get().follow_buttons(QGuiApplication::mouseButtons());
    if (owner_ && owner_->isVisible())
        owner_->activateWindow();
    if (had_focus_)
        had_focus_->setFocus();
}

// ------------------------------------------------------------------------------------------------------ messages

INT_PTR Dialog::run(LPARAM parameter)
{
    started_ = true;
    SendMessageA(window_, WM_INITDIALOG, 0, parameter);
    if (Window* window = ended_ ? nullptr : Window::of(window_)) {
        window->show();
        window->activateWindow();
        window->setFocus();
        if (!ended_)
            loop_.run();
    }
    return result_;
}

void Dialog::end(INT_PTR result)
{
    result_ = result;
    ended_ = true;
    give_input_back();
    loop_.end();
}

LRESULT CALLBACK Dialog::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    Dialog* const dialog = of(window);
    return dialog && dialog->started_ ? dialog->handle(message, wparam, lparam)
                                      : DefWindowProcA(window, message, wparam, lparam);
}

LRESULT Dialog::handle(UINT message, WPARAM wparam, LPARAM lparam)
{
    SetWindowLongPtrA(window_, DWLP_MSGRESULT, 0);
    const INT_PTR done = procedure_(window_, message, wparam, lparam);
    if (message == WM_DESTROY) {
        ended_ = true;
        loop_.end();
    }
    if (done)
        return message == WM_INITDIALOG ? done : GetWindowLongPtrA(window_, DWLP_MSGRESULT);
    if (message == WM_CLOSE)
        return !PostMessageA(window_, WM_COMMAND, IDCANCEL, 0);
    return DefWindowProcA(window_, message, wparam, lparam);
}

bool Dialog::takes_key(const MSG& message)
{
    if (message.message != WM_KEYDOWN || !of(message.hwnd))
        return false;
    const LRESULT wanted =
        SendMessageA(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
    if (wanted & DLGC_WANTALLKEYS)
        return false;
    switch (message.wParam) {
    case VK_RETURN:
    case VK_ESCAPE:
        SendMessageA(message.hwnd, WM_COMMAND, message.wParam == VK_RETURN ? IDOK : IDCANCEL, 0);
        return true;
    case VK_TAB:
        return (wanted & DLGC_WANTTAB) == 0;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        return (wanted & DLGC_WANTARROWS) == 0;
    default:
        return false;
    }
}

// --------------------------------------------------------------------------------------------------------- calls

LONG GetDialogBaseUnits()
{
    return MAKELONG(base_unit_x, base_unit_y);
}

INT_PTR DialogBoxIndirectParamA(
    HINSTANCE instance, LPCDLGTEMPLATEA description, HWND owner, DLGPROC procedure, LPARAM parameter)
{
    if (owner && !Window::of(owner))
        return 0;
    if (!description || !procedure || !can_be_read(*description))
        return -1;
    ensure_application();
    QWidget* const top = owner ? Window::of(owner)->window() : QApplication::activeWindow();
    return Dialog(instance, *description, top, procedure).run(parameter);
}

BOOL EndDialog(HWND window, INT_PTR result)
{
    Dialog* const dialog = Dialog::of(window);
    if (!dialog)
        return FALSE;
    dialog->end(result);
    return TRUE;
}
