#pragma once

#include "host/structures.h"

#include <functional>
#include <utility>

/// Delivering what panels and the program send with Fct_Update and Fct_Redraw.
///
/// While a panel call is on the stack, or while the queue is being delivered, words only wait; they are delivered when
/// the outermost call has returned, or at once when nothing is going on. So a panel is never called back in the middle
/// of its own work.
namespace hostkit {

/// Keeps a listener for as long as it lives.
class STRUCTURES_API Subscription {
public:
    Subscription() = default;
    explicit Subscription(int id) : id_(id) {}
    Subscription(Subscription&& other) noexcept : id_(std::exchange(other.id_, 0)) {}
    Subscription& operator=(Subscription&& other) noexcept
    {
        std::swap(id_, other.id_);
        return *this;
    }
    ~Subscription();

private:
    int id_ = 0;
};

/// Calls `listener` with every change-flag word, the sender's own included, in the order of their first arrival.
[[nodiscard]] STRUCTURES_API Subscription On_Update(std::function<void(unsigned long long flags)> listener);

/// Calls `listener` with the redraw masks, or-ed together, after the change-flag words that came with them.
[[nodiscard]] STRUCTURES_API Subscription On_Redraw(std::function<void(unsigned long long mask)> listener);

/// Brackets every call into a panel. When the outermost bracket ends, what was sent is delivered.
class STRUCTURES_API Panel_Call {
public:
    Panel_Call();
    ~Panel_Call();
    Panel_Call(const Panel_Call&) = delete;
    Panel_Call& operator=(const Panel_Call&) = delete;
};

/// Runs `work` once everything that waits has been delivered and no panel call is on the stack: for what panels may
/// still name, such as objects that have left the tree.
STRUCTURES_API void After_Delivery(std::function<void()> work);

}
