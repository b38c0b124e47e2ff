#pragma once
// Supply state O and dew point L of the primary scheme's summer treatment
// without reheat.
//
// Walking down the line of slope ε through the room state N, in steps of
// 0.002 g/kg from N.D, each step d compares the temperature tO on the line
// with the temperature tL at which air of moisture d has RH = ptL_RH: the
// supply duct is to warm L to O, so the difference wanted is tO − tL = SfGdWs.
// The search accepts the first step whose difference is within 0.005 °C of
// it, or else the first step at which the difference stopped falling. It
// fails when d falls below 0 with no step accepted.
//
// The walk is bounded at 5,000,000 steps (N.D of 10,000 g/kg); a walk that
// reaches the bound fails like one that reached 0.
//
// FindByFullScan walks every step and is the reference; it evaluates the
// steps a block at a time in vector loops that give the same bits. Find reaches the
// same step, bit for bit, with a handful of evaluations: the step values come
// from HDGRunningSum, which accumulates the 0.002 g/kg subtractions exactly
// as the walk does, and the property functions run only at the steps that a
// bracketing search needs to tell where the acceptance lies. Find relies on
// what the property functions promise: smooth and monotonic at the grain of
// one step. The dew-point temperature is then concave in d and the line's
// temperature nearly straight, so the gap tO − tL − SfGdWs bends one way
// over the walk, and the steps before the acceptance form one run of
// falling differences of one sign (see EndOfRun). The one place where the
// functions aren't smooth is 0 °C, where the dew point passes from the water
// to the ice curve; the steps around it are taken one by one. Inputs outside the usual
// (non-finite values, a first difference of 100 °C or more, a walk of very
// few steps, no acceptance before the last few steps) go to the full scan.

#include "zefra/air/HDGRunningSum.h"
#include "zefra/air/ZefraHDGPoint.h"

#include <vector>

class HDGPrimarySupplyPointSearch {
public:
    // One step of the walk.
    struct SPass {
        double D = 0.0;    // moisture content of O and L, g/kg
        double HO = 0.0;   // enthalpy of O on the line, kJ/kg
        double TO = 0.0;   // temperature of O
        double TL = 0.0;   // temperature at which d has RH = ptL_RH
        double Gap = 0.0;  // tO − tL − SfGdWs
        double Diff = 0.0; // |Gap|
    };

    struct SResult {
        bool Found = false;
        SPass Pass;  // the accepted step when Found
    };

    HDGPrimarySupplyPointSearch(const ZefraHDGPoint& room, double heatHumidityRatio, double dewPointRH,
                                double supplyDuctRise);

    SResult Find();
    SResult FindByFullScan() const;

    // Property evaluations (steps computed) by the last Find or FindByFullScan.
    int GetEvaluationCount() const { return m_evaluations; }

private:
    struct SCachedPass {
        long long Step;
        SPass Pass;
    };

    SPass Evaluate(double d) const;
    // Step k of the walk has d = N.D − (k + 1) × 0.002, accumulated.
    double StepD(long long step) { return m_steps.ValueAfter(step + 1); }
    SPass PassAt(long long step);
    // Whether the walk accepts this step, given that it accepted none before.
    bool AcceptsAt(long long step);
    // The first step after `from` (where no step accepted) up to `to` at which
    // the walk accepts, for a stretch where the difference is smooth; −1 if none.
    long long FirstAcceptanceAfter(long long from, long long to);
    // A run is a stretch of steps that don't accept and whose gap keeps the
    // sign it had at its start. Where the gap is convex or concave in d, as
    // the dew-point curve makes it on either side of 0 °C, a run that has
    // ended stays ended, which lets EndOfRun bracket its end.
    bool RunEndsAt(long long step, bool positiveRun);
    long long EndOfRun(long long from, long long to);
    long long FreezingStep() const;
    // The next step to try beyond lo while no acceptance is known.
    long long ProbeBeyond(long long previous, long long lo, long long last, int round);

    double m_roomD;
    double m_roomH;
    double m_epsilon;
    double m_dewPointRH;
    double m_supplyDuctRise;
    double m_pressure;

    mutable HDGRunningSum m_steps;  // extended as far as the steps are read
    std::vector<SCachedPass> m_cache;
    mutable int m_evaluations = 0;
};
