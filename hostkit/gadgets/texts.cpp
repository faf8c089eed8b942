#include "hostkit/gadgets/keys.h"
#include "hostkit/gadgets/paint.h"
#include "hostkit/gadgets/text_editing.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <string>
#include <utility>

using hostkit::Area;
using hostkit::blend;
using hostkit::Paint;

namespace keys = hostkit::keys;

namespace {

constexpr int is_active_question = 1;
constexpr int margin = 5;

enum Finished : unsigned char { editing, finished, cancelled };

// Away from the text's colour, so that dark texts stand on light fields and light ones on dark fields.
Colors field_color(const Tools& editor)
{
    const auto brightness = [](Colors color) { return color.red + 2 * color.green + color.blue; };
    constexpr Colors black{0, 0, 0}, white{255, 255, 255};
    return blend(editor.back, brightness(editor.text) < brightness(editor.back) ? white : black, 160);
}

bool is_printable(int key)
{
    const bool navigation = key >= keys::page_up && key <= keys::delete_forward;
    const bool half_of_a_pair = key >= 0xd800 && key <= 0xdfff;
    const bool control = key < 32 || (key >= 127 && key < 160);
    return !control && key <= 0x10ffff && !navigation && !half_of_a_pair;
}

}

Texts::Texts(const Texts&) = default;
Texts& Texts::operator=(const Texts&) = default;

Texts::~Texts()
{
    hostkit::Forget_Text(this);
}

void Texts::Init(HWND owner)
{
    Set_Window(owner);
}

void Texts::Cleanup()
{
    hostkit::Forget_Text(this);
    Read(nullptr);
    font = nullptr;
}

void Texts::Read(const char* loaded)
{
    loaded_.set(loaded);
    content_ = loaded_;
    caret_ = anchor_ = static_cast<int>(std::strlen(content_.get()));
    scroll_ = 0;
    finished_ = editing;
    dragging_ = 0;
    hostkit::Note_Active_Text(this);
}

char* Texts::Update()
{
    static char nothing[1] = "";
    const int state_before = finished_;
    finished_ = editing;
    if (state_before == editing)
        return nullptr;
    nothing[0] = 0;
    // An empty content has no memory of its own.
    return state_before == cancelled || !*content_.get() ? nothing : const_cast<char*>(content_.get());
}

// ------------------------------------------------------------------------------------------------------ editing

void Texts::Input(int key)
{
    if (key == keys::escape || key == keys::enter)
        hostkit::Forget_Text(this);
    if (key == keys::escape) {
        content_ = loaded_;
        caret_ = anchor_ = static_cast<int>(std::strlen(content_.get()));
        finished_ = cancelled;
    } else if (key == keys::enter) {
        finished_ = finished;
    } else {
        Edit(key);
    }
    Draw();
}

void Texts::Edit(int key)
{
    const char* present = content_.get();
    const int from = std::min(caret_, anchor_);
    const int to = std::max(caret_, anchor_);
    const bool selected = from != to;
    const bool drops_selection = selected && !getkey(VK_SHIFT);
    switch (key) {
    case keys::backspace:
        Replace(selected ? from : hostkit::previous_character(present, caret_), to, "");
        return;
    case keys::delete_forward:
        Replace(from, selected ? to : hostkit::next_character(present, caret_), "");
        return;
    case keys::left:
        Move_Caret(drops_selection ? from : hostkit::previous_character(present, caret_));
        return;
    case keys::right:
        Move_Caret(drops_selection ? to : hostkit::next_character(present, caret_));
        return;
    case keys::home:
        Move_Caret(0);
        return;
    case keys::end:
        Move_Caret(static_cast<int>(std::strlen(present)));
        return;
    default:
        break;
    }
    if (!is_printable(key))
        return;
    char typed[5];
    hostkit::encode_character(key, typed);
    Replace(from, to, typed);
}

void Texts::Replace(int from, int to, const char* by)
{
    try {
        std::string changed = content_.get();
        changed.replace(static_cast<size_t>(from), static_cast<size_t>(to - from), by);
        Caption replaced;
        replaced.set(changed.c_str());
        if (changed != replaced.get())
            return; // no memory
        content_ = std::move(replaced);
        caret_ = anchor_ = from + static_cast<int>(std::strlen(by));
    } catch (const std::bad_alloc&) {
        // The key is lost, the text is not.
    }
}

void Texts::Move_Caret(int to)
{
    caret_ = to;
    if (!getkey(VK_SHIFT))
        anchor_ = to;
}

// ------------------------------------------------------------------------------------------------------ pointer

int Texts::Select(int up_down, short dx, short dy)
{
    if (!Active() || !window)
        return 0;
    if (up_down == is_active_question)
        return 1;
    const bool inside = Pointer_Inside(dx, dy);
    const bool pressed = (up_down & 2) != 0;
    dragging_ = pressed ? inside : dragging_ && (up_down & 1) != 0;
    if (dragging_)
        Point_Caret(pressed);
    return inside;
}

// A press puts the caret under the pointer, a drag extends the selection to it.
void Texts::Point_Caret(bool pressed)
{
    caret_ = Offset_At_Pointer();
    if (pressed)
        anchor_ = caret_;
    Draw();
}

int Texts::Offset_At_Pointer() const
{
    const Paint paint(window, "Texts::Select");
    POINT pointer{YCursor_X, YCursor_Y};
    ScreenToClient(window, &pointer);
    const int target = pointer.x - x - margin + scroll_;
    const char* present = content_.get();
    int offset = 0;
    while (present[offset]) {
        const int next = hostkit::next_character(present, offset);
        const int before = paint.text_width({present, static_cast<size_t>(offset)}, font);
        const int after = paint.text_width({present, static_cast<size_t>(next)}, font);
        if ((before + after) / 2 >= target)
            break;
        offset = next;
    }
    return offset;
}

// ------------------------------------------------------------------------------------------------------ drawing

void Texts::Draw()
{
    if (!Shown() || !window)
        return;
    if (finished_ == editing)
        hostkit::Note_Active_Text(this);
    const Paint paint(window, "Texts::Draw");
    const Area area = hostkit::area_of(*this);
    paint.fill(area, field_color(*this));
    paint.frame(area, 1, Active() ? text : frame);
    Write();
}

void Texts::Write()
{
    if (!Shown() || !window)
        return;
    const Paint paint(window, "Texts::Write");
    const Area inside{x + margin, y + 2, width - 2 * margin, height - 4};
    const char* content = content_.get();
    const auto width_to = [&](int offset) { return paint.text_width({content, static_cast<size_t>(offset)}, font); };

    const int caret = width_to(caret_);
    const int most_hidden = std::max(width_to(static_cast<int>(std::strlen(content))) - inside.width + 1, 0);
    scroll_ = std::clamp(std::min(scroll_, most_hidden), std::max(caret - inside.width + 1, 0), caret);
    const auto place = [&](int offset) {
        return std::clamp(width_to(offset) - scroll_, 0, std::max(inside.width - 1, 0));
    };
    if (caret_ != anchor_ && Active()) {
        const int from = place(std::min(caret_, anchor_));
        const int to = place(std::max(caret_, anchor_));
        paint.fill({inside.x + from, inside.y, to - from, inside.height}, blend(text, back, 80));
    }
    paint.scrolled_text(inside, content, scroll_, font, Active() ? text : blend(text, back, 90));
    if (Active())
        paint.fill({inside.x + place(caret_), inside.y + 1, 1, inside.height - 2}, text);
}
