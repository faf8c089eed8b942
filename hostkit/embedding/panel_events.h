#pragma once

#include "host/gadgets.h"

namespace hostkit {

/// The event set that every panel has, whatever its class.
class Panel_Events {
public:
    virtual ~Panel_Events() = default;
    virtual void Resize(Boxs* area) = 0;
    virtual void Draw() = 0;
    virtual int Click(int up_down) = 0;
    virtual int Motion(int up_down) = 0;
    virtual int Keyboard(int key) = 0;
    virtual int Scroll(int amount) = 0;
    virtual void Update(unsigned long long flags) = 0;
    virtual void Leave() = 0;
};

/// The event set of a panel class.
template <class Panel>
class Panel_Events_Of final : public Panel_Events {
public:
    explicit Panel_Events_Of(Panel& panel) : panel_(panel) {}
    void Resize(Boxs* area) override { panel_.Resize(area); }
    void Draw() override { panel_.Draw(); }
    int Click(int up_down) override { return panel_.Click(up_down); }
    int Motion(int up_down) override { return panel_.Motion(up_down); }
    int Keyboard(int key) override { return panel_.Keyboard(key); }
    int Scroll(int amount) override { return panel_.Scroll(amount); }
    void Update(unsigned long long flags) override { panel_.Update(flags); }
    void Leave() override { panel_.Leave(); }

private:
    Panel& panel_;
};

}
