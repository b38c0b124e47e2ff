#pragma once
// Root of an increasing function on an interval. Halley steps from a first
// guess, kept inside a shrinking bracket by bisection whenever a step would
// leave it.
//
// Halley converges cubically: after a step of length s the error left is
// about K·s³, K = |(f''/2f')² − f'''/6f'|. The search ends as soon as that
// estimate, with a margin, is below the tolerance, so a good first guess
// costs a single evaluation. It also ends when the bracket has shrunk to
// nothing or after a fixed number of passes. A root outside the interval
// gives the nearer end.

#include <cmath>

// A function's value and its first three derivatives at one argument.
struct RootTerms {
    double f;
    double d1;
    double d2;
    double d3;
};

class IncreasingRootFinder {
public:
    constexpr IncreasingRootFinder(double lo, double hi, double errorTolerance)
        : m_lo(lo), m_hi(hi), m_tolerance(errorTolerance) {}

    // evaluate(x) gives the RootTerms at x.
    template <typename Evaluate>
    double Solve(const Evaluate& evaluate, double guess) const {
        double lo = m_lo;
        double hi = m_hi;
        double x = guess > lo ? (guess < hi ? guess : hi) : lo;
        if (!(x == x)) x = 0.5 * (lo + hi);  // a NaN guess
        for (int pass = 0; pass < kMaxPasses; ++pass) {
            const RootTerms r = evaluate(x);
            if (r.f == 0.0) return x;
            if (r.f < 0.0)
                lo = x;
            else
                hi = x;
            const double inv = 1.0 / r.d1;
            const double newton = r.f * inv;
            const double c2 = 0.5 * r.d2 * inv;
            // Halley's step newton / (1 − newton·c2), by its series while the
            // correction is small, as it is near the root; Newton's step where
            // the correction is out of bounds.
            const double w = newton * c2;
            bool halley = true;
            double step;
            if (std::fabs(w) < 0.01)
                step = newton * (1.0 + w * (1.0 + w * (1.0 + w)));
            else if (w > -1.0 && w < 0.5)
                step = newton / (1.0 - w);
            else {
                step = newton;
                halley = false;
            }
            double next = x - step;
            const bool inside = next > lo && next < hi;  // false for NaN too
            if (!inside) next = 0.5 * (lo + hi);
            const double moved = std::fabs(next - x);
            x = next;
            if (inside) {
                const double left = halley ? std::fabs(c2 * c2 - r.d3 * inv * (1.0 / 6.0)) * moved * moved * moved
                                           : std::fabs(c2) * moved * moved;
                if (kMargin * left <= m_tolerance) return x;
            }
            if (!(hi - lo > kSmallestBracket)) return x;
        }
        return x;
    }

private:
    static constexpr int kMaxPasses = 100;
    static constexpr double kSmallestBracket = 1e-13;
    static constexpr double kMargin = 4.0;

    double m_lo;
    double m_hi;
    double m_tolerance;
};
