#pragma once

#include "platform/windows_api.h"

#include <QObject>

class QInputEvent;
class QKeyEvent;
class QMouseEvent;

/// Which keys and buttons are down, as the interface thread has seen it: kept up to date with every event that any
/// widget gets.
class Key_Table final : public QObject {
public:
    static Key_Table& get();

    bool down(int key) const { return (keys_[key & 0xff] & 0x80) != 0; }
    void set(int key, bool is_down) { keys_[key & 0xff] = is_down ? 0x80 : 0; }
    const BYTE* all() const { return keys_; }
    void set_all(const BYTE* keys);

    bool eventFilter(QObject* object, QEvent* event) override;

    void follow_buttons(Qt::MouseButtons buttons);

private:
    void follow_modifiers(Qt::KeyboardModifiers modifiers);

    BYTE keys_[256] = {};
};

/// The virtual-key code of a Qt key; 0 for one that has none.
int virtual_key(const QKeyEvent& event);

/// The MK_ flags of a mouse or wheel event.
WPARAM mouse_flags(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers);
