#include "hostkit/structures/broadcast.h"

#include "host/basics.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <utility>
#include <vector>

namespace {

using Callback = std::function<void(unsigned long long)>;

struct Listener {
    int id;
    bool wants_redraw;
    std::shared_ptr<Callback> call;
};

class Broadcaster {
public:
    static Broadcaster& get()
    {
        static Broadcaster& broadcaster = *new Broadcaster; // listeners may leave while the process ends
        return broadcaster;
    }

    int add(bool wants_redraw, Callback call)
    {
        listeners_.push_back({++last_id_, wants_redraw, std::make_shared<Callback>(std::move(call))});
        return last_id_;
    }

    void remove(int id)
    {
        std::erase_if(listeners_, [id](const Listener& listener) { return listener.id == id; });
    }

    void send_update(unsigned long long flags)
    {
        if (std::find(updates_.begin(), updates_.end(), flags) == updates_.end())
            updates_.push_back(flags);
        deliver_if_idle();
    }

    void send_redraw(unsigned long long mask)
    {
        redraw_ |= mask;
        deliver_if_idle();
    }

    void run_later(std::function<void()> work)
    {
        later_.push_back(std::move(work));
        deliver_if_idle();
    }

    void enter() { ++depth_; }

    void leave()
    {
        --depth_;
        deliver_if_idle();
    }

private:
    void deliver_if_idle()
    {
        if (depth_ > 0)
            return;
        ++depth_; // what is sent meanwhile waits for its turn in this loop
        while (deliver_one()) {
        }
        --depth_;
    }

    bool deliver_one()
    {
        if (!updates_.empty()) {
            const auto flags = updates_.front();
            updates_.erase(updates_.begin()); // being delivered: the same word may be sent again
            tell(false, flags);
            return true;
        }
        if (redraw_ != 0) {
            tell(true, std::exchange(redraw_, 0));
            return true;
        }
        if (!later_.empty()) {
            const auto work = std::move(later_.front());
            later_.erase(later_.begin());
            guarded(work);
            return true;
        }
        return false;
    }

    // A listener may come or go while another is told: the ones that were there are told, if they still are.
    void tell(bool redraw, unsigned long long word)
    {
        const auto present = listeners_;
        for (const auto& listener : present) {
            if (listener.wants_redraw == redraw && is_listening(listener.id))
                guarded([&] { (*listener.call)(word); });
        }
    }

    bool is_listening(int id) const
    {
        return std::any_of(listeners_.begin(), listeners_.end(), [id](const Listener& one) { return one.id == id; });
    }

    template <class Work>
    static void guarded(const Work& work)
    {
        try {
            work();
        } catch (const std::exception& error) {
            Error_Fct(hwnd, 2, "A view could not be refreshed: %s", error.what());
        }
    }

    std::vector<Listener> listeners_;
    std::vector<unsigned long long> updates_;
    std::vector<std::function<void()>> later_;
    unsigned long long redraw_ = 0;
    int depth_ = 0;
    int last_id_ = 0;
};

}

void Fct_Update(unsigned long long flags, void*, void*, Region_2D*)
{
    Broadcaster::get().send_update(flags);
}

void Fct_Redraw(unsigned long long mask, void*, void*, Region_2D*)
{
    Broadcaster::get().send_redraw(mask);
}

namespace hostkit {

Subscription::~Subscription()
{
    if (id_ != 0)
        Broadcaster::get().remove(id_);
}

Subscription On_Update(std::function<void(unsigned long long)> listener)
{
    return Subscription(Broadcaster::get().add(false, std::move(listener)));
}

Subscription On_Redraw(std::function<void(unsigned long long)> listener)
{
    return Subscription(Broadcaster::get().add(true, std::move(listener)));
}

Panel_Call::Panel_Call()
{
    Broadcaster::get().enter();
}

Panel_Call::~Panel_Call()
{
    Broadcaster::get().leave();
}

void After_Delivery(std::function<void()> work)
{
    Broadcaster::get().run_later(std::move(work));
}

}
