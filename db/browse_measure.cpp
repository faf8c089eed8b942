#include "db/browse_measure.h"

#include "frame/registry.h"
#include "frame/wide_text.h"

#include <algorithm>
#include <array>

using frame::Wide_Text;

namespace db {

namespace {

constexpr int between_columns = 20;

int exact_width(const char* text, HFONT font)
{
    SelectObject(Y_DC, font);
    return Wide_Text(text).width();
}

// Laying out a text takes microseconds, and there may be tens of thousands of them of which only the widest counts. So
// texts are compared by the widths of their characters, and only the longest are laid out.
class Advances {
public:
    explicit Advances(HFONT font)
    {
        constexpr int times = 16;
        SelectObject(Y_DC, font);
        for (int character = first; character < end; ++character) {
            char repeated[times + 1] = {};
            std::fill_n(repeated, times, static_cast<char>(character));
            widths_[static_cast<std::size_t>(character - first)] =
                static_cast<float>(Wide_Text(repeated).width()) / times;
        }
    }

    /// @return negative when there are characters that only the font knows to join
    float width(const char* text) const
    {
        float sum = 0;
        for (; *text; ++text) {
            if (*text < first || *text >= end)
                return -1;
            sum += widths_[static_cast<std::size_t>(*text - first)];
        }
        return sum;
    }

private:
    static constexpr char first = ' ', end = 127;
    std::array<float, end - first> widths_{};
};

// The rows that are longest by their characters. The font sets some pairs of them tighter, so that any of these may be
// the widest.
class Longest_Rows {
public:
    void add(const DB_List& row, float length)
    {
        if (count_ == rows_.size() && length <= rows_.back().length)
            return;
        count_ = std::min(count_ + 1, rows_.size());
        std::size_t at = count_ - 1;
        for (; at > 0 && rows_[at - 1].length < length; --at)
            rows_[at] = rows_[at - 1];
        rows_[at] = {&row, length};
    }

    template <class Visit>
    void for_each(const Visit& visit) const
    {
        std::for_each_n(rows_.begin(), count_, [&](const Entry& entry) { visit(*entry.row); });
    }

private:
    struct Entry {
        const DB_List* row;
        float length;
    };
    std::array<Entry, 32> rows_{};
    std::size_t count_ = 0;
};

class Measuring {
public:
    Measuring(int nb, DB_List* list, const Row_Fonts& fonts, int space)
        : nb_(nb), list_(list), fonts_(fonts), space_(space), colon_(exact_width(": ", fonts.title))
    {
    }

    int widest()
    {
        int result = widest_main();
        const int columns = measure_columns();
        for (int i = 0; columns > 0 && i < nb_; ++i) {
            DB_List& row = list_[i];
            for (int column = 0; row.item_x && column < std::min<int>(row.nb_item, columns); ++column) {
                const auto at = static_cast<std::size_t>(column);
                row.item_x[column] = static_cast<unsigned>(column_x_[at]);
                result = std::max(result, column_x_[at] + column_width_[at]);
            }
        }
        return result;
    }

private:
    int nb_;
    DB_List* list_;
    Row_Fonts fonts_;
    int space_;
    int colon_;
    std::array<int, most_columns> column_width_{};
    std::array<int, most_columns> column_x_{};

    int before_texts(const DB_List& row) const { return 2 * space_ + indent * (row.level + 3); }

    int texts_width(const char* title, const char* name) const
    {
        return (title ? exact_width(title, fonts_.title) + colon_ : 0) + (name ? exact_width(name, fonts_.name) : 0);
    }

    int main_width(const DB_List& row) const { return before_texts(row) + texts_width(row.title, row.name); }

    int widest_main() const
    {
        const Advances title_advances(fonts_.title), name_advances(fonts_.name);
        Longest_Rows longest;
        int widest = 0;
        for (int i = 0; i < nb_; ++i) {
            const DB_List& row = list_[i];
            const float title = row.title ? title_advances.width(row.title) : 0;
            const float name = row.name ? name_advances.width(row.name) : 0;
            if (title < 0 || name < 0)
                widest = std::max(widest, main_width(row));
            else
                longest.add(row, static_cast<float>(before_texts(row) + (row.title ? colon_ : 0)) + title + name);
        }
        longest.for_each([&](const DB_List& row) { widest = std::max(widest, main_width(row)); });
        return widest;
    }

    // @return how many columns there are
    int measure_columns()
    {
        int columns = 0, widest = 0;
        for (int i = 0; i < nb_; ++i) {
            const DB_List& row = list_[i];
            if (row.nb_item == 0)
                continue;
            widest = std::max(widest, main_width(row));
            columns = std::max(columns, std::min<int>(row.nb_item, most_columns));
            for (int column = 0; column < std::min<int>(row.nb_item, most_columns); ++column) {
                int& width = column_width_[static_cast<std::size_t>(column)];
                width = std::max(width, texts_width(row.item_title ? row.item_title[column] : nullptr,
                                            row.item_name ? row.item_name[column] : nullptr));
            }
        }
        int x = widest;
        for (std::size_t column = 0; column < static_cast<std::size_t>(columns); ++column) {
            column_x_[column] = x + between_columns;
            x = column_x_[column] + column_width_[column];
        }
        return columns;
    }
};

}

Row_Fonts row_fonts(const Boxs& list_box)
{
    static Row_Fonts kept;
    if (!kept.title) {
        const auto* family = frame::array<const char>("$INTERFACE_TOOL_FONT_NAME");
        if (!family)
            return {list_box.font, list_box.font};
        const short points = frame::dimension("$INTERFACE_TOOL_FONT_SCALE");
        kept = {Y_Create_Font(family, points, ""), Y_Create_Font(family, points, "bold")};
    }
    return kept;
}

Measured_Rows measure_rows(int nb, DB_List* list, const Row_Fonts& fonts, int space)
{
    const HGDIOBJ before = SelectObject(Y_DC, fonts.title);
    const int width = Measuring(nb, list, fonts, space).widest();
    SelectObject(Y_DC, before);
    return {list, nb, fonts.title, space, width};
}

}
