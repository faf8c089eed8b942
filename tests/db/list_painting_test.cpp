#include "db/rows.h"
#include "hostkit/structures/registry.h"
#include "tests/db/database_list.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <random>

// The list's picture, against the same picture painted row by row, where each part of a row belongs.

using namespace test;

namespace {

using hostkit::Variable;

constexpr COLORREF blue = 0x00FF0000, yellow = 0x0000FFFF, black = 0, dark_red = 0x00000080;

char* copy_of(const std::string& text)
{
    return text.empty() ? nullptr : strdup(text.c_str());
}

// A provider of rows with everything that a row can have.
class Random_List : public Tool_DB_List {
public:
    explicit Random_List(unsigned seed) : random_(seed) {}

    unsigned short List_Create_From_DB(int* count, DB_List** list, int, int, void*) override
    {
        const int rows = 2 + pick(40);
        std::vector<int> path; // the rows that the next one lies in
        for (; *count < rows; ++*count) {
            db::add_row(*count, list);
            path.resize(*count == 0 ? 0 : static_cast<size_t>(1 + pick(static_cast<int>(path.size()) - 1)));
            DB_List& row = (*list)[*count];
            row.level = static_cast<unsigned short>(path.size());
            row.parent = static_cast<unsigned short>(path.empty() ? 0 : path.back());
            row.state = pick(4) == 0 ? 0 : DB_List::expanded;
            for (const int folder : path)
                ++(*list)[folder].nb_desc;
            if (!path.empty())
                ++(*list)[path.back()].nb_child;
            fill(row);
            path.push_back(*count);
        }
        for (int i = 0; i < *count; ++i) {
            if ((*list)[i].nb_child == 0)
                (*list)[i].state = static_cast<unsigned short>(DB_List::leaf | (pick(4) == 0 ? 16 : 0));
        }
        return static_cast<unsigned short>(*count);
    }
    void List_Select_From_DB(int, DB_List*) override {}
    void List_Select_To_DB(int, DB_List*) override {}

    void mark_at_random()
    {
        static constexpr unsigned short marks[] = {0, 1, 2, 16, 17, 18};
        for (int i = 0; i < nb; ++i)
            list_pt[i].select = marks[pick(5)];
    }

    int pick(int most) { return static_cast<int>(random_() % static_cast<unsigned>(most + 1)); }

private:
    std::mt19937 random_;

    std::string text()
    {
        static const char* const texts[] = {"", "Series", "AVATAR", "first.dcm", "\u00dcber", "12 (256x256)"};
        return texts[pick(5)];
    }

    void fill(DB_List& row)
    {
        static constexpr const char* icons[] = {nullptr, "", "icon folder.tga", "icon image.tga", "no such icon.tga"};
        row.icon = icons[pick(4)];
        row.title = copy_of(text());
        row.name = copy_of(text());
        row.color = pick(2) == 0 ? 0x00FFFFFF : 0;
        if (pick(3) > 0)
            return;
        const int items = 1 + pick(2);
        const auto room = static_cast<size_t>(items);
        row.nb_item = static_cast<unsigned short>(items);
        row.item_x = static_cast<unsigned*>(std::calloc(room, sizeof(unsigned)));
        row.item_color = static_cast<COLORREF*>(std::calloc(room, sizeof(COLORREF)));
        row.item_title = static_cast<char**>(std::calloc(room, sizeof(char*)));
        row.item_name = static_cast<char**>(std::calloc(room, sizeof(char*)));
        for (int i = 0; i < items; ++i) {
            row.item_color[i] = pick(1) ? 0x00204060 : 0;
            row.item_title[i] = copy_of(text());
            row.item_name[i] = copy_of(text());
        }
    }
};

// Paints a list into another window, from its rows and scroll bars.
class Painting {
public:
    Painting(HWND window, const Tool_DB_List& list) : list_(list), box_(list.list_box)
    {
        box_.window = window;
        Boxs whole = list.box;
        whole.window = window;
        whole.Clear(box_.back);
        const char* const family = hostkit::String_Variable("$INTERFACE_TOOL_FONT_NAME");
        const short points = Variable<short>("$INTERFACE_TOOL_FONT_SCALE");
        title_font_ = Y_Create_Font(family, points, "");
        name_font_ = Y_Create_Font(family, points, "bold");
        Y_setup(window, "test");
        SetTextAlign(Y_DC, TA_LEFT | TA_BASELINE);
        SetBkMode(Y_DC, TRANSPARENT);
        place_columns();
        const int clip = SaveDC(Y_DC);
        IntersectClipRect(Y_DC, box_.x, box_.y + box_.height - 1, box_.x + box_.width, box_.y - 1);
        Icon_Draw_Image(&box_, left(), top() - 3 - 16, Prog_Name, "icon anchor.tga");
        for (int i = 0; i < list.nb; ++i) {
            if (list.list_pt[i].line != 65535)
                paint_row(i);
        }
        RestoreDC(Y_DC, clip);
        Y_release();
        DeleteObject(title_font_);
        DeleteObject(name_font_);
    }

