#include "zefra/air/HDGPrimarySupplyPointSearch.h"

#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/airlib/NT.h"
#include "zefra/platform/airlib/VectorClones.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kStep = 0.002;            // g/kg
constexpr double kFirstBest = 100.0;       // the walk's starting "best" difference
constexpr double kAcceptTolerance = 0.005; // °C
constexpr long long kShortWalk = 32;       // walks this short are simply walked
constexpr double kLongestWalkD = 1.0e4;    // g/kg; beyond it the step count isn't worth estimating
// No walk goes on past this many steps (N.D of 10,000 g/kg, far beyond any
// possible room): from an absurd or non-finite N.D the subtraction of 0.002
// may never reach 0, and the walk then fails as one that found nothing.
constexpr long long kMostWalkSteps = static_cast<long long>(kLongestWalkD / kStep);
constexpr int kExtrapolationRounds = 8;    // then the probes double their reach
constexpr long long kFreezingWindow = 3;   // steps each side of the 0 °C kink taken one by one

constexpr int kBlock = 32;                 // steps evaluated together by the full scan

// What a step computes besides tL, several steps at a time, by the same
// operations as HDGPrimarySupplyPointSearch::Evaluate.
struct SSupplyLine {
    double RoomH, RoomD, Epsilon, SupplyDuctRise;
};

ZEFRA_VECTOR_CLONES
void EvaluateSteps(const SSupplyLine& line, const double* __restrict d, const double* __restrict tL, int n,
                   double* __restrict hO, double* __restrict tO, double* __restrict gap) {
    const SSupplyLine l = line;
    for (int k = 0; k < n; ++k) {
        const double h = l.RoomH - l.Epsilon * (l.RoomD - d[k]) / 1000.0;
        const double t = AIR::GetTdb(h, d[k]);
        hO[k] = h;
        tO[k] = t;
        gap[k] = t - tL[k] - l.SupplyDuctRise;
    }
}

bool WithinTolerance(double diff) { return NT::IsEqual(diff, 0.0, kAcceptTolerance); }

}  // namespace

HDGPrimarySupplyPointSearch::HDGPrimarySupplyPointSearch(const ZefraHDGPoint& room, double heatHumidityRatio,
                                                         double dewPointRH, double supplyDuctRise)
    : m_roomD(room.GetD()),
      m_roomH(room.GetH()),
      m_epsilon(heatHumidityRatio),
      m_dewPointRH(dewPointRH),
      m_supplyDuctRise(supplyDuctRise),
      m_pressure(GetHDGCurB()),
      m_steps(room.GetD(), -kStep) {
    m_cache.reserve(32);
}

HDGPrimarySupplyPointSearch::SPass HDGPrimarySupplyPointSearch::Evaluate(double d) const {
    ++m_evaluations;
    SPass pass;
    pass.D = d;
    pass.HO = m_roomH - m_epsilon * (m_roomD - d) / 1000.0;
    pass.TO = AIR::GetTdb(pass.HO, d);
    pass.TL = AIR::GetTdbByDAndRH(d, m_dewPointRH, m_pressure);
    pass.Gap = pass.TO - pass.TL - m_supplyDuctRise;
    pass.Diff = std::fabs(pass.Gap);
    return pass;
}

