#include "frame/registry.h"
#include "frame/report.h"
#include "histo/frame_iterator.h"
#include "histo/histogram_sum.h"
#include "histo/int_part.h"
#include "histo/record_arrays.h"
#include "histo/tool_histo.h"

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <new>

// Whole bins move when a + b * c is rounded once instead of twice.
static_assert(FLT_EVAL_METHOD == 0, "intermediate results must be rounded to their type");

namespace level = frame::level;
using frame::Kept_Address;
using histo::Frame_Iterator;

namespace {

constexpr const char* source = "tool_histo";
constexpr const char* owner = "Tool_Histo: Histo_Compute";
constexpr unsigned short is_color = 1;

// The host's variables, looked up once for all panels.
struct Variables {
    Kept_Address<float> selected_min{"$SELECT_GLI_MIN", Kept_Address<float>::Missing::is_made};
    Kept_Address<float> selected_max{"$SELECT_GLI_MAX", Kept_Address<float>::Missing::is_made};
    Kept_Address<unsigned char> component{"$GLI_COLOR_COMPONENT"};
    Kept_Address<unsigned short> most_bins{"$GLI_HISTO_BINS_MAX"};
    Kept_Address<unsigned short> bins{"$GLI_HISTO_BINS_NB", Kept_Address<unsigned short>::Missing::is_made};
};

Variables& variables()
{
    static Variables all;
    all.selected_min.get();
    all.selected_max.get();
    all.component.get();
    all.most_bins.get();
    all.bins.get();
    return all;
}

// Records are never freed: copies of a panel have the same one, and there is no telling which of them goes last.
struct Kept_Record {
    Histo_Record record;
    Kept_Record* next;
};
Kept_Record* kept_records = nullptr;

Histo_Record* new_record()
{
    auto* kept = static_cast<Kept_Record*>(std::calloc(1, sizeof(Kept_Record)));
    if (!kept)
        return nullptr;
    kept->next = kept_records;
    kept_records = kept;
    return &kept->record;
}

bool empty_record(Tool_Histo* panel)
{
    if (panel->histo) {
        histo::free_arrays(*panel->histo);
        return true;
    }
    panel->histo = new_record();
    if (!panel->histo)
        frame::report_calloc_failed(__LINE__, source, "histo", static_cast<int>(sizeof(Histo_Record)), 1);
    return panel->histo != nullptr;
}

// -------------------------------------------------------------------------------------------------------- the grid

// What the grids of the frames have in common. The start values are limits too: frames that lie wholly above the first
// or below the second keep them.
struct Common_Range {
    float lowest = 1e6f;
    float highest = -1e6f;
    float width = 1e6f;