    int widest = 0;

private:
    const Tool_DB_List& list_;
    Boxs box_;
    HFONT title_font_, name_font_;
    int space_ = Variable<short>("$INTERFACE_SPACE_DIM");
    std::vector<int> columns_;

    int left() const { return box_.x - static_cast<int>(list_.horizontal.value) + space_; }
    int top() const { return box_.y + box_.height + static_cast<int>(list_.vertical.value); }

    // @return where the text ends
    int text(int x, int y, const char* text, HFONT font, COLORREF color, bool draws = true) const
    {
        std::vector<WCHAR> wide(std::strlen(text) + 1);
        const int length = MultiByteToWideChar(CP_UTF8, 0, text, -1, wide.data(), static_cast<int>(wide.size())) - 1;
        const HGDIOBJ before = SelectObject(Y_DC, font);
        SIZE size{};
        GetTextExtentPoint32W(Y_DC, wide.data(), length, &size);
        SetTextColor(Y_DC, color);
        if (draws)
            TextOutW(Y_DC, x, y, wide.data(), length);
        SelectObject(Y_DC, before);
        return x + static_cast<int>(size.cx);
    }

    int texts(
        int x, int y, const char* title, COLORREF color, const char* name, COLORREF name_color, bool draws = true) const
    {
        if (title) {
            x = text(x, y, title, title_font_, color ? color : yellow, draws);
            x = text(x, y, ": ", title_font_, color ? color : yellow, draws);
        }
        return name ? text(x, y, name, name_font_, name_color, draws) : x;
    }

    void place_columns()
    {
        int with_items = 0;
        std::vector<int> widths;
        for (int i = 0; i < list_.nb; ++i) {
            const DB_List& row = list_.list_pt[i];
            const int width = texts(2 * space_ + 20 * (row.level + 3), 0, row.title, yellow, row.name, yellow, false);
            widest = std::max(widest, width);
            with_items = row.nb_item ? std::max(with_items, width) : with_items;
            widths.resize(std::max<size_t>(widths.size(), row.nb_item));
            for (size_t k = 0; k < row.nb_item; ++k)
                widths[k] =
                    std::max(widths[k], texts(0, 0, row.item_title[k], yellow, row.item_name[k], yellow, false));
        }
        int x = with_items;
        for (const int width : widths) {
            columns_.push_back(x + 20);
            x += 20 + width;
            widest = std::max(widest, x);
        }
    }

    // Whether the row's ancestor of a level has another sibling below.
    bool goes_on(int row, int level) const
    {
        for (int i = row + 1; i < list_.nb && list_.list_pt[i].level >= level; ++i) {
            if (list_.list_pt[i].level == level)
                return true;
        }
        return false;
    }

