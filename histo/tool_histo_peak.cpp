#include "histo/tool_histo_peak.h"

#include "frame/report.h"
#include "histo/int_part.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace level = frame::level;
using histo::peak_settings;
using histo::Shape_Point;

namespace histo {
Peak_Settings peak_settings;
}

namespace {

// Records and curves are reported under the name of the fit that they are made for, with these numbers.
constexpr const char* source = "tool_histo_peak";
constexpr const char* fit_source = "tool_histo_Gauss_Newton";
constexpr int record_line = 70;
constexpr int sample_line = 97;
constexpr int curve_line = 320;

enum Shape : unsigned short { no_shape, lorentzian, gaussian, mixed };

// The logarithm of 2 and twice it, to the digits that fits have always been made with.
constexpr double ln_2 = 0.693147181;
constexpr double twice_ln_2 = 1.386294;
constexpr double gaussian_reach = 10;   // widths
constexpr double lorentzian_reach = 50; // widths

Shape_Point gaussian_at(double x, double centre, double amplitude, double width)
{
    const double d = x - centre;
    if (std::fabs(d) > gaussian_reach * width)
        return {};
    const double q = ln_2 / (width * width);
    const double e = std::exp(-q * (d * d));
    const double value = amplitude * e;
    return {value, {-2 * value * (centre - x) * q, e, value * (twice_ln_2 / (width * width * width)) * d * d}};
}

Shape_Point lorentzian_at(double x, double centre, double amplitude, double width)
{
    const double d = x - centre;
    if (std::fabs(d) > lorentzian_reach * width)
        return {};
    const double u = d / width;
    const double one = 1 + u * u;
    return {amplitude / one, {(2 * x - 2 * centre) / (width * width) * amplitude / (one * one), 1 / one,
                                 2 * amplitude * d * d / (width * width * width) / (one * one)}};
}

Shape_Point mixture(const Shape_Point& one, const Shape_Point& other, double share)
{
    const auto mix = [share](double a, double b) { return share * a + (1 - share) * b; };
    return {mix(one.value, other.value),
        {mix(one.derivative[0], other.derivative[0]), mix(one.derivative[1], other.derivative[1]),
            mix(one.derivative[2], other.derivative[2])}};
}

double eval(double x, Vector_N* param)
{
    return histo::shape_at(x, *param).value;
}

double deriv(unsigned char k, double x, Vector_N* param)
{
    return k < 3 ? histo::shape_at(x, *param).derivative[k] : 0.0;
}

void free_peak(Histo_Peak* peak)
{
    delete[] peak->curve;
    delete peak->param;
    delete peak->param_min;
    delete peak->param_max;
    std::free(peak);
}

Vector_N* new_parameters(double centre, double amplitude, double width)
{
    auto* vector = new (std::nothrow) Vector_N(3, 8);
    if (!vector || vector->Size() != 3) {
        delete vector;
        return nullptr;
    }
    (*vector)[0] = centre;
    (*vector)[1] = amplitude;
    (*vector)[2] = width;
    return vector;
}

}

// ------------------------------------------------------------------------------------------------------ shapes

Shape_Point histo::shape_at(double x, const Vector_N& param)
{
    const double centre = param[0], amplitude = param[1], width = param[2];
    switch (peak_settings.shape) {
    case lorentzian:
        return lorentzian_at(x, centre, amplitude, width);
    case gaussian:
        return gaussian_at(x, centre, amplitude, width);
    case mixed:
        return mixture(
            lorentzian_at(x, centre, amplitude, width), gaussian_at(x, centre, amplitude, width), peak_settings.mixing);
    default:
        return {};
    }
}

double histo::shape_reach(const Vector_N& param)
{
    return (peak_settings.shape == gaussian ? gaussian_reach : lorentzian_reach) * param[2];
}

double* Peak_Sample(int n, Vector_N* param)
{
    if ((*param)[0] == 0.0)
        return nullptr;
    auto* values = new (std::nothrow) double[static_cast<size_t>(std::max(n, 0))];
    if (!values) {
        frame::report_new_failed(sample_line, source);
        return nullptr;
    }
    for (int x = 0; x < n; ++x)
        values[x] = eval(x, param);
    return values;
}