HDGPrimarySupplyPointSearch::SResult HDGPrimarySupplyPointSearch::FindByFullScan() const {
    // The walk "for (d = N.D − 0.002; d >= 0; d = d − 0.002)", a block of
    // steps at a time. On a walk of usual length its moisture contents are
    // read from the accumulation of the subtractions.
    const SSupplyLine line{m_roomH, m_roomD, m_epsilon, m_supplyDuctRise};
    const bool accumulated = std::isfinite(m_roomD) && m_roomD < kLongestWalkD;
    double d[kBlock], tL[kBlock], hO[kBlock], tO[kBlock], gap[kBlock];
    m_evaluations = 0;
    double best = kFirstBest;
    bool improved = false;
    long long firstStep = 0;
    double next = m_roomD - kStep;  // the moisture content of firstStep
    while (next >= 0.0 && firstStep < kMostWalkSteps) {
        int n = 0;
        if (accumulated) {
            m_steps.ExtendTo(firstStep + kBlock + 1);
            m_steps.ValuesWithin(firstStep + 1, kBlock, d);
            while (n < kBlock && d[n] >= 0.0) ++n;
            next = n < kBlock ? d[n] : m_steps.ValueWithin(firstStep + kBlock + 1);
        } else {
            for (; n < kBlock && next >= 0.0; ++n) {
                d[n] = next;
                next = next - kStep;
            }
        }
        AIR::GetTdbByDAndRHMany(d, m_dewPointRH, m_pressure, tL, n);
        EvaluateSteps(line, d, tL, n, hO, tO, gap);
        m_evaluations += n;
        for (int k = 0; k < n; ++k) {
            const double diff = std::fabs(gap[k]);
            if (best > diff) {
                improved = true;
                best = diff;
                if (WithinTolerance(diff)) return {true, {d[k], hO[k], tO[k], tL[k], gap[k], diff}};
            } else if (improved) {
                // The difference stopped falling: the step after the smallest one.
                return {true, {d[k], hO[k], tO[k], tL[k], gap[k], diff}};
            }
        }
        firstStep += n;
    }
    return {};
}

HDGPrimarySupplyPointSearch::SPass HDGPrimarySupplyPointSearch::PassAt(long long step) {
    for (const SCachedPass& cached : m_cache)
        if (cached.Step == step) return cached.Pass;
    m_cache.push_back({step, Evaluate(StepD(step))});
    return m_cache.back().Pass;
}

bool HDGPrimarySupplyPointSearch::AcceptsAt(long long step) {
    const double diff = PassAt(step).Diff;
    const double best = PassAt(step - 1).Diff;
    return !(best > diff) || WithinTolerance(diff);
}

long long HDGPrimarySupplyPointSearch::ProbeBeyond(long long previous, long long lo, long long last, int round) {
    const SPass a = PassAt(previous);
    const SPass b = PassAt(lo);
    long long probe = lo + 2 * (lo - previous);
    if (round < kExtrapolationRounds) {
        // Where the line through the two gaps reaches the tolerance on b's side, one step beyond.
        const double level = b.Gap > 0.0 ? kAcceptTolerance : -kAcceptTolerance;
        const double slope = (b.Gap - a.Gap) / static_cast<double>(lo - previous);
        const double ahead = (level - b.Gap) / slope;
        if (std::isfinite(ahead) && ahead > 0.0 && ahead < static_cast<double>(last - lo))
            probe = lo + static_cast<long long>(std::ceil(ahead)) + 1;
    }
    return std::clamp(probe, lo + 1, last);
}

bool HDGPrimarySupplyPointSearch::RunEndsAt(long long step, bool positiveRun) {
    if (AcceptsAt(step)) return true;
    return (PassAt(step).Gap > 0.0) != positiveRun || (PassAt(step - 1).Gap > 0.0) != positiveRun;
}

long long HDGPrimarySupplyPointSearch::FirstAcceptanceAfter(long long from, long long to) {
    while (from < to) {
        const long long end = EndOfRun(from, to);
        if (end < 0) return -1;
        if (AcceptsAt(end)) return end;
        // The gap changed sign without an acceptance: a new run starts there.
        from = end;
    }
    return -1;
}

