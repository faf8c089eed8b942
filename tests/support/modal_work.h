#pragma once

#include "platform/windows_api.h"

#include <functional>

namespace test {

/// Work for the time when a call waits in a message loop of its own, as an opened list does.
class Modal_Work {
public:
    Modal_Work();
    ~Modal_Work();
    Modal_Work(const Modal_Work&) = delete;
    Modal_Work& operator=(const Modal_Work&) = delete;

    /// Posts work to the loop that runs next. It is given the window that has the capture then; afterwards that window
    /// gets the Escape key, so that nothing waits for ever.
    void post(std::function<void(HWND captured)> work);

    /// Whether what was posted has been done.
    bool done() const;

private:
    HWND window_;
};

}
