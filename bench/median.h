#pragma once

#include <QList>
#include <algorithm>
#include <cmath>

// The middle value of a set of timings.
inline double median(QList<double> values) {
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0.0 : values[values.size() / 2];
}

// The value that `share` (0 to 1) of a set of timings do not exceed.
inline double percentile(QList<double> values, double share) {
    std::sort(values.begin(), values.end());
    const auto at = qsizetype(std::ceil(share * values.size())) - 1;
    return values.isEmpty() ? 0.0 : values[std::clamp<qsizetype>(at, 0, values.size() - 1)];
}
