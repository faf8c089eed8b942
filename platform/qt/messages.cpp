#include "platform/qt/dialog.h"
#include "platform/qt/window.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <algorithm>
#include <deque>
#include <mutex>
#include <utility>

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
        const std::lock_guard lock(mutex_);
        waiting_.push_back(message);
        announce();
    }

    bool take(MSG& message, HWND window, UINT first, UINT last, bool remove)
    {
        const auto wanted = [&](const MSG& one) {
            const bool of_window = !window || one.hwnd == window || one.message == WM_QUIT;
            const bool in_range = (first == 0 && last == 0) || (one.message >= first && one.message <= last);
            return of_window && (in_range || one.message == WM_QUIT);
        };
        return take_first(message, wanted, remove);
    }

    /// Without a WM_QUIT that is in the way.
    bool take_only(MSG& message, HWND window, UINT kind)
    {
        const auto wanted = [&](const MSG& one) { return one.hwnd == window && one.message == kind; };
        return take_first(message, wanted, true);
    }

    /// Sets how many readers take what is posted, until now and from now on. Without any, what they left goes to the
    /// procedures.
    int set_readers(int count)
    {
        const int before = std::exchange(readers_, count);
        const std::lock_guard lock(mutex_);
        for (size_t left = 0; readers_ == 0 && left < waiting_.size(); ++left)
            announce();
        return before;
    }

    int readers() const { return readers_; }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != posted)
            return QObject::event(event);
        MSG message;
        if (readers_ > 0 || !take(message, nullptr, 0, 0, true))
            return true;
        if (message.message == WM_QUIT)
            quit(message);
        else if (!Dialog::takes_key(message))
            DispatchMessageA(&message);
        return true;
    }

private:
    // The loop that runs inside ends first, and leaves it to the one around it.
    void quit(const MSG& message)
    {
        Modal_Loop* const inner = Modal_Loop::innermost();
        if (!inner)
            return QCoreApplication::exit(static_cast<int>(message.wParam));
        const std::lock_guard lock(mutex_);
        waiting_.push_front(message);
        inner->end();
    }

    template <class Wanted>
    bool take_first(MSG& message, const Wanted& wanted, bool remove)
    {
        const std::lock_guard lock(mutex_);
        const auto found = std::find_if(waiting_.begin(), waiting_.end(), wanted);
        if (found == waiting_.end())
            return false;
        message = *found;
        if (remove)
            waiting_.erase(found);
        return true;
    }

    void announce() { QCoreApplication::postEvent(this, new QEvent(posted)); }

    std::mutex mutex_;
    std::deque<MSG> waiting_;
    int readers_ = 0; // of the innermost loop: GetMessageA and PeekMessageA take what is posted
};

// While it lives, what is posted stays for the reader.
class Reader {
public:
    Reader() { Queue::get().set_readers(Queue::get().readers() + 1); }
    ~Reader() { Queue::get().set_readers(Queue::get().readers() - 1); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
};

int procedures_on_stack = 0;
Modal_Loop* innermost_loop = nullptr;

}

Modal_Loop* Modal_Loop::innermost()
{
    return innermost_loop;
}

void Modal_Loop::run()
{
    Modal_Loop* const outer = std::exchange(innermost_loop, this);
    loop_.exec();
    innermost_loop = outer;
    Queue::get().set_readers(Queue::get().readers()); // what is left is for the loop around this one
}

bool take_posted(HWND window, UINT kind, MSG& message)
{
    return Queue::get().take_only(message, window, kind);
}

Procedure_Call::Procedure_Call() : outer_readers_(Queue::get().readers() == 0 ? 0 : Queue::get().set_readers(0))
{
    ++procedures_on_stack;
}

Procedure_Call::~Procedure_Call()
{
    --procedures_on_stack;
    if (outer_readers_ > 0)
        Queue::get().set_readers(outer_readers_);
}

bool Procedure_Call::any()
{
    return procedures_on_stack > 0;
}

BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last)
{
    ensure_application();
    Queue& queue = Queue::get();
    const Reader reader;
    while (!queue.take(*message, window, first, last, true)) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return message->message != WM_QUIT;
}

BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove)
{
    ensure_application();
    Queue& queue = Queue::get();
    const Reader reader;
    if (last == 0) // whoever drains some messages in the middle of one is not called back with others
        QCoreApplication::processEvents();
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
    if (QThread::currentThread() == Queue::get().thread())
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
    if (message == WM_CANCELMODE)
        release_capture_of(found);
    if (message == WM_PAINT) {
        PAINTSTRUCT paint;
        BeginPaint(window, &paint); // lays down the class's background
        EndPaint(window, &paint);
    }
    return 0;
}
