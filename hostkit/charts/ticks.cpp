#include "hostkit/charts/ticks.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace hostkit {

namespace {

constexpr double rounding = 1e-6; // of a range whose bounds are single precision

// number x 10^exponent by one operation on exact numbers, so that the result is the double next to the decimal.
double times_power_of_ten(double number, int exponent)
{
    const double power = std::pow(10.0, std::abs(exponent));
    return exponent >= 0 ? number * power : number / power;
}

double times_step(double multiple, Round_Step step, int shift)
{
    return times_power_of_ten(multiple * step.digit, step.exponent - shift);
}

struct Unit {
    int exponent;
    const char* sign;
};
constexpr Unit plain{0, ""};
constexpr Unit units[] = {{3, "k"}, {6, "M"}, {9, "G"}};

// Very large and very small numbers have a power of ten.
bool is_written_out(Round_Step step)
{
    return step.exponent >= -6 && step.exponent <= 12;
}

std::string written(const Ticks& ticks, int index, const Unit& unit)
{
    char text[64];
    const double number = times_step(ticks.first + index, ticks.step, unit.exponent);
    const auto end = is_written_out(ticks.step) ? std::to_chars(text, std::end(text), number, std::chars_format::fixed)
                                                : std::to_chars(text, std::end(text), number);
    std::string result(text, end.ptr);
    if (number < 0)
        result.replace(0, 1, "\u2212"); // as long as a plus, unlike the hyphen
    if (number != 0)
        result += unit.sign;
    return result;
}

std::vector<std::string> written(const Ticks& ticks, const Unit& unit)
{
    std::vector<std::string> labels;
    for (int index = 0; index < ticks.count; ++index)
        labels.push_back(written(ticks, index, unit));
    return labels;
}

size_t longest(const std::vector<std::string>& labels)
{
    size_t most = 0;
    for (const std::string& label : labels)
        most = std::max(most, label.size());
    return most;
}

bool may_have_unit(const Ticks& ticks)
{
    constexpr double readable = 1e5;
    const double last = Tick_Value(ticks, ticks.count - 1);
    return is_written_out(ticks.step) && std::max(std::abs(Tick_Value(ticks, 0)), std::abs(last)) >= readable;
}

}

Round_Step Round_Step::next() const
{
    switch (digit) {
    case 1:
        return {2, exponent};
    case 2:
        return {5, exponent};
    default:
        return {1, exponent + 1};
    }
}

Round_Step Round_Step_Of(double distance)
{
    Round_Step step{1, static_cast<int>(std::floor(std::log10(distance)))};
    while (times_step(1, step, 0) < distance * (1 - rounding))
        step = step.next();
    return step;
}

Ticks Ticks_In(double from, double to, Round_Step step)
{
    const double tolerance = (to - from) * rounding;
    const double length = times_step(1, step, 0);
    const double first = std::ceil((from - tolerance) / length);
    const double last = std::floor((to + tolerance) / length);
    return {step, first + 0.0, std::max(static_cast<int>(last - first) + 1, 0)};
}

double Tick_Value(const Ticks& ticks, int index)
{
    return times_step(ticks.first + index, ticks.step, 0);
}

std::vector<std::string> Tick_Labels(const Ticks& ticks)
{
    std::vector<std::string> shortest = written(ticks, plain);
    if (!may_have_unit(ticks))
        return shortest;
    for (const Unit& unit : units) {
        if (std::vector<std::string> labels = written(ticks, unit); longest(labels) < longest(shortest))
            shortest = std::move(labels);
    }
    return shortest;
}

}
