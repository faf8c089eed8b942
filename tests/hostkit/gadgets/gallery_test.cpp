#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

// A picture of the widgets in their states, to be looked at: out/gadgets.png.

namespace {

constexpr unsigned row = 0x400000;
constexpr unsigned marked_row = 0x500000;

class Gallery : public Widgets {
protected:
    Gallery() : font_(Y_Create_Font(nullptr, 9, nullptr))
    {
        Boxs all;
        all.width = all.height = 800;
        all.window = main_window();
        all.Clear(dark);
    }

    ~Gallery() override { DeleteObject(font_); }

    // Lines of widgets, from the top.
    void Next_Line(short height)
    {
        RECT client{};
        GetClientRect(main_window(), &client);
        if (y_ == 0)
            y_ = static_cast<short>(client.bottom - 12);
        y_ = static_cast<short>(y_ - height - 12);
        height_ = height;
        x_ = 12;
    }

    template <class Widget>
    Widget& Put(Widget& widget, short width)
    {
        Place_Widget(widget, x_, y_, width, height_);
        widget.font = font_;
        x_ = static_cast<short>(x_ + width + 8);
        return widget;
    }

    void Row_Button(const char* name, Colors color, unsigned state, int cur, int pressed, int highlight, short width)
    {
        Buttons button;
        Put(button, width);
        button.Set_Name(name);
        button.color = color;
        button.state = state;
        button.cur = static_cast<unsigned short>(cur);
        button.pressed = static_cast<unsigned short>(pressed);
        Finish(button, highlight);
    }

    void Push_Button(unsigned state, int cur, int highlight, const char* name)
    {
        Buttons button;
        Put(button, 56);
        button.Set_Name(name);
        button.state = state;
        button.cur = static_cast<unsigned short>(cur);
        if (!*name)
            Paint_Disc(button);
        Finish(button, highlight);
    }

    void Finish(Buttons& button, int highlight)
    {
        button.Draw();
        if (highlight == 0)
            return;
        point(main_window(), middle(button));
        button.Select(highlight == 2 ? left_press : 0);
    }

    void Paint_Disc(Buttons& button)
    {
        for (int number = 1; number <= 4; ++number) {
            for (int y = 0; y < button.height; ++y) {
                for (int x = 0; x < button.width; ++x) {
                    const int dx = x - button.width / 2;
                    const int dy = y - button.height / 2;
                    if (dx * dx + dy * dy <= 64)
                        button.Picture(number)[y * button.width + x] = 0x4fb06d;
                }
            }
        }
    }

    void Slider(unsigned state, short width, float value, int highlight)
    {
        Sliders slider;
        Put(slider, width);
        slider.state = state;
        slider.maximum = 100;
        slider.value = value;
        slider.Larg_Adjust(1, 3);
        slider.Draw();
        if (highlight == 0)
            return;
        point(main_window(), middle(slider));
        if (slider.Select(highlight == 2 ? left_press : 0))
            slider.Draw();
    }

    void Select(unsigned state, const char* name, unsigned short value, int highlight)
    {
        Selects select;
        Put(select, 120);
        select.state = state;
        select.arrow = 16;
        select.Set_Name(name);
        select.Grow(250, 0);
        for (int item = 0; item < 250; ++item)
            select.Set_Item(item, std::to_string(item + 1).c_str());
        select.value = value;
        select.Draw();
        if (highlight == 0)
            return;
        point(main_window(), middle(select));
        select.Select(0);
    }

    void Valuator(unsigned state, short width, float value, int highlight)
    {
        Valuators valuator;
        Put(valuator, width);
        valuator.state = state;
        valuator.minimum = 0.001f;
        valuator.maximum = 1;
        valuator.value = value;
        valuator.Draw();
        if (highlight == 0)
            return;
        point(main_window(), middle(valuator));
        if (valuator.Select(highlight == 2 ? left_press : 0))
            valuator.Draw();
    }

    void Editor(const char* text, unsigned state, bool selects)
    {
        Texts editor;
        Put(editor, 140);
        editor.state = state;
        editor.Read(text);
        editor.Draw();
        if (!selects)
            return;
        const Held_Key shift(VK_SHIFT);
        for (int i = 0; i < 5; ++i)
            editor.Input(2085);
    }

private:
    HFONT font_;
    short x_ = 0;
    short y_ = 0;
    short height_ = 0;
};

}

