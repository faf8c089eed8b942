#include "host/basics.h"
#include "hostkit/structures/pixel_store.h"
#include "hostkit/structures/strato_record.h"

#include <memory>
#include <utility>

namespace {

using hostkit::Pixel_Store;

const std::shared_ptr<Pixel_Store>& store_of(const Strato* object)
{
    return object->record()->pixels;
}

void report_left_out(const Strato* series, unsigned long long pixels)
{
    constexpr int progress = 4;
    const char* const name = series ? series->Name_Get() : "";
    if (pixels == 1)
        Error_Fct(hwnd, progress, "1 pixel of \"%s\" is infinite or not a number; histograms leave it out.", name);
    else if (pixels > 1)
        Error_Fct(hwnd, progress, "%llu pixels of \"%s\" are infinite or not a number; histograms leave them out.",
            pixels, name);
}

void report_no_memory(const Strato* series)
{
    constexpr int warning = 2;
    Error_Fct(hwnd, warning,
        "There is not enough memory for the histograms of \"%s\". Close other programs and open it again.",
        series ? series->Name_Get() : "");
}

void count(const Strato_2D* series, Pixel_Store& store)
{
    if (!store.count())
        return;
    if (store.lacks_memory())
        report_no_memory(series);
    report_left_out(series, store.histograms().left_out);
}

bool is_counted(const Strato_2D_Frame* frame)
{
    const auto& store = store_of(frame);
    if (!store)
        return false;
    count(frame->Parent_Get_Pt(), *store);
    return frame->index_z < store->histograms().frames.size();
}

}

const Histo_Record* Strato_2D_Frame::Histogram_Get()
{
    return is_counted(this) ? &store_of(this)->histograms().frames[index_z] : nullptr;
}

int Strato_2D_Frame::Value_Get(const Vector_4& position)
{
    return is_counted(this) ? store_of(this)->raw(position.x, position.y, position.z) : no_value;
}

float Fct_GLI_2_Float(Strato_2D_Frame* frame, int raw)
{
    if (!frame || !is_counted(frame))
        return 0;
    return store_of(frame)->grey(raw);
}

namespace hostkit {

void Series_Pixels_Set(Strato_2D* series, const Series_Pixels& pixels)
{
    const auto store = std::make_shared<Pixel_Store>(pixels);
    if (const auto before = std::exchange(series->record()->pixels, store))
        before->forget_pixels();
    unsigned short index = 0;
    for (int i = 0; i < series->Child_Get_Nb(); ++i) {
        // What was put under a series need not be one of its frames.
        auto* frame = dynamic_cast<Strato_2D_Frame*>(series->Child_Get_Pt(i));
        if (!frame)
            continue;
        frame->record()->pixels = store;
        frame->index_z = index++;
        frame->color = pixels.type == Pixel_Type::rgb;
        frame->unit = store->unit();
    }
}

void Series_Pixels_Changed(Strato_2D* series)
{
    if (const auto& store = store_of(series))
        store->forget_histograms();
}

Pixel_Size Frame_Size(const Strato_2D* frame)
{
    const auto& store = store_of(frame);
    return store ? Pixel_Size{store->pixels().width, store->pixels().height} : Pixel_Size{};
}

double Series_Grey_Factor(Strato_2D* series)
{
    const auto& store = store_of(series);
    if (!store)
        return 1.0;
    count(series, *store);
    return store->factor();
}

}
