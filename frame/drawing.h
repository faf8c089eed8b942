#pragma once

#include "host/gadgets.h"

namespace frame {

/// The drawing context of a window, for as long as it lives. Y_release is due even when there is no context, because
/// the critical section is held all the same.
class Drawing {
public:
    Drawing(HWND window, const char* caller) : ready_(Y_setup(window, caller) != 0) {}
    ~Drawing() { Y_release(); }
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    bool ready() const { return ready_; }

private:
    bool ready_;
};

}
