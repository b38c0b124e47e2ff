#pragma once
// The system's zero band: x counts as zero when -g_fZero <= x <= g_fZero.
// It must stay far below 5e-5, the stopping width of the winter mixing search.

extern const double g_fZero;

inline bool IsInZeroBand(double x) { return x >= -g_fZero && g_fZero >= x; }