long long HDGPrimarySupplyPointSearch::EndOfRun(long long from, long long to) {
    const bool positiveRun = PassAt(from).Gap > 0.0;
    if (RunEndsAt(from + 1, positiveRun)) return from + 1;

    // Ahead until the run has ended: then it goes on up to lo and has ended at hi.
    long long previous = from;
    long long lo = from + 1;
    long long hi = -1;
    for (int round = 0; hi < 0; ++round) {
        if (lo == to) return -1;
        const long long probe = ProbeBeyond(previous, lo, to, round);
        if (RunEndsAt(probe, positiveRun)) {
            hi = probe;
        } else {
            previous = lo;
            lo = probe;
        }
    }

    // Narrow [lo, hi] to neighbours by false position on the gap (Illinois
    // weighting), halving whenever the gaps don't straddle the tolerance.
    const double level = positiveRun ? kAcceptTolerance : -kAcceptTolerance;
    double fa = PassAt(lo).Gap - level;
    double fb = PassAt(hi).Gap - level;
    int lastMoved = 0;
    while (hi - lo > 1) {
        long long probe = lo + (hi - lo) / 2;
        const double fraction = fa / (fa - fb);
        if ((fa > 0.0) != (fb > 0.0) && fraction > 0.0 && fraction < 1.0)
            probe = lo + static_cast<long long>(std::ceil(fraction * static_cast<double>(hi - lo)));
        probe = std::clamp(probe, lo + 1, hi - 1);
        const double fp = PassAt(probe).Gap - level;
        if (RunEndsAt(probe, positiveRun)) {
            hi = probe;
            fb = fp;
            if (lastMoved > 0) fa *= 0.5;
            lastMoved = 1;
        } else {
            lo = probe;
            fa = fp;
            if (lastMoved < 0) fb *= 0.5;
            lastMoved = -1;
        }
    }
    return hi;
}

long long HDGPrimarySupplyPointSearch::FreezingStep() const {
    // Steps run from N.D down; this one is near the moisture content at which
    // the curve RH = ptL_RH passes 0 °C.
    const double freezingD = AIR::GetD(0.0, m_dewPointRH, m_pressure);
    const double steps = (m_roomD - freezingD) / kStep - 1.0;
    if (!std::isfinite(steps)) return -1;
    return static_cast<long long>(std::llround(std::clamp(steps, -1.0, 1e15)));
}

HDGPrimarySupplyPointSearch::SResult HDGPrimarySupplyPointSearch::Find() {
    m_evaluations = 0;
    m_cache.clear();
    const bool usual = std::isfinite(m_roomD) && std::isfinite(m_roomH) && std::isfinite(m_epsilon) &&
                       std::isfinite(m_dewPointRH) && std::isfinite(m_supplyDuctRise) && m_roomD < kLongestWalkD;
    if (!usual) return FindByFullScan();

    // The walk's last step lies within a step of N.D / 0.002 − 1 (the
    // accumulated rounding is far below a step); two steps less is surely walked.
    const long long surelyWalked = static_cast<long long>(m_roomD / kStep) - 3;
    if (surelyWalked < kShortWalk) return FindByFullScan();
    const SPass first = PassAt(0);
    if (!(kFirstBest > first.Diff)) return FindByFullScan();
    if (WithinTolerance(first.Diff)) return {true, first};

    // At 0 °C the dew point passes from the water to the ice curve and tL has
    // a kink, where the difference may stop falling. The steps around it are
    // taken one by one; on either side the difference is smooth.
    const long long freezing = FreezingStep();
    const long long windowFirst = std::clamp(freezing - kFreezingWindow, 1LL, surelyWalked + 1);
    const long long windowLast = std::clamp(freezing + kFreezingWindow, windowFirst - 1, surelyWalked);

    long long accepted = FirstAcceptanceAfter(0, windowFirst - 1);
    if (accepted >= 0) return {true, PassAt(accepted)};
    for (long long step = windowFirst; step <= windowLast; ++step)
        if (AcceptsAt(step)) return {true, PassAt(step)};
    accepted = FirstAcceptanceAfter(std::max(0LL, windowLast), surelyWalked);
    if (accepted >= 0) return {true, PassAt(accepted)};
    // No acceptance before the last few steps: the full scan settles the end of the walk.
    return FindByFullScan();
}
