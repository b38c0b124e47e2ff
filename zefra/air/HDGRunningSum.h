#pragma once
// A running sum x := x + step, rounded after every addition exactly as a loop
// of double additions rounds it, that can jump over many additions at once.
//
// While the sum and each result stay inside one binade (the doubles between
// two neighbouring powers of two, all spaced by the same ulp), every addition
// rounds the step to the same multiple of that ulp, so a run of additions
// there is one integer multiple of it. Additions that leave a binade, and
// steps that round to a tie, are taken one at a time. The value after n
// additions is bit for bit what n additions in a loop give.

#include <vector>

class HDGRunningSum {
public:
    HDGRunningSum(double start, double step);

    // The sum after `additions` additions of the step to the start.
    double ValueAfter(long long additions);
    // The same for a sum already extended that far (see ExtendTo).
    double ValueWithin(long long additions) const;
    // out[k] = ValueWithin(first + k) for k < n, the runs inside one binade
    // several values at a time.
    void ValuesWithin(long long first, int n, double* out) const;
    // Prepares every value up to `additions` additions.
    void ExtendTo(long long additions);
    long long GetExtent() const;

private:
    // The sum at one count of additions, and the run of additions after it
    // that stay in its binade: the value after j more additions, for j up to
    // RunLength, is ±(Mantissa + j × Increment) × Scale.
    struct SCheckpoint {
        long long Count = 0;
        double Value = 0.0;
        long long RunLength = 0;
        long long Mantissa = 0;
        long long Increment = 0;
        double Scale = 0.0;  // the binade's ulp, a power of two
        bool Negative = false;
    };

    SCheckpoint MakeCheckpoint(long long count, double value) const;
    static double ValueInRun(const SCheckpoint& checkpoint, long long additions);
    const SCheckpoint& CheckpointOf(long long additions) const;

    double m_step;
    std::vector<SCheckpoint> m_checkpoints;  // by count, the last one is the frontier
};
