#include "workbench/document/marker_text.h"
#include "workbench/document/text.h"

#include <algorithm>

namespace document {

namespace {

/// A row of a table: its fields without their quotes, and the line that it begins in.
struct Row {
    std::vector<std::string> fields;
    int line = 1;
};

/// Takes a table apart, as RFC 4180 describes it.
class Rows {
public:
    explicit Rows(std::string_view text) : rest_(text) {}

    bool at_end() const { return rest_.empty(); }

    /// The next one; nothing when a quote has no end, or more follows it.
    std::optional<Row> next()
    {
        Row row{{}, line_};
        for (;;) {
            auto field = rest_.starts_with('"') ? quoted_field() : std::optional(plain_field());
            if (!field)
                return {};
            row.fields.push_back(std::move(*field));
            if (!skip(","))
                break;
        }
        if (!skip("\n") && !skip("\r\n") && !rest_.empty())
            return {};
        ++line_;
        return row;
    }

    int line() const { return line_; }

private:
    bool skip(std::string_view text)
    {
        const bool there = rest_.starts_with(text);
        rest_.remove_prefix(there ? text.size() : 0);
        return there;
    }

    std::string take(std::size_t length)
    {
        const auto taken = rest_.substr(0, length);
        rest_.remove_prefix(taken.size());
        return std::string(taken);
    }

    std::string plain_field()
    {
        auto field = take(std::min(rest_.find_first_of(",\n"), rest_.size()));
        if (field.ends_with('\r') && !rest_.starts_with(','))
            field.pop_back(); // of a line end of Windows
        return field;
    }

    // A quote in its text is written twice.
    std::optional<std::string> quoted_field()
    {
        std::string field;
        while (skip("\"")) {
            const auto end = rest_.find('"');
            if (end == rest_.npos)
                return {};
            field += take(end) + '"';
            rest_.remove_prefix(1);
        }
        field.pop_back();
        line_ += static_cast<int>(std::ranges::count(field, '\n'));
        return field;
    }

    std::string_view rest_;
    int line_ = 1;
};

constexpr const char* names[] = {
    "label", "l", "p", "s", "r", "a", "defined", "selected", "visible", "locked", "description"};
enum Column { label, l, p, s, r, a, defined, selected, visible, locked, description, column_count };

class Reader {
public:
    Reader(std::string_view text, const std::filesystem::path& path) : rows_(text), path_(path) {}

    Result<MarkerFile> read()
    {
        const auto head = next();
        if (head && !take_columns(*head))
            return Failure{quoted(path_) +
                           " is no table of markers: its first line does not name the columns label and l, p, s or r, "
                           "a, s. Choose another file."};
        while (!failure_ && !rows_.at_end())
            if (const auto row = next(); row && !is_empty(*row))
                read_row(*row);
        if (failure_)
            return *failure_;
        return std::move(result_);
    }

private:
    std::optional<Row> next()
    {
        const int line = rows_.line();
        auto row = rows_.next();
        if (!row)
            complain(line, "a quote has no end, or something follows it");
        return row;
    }

    static bool is_empty(const Row& row) { return row.fields.size() == 1 && trimmed(row.fields[0]).empty(); }

    bool take_columns(const Row& head)
    {
        std::ranges::fill(columns_, -1);
        for (std::size_t i = 0; i < head.fields.size(); ++i)
            for (std::size_t column = 0; column < column_count; ++column)
                if (lower_case(trimmed(head.fields[i])) == names[column])
                    columns_[column] = static_cast<int>(i);
        width_ = head.fields.size();
        const auto all = [&](auto... column) { return ((columns_[column] >= 0) && ...); };
        return all(label, s) && (all(l, p) || all(r, a));
    }

    void read_row(const Row& row)
    {
        if (row.fields.size() != width_)
            return complain(row.line, "it has " + std::to_string(row.fields.size()) + " fields, the first line has " +
                                          std::to_string(width_));
        Marker marker;
        marker.label = marker_text(field(row, label));
        marker.description = marker_text(field(row, description));
        marker.selected = flag(row, selected, true);
        marker.enabled = flag(row, visible, true);
        marker.locked = flag(row, locked, false);
        if (flag(row, defined, true))
            marker.position = position(row);
        result_.markers.push_back(std::move(marker));
    }

    std::array<double, 3> position(const Row& row)
    {
        const bool lps = columns_[l] >= 0 && columns_[p] >= 0;
        if (lps)
            return {number(row, l), number(row, p), number(row, s)};
        return {0 - number(row, r), 0 - number(row, a), number(row, s)};
    }

    std::string field(const Row& row, Column column) const
    {
        return columns_[column] < 0 ? std::string() : row.fields[static_cast<std::size_t>(columns_[column])];
    }

    double number(const Row& row, Column column)
    {
        const auto text = field(row, column);
        if (const auto number = exact_number<double>(text))
            return *number;
        complain(row.line, std::string(names[column]) + " is \"" + text + "\", not a number");
        return 0;
    }

    bool flag(const Row& row, Column column, bool usual)
    {
        const auto text = trimmed(field(row, column));
        if (text.empty())
            return usual;
        if (text != "0" && text != "1")
            complain(row.line, std::string(names[column]) + " is \"" + text + "\", not 0 or 1");
        return text == "1";
    }

    void complain(int line, const std::string& complaint)
    {
        if (!failure_)
            failure_ = Failure{quoted(path_) + ", line " + std::to_string(line) + ": " + complaint +
                               ". Correct or remove this line in a text editor."};
    }

    Rows rows_;
    const std::filesystem::path& path_;
    std::array<int, column_count> columns_; // where each is; -1: nowhere
    std::size_t width_ = 0;
    MarkerFile result_;
    std::optional<Failure> failure_;
};

std::string csv_field(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == text.npos && trimmed(text).size() == text.size())
        return text;
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

const char* flag_text(bool flag)
{
    return flag ? ",1" : ",0";
}

std::string position_text(const std::array<double, 3>& position)
{
    return exact_text(position[0]) + "," + exact_text(position[1]) + "," + exact_text(position[2]);
}

}

Result<MarkerFile> read_markers_csv(std::string_view text, const std::filesystem::path& path)
{
    if (text.find('\0') != text.npos)
        return Failure{quoted(path) + " is no table of markers. Choose a text file with columns."};
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    return Reader(text, path).read();
}

std::string write_markers_csv(const MarkerList& markers)
{
    std::string text = "label,l,p,s,defined,selected,visible,locked,description\n";
    for (const Marker& marker : markers) {
        text += csv_field(marker.label) + ",";
        text += position_text(marker.position.value_or(std::array<double, 3>{}));
        text += flag_text(marker.position.has_value());
        text += flag_text(marker.selected);
        text += flag_text(marker.enabled);
        text += flag_text(marker.locked);
        text += "," + csv_field(marker.description) + "\n";
    }
    return text;
}

}
