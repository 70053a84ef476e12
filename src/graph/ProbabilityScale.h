#pragma once

#include "graph/AxisFunctions.h"

namespace linealis {

/// Where a percentage lies on the normal probability scale: 0 at 0.1 per cent, 1 at 99.9 per cent.
inline double ShareOfProbabilityScale(double percentage)
{
    const double lowest = ComputeInverseERF(0.001);
    const double highest = ComputeInverseERF(0.999);
    return (ComputeInverseERF(percentage / 100.0) - lowest) / (highest - lowest);
}

}  // namespace linealis
