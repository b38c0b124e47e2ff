#include "zefra/air/HDGSecondaryDewPointSearch.h"

#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/airlib/NT.h"
#include "zefra/platform/airlib/VectorClones.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kStep = 0.002;          // °C
constexpr double kFirstBest = 1000.0;    // the walk's starting "best" difference
constexpr double kSameEnthalpy = 0.001;  // kJ/kg: steps this close to M.H don't count
constexpr long long kShortWalk = 64;
constexpr long long kPreparedSteps = 1LL << 20;  // the shared walk's temperatures reach 2097 °C
constexpr double kHighestWalkT = 2000.0;        // °C; beyond it the walk is simply walked
constexpr int kCrossingRounds = 64;
// No walk goes on past this many steps (M.Tdb of 2000 °C): from an absurd or
// non-finite M.Tdb the addition of 0.002 may never pass it. A walk stopped
// there reports that it was exhausted.
constexpr long long kMostWalkSteps = static_cast<long long>(kHighestWalkT / kStep);
// Rounding allowances of the bound: relative to the terms of the cross
// product, and to the best difference when a range is dismissed.
constexpr double kCrossSlack = 1e-9;
constexpr double kDismissMargin = 1e-9;
constexpr double kDismissFloor = 1e-12;

constexpr int kBlock = 256;               // steps evaluated together by the full scan

// The figures of one step of the walk, several steps at a time: d on the
// curve, h, and the difference of the two ratios, by the same operations as
// HDGSecondaryDewPointSearch::Evaluate.
struct SWalkLine {
    double DewPointRH, Pressure, MixH, MixD, ReturnH, ReturnD;
};

ZEFRA_VECTOR_CLONES
void EvaluateSteps(const SWalkLine& line, const double* __restrict t, const double* __restrict ps, int n,
                   double* __restrict d, double* __restrict h, double* __restrict diff) {
    const SWalkLine l = line;
    for (int k = 0; k < n; ++k) {
        const double dk = AIR::GetDByPv(l.DewPointRH * ps[k], l.Pressure);
        const double hk = AIR::GetH(t[k], dk);
        const double r1 = (l.MixH - hk) / (l.ReturnH - hk);
        const double r2 = (l.MixD - dk) / (l.ReturnD - dk);
        d[k] = dk;
        h[k] = hk;
        diff[k] = std::fabs(r1 - r2);
    }
}

double EnthalpyRelation(double t, double d) { return (1010.0 * t + d * (2500.0 + 1.84 * t)) / 1000.0; }

// Every walk starts at 0 °C with the same step, so all searches share one
// accumulation of its temperatures, prepared at the first search.
const HDGRunningSum& TemperatureWalk() {
    static const HDGRunningSum walk = [] {
        HDGRunningSum temperatures(0.0, kStep);
        temperatures.ExtendTo(kPreparedSteps);
        return temperatures;
    }();
    return walk;
}

}  // namespace

HDGSecondaryDewPointSearch::HDGSecondaryDewPointSearch(const ZefraHDGPoint& mix, const ZefraHDGPoint& returnAir,
                                                       double dewPointRH)
    : m_mixT(mix.GetTdb()),
      m_mixH(mix.GetH()),
      m_mixD(mix.GetD()),
      m_returnH(returnAir.GetH()),
      m_returnD(returnAir.GetD()),
      m_dewPointRH(dewPointRH),
      m_pressure(GetHDGCurB()),
      m_temperatures(TemperatureWalk()) {
    m_evaluated.reserve(64);
    // X = α h + β d + γ, and with h = 1.01 t + d (2.5 + 0.00184 t) bilinear in (t, d).
    const double alpha = m_mixD - m_returnD;
    const double beta = m_returnH - m_mixH;
    const double gamma = m_mixH * m_returnD - m_mixD * m_returnH;
    m_cross.Constant = gamma;
    m_cross.ByT = 1.01 * alpha;
    m_cross.ByD = 2.5 * alpha + beta;
    m_cross.ByTD = 0.00184 * alpha;
    m_cross.AbsAlpha = std::fabs(alpha);
    m_cross.AbsBeta = std::fabs(beta);
    m_cross.AbsGamma = std::fabs(gamma);
}

