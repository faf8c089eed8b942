#include "tests/histo/peak_list.h"

namespace test {

Peak_List::Peak_List(int n)
{
    peaks_.smooth = new double[static_cast<size_t>(n)]();
    peaks_.nb_pts = n;
}

Histo_Peak* Peak_List::add(double centre, double amplitude, double width)
{
    Histo_Peak* const peak = Peak_Add(&peaks_, &tail_, 0, 1, 1);
    assign(*peak->param, {centre, amplitude, width});
    assign(*peak->param_min, {centre - 1.25, 0, 1});
    assign(*peak->param_max, {centre + 1.25, 2 * amplitude, 1000});
    return peak;
}

std::vector<std::vector<double>> Peak_List::params() const
{
    return params_of(peaks_);
}

std::vector<double> Peak_List::centres() const
{
    std::vector<double> centres;
    for (const auto& param : params())
        centres.push_back(param[0]);
    return centres;
}

std::vector<double> Peak_List::model(int n) const
{
    std::vector<double> sum(static_cast<size_t>(n), 0.0);
    for (const Histo_Peak* peak = peaks_.head; peak; peak = peak->next) {
        for (int x = 0; x < n; ++x)
            sum[static_cast<size_t>(x)] += peak->eval(x, peak->param);
    }
    return sum;
}

void assign(Vector_N& vector, std::initializer_list<double> values)
{
    int i = 0;
    for (const double value : values)
        vector[i++] = value;
}

std::vector<std::vector<double>> params_of(const Histo_Peaks& peaks)
{
    std::vector<std::vector<double>> all;
    for (const Histo_Peak* peak = peaks.head; peak; peak = peak->next)
        all.push_back({(*peak->param)[0], (*peak->param)[1], (*peak->param)[2]});
    return all;
}

}
