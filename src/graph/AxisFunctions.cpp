#include "graph/AxisFunctions.h"

#include "text/Numbers.h"

#include <array>
#include <cmath>

namespace linealis {

namespace {

// The coefficients of the numerators (a, c) and denominators (b, d) of Acklam: a and b for the middle, c and d for
// the tails.
constexpr std::array<double, 6> a = {-39.69683028665376, 220.9460984245205,  -275.9285104469687,
                                     138.3577518672690,  -30.66479806614716, 2.506628277459239};
constexpr std::array<double, 5> b = {-54.47609879822406, 161.5858368580409, -155.6989798598866, 66.80131188771972,
                                     -13.28068155288572};
constexpr std::array<double, 6> c = {-0.007784894002430293, -0.3223964580411365, -2.400758277161838,
                                     -2.549732539343734,    4.374664141464968,   2.938163982698783};
constexpr std::array<double, 4> d = {0.007784695709041462, 0.3224671290700398, 2.445134137142996,
                                     3.754408661907416};

constexpr double lowerBreakpoint = 0.02425;
constexpr double upperBreakpoint = 0.97575;
constexpr double outsideDistribution = -999.0;

/// The approximation below the lower breakpoint. By symmetry, its negative is the one above the upper breakpoint.
double Tail(double p)
{
    const double q = std::sqrt(-2.0 * std::log(p));
    return (((((c[0] * q + c[1]) * q + c[2]) * q + c[3]) * q + c[4]) * q + c[5]) /
           ((((d[0] * q + d[1]) * q + d[2]) * q + d[3]) * q + 1.0);
}

/// The approximation between the breakpoints.
double Middle(double p)
{
    const double q = p - 0.5;
    const double r = q * q;
    return (((((a[0] * r + a[1]) * r + a[2]) * r + a[3]) * r + a[4]) * r + a[5]) * q /
           (((((b[0] * r + b[1]) * r + b[2]) * r + b[3]) * r + b[4]) * r + 1.0);
}

}  // namespace

std::string mytrigstring(double value)
{
    if (value == 0.0) {
        return "0";
    }
    const std::string sign = value < 0.0 ? "-" : "";
    const double v = std::fabs(value);
    if (std::floor(v) == v) {
        return sign + (v == 1.0 ? "" : Str(v)) + "PI";
    }
    for (const double divisor : {2.0, 4.0, 8.0}) {
        const double numerator = std::floor(v * divisor);
        if (numerator / divisor == v) {
            return sign + Str(numerator) + "PI/" + Str(divisor);
        }
    }
    return sign + Str(v) + "PI";
}

double ComputeInverseERF(double p)
{
    if (p > 0.0 && p < lowerBreakpoint) {
        return Tail(p);
    }
    if (p >= lowerBreakpoint && p <= upperBreakpoint) {
        return Middle(p);
    }
    if (p > upperBreakpoint && p < 1.0) {
        return -Tail(1.0 - p);
    }
    return outsideDistribution;
}

double ShareOfProbabilityScale(double percentage)
{
    const double lowest = ComputeInverseERF(0.001);
    const double highest = ComputeInverseERF(0.999);
    return (ComputeInverseERF(percentage / 100.0) - lowest) / (highest - lowest);
}

double ComputeERF(double x)
{
    constexpr int lastTerm = 85;
    double sum = 0.0;
    for (int n = 0; n <= lastTerm; ++n) {
        const double odd = 2.0 * n + 1.0;
        sum += std::pow(-1.0, n) * std::pow(x, odd) / (factorial(n) * odd);
    }
    return 2.0 * sum / std::sqrt(4.0 * std::atan(1.0));
}

double factorial(int n)
{
    double product = 1.0;
    for (int i = 1; i <= n; ++i) {
        product *= i;
    }
    return product;
}

double log10OnAxis(double value)
{
    return std::log(value) / std::log(10.0);
}

}  // namespace linealis
