#include "frame/report.h"
#include "histo/tool_histo.h"
#include "histo/tool_histo_peak.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace level = frame::level;

namespace {

enum class Step { made, invalid_matrix, diverged };

// The bins that a peak can differ from 0 in; its own cut-off decides within.
struct Reach {
    int first;
    int end;
};

Reach reach_of(const Histo_Peak& peak, int n)
{
    const double centre = (*peak.param)[0];
    const double reach = histo::shape_reach(*peak.param);
    if (!(std::fabs(centre) + reach < 1e9))
        return {0, n};
    return {
        std::clamp(static_cast<int>(centre - reach) - 1, 0, n), std::clamp(static_cast<int>(centre + reach) + 2, 0, n)};
}

// Calls function(x, shape there) for every bin that the peak reaches.
template <class Function>
void for_each_bin(const Histo_Peak& peak, int n, Function function)
{
    const Reach reach = reach_of(peak, n);
    for (int x = reach.first; x < reach.end; ++x)
        function(x, histo::shape_at(x, *peak.param));
}

// Of the peaks as they were found: what is fitted afterwards does not change it any more. False without memory.
bool make_sum(Histo_Peaks* peaks, int n)
{
    delete[] peaks->sum;
    peaks->sum = new (std::nothrow) float[static_cast<size_t>(n)]();
    if (!peaks->sum)
        return false;
    for (const Histo_Peak* peak = peaks->head; peak; peak = peak->next)
        for_each_bin(*peak, n,
            [&](int x, const histo::Shape_Point& shape) { peaks->sum[x] += static_cast<float>(shape.value); });
    return true;
}

unsigned count_parameters(const Histo_Peaks* peaks)
{
    unsigned count = 0;
    for (const Histo_Peak* peak = peaks->head; peak; peak = peak->next)
        count += peak->nb_param;
    return count;
}

// Fills the derivatives and takes the shapes off the residuals: one exponential for a bin and peak.
void linearise(const Histo_Peaks* peaks, int n, Matrix_NxM& jacobian, Vector_N& residuals)
{
    int column = 0;
    for (const Histo_Peak* peak = peaks->head; peak; peak = peak->next) {
        for_each_bin(*peak, n, [&](int x, const histo::Shape_Point& shape) {
            double* row = jacobian[x] + column;
            for (int k = 0; k < peak->nb_param; ++k)
                row[k] = shape.derivative[k];
            residuals[x] -= shape.value;
        });
        column += peak->nb_param;
    }
}

double add_data(int n, const double* data, Vector_N& residuals)
{
    double sum_of_squares = 0;
    for (int x = 0; x < n; ++x) {
        residuals[x] += data[x];
        sum_of_squares += residuals[x] * residuals[x];
    }
    return sum_of_squares;
}

// Whether a step is so large that it leads nowhere. Not-a-number is.
bool diverges(const Histo_Peaks* peaks, const Vector_N& change)
{
    int g = 0;
    for (const Histo_Peak* peak = peaks->head; peak; peak = peak->next) {
        for (int k = 0; k < peak->nb_param; ++k, ++g) {
            const double bound = std::max(std::fabs((*peak->param_min)[k]), std::fabs((*peak->param_max)[k]));
            if (!(std::fabs(change[g]) <= 1000 * bound))
                return true;
        }
    }
    return false;
}

Vector_N parameters_of(const Histo_Peaks* peaks, unsigned count)
{
    Vector_N all(count, 8);
    int g = 0;
    for (const Histo_Peak* peak = peaks->head; peak && all.Size() == count; peak = peak->next)
        for (int k = 0; k < peak->nb_param; ++k)
            all[g++] = (*peak->param)[k];
    return all;
}

void take_parameters(Histo_Peaks* peaks, const Vector_N& all)
{
    int g = 0;
    for (Histo_Peak* peak = peaks->head; peak; peak = peak->next)
        for (int k = 0; k < peak->nb_param; ++k, ++g)
            (*peak->param)[k] = std::min(std::max(all[g], (*peak->param_min)[k]), (*peak->param_max)[k]);
}

Step step(Histo_Peaks* peaks, const Matrix_NxM& jacobian, const Vector_N& residuals)
{
    const Matrix_NxM transposed = ~jacobian;
    const Matrix_NxM normal = transposed * jacobian;
    const Matrix_NxM inverse = !normal;
    if (inverse.Invalid())
        return Step::invalid_matrix;
    Vector_N parameters = parameters_of(peaks, count_parameters(peaks));
    const Vector_N change = inverse * (transposed * residuals);
    if (change.Size() != parameters.Size())
        return Step::invalid_matrix;
    if (diverges(peaks, change))
        return Step::diverged;
    parameters += change;
    take_parameters(peaks, parameters);
    return Step::made;
}

// ----------------------------------------------------------------------------------------------------- pruning

void delete_small(Histo_Peaks* peaks)
{
    for (Histo_Peak *peak = peaks->head, *next; peak; peak = next) {
        next = peak->next;
        const double amplitude = (*peak->param)[1], width = (*peak->param)[2];
        if (amplitude <= (*peak->param_min)[1] || width <= (*peak->param_min)[2])
            Peak_Delete(peaks, peak, "Peak to small (amp=%.1f, width=%.1f)", amplitude, width);
    }
}

void delete_wide(Histo_Peaks* peaks)
{
    for (Histo_Peak *peak = peaks->head, *next; peak; peak = next) {
        next = peak->next;
        const double amplitude = (*peak->param)[1], width = (*peak->param)[2];
        if (width >= static_cast<double>(histo::peak_settings.maximum_width))
            Peak_Delete(peaks, peak, "Peak to wide (amp=%.1f, width=%.1f)", amplitude, width);
    }
}

// Of two that are too close the higher one stays; it meets its new neighbour in the next iteration only.
void delete_close(Histo_Peaks* peaks)
{
    for (Histo_Peak *peak = peaks->head, *next; peak && peak->next; peak = next) {
        next = peak->next;
        const auto centre = static_cast<float>((*peak->param)[0]);
        const auto amplitude = static_cast<float>((*peak->param)[1]);
        const auto next_centre = static_cast<float>((*next->param)[0]);
        const auto next_amplitude = static_cast<float>((*next->param)[1]);
        if (!(std::fabs(centre - next_centre) < 10.0f))
            continue;
        if (next_amplitude <= amplitude) {
            Histo_Peak* after = next->next;
            Peak_Delete(peaks, next, "Peak to close b (%.1f /vs/ %.1f)", static_cast<double>(centre),
                static_cast<double>(next_centre));
            next = after;
        } else {
            Peak_Delete(peaks, peak, "Peak to close a (%.1f /vs/ %.1f)", static_cast<double>(centre),
                static_cast<double>(next_centre));
        }
    }
}

void report_iteration(const Histo_Peaks* peaks, int iteration)
{
    int index = 0;
    for (const Histo_Peak* peak = peaks->head; peak; peak = peak->next) {
        const Vector_N& param = *peak->param;
        Error_Fct(hwnd, level::notice, "Iteration[%d] peak[%d]: C=%10.2f  A=%10.2f W=%10.2f", iteration, index++,
            param[0], param[1], param[2]);
    }
}

double failed(const char* why)
{
    Error_Fct(hwnd, level::warning, "\xf1\x05WARNING:\x02 Gauss_Newton %s", why);
    return 0.0;
}

}

