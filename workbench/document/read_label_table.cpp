#include "workbench/document/label_table_text.h"
#include "workbench/document/text.h"

#include <algorithm>
#include <map>

namespace document {

namespace {

constexpr int largest_tag = 65534;
constexpr std::string_view blanks = " \t";
constexpr std::string_view threshold_mark = "# vetra: threshold ";

/// A line, read from left to right. After the first complaint nothing more is read.
class Line {
public:
    explicit Line(std::string_view text) : rest_(text) {}

    /// Empty as long as all is well: "red is \"300\", not a whole number from 0 to 255".
    const std::string& complaint() const { return complaint_; }

    int whole(const char* what, int most)
    {
        const auto text = word();
        const auto number = exact_number<int>(text);
        if (number && *number >= 0 && *number <= most)
            return *number;
        complain(what, text, "not a whole number from 0 to " + std::to_string(most));
        return 0;
    }

    float opacity()
    {
        const auto text = word();
        const auto number = exact_number<float>(text);
        if (number && *number >= 0 && *number <= 1)
            return *number;
        complain("the opacity", text, "not a number from 0 to 1");
        return 0;
    }

    double grey_value(const char* what)
    {
        const auto text = word();
        if (const auto number = exact_number<double>(text))
            return *number;
        complain(what, text, "not a number");
        return 0;
    }

    std::string name()
    {
        skip_blanks();
        const auto end = rest_.find('"', 1);
        if (!rest_.starts_with('"') || end == rest_.npos) {
            complain("the name is not in quotes");
            return {};
        }
        const auto name = rest_.substr(1, end - 1);
        rest_.remove_prefix(end + 1);
        return is_utf8(name) ? std::string(name) : from_latin1(name);
    }

    void end()
    {
        skip_blanks();
        if (!rest_.empty())
            complain("there is more than belongs there (" + std::string(rest_) + ")");
    }

    void complain(std::string complaint)
    {
        if (complaint_.empty())
            complaint_ = std::move(complaint);
    }

private:
    void complain(const char* what, std::string_view text, const std::string& instead)
    {
        complain(text.empty() ? std::string(what) + " is missing"
                              : std::string(what) + " is \"" + std::string(text) + "\", " + instead);
    }

    void skip_blanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(blanks), rest_.size())); }

    std::string_view word()
    {
        skip_blanks();
        const auto word = rest_.substr(0, rest_.find_first_of(blanks));
        rest_.remove_prefix(word.size());
        return word;
    }

    std::string_view rest_;
    std::string complaint_;
};

LabelEntry read_row(Line& line)
{
    LabelEntry entry;
    entry.tag = line.whole("the number of the tag", largest_tag);
    entry.red = std::uint8_t(line.whole("red", 255));
    entry.green = std::uint8_t(line.whole("green", 255));
    entry.blue = std::uint8_t(line.whole("blue", 255));
    entry.opacity = line.opacity();
    entry.visible = line.whole("the visibility", 1) != 0;
    entry.mesh = line.whole("the visibility in three dimensions", 1) != 0;
    entry.name = line.name();
    line.end();
    return entry;
}

class Reader {
public:
    explicit Reader(const std::filesystem::path& path) : path_(path) {}

    Result<LabelTable> read(std::string_view text)
    {
        if (text.find('\0') != text.npos)
            return Failure{quoted(path_) + " is no label table. Choose a text file that describes tags."};
        if (text.starts_with("\xEF\xBB\xBF"))
            text.remove_prefix(3);
        while (!text.empty() && !failure_) {
            const auto end = std::min(text.find('\n'), text.size());
            ++number_;
            read_line(trimmed(text.substr(0, end)));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        give_thresholds();
        if (failure_)
            return *failure_;
        return std::move(table_);
    }

private:
    struct Found {
        Thresholds thresholds;
        int line;
    };

    void read_line(std::string_view text)
    {
        if (text.starts_with(threshold_mark)) {
            Line line(text.substr(threshold_mark.size()));
            read_thresholds(line);
            check(line, number_);
        } else if (!text.empty() && !text.starts_with('#')) {
            Line line(text);
            take(read_row(line), line);
            check(line, number_);
        }
    }

    void take(LabelEntry entry, Line& line)
    {
        const auto [first, is_new] = lines_.emplace(entry.tag, number_);
        if (!is_new)
            line.complain("tag " + std::to_string(entry.tag) + " is described in line " +
                          std::to_string(first->second) + " already");
        table_.push_back(std::move(entry));
    }

    void read_thresholds(Line& line)
    {
        const int tag = line.whole("the number of the tag", largest_tag);
        const double lower = line.grey_value("the lower grey value");
        const double upper = line.grey_value("the upper grey value");
        line.end();
        if (lower > upper)
            line.complain(
                "the lower grey value " + exact_text(lower) + " is above the upper one, " + exact_text(upper));
        if (!thresholds_.emplace(tag, Found{{lower, upper}, number_}).second)
            line.complain("tag " + std::to_string(tag) + " has thresholds already");
    }

    /// Last, because they may stand before the rows of their tags.
    void give_thresholds()
    {
        for (auto& entry : table_)
            if (const auto found = thresholds_.extract(entry.tag))
                entry.thresholds = found.mapped().thresholds;
        for (const auto& [tag, found] : thresholds_) {
            Line line({});
            line.complain("tag " + std::to_string(tag) + " has thresholds, but no row");
            check(line, found.line);
        }
    }

    void check(const Line& line, int number)
    {
        if (!line.complaint().empty() && !failure_)
            failure_ = Failure{quoted(path_) + ", line " + std::to_string(number) + ": " + line.complaint() +
                               ". Correct or remove this line in a text editor."};
    }

    const std::filesystem::path& path_;
    int number_ = 0; // of the line being read, from 1
    LabelTable table_;
    std::map<int, int> lines_; // where each tag is described
    std::map<int, Found> thresholds_;
    std::optional<Failure> failure_;
};

}

Result<LabelTable> read_label_table(std::string_view text, const std::filesystem::path& path)
{
    return Reader(path).read(text);
}

}