HDGSecondaryDewPointSearch::SPass HDGSecondaryDewPointSearch::Evaluate(double t) const {
    ++m_evaluations;
    SPass pass;
    pass.T = t;
    pass.D = AIR::GetD(t, m_dewPointRH, m_pressure);
    pass.H = AIR::GetH(t, pass.D);
    const double r1 = (m_mixH - pass.H) / (m_returnH - pass.H);
    const double r2 = (m_mixD - pass.D) / (m_returnD - pass.D);
    pass.Diff = std::fabs(r1 - r2);
    pass.Eligible = !NT::IsEqual(pass.H, m_mixH, kSameEnthalpy);
    return pass;
}

HDGSecondaryDewPointSearch::SResult HDGSecondaryDewPointSearch::FindByFullScan() const {
    // The walk "for (t = 0; M.Tdb >= t; t = t + 0.002)", a block of steps at a
    // time. Its temperatures are read from the shared accumulation as far as
    // that is prepared, and added up one by one beyond.
    const SWalkLine line{m_dewPointRH, m_pressure, m_mixH, m_mixD, m_returnH, m_returnD};
    const long long prepared = m_temperatures.GetExtent();
    double t[kBlock], ps[kBlock], d[kBlock], h[kBlock], diff[kBlock];
    m_evaluations = 0;
    double best = kFirstBest;
    SResult result{false, -1, m_mixD, m_mixH};
    long long firstStep = 0;
    double next = 0.0;  // the temperature of firstStep
    while (m_mixT >= next) {
        if (firstStep >= kMostWalkSteps) return {false, -1, m_mixD, m_mixH, true};
        int n = 0;
        if (firstStep + kBlock <= prepared) {
            m_temperatures.ValuesWithin(firstStep, kBlock, t);
            // The temperatures rise step by step, so the walk takes those up to M.Tdb.
            n = CountWithin(t, kBlock, -std::numeric_limits<double>::infinity(), m_mixT);
            next = n < kBlock ? t[n] : m_temperatures.ValueWithin(firstStep + kBlock);
        } else {
            for (; n < kBlock && m_mixT >= next; ++n) {
                t[n] = next;
                next = next + kStep;
            }
        }
        AIR::GetPsMany(t, ps, n);
        EvaluateSteps(line, t, ps, n, d, h, diff);
        m_evaluations += n;
        for (int k = 0; k < n; ++k) {
            if (best > diff[k] && !NT::IsEqual(h[k], m_mixH, kSameEnthalpy)) {
                best = diff[k];
                result = {true, firstStep + k, d[k], h[k]};
            }
        }
        firstStep += n;
    }
    return result;
}

HDGSecondaryDewPointSearch::SPass HDGSecondaryDewPointSearch::PassAt(long long step) {
    for (const SEvaluated& evaluated : m_evaluated)
        if (evaluated.Step == step) return evaluated.Pass;
    return NewPass(step);
}

HDGSecondaryDewPointSearch::SPass HDGSecondaryDewPointSearch::NewPass(long long step) {
    const SPass pass = Evaluate(m_temperatures.ValueWithin(step));
    m_evaluated.push_back({step, pass});
    Consider(step, pass);
    return pass;
}

void HDGSecondaryDewPointSearch::NewPasses(const std::vector<long long>& steps) {
    const SWalkLine line{m_dewPointRH, m_pressure, m_mixH, m_mixD, m_returnH, m_returnD};
    double t[kBlock], ps[kBlock], d[kBlock], h[kBlock], diff[kBlock];
    for (size_t start = 0; start < steps.size(); start += kBlock) {
        const int n = static_cast<int>(std::min<size_t>(kBlock, steps.size() - start));
        for (int k = 0; k < n; ++k) t[k] = m_temperatures.ValueWithin(steps[start + k]);
        AIR::GetPsMany(t, ps, n);
        EvaluateSteps(line, t, ps, n, d, h, diff);
        m_evaluations += n;
        for (int k = 0; k < n; ++k) {
            const SPass pass{t[k], d[k], h[k], diff[k], !NT::IsEqual(h[k], m_mixH, kSameEnthalpy)};
            m_evaluated.push_back({steps[start + k], pass});
            Consider(steps[start + k], pass);
        }
    }
}