double Gauss_Newton(Histo_Peaks* peaks, unsigned short n, const double* data, double limit)
{
    constexpr int most_iterations = 10;
    if (!make_sum(peaks, n))
        return 0.0;
    double before = 0.0, error = 0.0;
    int iteration = 0;
    for (; iteration < most_iterations; ++iteration) {
        Matrix_NxM jacobian(count_parameters(peaks), n, 8);
        Vector_N residuals(n, 8);
        if (jacobian.Invalid() || residuals.Size() != n)
            return failed("invalid matrix");
        linearise(peaks, n, jacobian, residuals);
        const double sum_of_squares = add_data(n, data, residuals);
        const double change = std::fabs(sum_of_squares - before);
        error = n == 0 ? 0.0 : 100 * sum_of_squares / n;
        Error_Fct(hwnd, level::notice, "++ mse: %.4f%% delta mse = %10.2g", error, change);
        if (change < limit)
            break;
        before = sum_of_squares;
        const Step made = step(peaks, jacobian, residuals);
        if (made == Step::invalid_matrix)
            return failed("invalid matrix");
        if (made == Step::diverged)
            return failed("failed!");
        delete_small(peaks);
        delete_wide(peaks);
        delete_close(peaks);
        report_iteration(peaks, iteration);
    }
    Error_Fct(hwnd, level::notice, "  -> Stop after \x01%d\x02 iterations", iteration + 1);
    return error;
}

int Tool_Histo::Fit()
{
    if (!Ready())
        return 1;
    const int n = histo->nb_bins;
    const unsigned* counts = histo->count;
    if (histo->flags & 1) {
        const unsigned* const of_component[] = {
            histo->max_component, histo->red, histo->green, histo->blue, histo->count};
        const auto component = static_cast<signed char>(color_component);
        counts = component >= 0 && component <= 4 ? of_component[component] : nullptr;
    }
    auto* data = new (std::nothrow) double[static_cast<size_t>(n)]();
    if (!data)
        return 1;
    if (counts)
        std::copy_n(counts, n, data);
    peaks_ = frame::Shared_Array<Histo_Peaks>(1); // copies of this panel keep what they show
    if (peaks_.size())
        Peak_Locate(&peaks_[0], n, data);
    delete[] data;
    return 1;
}