    void paint_row(int at) const
    {
        const DB_List& row = list_.list_pt[at];
        const int y = top() - 19 - 18 * row.line, x = left() + 20 * row.level;
        const HPEN pen = CreatePen(PS_SOLID, 1, blue);
        const HGDIOBJ before = SelectObject(Y_DC, pen);
        for (int level = 0; level < row.level; ++level) {
            if (goes_on(at, level)) {
                MoveToEx(Y_DC, left() + 7 + 20 * level, y - 2, nullptr);
                LineTo(Y_DC, left() + 7 + 20 * level, y + 18);
            }
        }
        SelectObject(Y_DC, before);
        DeleteObject(pen);
        Current_Color = blue;
        const bool leaf = row.state & 2, open = row.state & 1, closed_off = (row.state & 16) || (row.select & 16);
        (closed_off ? Icon_Lead_No_Access
            : leaf  ? Icon_Lead_Leaf
            : open  ? Icon_Lead_Expand
                    : Icon_Lead_Collapse)(&box_, goes_on(at, row.level), x, x + 20, y - 8, y + 16);
        paint_icons(row, x, y);
        const COLORREF color = row.state & 16 ? blue : row.select == 2 ? black : row.select & 16 ? dark_red : blue;
        texts(x + 60 + space_, y, row.title, row.color, row.name, color);
        for (size_t k = 0; k < row.nb_item; ++k)
            texts(columns_[k] + left(), y, row.item_title[k], row.item_color[k], row.item_name[k], color);
    }

    void paint_icons(const DB_List& row, int x, int y) const
    {
        constexpr int below_baseline = 5;
        if (row.icon)
            Icon_Draw_Image(&box_, x + 20, y - below_baseline, Prog_Name, row.icon);
        if (row.select == 1)
            Icon_Draw_Image(&box_, x + 40, y - below_baseline, Prog_Name, "icon check yellow.tga");
        if (row.select == 2 && !(row.state & 16))
            Icon_Draw_Image(&box_, x + 40, y - below_baseline, Prog_Name, "icon check green.tga");
    }
};

class DatabasePainting : public Database_List {
protected:
    DatabasePainting()
        : second_(CreateWindowExA(0, "Vetra test", "", WS_OVERLAPPEDWINDOW, 0, 0, 800, 800, nullptr, nullptr,
              GetModuleHandleA(nullptr), nullptr))
    {
        ShowWindow(second_, SW_SHOW);
    }
    ~DatabasePainting() override { DestroyWindow(second_); }

    int differing_pixels(const Boxs& box) const
    {
        const auto one = pixels(main_window()), other = pixels(second_);
        RECT client{};
        GetClientRect(main_window(), &client);
        int result = 0;
        for (int y = box.y; y < box.y + box.height; ++y) {
            for (int x = box.x; x < box.x + box.width; ++x) {
                const auto at = static_cast<size_t>((client.bottom - 1 - y) * client.right + x);
                result += one[at] != other[at];
            }
        }
        return result;
    }

    HWND second_;
};

}

TEST_F(DatabasePainting, EachPartOfARowIsInItsPlace)
{
    for (unsigned seed = 1; seed <= 16; ++seed) {
        SCOPED_TRACE("list " + std::to_string(seed));
        Random_List list(seed);
        list.Resize(&area);
        list.Update(0x400);
        for (int scroll = 0; scroll < 4; ++scroll) {
            list.mark_at_random();
            list.vertical.value = static_cast<float>(scroll == 0 ? 0 : list.pick(400));
            list.horizontal.value = static_cast<float>(scroll == 0 ? 0 : list.pick(200));
            list.Draw();
            const Painting expected(second_, list);
            EXPECT_EQ(differing_pixels(list.list_box), 0);
            const int hidden = expected.widest + 2 * Variable<short>("$INTERFACE_SPACE_DIM") - list.list_box.width;
            EXPECT_EQ(list.horizontal.Active(), hidden > 0);
            if (hidden > 0) {
                EXPECT_EQ(list.horizontal.maximum, static_cast<float>(hidden));
            }
        }
        if (seed == 3)
            keep_picture(main_window(), "database_random");
    }
    EXPECT_EQ(reports.texts(2), std::vector<std::string>()) << "icons that are missing are no message";
}