TEST_F(Gallery, IsKept)
{
    constexpr Colors red{0xd0, 0x4a, 0x4a};
    constexpr Colors green{0x4f, 0xb0, 0x6d};
    constexpr Colors blue{0x4a, 0x7b, 0xd0};
    constexpr Colors nearly_black{0x18, 0x18, 0x1c};
    for (const unsigned state : {row, marked_row}) {
        Next_Line(24);
        Row_Button("normal", red, state, 0, 0, 0, 90);
        Row_Button("hover", green, state, 0, 1, 1, 90);
        Row_Button("held", blue, state, 0, 0, 2, 90);
        Row_Button("current", red, state, 1, 1, 0, 90);
        Row_Button("cur+hover", green, state, 1, 0, 1, 90);
        Row_Button("greyed", blue, state | 35, 0, 1, 0, 90);
        Row_Button("greyed cur", blue, state | 35, 1, 0, 0, 90);
    }
    Next_Line(22);
    Row_Button("A name that is thirty-nine letters long", red, row, 0, 0, 0, 160);
    Row_Button("Left ventricle", green, marked_row, 1, 1, 0, 60);
    Row_Button("12", blue, marked_row, 0, 0, 0, 50);
    Row_Button("Liver", nearly_black, row, 0, 0, 0, 90);
    Row_Button("0", {170, 170, 170}, row, 0, 0, 0, 40);
    Row_Button("255", green, marked_row, 0, 1, 0, 40);
    Row_Button("Gr\xc3\xb6\xc3\x9f"
               "e \xc2\xb5m",
        blue, row, 0, 0, 0, 90);
    Next_Line(32);
    Push_Button(0, 0, 0, "");
    Push_Button(0, 0, 1, "");
    Push_Button(0, 0, 2, "");
    Push_Button(0, 1, 0, "");
    Push_Button(35, 0, 0, "");
    Push_Button(0, 0, 0, "Up");
    Push_Button(0, 1, 0, "Down");
    Push_Button(35, 0, 0, "Off");
    Next_Line(140);
    Slider(0x8000004, 16, 0, 0);
    Slider(0x8000004, 16, 100, 0);
    Slider(0xC000004, 16, 0, 0);
    Slider(0x8000004, 16, 50, 1);
    Slider(0x8000004, 16, 50, 2);
    Slider(0x8000004 | 35, 16, 50, 0);
    Boxs box;
    Put(box, 80).state = 66;
    box.Draw();
    Put(box, 80).state = 80;
    box.Draw();
    Next_Line(150);
    for (const float value : {1.0f, 0.708f, 0.25f, 0.0316f, 0.008f, 0.001f})
        Valuator(0xA000004, 16, value, 0);
    Valuator(0xA000004, 16, 0.25f, 1);
    Valuator(0xA000004, 16, 0.25f, 2);
    Valuator(0xA000004 | 35, 16, 0.25f, 0);
    Valuator(0xE000004, 16, 0.25f, 0);
    Valuator(0x8000004, 16, 0.25f, 0);
    Valuator(0xA000004, 24, 0.25f, 0);
    Valuator(0xA000004, 10, 0.25f, 0);
    Next_Line(16);
    Slider(0x8000000, 200, 30, 0);
    for (const float value : {1.0f, 0.25f, 0.001f})
        Valuator(0xA000000, 120, value, 0);
    Next_Line(24);
    Select(8448, " Frame: ", 0, 0);
    Select(8448, " Frame: ", 249, 0);
    Select(8448, " Frame: ", 11, 1);
    Select(8483, " Frame: ", 11, 0);
    Select(8448, "A caption that is too long", 11, 0);
    Next_Line(40);
    Put(box, 120).state = 66;
    box.Set_Name("Propagate");
    box.Draw();
    box.Set_Name("A caption that is too long");
    Put(box, 120).Draw();
    Next_Line(24);
    Editor("Left atrium", 0x80000000, false);
    Editor("Left atrium", 0x80000000, true);
    Editor("A name that is thirty-nine letters long", 0x80000000, false);
    Editor("Greyed", 35, false);
    keep_picture(main_window(), "gadgets");
    EXPECT_EQ(Pixel(2, 2), dark);
}
