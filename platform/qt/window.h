#pragma once

#include "platform/windows_api.h"

#include <QEvent>
#include <QEventLoop>
#include <QImage>
#include <QPainter>
#include <QRegion>
#include <QWidget>

#include <memory>
#include <optional>
#include <string>

class QTouchEvent;

/// What stands behind an HWND: a widget whose pixels live in a picture of its own, drawn into at any time.
class Window final : public QWidget {
public:
    /// @param window_class  the name of its class, @param background  the class's brush; null for none
    Window(QWidget* parent, std::string window_class, WNDPROC procedure, HBRUSH background);
    ~Window() override;

    /// A number that no other window ever had, so that a stale handle is never another window's.
    HWND handle() const { return handle_; }

    /// The window behind a handle; null when it is none, or none any more.
    static Window* of(HWND window);

    /// Whether there is a window of this class.
    static bool exists(const std::string& window_class);

    /// Calls the window's procedure. The widget outlives the call, even when the window is destroyed in it. An
    /// exception ends here: what called is not made for it.
    LRESULT send(UINT message, WPARAM wparam, LPARAM lparam);

    /// The same; true when the procedure answered 0 by itself, not through DefWindowProcA.
    bool offer(UINT message, WPARAM wparam, LPARAM lparam);
    void leave_unused();

    void destroy();
    void tell_size();

    enum class Background { kept, erased };
    void invalidate(const QRect& rectangle, Background under);

    /// What has to be painted, and whether the background has to be laid under it; nothing has, afterwards.
    struct To_Paint {
        QRect area;
        Background under;
    };
    To_Paint validate();
    void paint_now();

    /// The painter of the picture, shared by all contexts; open while any of them is.
    QPainter& open_painter();
    void close_painter(const QRect& drawn);
    const QImage& picture();

    HINSTANCE instance = nullptr;
    LONG_PTR user_data = 0;
    LONG_PTR message_result = 0; ///< what a dialog's procedure answers a message with
    HBRUSH background;
    bool tracks_leave = false;
    bool takes_keys = false;
    const void* painter_user = nullptr; ///< the context whose clip the painter has

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void tabletEvent(QTabletEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void fit_picture();
    void mouse(QMouseEvent* event, UINT message);
    void touch(const QTouchEvent& event);
    void tell_touch(const QTouchEvent& event);
    void finger(QEvent::Type type, const QPointF& place);
    bool destroyed() const;

    LRESULT call(UINT message, WPARAM wparam, LPARAM lparam, bool* unused);
    void tell_destroyed();

    HWND handle_;
    std::string window_class_;
    WNDPROC procedure_;
    QImage picture_;
    std::unique_ptr<QPainter> painter_;
    int contexts_ = 0;
    QRegion to_paint_;
    Background under_ = Background::kept;
    QSize told_size_{-1, -1};
    bool* unused_ = nullptr; // where the call that is offered a message learns that it was left to the default
    bool paint_posted_ = false;
    bool pinched_ = false;          // since the first finger came down there have been two
    std::optional<QPointF> finger_; // where the one is that holds the left button down
};

/// Lets what is posted reach procedures while one of them runs a loop of its own.
class Procedure_Call {
public:
    Procedure_Call();
    ~Procedure_Call();
    Procedure_Call(const Procedure_Call&) = delete;
    Procedure_Call& operator=(const Procedure_Call&) = delete;

    static bool any(); ///< whether a procedure is on the stack

private:
    int outer_readers_;
};

/// A loop inside a call, until it is ended, or the program is: whoever reads what is posted further out sees the
/// WM_QUIT, too.
class Modal_Loop {
public:
    Modal_Loop() = default;
    Modal_Loop(const Modal_Loop&) = delete;
    Modal_Loop& operator=(const Modal_Loop&) = delete;

    void run();
    void end() { loop_.exit(); }

    static Modal_Loop* innermost(); ///< that runs; or null

private:
    QEventLoop loop_;
};

/// Takes a message of this kind out of those that are posted to the window. @return false when there is none
bool take_posted(HWND window, UINT kind, MSG& message);

/// Makes the contexts of a window void.
void forget_contexts_of(const Window* window);

/// The window that has the capture, or null.
Window* captured_window();
void release_capture_of(Window* window);

/// Makes the QApplication when there is none, and watches keys and buttons.
void ensure_application();
