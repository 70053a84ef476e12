#include "pipeline/page/Fitting.h"

#include <cmath>

namespace linealis {

double Positions(double first, double limit, double step)
{
    constexpr double mostCounted = 1e6;
    if (!(first <= limit) || !Advances(first, step)) {
        return first <= limit ? 1.0 : 0.0;
    }
    if (const double estimate = std::floor((limit - first) / step) + 1.0; estimate > mostCounted) {
        return estimate;
    }
    double count = 0.0;
    for (double position = first; position <= limit; position += step) {
        count += 1.0;
    }
    return count;
}

}  // namespace linealis
