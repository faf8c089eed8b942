#include "db/class_rename.h"

#include "frame/own_window.h"
#include "frame/widget_layout.h"
#include "frame/widget_state.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int enter_key = 13, escape_key = 27;

// There is at most one, because it is modal.
struct Dialog {
    const Tools* look = nullptr;
    char* name = nullptr;
    std::size_t capacity = 0;
    int wheel = 0; // turned so far, in the mouse's units

    HFONT title_font = nullptr;
    HFONT tool_font = nullptr;
    Boxs frame;
    Labels prompt;
    Texts input;
    Buttons save;
    Buttons cancel;
};

Dialog& the_dialog()
{
    static auto& dialog = *new Dialog; // fonts and texts of the platform's are given back when it is still there
    return dialog;
}

// ---------------------------------------------------------------------------------------------------------- layout

void place(Tools& widget, HFONT font, int x, int y, int width, int height)
{
    frame::take_look(widget, *the_dialog().look);
    widget.font = font;
    widget.border = frame::dimension("$INTERFACE_BORDER_DIM");
    frame::take_place(widget, x, y, std::max(width, 0), std::max(height, 0));
}

// From the bottom: the buttons, the field, and the prompt in what is left.
void lay_out(HWND window)
{
    Dialog& dialog = the_dialog();
    RECT client{};
    GetClientRect(window, &client);
    frame::renew_font(dialog.title_font, frame::title_font, 0);
    frame::renew_font(dialog.tool_font, frame::tool_font, 1);
    const int space = frame::dimension("$INTERFACE_SPACE_DIM");
    const int button = frame::dimension("$INTERFACE_BUTTON_DIM_BIG");
    const int width = client.right - 1, height = client.bottom - 1;
    const int button_width = (width - 3 * space) / 2;
    const int field_y = space + button + space;
    const int prompt_y = field_y + button + space;

    place(dialog.frame, dialog.title_font, 0, 0, width, height);
    dialog.frame.state = frame::state::panel_box;
    dialog.frame.Init(window);
    place(dialog.save, dialog.tool_font, space, space, button_width, button);
    dialog.save.Set_Name("Save");
    dialog.save.Init(window);
    place(dialog.cancel, dialog.tool_font, space + button_width + SPACE, space, button_width, button);
    dialog.cancel.Set_Name("Cancel");
    dialog.cancel.Init(window);
    place(dialog.input, dialog.tool_font, space, field_y, width - 2 * space, button);
    dialog.input.Init(window);
    place(dialog.prompt, dialog.title_font, space, prompt_y, width - 2 * space, height - prompt_y - space);
    dialog.prompt.state = frame::state::label;
    dialog.prompt.Set_Name("\x02 Enter the new name for this instance.");
    dialog.prompt.Init(window);
}

void draw(HWND window)
{
    Dialog& dialog = the_dialog();
    PAINTSTRUCT painting;
    BeginPaint(window, &painting);
    EndPaint(window, &painting);
    Boxs ground = dialog.frame;
    ++ground.width; // the frame leaves a line of the window out
    ++ground.height;
    ground.Clear(ground.back);
    dialog.frame.Draw();
    dialog.prompt.Text();
    dialog.input.Clear(dialog.input.back);
    dialog.input.Draw();
    dialog.save.Draw();
    dialog.cancel.Draw();
}

// ------------------------------------------------------------------------------------------------------------ keys

// The name, as long as there is room for it, to the end of a character.
void take_name()
{
    const Dialog& dialog = the_dialog();
    const char* const content = dialog.input.Content();
    std::size_t length = std::min(std::strlen(content), dialog.capacity - 1);
    while (length > 0 && (static_cast<unsigned char>(content[length]) & 0xC0) == 0x80)
        --length;
    std::memcpy(dialog.name, content, length);
    dialog.name[length] = 0;
}

void input(int key)
{
    Dialog& dialog = the_dialog();
    if (!key)
        return;
    dialog.input.Input(key);
    take_name();
    if (key != enter_key && key != escape_key)
        return;
    dialog.input.Read(dialog.input.Content()); // editing goes on
    dialog.input.Draw();
}

// ----------------------------------------------------------------------------------------------------------- mouse

void show_pressed(Buttons& button, bool pressed)
{
    button.pressed = pressed;
    button.Adjust();
}

void press(HWND window)
{
    constexpr int left_press = 18;
    Dialog& dialog = the_dialog();
    SetCapture(window);
    for (Buttons* button : {&dialog.save, &dialog.cancel}) {
        if (button->Select(left_press))
            show_pressed(*button, true);
    }
    dialog.input.Select(left_press, 0, 0);
}