void HDGSecondaryDewPointSearch::Consider(long long step, const SPass& pass) {
    // The walk keeps the smallest difference, and of equal ones the earliest.
    if (!pass.Eligible || !(kFirstBest > pass.Diff)) return;
    if (m_best.Found && !(pass.Diff < m_bestDiff || (pass.Diff == m_bestDiff && step < m_best.Step))) return;
    m_best = {true, step, pass.D, pass.H};
    m_bestDiff = pass.Diff;
}

long long HDGSecondaryDewPointSearch::LastStep() {
    long long step = static_cast<long long>(m_mixT / kStep);
    while (step > 0 && !(m_mixT >= m_temperatures.ValueWithin(step))) --step;
    while (m_mixT >= m_temperatures.ValueWithin(step + 1)) ++step;
    return step;
}

double HDGSecondaryDewPointSearch::Cross(double h, double d) const {
    return (m_mixH - h) * (m_returnD - d) - (m_mixD - d) * (m_returnH - h);
}

bool HDGSecondaryDewPointSearch::HoldsEnthalpyRelation(const SPass& pass) const {
    const double expected = EnthalpyRelation(pass.T, pass.D);
    return std::fabs(pass.H - expected) <= 1e-9 * (1.0 + std::fabs(expected));
}

double HDGSecondaryDewPointSearch::LowerBoundBetween(const SPass& a, const SPass& b) const {
    if (!(a.D <= b.D && a.H <= b.H)) return 0.0;
    // The corners of [t_a, t_b] × [d_a, d_b]: X is bilinear in (t, d).
    const SCrossTerms& x = m_cross;
    const double atA = x.Constant + x.ByT * a.T;
    const double atB = x.Constant + x.ByT * b.T;
    const double slopeA = x.ByD + x.ByTD * a.T;
    const double slopeB = x.ByD + x.ByTD * b.T;
    const double c1 = atA + slopeA * a.D;
    const double c2 = atA + slopeA * b.D;
    const double c3 = atB + slopeB * a.D;
    const double c4 = atB + slopeB * b.D;
    const double lowest = std::min(std::min(c1, c2), std::min(c3, c4));
    const double highest = std::max(std::max(c1, c2), std::max(c3, c4));
    if (!(lowest <= 0.0 ? highest < 0.0 : lowest > 0.0)) return 0.0;  // straddles zero, or NaN

    // Allow for rounding relative to the terms of X = α h + β d + γ.
    const double slack = kCrossSlack * (x.AbsAlpha * std::max(std::fabs(a.H), std::fabs(b.H)) +
                                        x.AbsBeta * std::max(std::fabs(a.D), std::fabs(b.D)) + x.AbsGamma);
    const double leastCross = std::min(std::fabs(lowest), std::fabs(highest)) - slack;
    if (!(leastCross > 0.0)) return 0.0;

    const double largestDenominator = std::max(std::fabs(m_returnH - a.H), std::fabs(m_returnH - b.H)) *
                                      std::max(std::fabs(m_returnD - a.D), std::fabs(m_returnD - b.D));
    if (largestDenominator == 0.0) return std::numeric_limits<double>::infinity();
    return leastCross / largestDenominator;
}

bool HDGSecondaryDewPointSearch::CannotHoldBest(const SPass& a, const SPass& b) const {
    const double bound = LowerBoundBetween(a, b);
    const double best = m_best.Found ? m_bestDiff : kFirstBest;
    return bound > best * (1.0 + kDismissMargin) + kDismissFloor;
}

long long HDGSecondaryDewPointSearch::FindCrossing(long long lo, long long hi) {
    // False position on the step index, with Illinois weighting.
    SPass a = PassAt(lo);
    SPass b = PassAt(hi);
    double fa = Cross(a.H, a.D);
    double fb = Cross(b.H, b.D);
    int lastMoved = 0;
    for (int round = 0; hi - lo > 1 && round < kCrossingRounds; ++round) {
        long long probe = lo + (hi - lo) / 2;
        const double fraction = fa / (fa - fb);
        if (fraction > 0.0 && fraction < 1.0)
            probe = lo + std::llround(fraction * static_cast<double>(hi - lo));
        probe = std::clamp(probe, lo + 1, hi - 1);
        const SPass p = PassAt(probe);
        const double fp = Cross(p.H, p.D);
        if ((fp > 0.0) == (fa > 0.0)) {
            lo = probe;
            fa = fp;
            if (lastMoved < 0) fb *= 0.5;
            lastMoved = -1;
        } else {
            hi = probe;
            fb = fp;
            if (lastMoved > 0) fa *= 0.5;
            lastMoved = 1;
        }
    }
    return hi - lo == 1 ? lo : -1;
}

