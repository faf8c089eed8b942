#include "tests/histo/fit_comparison.h"

#include <cmath>
#include <cstdlib>

// The linker gives the search this fit instead of the library's own.
extern "C" double real_fit(Histo_Peaks* peaks, unsigned short n, const double* data, double limit) //
    __asm__("__real__Z12Gauss_NewtonP11Histo_PeakstPKdd");
extern "C" double seen_fit(Histo_Peaks* peaks, unsigned short n, const double* data, double limit) //
    __asm__("__wrap__Z12Gauss_NewtonP11Histo_PeakstPKdd");

namespace test {

namespace {

Seen_Fit seen;

}

const Seen_Fit& last_fit()
{
    return seen;
}

std::vector<double> values_of(const Vector_N& vector)
{
    std::vector<double> values;
    for (unsigned i = 0; i < vector.Size(); ++i)
        values.push_back(vector[static_cast<int>(i)]);
    return values;
}

void compare_peaks(const Histo_Peaks& peaks, const json& expected, double sensitivity)
{
    const double tolerance = std::max(1e-9, 100 * sensitivity);
    size_t index = 0;
    ASSERT_EQ(peaks.nb, static_cast<int>(expected.size()));
    for (const Histo_Peak* peak = peaks.head; peak; peak = peak->next, ++index) {
        ASSERT_LT(index, expected.size());
        for (size_t k = 0; k < 3; ++k) {
            const double value = (*peak->param)[static_cast<int>(k)], right = expected[index][k];
            EXPECT_TRUE(is_near(value, right, tolerance, 1)) << "peak " << index << ": " << value << ", not " << right;
        }
    }
    EXPECT_EQ(index, expected.size());
}

// ------------------------------------------------------------------------------------------------------ reports

namespace {

constexpr const char* error_line = "11 ++ mse: ";

struct Number {
    double value;
    double last_place;
    size_t length;
};

// The number that a text begins with, and what its last digit is worth.
Number number_at(const std::string& text, size_t at)
{
    const char* const start = text.c_str() + at;
    char* end = nullptr;
    const double value = std::strtod(start, &end);
    const std::string digits(start, static_cast<const char*>(end));
    const size_t mantissa = std::min(digits.find_first_of("eE"), digits.size()), point = digits.find('.');
    const double decimals = point < mantissa ? static_cast<double>(mantissa - point - 1) : 0;
    const int exponent = mantissa < digits.size() ? std::atoi(digits.c_str() + mantissa + 1) : 0;
    return {value, std::pow(10.0, exponent - decimals), digits.size()};
}

bool is_digit(char letter)
{
    return letter >= '0' && letter <= '9';
}

size_t skip_blanks(const std::string& text, size_t at)
{
    while (at < text.size() && text[at] == ' ')
        ++at;
    return at;
}

// Equal but for the last printed place of the numbers. The first ones may differ by more.
bool are_alike(const std::string& text, const std::string& expected, const std::vector<double>& slack)
{
    size_t a = 0, b = 0, number = 0;
    while (a < text.size() && b < expected.size()) {
        a = skip_blanks(text, a);
        b = skip_blanks(expected, b);
        const bool signed_number = expected[b] == '-' && is_digit(expected[b + 1]);
        if (is_digit(expected[b]) || signed_number) {
            const Number one = number_at(text, a), other = number_at(expected, b);
            a += one.length;
            b += other.length;
            const double more = number < slack.size() ? slack[number++] : 0;
            if (one.length == 0 ||
                std::fabs(one.value - other.value) > 1.001 * std::max(one.last_place, other.last_place) + more)
                return false;
        } else if (text[a++] != expected[b++]) {
            return false;
        }
    }
    return skip_blanks(text, a) == text.size() && skip_blanks(expected, b) == expected.size();
}

double slack_of(const json& iteration)
{
    return std::max(1e-9 * iteration.at("sse").get<double>(), 100 * iteration.at("dev")[3].get<double>());
}

// The level has none, the error that of the sum of squares, its change its own.
std::vector<double> slack_of_line(const std::string& line, const json& iteration)
{
    const double error = number_at(line, std::string(error_line).size()).value;
    return {0, error * std::max(1e-9, 100 * iteration.at("dev")[2].get<double>()), slack_of(iteration)};
}

}

void compare_log(const std::vector<std::string>& lines, const json& expected)
{
    const auto right = lines_of(expected.at("log"));
    const std::set<size_t> fragile = expected.at("log_fragile_lines");
    size_t iteration = 0;
    for (size_t i = 0; i < std::min(lines.size(), right.size()); ++i) {
        std::vector<double> slack;
        if (right[i].starts_with(error_line))
            slack = slack_of_line(right[i], expected.at("iterations")[iteration++]);
        if (fragile.contains(i))
            EXPECT_TRUE(are_alike(lines[i], right[i], slack)) << i << ": " << lines[i] << "\ninstead of " << right[i];
        else
            EXPECT_EQ(lines[i], right[i]) << "line " << i;
    }
    EXPECT_EQ(lines.size(), right.size());
}

void compare_returned(double returned, const json& expected)
{
    const double right = expected.at("return");
    const double slack = expected.at("iterations").empty() ? 0 : slack_of(expected["iterations"].back());
    EXPECT_LE(std::fabs(returned - right), slack + 1e-9 * std::fabs(right));
}

void compare_sum(const Histo_Peaks& peaks, const json& expected)
{
    for (size_t x = 0; x < expected.size(); ++x) {
        const double right = expected[x];
        ASSERT_TRUE(is_near(static_cast<double>(peaks.sum[x]), right, 1e-6)) << x << ": " << peaks.sum[x];
    }
}

}

extern "C" double seen_fit(Histo_Peaks* peaks, unsigned short n, const double* data, double limit)
{
    using namespace test;
    seen = {.limit = limit, .n = n};
    for (const Histo_Peak* peak = peaks->head; peak; peak = peak->next)
        seen.start.push_back({values_of(*peak->param), values_of(*peak->param_min), values_of(*peak->param_max)});
    seen.returned = real_fit(peaks, n, data, limit);
    return seen.returned;
}
