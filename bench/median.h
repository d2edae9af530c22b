#pragma once

#include <QList>
#include <algorithm>

// The middle value of a set of timings.
inline double median(QList<double> values) {
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0.0 : values[values.size() / 2];
}