long long HDGSecondaryDewPointSearch::SplitStep(long long a, long long b, long long crossing) const {
    long long split = a + (b - a) / 2;
    if (crossing >= 0) {
        // Ranges farther from the crossing can be wider and still be dismissed:
        // split at the geometric mean of the distances.
        if (a > crossing) {
            const double nearer = static_cast<double>(a - crossing);
            const double farther = static_cast<double>(b - crossing);
            split = crossing + std::llround(std::sqrt(nearer * farther));
        } else if (b <= crossing + 1) {
            const double nearer = static_cast<double>(crossing + 1 - b);
            const double farther = static_cast<double>(crossing + 1 - a);
            split = crossing + 1 - std::llround(std::sqrt(std::max(1.0, nearer) * farther));
        }
    }
    return std::clamp(split, a + 1, b - 1);
}

HDGSecondaryDewPointSearch::SResult HDGSecondaryDewPointSearch::Find() {
    m_evaluations = 0;
    m_evaluated.clear();
    m_best = SResult{false, -1, m_mixD, m_mixH};
    m_bestDiff = kFirstBest;
    const bool usual = std::isfinite(m_mixT) && std::isfinite(m_mixH) && std::isfinite(m_mixD) &&
                       std::isfinite(m_returnH) && std::isfinite(m_returnD) && std::isfinite(m_dewPointRH) &&
                       m_mixT < kHighestWalkT;
    if (!usual) return FindByFullScan();
    if (!(m_mixT >= 0.0)) return m_best;

    const long long last = LastStep();
    if (last < kShortWalk) return FindByFullScan();
    const SPass first = PassAt(0);
    const SPass end = PassAt(last);
    const bool regular = std::isfinite(first.D) && std::isfinite(first.H) && std::isfinite(end.D) &&
                         std::isfinite(end.H) && HoldsEnthalpyRelation(first) && HoldsEnthalpyRelation(end);
    if (!regular) return FindByFullScan();

    long long crossing = -1;
    if ((Cross(first.H, first.D) > 0.0) != (Cross(end.H, end.D) > 0.0)) crossing = FindCrossing(0, last);

    // Every range between evaluated steps is dismissed by its bound or split.
    // The ranges are taken a generation at a time, so that the steps of one
    // generation are evaluated together rather than one after another.
    std::vector<SRange> ranges;
    ranges.reserve(64);
    std::vector<int> byStep(m_evaluated.size());
    for (size_t i = 0; i < byStep.size(); ++i) byStep[i] = static_cast<int>(i);
    std::sort(byStep.begin(), byStep.end(), [this](int x, int y) { return m_evaluated[x].Step < m_evaluated[y].Step; });
    for (size_t i = 1; i < byStep.size(); ++i) ranges.push_back({byStep[i - 1], byStep[i]});
    std::vector<SRange> split;
    std::vector<long long> splitSteps;
    split.reserve(64);
    splitSteps.reserve(64);
    while (!ranges.empty()) {
        split.clear();
        splitSteps.clear();
        for (const SRange& range : ranges) {
            const long long a = m_evaluated[range.A].Step;
            const long long b = m_evaluated[range.B].Step;
            if (b - a < 2 || CannotHoldBest(m_evaluated[range.A].Pass, m_evaluated[range.B].Pass)) continue;
            split.push_back(range);
            splitSteps.push_back(SplitStep(a, b, crossing));
        }
        const int firstNew = static_cast<int>(m_evaluated.size());
        NewPasses(splitSteps);
        ranges.clear();
        for (size_t i = 0; i < split.size(); ++i) {
            const int middle = firstNew + static_cast<int>(i);
            ranges.push_back({split[i].A, middle});
            ranges.push_back({middle, split[i].B});
        }
    }
    return m_best;
}
