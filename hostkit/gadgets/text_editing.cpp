#include "hostkit/gadgets/text_editing.h"

namespace hostkit {

namespace {

Texts* active_text = nullptr;

bool is_continuation(char byte)
{
    return (byte & 0xc0) == 0x80;
}

char trailing(int character, int shift)
{
    return static_cast<char>(0x80 | ((character >> shift) & 0x3f));
}

}

Texts* Active_Text()
{
    return active_text && active_text->Active() && active_text->window ? active_text : nullptr;
}

void Note_Active_Text(Texts* editor)
{
    if (editor->Active() && editor->window)
        active_text = editor;
}

void Forget_Text(const Texts* editor)
{
    if (active_text == editor)
        active_text = nullptr;
}

int next_character(const char* text, int offset)
{
    if (text[offset] == 0)
        return offset;
    do {
        ++offset;
    } while (is_continuation(text[offset]));
    return offset;
}

int previous_character(const char* text, int offset)
{
    while (offset > 0 && is_continuation(text[offset - 1]))
        --offset;
    return offset > 0 ? offset - 1 : 0;
}

void encode_character(int character, char (&bytes)[5])
{
    char* out = bytes;
    if (character < 0x80) {
        *out++ = static_cast<char>(character);
    } else if (character < 0x800) {
        *out++ = static_cast<char>(0xc0 | character >> 6);
        *out++ = trailing(character, 0);
    } else if (character < 0x10000) {
        *out++ = static_cast<char>(0xe0 | character >> 12);
        *out++ = trailing(character, 6);
        *out++ = trailing(character, 0);
    } else {
        *out++ = static_cast<char>(0xf0 | character >> 18);
        *out++ = trailing(character, 12);
        *out++ = trailing(character, 6);
        *out++ = trailing(character, 0);
    }
    *out = 0;
}

}
