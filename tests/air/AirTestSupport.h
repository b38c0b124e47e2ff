#pragma once
// Shared pieces of the air tests.

#include "zefra/air/HDGCurB.h"

#include <vector>

// Sets the chart's pressure for one test and restores it afterwards.
class ScopedPressure {
public:
    explicit ScopedPressure(double B) : m_saved(GetHDGCurB()) { SetHDGCurB(B); }
    ~ScopedPressure() { SetHDGCurB(m_saved); }
    ScopedPressure(const ScopedPressure&) = delete;
    ScopedPressure& operator=(const ScopedPressure&) = delete;

private:
    double m_saved;
};

// first, first + step, ... up to last inclusive.
inline std::vector<double> Steps(double first, double last, double step) {
    std::vector<double> values;
    for (int i = 0; first + i * step <= last + 1e-9; ++i) values.push_back(first + i * step);
    return values;
}

inline double RelativeError(double value, double reference) {
    const double scale = reference < 0.0 ? -reference : reference;
    const double diff = value - reference;
    return (diff < 0.0 ? -diff : diff) / (scale > 1.0 ? scale : 1.0);
}