// ---------------------------------------------------------------------------------------------------- the list

void Histo_Peaks::Release()
{
    while (head) {
        Histo_Peak* next = head->next;
        free_peak(head);
        head = next;
    }
    nb = 0;
    nb_pts = 0;
    delete[] smooth;
    delete[] slope;
    delete[] sum;
    smooth = nullptr;
    slope = nullptr;
    sum = nullptr;
}

Histo_Peak* Peak_Add(Histo_Peaks* peaks, Histo_Peak** tail, int x, float factor, float width)
{
    const double height = peaks->smooth[x];
    const auto centre = static_cast<float>(x);
    auto* peak = static_cast<Histo_Peak*>(std::calloc(1, sizeof(Histo_Peak)));
    if (peak) {
        peak->nb_param = 3;
        peak->param = new_parameters(x, static_cast<double>(factor) * height, width);
        peak->param_min = new_parameters(centre - peak_settings.centre_freedom, 0.0, 1.0);
        peak->param_max =
            new_parameters(centre + peak_settings.centre_freedom, 2 * height, peak_settings.maximum_width);
    }
    if (!peak || !peak->param || !peak->param_min || !peak->param_max) {
        if (peak)
            free_peak(peak);
        frame::report_new_failed(record_line, fit_source);
        return nullptr;
    }
    peak->eval = eval;
    peak->deriv = deriv;
    peak->prev = *tail;
    (*tail ? (*tail)->next : peaks->head) = peak;
    *tail = peak;
    ++peaks->nb;
    return peak;
}

void Peak_Delete(Histo_Peaks* peaks, Histo_Peak* peak, const char* format, ...)
{
    char reason[1024];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(reason, sizeof reason, format, arguments);
    va_end(arguments);
    Error_Fct(hwnd, level::notice, "******* Delete peak at %.2f: %s", (*peak->param)[0], reason);
    (peak->prev ? peak->prev->next : peaks->head) = peak->next;
    if (peak->next)
        peak->next->prev = peak->prev;
    free_peak(peak);
    --peaks->nb;
}

// ---------------------------------------------------------------------------------------------------- the search

int Is_Zero_Peak(int n, const float* slope, int x, int half_window, float least)
{
    if (!(slope[x - 1] > 0 && slope[x] <= 0))
        return 0;
    // Kept although nothing may be found here, and from one search to the next.
    const int gap = x - peak_settings.last_crossing;
    peak_settings.last_crossing = x;
    if (gap <= half_window || half_window <= 1)
        return 0;
    bool rises = false, falls = false;
    for (int k = 1; k < half_window; ++k) {
        if (x - k >= 0) {
            if (slope[x - k] <= 0)
                return 0;
            rises |= slope[x - k] > least;
        }
        if (x + k < n) {
            if (slope[x + k] >= 0)
                return 0;
            falls |= slope[x + k] < -least;
        }
    }
    if (!rises || !falls)
        return 0;
    int end = x + 1;
    while (end < n && slope[end] < 0)
        ++end;
    return end - x;
}

int Is_Data_Peak(int n, const double* smooth, int x, int half_window, float rise)
{
    const double height = smooth[x - 1];
    if (height < peak_settings.least_height)
        return 0;
    int largest_rise = 0;
    for (int i = std::max(0, x - 1 - half_window); i <= std::min(n - 1, x - 1 + half_window); ++i) {
        if (smooth[i] > height)
            return 0;
        largest_rise = std::max(largest_rise, histo::int_part(height - smooth[i]));
    }
    Error_Fct(hwnd, level::detail, "  -> possile data peak at %d -> max = %d", x - 1, largest_rise);
    return static_cast<float>(largest_rise) >= rise;
}

