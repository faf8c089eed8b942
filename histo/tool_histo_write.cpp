#include "frame/registry.h"
#include "frame/report.h"
#include "histo/frame_iterator.h"
#include "histo/int_part.h"
#include "histo/tool_histo.h"

#include <cassert>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string_view>

namespace level = frame::level;
using histo::Frame_Iterator;
using histo::int_part;

namespace {

constexpr const char* source = "tool_histo";
constexpr const char* owner = "Tool_Histo::Write";

// Numbers are written the same in every locale.
class Table {
public:
    Table(std::FILE* file, char separator) : file_(file), separator_(separator) {}

    void text(std::string_view words) const { std::fwrite(words.data(), 1, words.size(), file_); }
    void number(int value) const { write(value); }
    void decimals(double value) const { write(value, std::chars_format::fixed, 2); }
    void separate() const { std::fputc(separator_, file_); }
    void end_line() const { std::fputc('\n', file_); }

private:
    template <class... Arguments>
    void write(Arguments... arguments) const
    {
        char digits[400]; // the largest double has 309 before its point
        const auto end = std::to_chars(std::begin(digits), std::end(digits), arguments...).ptr;
        std::fwrite(digits, 1, static_cast<size_t>(end - digits), file_);
    }

    std::FILE* file_;
    char separator_;
};

char separator()
{
    const auto byte = static_cast<char>(frame::number("$REGIONAL_SEPARATOR"));
    return byte ? byte : '\t';
}

void report_not_opened(const char* path, int error, int line)
{
    wchar_t reason[256] = {};
    if (const wchar_t* text = Error_Perror(error))
        std::wcsncpy(reason, text, std::size(reason) - 1);
    Error_Fct(hwnd, level::notice, "file:%s line:%d", source, line);
    Error_Fct(hwnd, level::warning, "\xf1\x05WARNING:\x02 Unable to open the file");
    Error_Fct(hwnd, level::warning, "\xf1\t \x01%s", path);
    Error_Fct(hwnd, level::warning, "\xf1\t %ls", reason);
}

struct Frame_Counts {
    int all = 0;
    int selected = 0;
};

// The selected frames, of which only the number is asked so far.
class Frame_List {
public:
    ~Frame_List() { std::free(frames_); }

    /// False without memory.
    bool add(Strato_2D_Frame* frame)
    {
        const size_t wanted = static_cast<size_t>(size_) + 1;
        auto* grown = static_cast<Strato_2D_Frame**>(std::realloc(frames_, wanted * sizeof *frames_));
        if (!grown) {
            frame::report_realloc_failed(__LINE__, source, "frame_pt", size_ + 1, static_cast<int>(sizeof *frames_));
            return false;
        }
        frames_ = grown;
        frames_[size_++] = frame;
        return true;
    }
    int size() const { return size_; }

private:
    Strato_2D_Frame** frames_ = nullptr;
    int size_ = 0;
};

bool count_frames(void* window, Frame_Counts& counts)
{
    {
        Frame_Iterator all(owner, window, Frame_Iterator::Which::all);
        while (all.next())
            ++counts.all;
    }
    Frame_Iterator selected(owner, window, Frame_Iterator::Which::selected);
    Frame_List list;
    while (Strato_2D_Frame* frame = selected.next()) {
        if (!list.add(frame))
            return false;
    }
    counts.selected = list.size();
    return true;
}

void write_title(const Table& table, const Frame_Counts& counts)
{
    table.text("sep=");
    table.separate();
    table.text("\n=========== Histogram information (");
    table.number(counts.selected);
    if (counts.selected != counts.all) {
        table.text(" frames out of ");
        table.number(counts.all);
        table.text(") =========\n\n");
    } else {
        table.text(" frames) =========\n\n");
    }
}

void write_bins(const Table& table, const Histo_Record& histogram)
{
    table.text("GLI Value");
    table.separate();
    table.text("Nb of pixels\n");
    for (int bin = 0; bin < histogram.nb_bins; ++bin) {
        table.number(int_part((static_cast<float>(bin) + 0.5f) * histogram.width + histogram.min));
        table.separate();
        table.number(static_cast<int>(histogram.count[bin])); // the file's counts are signed
        table.end_line();
    }
    table.end_line();
}

// The centre as a grey value, the width in bins.
void write_peaks(const Table& table, const Histo_Record& histogram, const Histo_Peaks& peaks)
{
    table.text("\n\nWe have ");
    table.number(peaks.nb);
    table.text(" Gausian peaks \n");
    for (const char* title : {"Peak Number", "Peak Center", "Peak Height", "Peak Width"}) {
        table.text(title);
        table.separate();
    }
    table.end_line();
    int number = 0;
    for (const Histo_Peak* peak = peaks.head; peak; peak = peak->next) {
        const Vector_N& param = *peak->param;
        table.number(++number);
        table.separate();
        table.decimals(static_cast<double>(histogram.width) * param[0] + static_cast<double>(histogram.min));
        table.separate();
        table.decimals(param[1]);
        table.separate();
        table.decimals(param[2]);
        table.end_line();
    }
    assert(number == peaks.nb);
    table.end_line();
}

}

int Tool_Histo::Write(char* path)
{
    if (!Ready())
        return 0;
    std::FILE* const file = path ? std::fopen(path, "w") : nullptr;
    if (!file) {
        report_not_opened(path ? path : "", path ? errno : EINVAL, __LINE__);
        return 0;
    }
    void* const shown_in = frame::value_of("$WINDOW_CUR");
    if (!shown_in)
        return 0; // deliberately without any clean-up: the file stays open and empty
    Frame_Counts counts;
    if (!count_frames(shown_in, counts)) {
        std::fclose(file);
        return 0;
    }
    const Table table(file, separator());
    write_title(table, counts);
    write_bins(table, *histo);
    if (Peaks() && Peaks()->nb > 0)
        write_peaks(table, *histo, *Peaks());
    std::fclose(file);
    return 1;
}
