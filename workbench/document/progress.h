#pragma once

#include <atomic>
#include <functional>

namespace document {

/// How a long call tells how far it is and learns that it shall stop. Both are used in the thread that makes the call.
struct Progress {
    std::function<void(double done)> report;      ///< 0 to 1, rising; may be empty
    const std::atomic<bool>* cancelled = nullptr; ///< set by another thread to stop; may be null

    void at(double done) const
    {
        if (report)
            report(done);
    }
    bool stop() const { return cancelled && cancelled->load(std::memory_order_relaxed); }
};

}
