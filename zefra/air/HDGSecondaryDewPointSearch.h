#pragma once
// Dew point L of the secondary scheme's summer treatment: the state on the
// curve RH = ptL_RH that lies in line with the second mixing point M and the
// return air N', so that M is a mix of L and N'.
//
// The walk steps Tdb from 0 °C upward by 0.002, as long as M.Tdb isn't
// passed, and at each step t takes d on the curve and its enthalpy h. It
// keeps the step at which the two ratios r1 = (M.H − h) / (N'.H − h) and
// r2 = (M.D − d) / (N'.D − d) differ least, the earliest of equal ones,
// skipping steps with h within 0.001 of M.H and differences of 1000 or more.
//
// FindByFullScan walks every step and is the reference; it evaluates the
// steps a block at a time in vector loops that give the same bits. Find gives the same
// step, bit for bit, from a few dozen steps: the temperatures come from
// HDGRunningSum, which accumulates the additions exactly as the walk does;
// the crossing of the curve with the line through N' and M is found first,
// and every other range of steps is dismissed by a lower bound of the
// difference over it. Over steps a..b the curve point stays inside
// [t_a, t_b] × [d_a, d_b], since d and h grow with t; r1 − r2 equals
// X / ((N'.H − h)(N'.D − d)), where the cross product X is bilinear in (t, d)
// under the enthalpy relation, so |X| is bounded below by its corners and the
// denominator above by the ends. A range is split until its bound lies
// clearly above the best difference found; what is left is evaluated.

#include "zefra/air/HDGRunningSum.h"
#include "zefra/air/ZefraHDGPoint.h"

#include <vector>

class HDGSecondaryDewPointSearch {
public:
    struct SPass {
        double T = 0.0;
        double D = 0.0;
        double H = 0.0;
        double Diff = 0.0;
        bool Eligible = false;  // h not within 0.001 of M.H
    };

    struct SResult {
        bool Found = false;     // false: no step qualified, D and H are M's
        long long Step = -1;
        double D = 0.0;
        double H = 0.0;
        // The walk reached its bound of 1,000,000 steps (M.Tdb above 2000 °C)
        // and gave up: Found is false, D and H are M's.
        bool Exhausted = false;
    };

    HDGSecondaryDewPointSearch(const ZefraHDGPoint& mix, const ZefraHDGPoint& returnAir, double dewPointRH);

    SResult Find();
    SResult FindByFullScan() const;

    int GetEvaluationCount() const { return m_evaluations; }

private:
    struct SEvaluated {
        long long Step;
        SPass Pass;
    };

    // Two evaluated steps, by their places in m_evaluated.
    struct SRange {
        int A;
        int B;
    };

    SPass Evaluate(double t) const;
    SPass PassAt(long long step);
    // Evaluates a step not evaluated before.
    SPass NewPass(long long step);
    // Evaluates steps not evaluated before, together.
    void NewPasses(const std::vector<long long>& steps);
    void Consider(long long step, const SPass& pass);
    long long LastStep();
    // X = (M.H − h)(N'.D − d) − (M.D − d)(N'.H − h), zero on the line N'M.
    double Cross(double h, double d) const;
    // Lower bound of the difference over the steps strictly between a and b.
    double LowerBoundBetween(const SPass& a, const SPass& b) const;
    bool CannotHoldBest(const SPass& a, const SPass& b) const;
    bool HoldsEnthalpyRelation(const SPass& pass) const;
    long long FindCrossing(long long lo, long long hi);
    long long SplitStep(long long a, long long b, long long crossing) const;

    double m_mixT, m_mixH, m_mixD;
    double m_returnH, m_returnD;
    double m_dewPointRH;
    double m_pressure;

    // X as a function of (t, d): Constant + ByT·t + ByD·d + ByTD·t·d.
    struct SCrossTerms {
        double Constant = 0.0;
        double ByT = 0.0;
        double ByD = 0.0;
        double ByTD = 0.0;
        double AbsAlpha = 0.0;
        double AbsBeta = 0.0;
        double AbsGamma = 0.0;
    };

    const HDGRunningSum& m_temperatures;
    SCrossTerms m_cross;
    std::vector<SEvaluated> m_evaluated;
    SResult m_best;
    double m_bestDiff = 0.0;
    mutable int m_evaluations = 0;
};
