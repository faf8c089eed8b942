#include "tests/histo/peak_list.h"

#include <cmath>
#include <memory>

// The shapes of peaks.

using namespace test;

namespace {

constexpr unsigned short lorentzian = 1;
constexpr unsigned short gaussian = 2;
constexpr unsigned short mixed = 3;

class PeakShape : public ::testing::Test {
protected:
    ~PeakShape() override { histo::peak_settings.shape = gaussian; }

    void use(unsigned short shape) { histo::peak_settings.shape = shape; }
    double value(double x) const { return peak->eval(x, peak->param); }
    double derivative(int k, double x) const { return peak->deriv(static_cast<unsigned char>(k), x, peak->param); }

    /// From the values beside the parameter's own.
    double measured_derivative(int k, double x) const
    {
        double& parameter = (*peak->param)[k];
        const double kept = parameter, step = 1e-5;
        parameter = kept + step;
        const double above = value(x);
        parameter = kept - step;
        const double below = value(x);
        parameter = kept;
        return (above - below) / (2 * step);
    }

    Reports reports;
    Peak_List list;
    Histo_Peak* peak = list.add(50, 200, 8);
};

}

TEST_F(PeakShape, IsGaussian)
{
    EXPECT_EQ(histo::peak_settings.shape, gaussian);
    EXPECT_EQ(value(50), 200.0);
    EXPECT_EQ(value(53), 200.0 * std::exp(-(0.693147181 / (8.0 * 8.0)) * (3.0 * 3.0)));
}

TEST_F(PeakShape, TheWidthIsTheHalfWidthAtHalfMaximum)
{
    for (const unsigned short shape : {lorentzian, gaussian, mixed}) {
        use(shape);
        EXPECT_NEAR(value(50 + 8), 100, 1e-7) << shape;
        EXPECT_NEAR(value(50 - 8), 100, 1e-7) << shape;
    }
}

TEST_F(PeakShape, IsZeroBeyondItsReachAndNotAtIt)
{
    EXPECT_GT(value(50 + 80), 0.0);
    EXPECT_GT(value(50 - 80), 0.0);
    EXPECT_NEAR(value(130) / (200 * std::exp(-69.3147181)), 1, 1e-9);
    EXPECT_EQ(value(std::nextafter(130.0, 131.0)), 0.0);
    EXPECT_EQ(value(-30.001), 0.0);
    use(lorentzian);
    EXPECT_GT(value(50 + 400), 0.0);
    EXPECT_EQ(value(450.001), 0.0);
    EXPECT_EQ(value(-350.001), 0.0);
    for (const unsigned short shape : {lorentzian, gaussian, mixed}) {
        use(shape);
        for (const int k : {0, 1, 2})
            EXPECT_EQ(derivative(k, 451), 0.0);
    }
}

TEST_F(PeakShape, AMixtureHasHalfOfEachWithItsOwnReach)
{
    use(lorentzian);
    const double distant = value(300), beside = value(55), centre = derivative(0, 55);
    use(gaussian);
    const double other_beside = value(55), other_centre = derivative(0, 55);
    use(mixed);
    EXPECT_DOUBLE_EQ(value(300), distant / 2);
    EXPECT_DOUBLE_EQ(value(55), (beside + other_beside) / 2);
    EXPECT_DOUBLE_EQ(derivative(0, 55), (centre + other_centre) / 2);
}

TEST_F(PeakShape, DerivativesAreThoseOfTheValue)
{
    for (const unsigned short shape : {lorentzian, gaussian, mixed}) {
        use(shape);
        for (const int k : {0, 1, 2}) {
            for (const double x : {20.0, 44.0, 50.0, 51.5, 58.0, 90.0})
                EXPECT_NEAR(derivative(k, x), measured_derivative(k, x), 3e-5) << shape << ' ' << k << ' ' << x;
        }
    }
}

TEST_F(PeakShape, TheConstantsHaveTheirDigits)
{
    const double g = value(53);
    EXPECT_DOUBLE_EQ(derivative(0, 53), -2 * g * (50.0 - 53.0) * (0.693147181 / 64.0));
    EXPECT_DOUBLE_EQ(derivative(1, 53), std::exp(-(0.693147181 / 64.0) * 9.0));
    EXPECT_DOUBLE_EQ(derivative(2, 53), g * (1.386294 / 512.0) * 3 * 3);
}

TEST_F(PeakShape, AnAmplitudeOfZeroHasADerivative)
{
    (*peak->param)[1] = 0;
    EXPECT_EQ(value(53), 0.0);
    EXPECT_GT(derivative(1, 53), 0.9);
}

TEST_F(PeakShape, NoShapeIsZero)
{
    use(0);
    EXPECT_EQ(value(50), 0.0);
}

TEST_F(PeakShape, ASampleHasTheValuesOfTheFirstBins)
{
    const std::unique_ptr<double[]> sample(Peak_Sample(60, peak->param));
    ASSERT_NE(sample, nullptr);
    for (int x = 0; x < 60; ++x)
        EXPECT_EQ(sample[static_cast<size_t>(x)], value(x));
}

TEST_F(PeakShape, APeakAtExactlyZeroHasNoSample)
{
    (*peak->param)[0] = 0.0;
    EXPECT_EQ(Peak_Sample(60, peak->param), nullptr);
    (*peak->param)[0] = -0.0;
    EXPECT_EQ(Peak_Sample(60, peak->param), nullptr);
    (*peak->param)[0] = 1e-300;
    EXPECT_NE(std::unique_ptr<double[]>(Peak_Sample(60, peak->param)), nullptr);
    EXPECT_TRUE(reports.all().empty());
}