void release(HWND window)
{
    constexpr int question = 4;
    Dialog& dialog = the_dialog();
    ReleaseCapture();
    dialog.input.Select(0, 0, 0);
    show_pressed(dialog.save, false);
    show_pressed(dialog.cancel, false);
    if (dialog.save.Select(question))
        EndDialog(window, class_rename_save);
    else if (dialog.cancel.Select(question))
        EndDialog(window, class_rename_cancel);
}

void move()
{
    Dialog& dialog = the_dialog();
    dialog.save.Deselect();
    dialog.cancel.Deselect();
}

void turn_wheel(int by)
{
    int& wheel = the_dialog().wheel;
    wheel = (wheel + by) % WHEEL_DELTA; // whole steps do nothing
}

// -------------------------------------------------------------------------------------------------------- messages

// The name is in the field before a key may come. The buttons may still show how the last dialog ended.
void begin(HWND window)
{
    Dialog& dialog = the_dialog();
    lay_out(window);
    dialog.input.Read(dialog.name);
    for (Buttons* button : {&dialog.save, &dialog.cancel}) {
        button->pressed = 0;
        button->Deselect();
    }
}

void forget()
{
    the_dialog().input.Cleanup();
}

INT_PTR CALLBACK handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    switch (message) {
    case WM_INITDIALOG:
        begin(window);
        return TRUE;
    case WM_SIZE:
        lay_out(window);
        InvalidateRect(window, nullptr, TRUE);
        return TRUE;
    case WM_PAINT:
        draw(window);
        return TRUE;
    case WM_CLOSE:
        EndDialog(window, class_rename_cancel);
        return TRUE;
    case WM_DESTROY:
        forget();
        return TRUE;
    case WM_GETDLGCODE: // the arrows are for the field
        SetWindowLongPtrA(window, DWLP_MSGRESULT, DLGC_WANTARROWS);
        return TRUE;
    case WM_COMMAND: // what Enter and Escape come as
        if (LOWORD(wparam) != IDOK && LOWORD(wparam) != IDCANCEL)
            return FALSE;
        input(LOWORD(wparam) == IDOK ? enter_key : escape_key);
        return TRUE;
    case WM_KEYDOWN:
        input(Parse_Dialog(window, message, wparam, lparam));
        return TRUE;
    case WM_LBUTTONDOWN:
        frame::record_pointer(window, lparam);
        press(window);
        return TRUE;
    case WM_LBUTTONUP:
        frame::record_pointer(window, lparam);
        release(window);
        return TRUE;
    case WM_MOUSEMOVE:
        frame::record_pointer(window, lparam);
        move();
        return TRUE;
    case WM_MOUSEWHEEL:
        turn_wheel(static_cast<short>(HIWORD(wparam)));
        return TRUE;
    default:
        return FALSE;
    }
}

// Behind the description: no menu, the usual class, and the caption.
void describe(DLGTEMPLATE& description)
{
    constexpr int width = 1920, height = 1200; // pixels, times the units' fractions
    constexpr int caption_capacity = 50;
    const auto units = static_cast<unsigned>(GetDialogBaseUnits());
    description.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    description.x = description.y = 10;
    description.cx = static_cast<short>(width / LOWORD(units));
    description.cy = static_cast<short>(height / HIWORD(units));
    constexpr int menu_and_class = 2;
    auto* const caption = reinterpret_cast<WCHAR*>(&description + 1) + menu_and_class;
    MultiByteToWideChar(CP_UTF8, 0, "Class Rename", -1, caption, caption_capacity);
}

}

int DB_Class_Rename(const Tools& look, char* name, std::size_t capacity)
{
    constexpr std::size_t room = 1024;
    Dialog& dialog = the_dialog();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, room);
    auto* const description = memory ? static_cast<DLGTEMPLATE*>(GlobalLock(memory)) : nullptr;
    if (!description) {
        GlobalFree(memory);
        return class_rename_no_memory;
    }
    describe(*description);
    dialog.look = &look;
    dialog.name = name;
    dialog.capacity = capacity;
    dialog.wheel = 0;
    const auto result =
        DialogBoxIndirectParamA(frame::instance_of_active_window(), description, GetActiveWindow(), handle, 0);
    GlobalUnlock(memory);
    GlobalFree(memory);
    return static_cast<int>(result);
}
