#pragma once

/// The words that mouse and keyboard events carry.
namespace frame {

/// The up-down word of `Click` and `Motion`.
namespace up_down {
constexpr int release = 0;      ///< a plain release: no button is down any more
constexpr int right_press = 66; ///< the right button went down, and no other is
}

/// Whether a button went down; in a click, it was released otherwise.
constexpr bool is_press(int word)
{
    return (word & 2) != 0;
}

/// The code of a key: the low 16 bits of what `Keyboard` is given. Characters are themselves.
constexpr int key_code(int key)
{
    return key & 0xffff;
}

constexpr int escape_key = 27;
constexpr int page_up_key = 2081;
constexpr int page_down_key = 2082;
constexpr int end_key = 2083;
constexpr int home_key = 2084;
constexpr int left_key = 2085;
constexpr int right_key = 2087;
constexpr int insert_key = 2093;
constexpr int delete_key = 2094;

/// Whether the editor is active, as the question that Texts::Select answers.
constexpr int is_active_question = 1;

/// Whether the widget is active and under the pointer, as the question that a widget's Select answers.
constexpr int is_under_pointer_question = 4;

}