    // Comparisons that let not-a-number pass by.
    void take(const Histo_Record& frame)
    {
        const float end = static_cast<float>(frame.nb_bins) * frame.width + frame.min;
        if (frame.min < lowest)
            lowest = frame.min;
        if (frame.width < width)
            width = frame.width;
        if (end > highest)
            highest = end;
    }
};

// The smallest k = 1, 2, 3... that brings the whole bins n / k to the limit; 0 when none does. The quotient never grows
// with k, so halving finds what counting would.
int merge_factor(float n, float limit)
{
    const auto fits = [&](int k) { return std::trunc(n / static_cast<float>(k)) <= limit; };
    int high = 1;
    while (!fits(high)) {
        if (high == INT_MAX)
            return 0;
        high = high > INT_MAX / 2 ? INT_MAX : 2 * high;
    }
    for (int low = high / 2; high - low > 1;) {
        const int middle = low + (high - low) / 2;
        (fits(middle) ? high : low) = middle;
    }
    return high;
}

void take_grid(Histo_Record& record, const Common_Range& range, Variables& host)
{
    float width = range.width;
    int bins = 1;
    // One grey value of room is added, whatever the width of a bin.
    const float n = ((range.highest - range.lowest) + 1.0f) / width;
    const float limit = host.most_bins.get() ? host.most_bins.value() : USHRT_MAX;
    if (const int k = n > 0 && std::isfinite(n) ? merge_factor(n, limit) : 0) {
        bins = std::max(1, histo::int_part(n / static_cast<float>(k)));
        width = width * static_cast<float>(k);
    }
    record.nb_bins = static_cast<unsigned short>(bins);
    record.min = range.lowest;
    record.width = width;
    if (unsigned short* shared = host.bins.get())
        *shared = record.nb_bins;
}

// ------------------------------------------------------------------------------------------------------ the counts

unsigned* new_counts(const Histo_Record& record)
{
    return new (std::nothrow) unsigned[record.nb_bins]();
}

// A line of its own for each, so that the report tells which one failed.
bool add_color_arrays(Histo_Record& record)
{
    record.flags |= is_color;
    int failed = 0;
    if (!(record.red = new_counts(record)))
        failed = __LINE__;
    else if (!(record.green = new_counts(record)))
        failed = __LINE__;
    else if (!(record.blue = new_counts(record)))
        failed = __LINE__;
    else if (!(record.max_component = new_counts(record)))
        failed = __LINE__;
    if (failed)
        frame::report_new_failed(failed, source);
    return failed == 0;
}

// The unit of all frames: that of the first frame that has one, "mix" as soon as a later one differs or has none.
class Common_Unit {
public:
    void take(const char* unit)
    {
        if (!unit_)
            unit_ = unit;
        else if (std::strcmp(unit_, mixed) != 0 && (!unit || std::strcmp(unit_, unit) != 0))
            unit_ = mixed;
    }
    const char* text() const { return unit_; }

private:
    static constexpr const char* mixed = "mix";
    const char* unit_ = nullptr;
};

bool is_continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// What does not fit is cut off before the character that does not fit whole.
void set_text(char (&target)[Tool_Histo::text_size], const char* text)
{
    size_t length = std::strlen(text);
    if (length >= sizeof target) {
        length = sizeof target - 1;
        while (length > 0 && is_continuation(text[length]))
            --length;
    }
    std::memcpy(target, text, length);
    target[length] = 0;
}

// False when there is no memory for the colours; without an iterator all counts stay 0.
bool add_frames(Histo_Record& record, void* window, Common_Unit& unit)
{
    Frame_Iterator frames(owner, window, Frame_Iterator::Which::selected);
    histo::Histogram_Sum sum(record);
    while (Strato_2D_Frame* frame = frames.next()) {
        unit.take(frame->unit); // of frames without a histogram as well
        const Histo_Record* histogram = frame->Histogram_Get();
        if (!histogram)
            continue;
        if ((histogram->flags & is_color) && !(record.flags & is_color)) {
            sum.flush();
            if (!add_color_arrays(record)) {
                frames.abandon(); // the host ends it when this owner begins the next one
                return false;
            }
        }
        sum.add(*histogram);
    }
    sum.flush();
    return true;
}

unsigned largest_count(const Histo_Record& record)
{
    unsigned largest = 0;
    for (const auto array : histo::arrays) {
        const unsigned* counts = record.*array;
        for (int bin = 0; counts && bin < record.nb_bins; ++bin)
            largest = std::max(largest, counts[bin]);
    }
    return largest;
}

}

int Histo_Compute(Tool_Histo* panel)
{
    Error_Fct(hwnd, level::internal_trace, "in Histo_Compute()");
    void* const window = frame::value_of("$WINDOW_CUR");
    if (!window)
        return 0;
    Variables& host = variables();
    if (host.component.get())
        panel->color_component = host.component.value();
    if (!empty_record(panel))
        return 0;

    Common_Range range;
    {
        Frame_Iterator frames(owner, window, Frame_Iterator::Which::selected);
        while (Strato_2D_Frame* frame = frames.next()) {
            if (const Histo_Record* histogram = frame->Histogram_Get())
                range.take(*histogram);
        }
    }
    if (range.lowest > range.highest)
        return 0;

    Histo_Record& record = *panel->histo;
    take_grid(record, range, host);
    record.count = new_counts(record);
    if (!record.count) {
        frame::report_new_failed(__LINE__, source);
        return 0;
    }
    Common_Unit unit;
    if (!add_frames(record, window, unit))
        return 0;
    record.max_count = largest_count(record);
    set_text(panel->x_title, "Pixel Intensity");
    set_text(panel->y_title, "Nb of Pixels");
    if (unit.text()) // else the text of the last histogram that had one stays
        set_text(panel->x_unit, unit.text());
    return 1;
}
