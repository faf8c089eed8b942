#pragma once

#include "platform/windows_api.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace test {

struct Message {
    UINT message;
    WPARAM wparam;
    LPARAM lparam;
};

/// A window that remembers what its procedure was told. What the handler gives no answer to goes to DefWindowProcA.
class Test_Window {
public:
    using Handler = std::function<std::optional<LRESULT>(UINT, WPARAM, LPARAM)>;

    /// A child of `parent`, or without one a window of its own. `early` hears of the creation, too.
    explicit Test_Window(
        HWND parent = nullptr, int width = 100, int height = 80, Handler early = {}, bool visible = true);
    ~Test_Window();
    Test_Window(const Test_Window&) = delete;
    Test_Window& operator=(const Test_Window&) = delete;

    HWND handle() const { return handle_; }
    int count(UINT message) const;
    const Message* last(UINT message) const; ///< null when there was none
    void forget() { messages_.clear(); }
    const std::vector<Message>& messages() const { return messages_; }

    Handler handler;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

    HWND handle_ = nullptr;
    std::vector<Message> messages_;
};

/// The name of the class that test windows have.
const char* test_class();

/// Deals with all messages that are waiting.
void pump();

/// UTF-8 as the wide text that the drawing calls take.
std::basic_string<WCHAR> wide(const std::string& text);

}
