#include "platform/qt/window.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <deque>

// The message queue. What Qt reports (input, painting) reaches a window's procedure while GetMessageA waits, as sent
// messages do; what is posted comes out of GetMessageA, or, in a program that runs Qt's own loop, goes to the
// procedure.

namespace {

const QEvent::Type posted = static_cast<QEvent::Type>(QEvent::registerEventType());

class Queue final : public QObject {
public:
    static Queue& get()
    {
        static Queue& queue = *new Queue;
        return queue;
    }

    void post(const MSG& message)
    {
        waiting_.push_back(message);
        QCoreApplication::postEvent(this, new QEvent(posted));
    }

    bool take(MSG& message, HWND window, UINT first, UINT last, bool remove)
    {
        const auto wanted = [&](const MSG& one) {
            const bool of_window = !window || one.hwnd == window || one.message == WM_QUIT;
            const bool in_range = (first == 0 && last == 0) || (one.message >= first && one.message <= last);
            return of_window && (in_range || one.message == WM_QUIT);
        };
        const auto found = std::find_if(waiting_.begin(), waiting_.end(), wanted);
        if (found == waiting_.end())
            return false;
        message = *found;
        if (remove)
            waiting_.erase(found);
        return true;
    }

    int readers = 0; // GetMessageA calls on the stack: they take what is posted

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != posted)
            return QObject::event(event);
        MSG message;
        if (readers == 0 && take(message, nullptr, 0, 0, true)) {
            if (message.message == WM_QUIT)
                QCoreApplication::exit(static_cast<int>(message.wParam));
            else
                DispatchMessageA(&message);
        }
        return true;
    }

private:
    std::deque<MSG> waiting_;
};

}

BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last)
{
    ensure_application();
    Queue& queue = Queue::get();
    ++queue.readers;
    while (!queue.take(*message, window, first, last, true)) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    --queue.readers;
    return message->message != WM_QUIT;
}

BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove)
{
    ensure_application();
    Queue& queue = Queue::get();
    ++queue.readers;
    QCoreApplication::processEvents();
    --queue.readers;
    return queue.take(*message, window, first, last, (remove & PM_REMOVE) != 0);
}

// Characters come with the key that types them.
BOOL TranslateMessage(const MSG*)
{
    return FALSE;
}

LRESULT DispatchMessageA(const MSG* message)
{
    return message ? SendMessageA(message->hwnd, message->message, message->wParam, message->lParam) : 0;
}

LRESULT SendMessageA(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    Window* found = Window::of(window);
    return found ? found->send(message, wparam, lparam) : 0;
}

BOOL PostMessageA(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    if (window && !Window::of(window))
        return FALSE;
    MSG posted_message{};
    posted_message.hwnd = window;
    posted_message.message = message;
    posted_message.wParam = wparam;
    posted_message.lParam = lparam;
    GetCursorPos(&posted_message.pt);
    Queue::get().post(posted_message);
    return TRUE;
}

void PostQuitMessage(int exit_code)
{
    PostMessageA(nullptr, WM_QUIT, static_cast<WPARAM>(exit_code), 0);
}

LRESULT DefWindowProcA(HWND window, UINT message, WPARAM, LPARAM)
{
    Window* found = Window::of(window);
    if (!found)
        return 0;
    found->leave_unused();
    if (message == WM_CLOSE)
        found->destroy();
    if (message == WM_PAINT)
        found->validate();
    return 0;
}