namespace {

constexpr int smoothing = 10; // bins to each side

// Sums of counts are exact, so a sliding sum gives what summing anew would.
void smooth_counts(int n, const double* counts, double* smooth)
{
    double sum = 0;
    for (int i = 0; i < std::min(smoothing, n); ++i)
        sum += counts[i];
    for (int i = 0; i < n; ++i) {
        if (i + smoothing < n)
            sum += counts[i + smoothing];
        if (i - smoothing > 0)
            sum -= counts[i - smoothing - 1];
        smooth[i] = sum / (std::min(i + smoothing, n - 1) - std::max(i - smoothing, 0) + 1);
    }
}

void take_slope(int n, const double* smooth, float* slope)
{
    slope[0] = 0;
    for (int i = 1; i < n; ++i)
        slope[i] = static_cast<float>(smooth[i] - smooth[i - 1]);
}

float largest(int n, const double* counts)
{
    float largest_count = 0.0f;
    for (int i = 0; i < n; ++i)
        largest_count = std::max(largest_count, static_cast<float>(counts[i]));
    return largest_count;
}

// The smoothed counts and their slope; false without memory.
bool prepare(Histo_Peaks* peaks, int n, const double* counts)
{
    if (n <= 0)
        return true;
    peaks->smooth = new (std::nothrow) double[static_cast<size_t>(n)];
    peaks->slope = new (std::nothrow) float[static_cast<size_t>(n)];
    if (!peaks->smooth || !peaks->slope)
        return false;
    peaks->nb_pts = n;
    smooth_counts(n, counts, peaks->smooth);
    take_slope(n, peaks->smooth, peaks->slope);
    return true;
}

// A maximum between x - 1 and x makes a peak at x: the slope tells of it one bin later.
void scan(Histo_Peaks* peaks, int n)
{
    constexpr int half_window = 15;
    Histo_Peak* tail = nullptr;
    for (int x = 1; x < n; ++x) {
        if (const int flank = Is_Zero_Peak(n, peaks->slope, x, half_window, 5.0f)) {
            Error_Fct(hwnd, level::notice, "Locate a peak with zero at x = %d", x);
            Peak_Add(peaks, &tail, x, 1.0f, 5.0f);
            x += flank;
        } else if (Is_Data_Peak(n, peaks->smooth, x, half_window, 2.0f) == 1) {
            Error_Fct(hwnd, level::notice, "Locate a peak with data at x = %d", x);
            Peak_Add(peaks, &tail, x, 0.25f, 10.0f);
            x += 5;
        }
    }
}

void report_peaks(const Histo_Peaks* peaks, const char* which)
{
    int index = 0;
    for (const Histo_Peak* peak = peaks->head; peak; peak = peak->next) {
        const Vector_N& param = *peak->param;
        Error_Fct(
            hwnd, level::notice, "%s[%d]: C=%10.2f  A=%10.2f W=%10.2f", which, index++, param[0], param[1], param[2]);
    }
}

void make_curves(Histo_Peaks* peaks, int n)
{
    for (Histo_Peak* peak = peaks->head; peak; peak = peak->next) {
        peak->nb_pts = n;
        peak->curve = new (std::nothrow) float[static_cast<size_t>(n)];
        if (!peak->curve)
            return frame::report_new_failed(curve_line, fit_source);
        for (int x = 0; x < n; ++x)
            peak->curve[x] = static_cast<float>(peak->eval(x, peak->param));
    }
}

}

void Peak_Locate(Histo_Peaks* peaks, int n, const double* counts)
{
    peaks->Release();
    const float largest_count = largest(n, counts);
    if (!prepare(peaks, n, counts)) {
        peaks->Release();
        return;
    }
    Error_Fct(hwnd, level::notice, "nb pts:%d max val: %f", n, static_cast<double>(largest_count));
    peak_settings.least_height = 10.0f;
    peak_settings.maximum_width = static_cast<float>(n) / 5.0f;
    peak_settings.centre_freedom = 1.25f;
    scan(peaks, n);
    Error_Fct(hwnd, level::progress, "Computing Peak Fit: \x01%d\x02 peaks ...", peaks->nb);
    report_peaks(peaks, "before");
    Gauss_Newton(peaks, static_cast<unsigned short>(std::max(n, 0)), peaks->smooth, 0.1);
    report_peaks(peaks, "last peak");
    make_curves(peaks, n);
}
