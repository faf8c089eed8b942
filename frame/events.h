#pragma once

/// The words that mouse and keyboard events carry.
namespace frame {

/// The up-down word of `Click` and `Motion`.
namespace up_down {
constexpr int release = 0;      ///< a plain release: no button is down any more
constexpr int right_press = 66; ///< the right button went down, and no other is
}

constexpr int escape_key = 27;

/// Whether the editor is active, as the question that Texts::Select answers.
constexpr int is_active_question = 1;

}
