// The tables that stand in for the exact curves must agree with them to far
// below the accuracy the inversions promise, everywhere they reach, and give
// way to the exact curves beyond.

#include "AirTestSupport.h"

#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/airlib/DewPointSolver.h"
#include "zefra/platform/airlib/EnthalpyRHSolver.h"
#include "zefra/platform/airlib/HylandWexler.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <thread>
#include <vector>

namespace {

bool SameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

TEST(AirTables, SaturationPressureFollowsTheFormula) {
    double worstCold = 0.0;
    double worst = 0.0;
    // A step that falls between the nodes, and both sides of the triple point.
    for (double t = -100.0; t <= 200.0; t += 0.0137) {
        const double error = RelativeError(HylandWexler::Ps(t), HylandWexler::FormulaPs(t)) /
                             std::fmin(1.0, HylandWexler::FormulaPs(t));
        (t < -60.0 ? worstCold : worst) = std::fmax(t < -60.0 ? worstCold : worst, error);
    }
    EXPECT_LT(worstCold, 3e-13);
    EXPECT_LT(worst, 5e-14);
    for (double t : {-150.0, -100.5, 200.5, 399.0}) EXPECT_EQ(HylandWexler::Ps(t), HylandWexler::FormulaPs(t));
    EXPECT_TRUE(std::isnan(AIR::GetPs(std::nan(""))));
    // No step where the ice curve gives way to the water curve.
    const double meet = HylandWexler::kCurvesMeet;
    EXPECT_NEAR(HylandWexler::Ps(std::nextafter(meet, -1.0)), HylandWexler::Ps(meet), 1e-9);
}

// The forms that read many arguments at once must give what one at a time
// gives, bit for bit: runs on one table, mixed tables, and arguments beyond.
TEST(AirTables, ManyAtOnceGiveTheSameBits) {
    std::mt19937_64 random(5);
    auto uniform = [&random](double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(random); };
    const double inf = std::numeric_limits<double>::infinity();
    std::vector<double> t = {0.0, 0.01, HylandWexler::kCurvesMeet, -100.0, 200.0, 200.0000001, -100.0000001,
                             -250.0, 350.0, std::nan(""), inf, -inf, -0.0};
    for (int k = 0; k < 600; ++k) t.push_back(-5.0 + 0.002 * k);  // a walk across the curves' meeting
    for (int k = 0; k < 600; ++k) t.push_back(uniform(-120.0, 220.0));
    std::vector<double> ps(t.size());
    AIR::GetPsMany(t.data(), ps.data(), static_cast<int>(t.size()));
    for (size_t k = 0; k < t.size(); ++k)
        ASSERT_TRUE(SameBits(ps[k], AIR::GetPs(t[k])) || (std::isnan(ps[k]) && std::isnan(t[k]))) << t[k];

    std::vector<double> d = {0.0, -1.0, 1e-9, 1e6, inf, std::nan("")};
    for (int k = 0; k < 500; ++k) d.push_back(30.0 - 0.002 * k);
    for (int k = 0; k < 500; ++k) d.push_back(uniform(0.0, 400.0));
    std::vector<double> tdb(d.size());
    for (const double rh : {0.9, 1.0, 0.05, 0.0, -0.5}) {
        const double B = uniform(60000.0, 110000.0);
        AIR::GetTdbByDAndRHMany(d.data(), rh, B, tdb.data(), static_cast<int>(d.size()));
        for (size_t k = 0; k < d.size(); ++k) {
            const double one = AIR::GetTdbByDAndRH(d[k], rh, B);
            ASSERT_TRUE(SameBits(tdb[k], one) || (std::isnan(tdb[k]) && std::isnan(one))) << d[k] << " at RH " << rh;
        }
    }
}

TEST(AirTables, DewPointPiecesFollowTheExactInverse) {
    double worst = 0.0;
    for (double t = -100.0; t <= 200.0; t += 0.0131) {
        const double pv = HylandWexler::FormulaPs(t);
        worst = std::fmax(worst, std::fabs(DewPointSolver::TemperatureAt(pv) - DewPointSolver::TemperatureAtLn(std::log(pv))));
    }
    EXPECT_LT(worst, 1e-10);
    // Around the triple point, where the piece that holds it is split.
    const double meetPv = HylandWexler::FormulaPs(HylandWexler::kCurvesMeet);
    for (double share : {0.97, 0.999, 1.0, 1.001, 1.03}) {
        const double pv = share * meetPv;
        EXPECT_NEAR(DewPointSolver::TemperatureAt(pv), DewPointSolver::TemperatureAtLn(std::log(pv)), 1e-10) << share;
    }
    // Beyond the pieces the solver answers.
    for (double pv : {1e-6, 1e7}) EXPECT_EQ(DewPointSolver::TemperatureAt(pv), DewPointSolver::TemperatureAtLn(std::log(pv)));
    EXPECT_EQ(DewPointSolver::TemperatureAt(0.0), AIR::kLowestTemperature);
}

// Calls the curve of (RH, B) often enough that it is read from its pieces.
void WarmUp(double RH, double B) {
    for (int i = 0; i < 1100; ++i) EnthalpyRHSolver::TemperatureOnCurve(10.0 + 0.01 * i, RH, B);
}

TEST(AirTables, CurvePiecesFollowTheExactRelation) {
    for (double B : {50000.0, 62500.0, 84000.0, 87500.0, 101325.0, 110000.0}) {
        for (double RH : {0.05, 0.5, 0.9, 1.0, 1.3}) {
            WarmUp(RH, B);
            double worst = 0.0;
            for (double t = -100.0; t <= 60.0; t += 0.0731) {
                const double h = AIR::GetH(t, AIR::GetD(t, RH, B));
                worst = std::fmax(worst, std::fabs(EnthalpyRHSolver::TemperatureOnCurve(h, RH, B) -
                                                   EnthalpyRHSolver::TemperatureAt(h, RH, B)));
            }
            EXPECT_LT(worst, 1e-10) << RH << " " << B;
            // Beyond the pieces, and for NaN, the solver answers.
            EXPECT_EQ(EnthalpyRHSolver::TemperatureOnCurve(5000.0, RH, B), EnthalpyRHSolver::TemperatureAt(5000.0, RH, B));
            EXPECT_TRUE(std::isnan(EnthalpyRHSolver::TemperatureOnCurve(std::nan(""), RH, B)) ==
                        std::isnan(EnthalpyRHSolver::TemperatureAt(std::nan(""), RH, B)));
        }
    }
}

// More pairs in use than the cache holds: every answer stays right while
// pairs give way to each other, and a pair seldom used is simply solved.
TEST(AirTables, CurvePiecesGiveWayBetweenManyPairs) {
    for (int round = 0; round < 3; ++round) {
        for (int k = 0; k < 12; ++k) {
            const double RH = 0.3 + 0.05 * k;
            for (int i = 0; i < 1500; ++i) {
                const double h = -20.0 + 0.05 * i;
                const double t = EnthalpyRHSolver::TemperatureOnCurve(h, RH, 101325.0);
                if (i % 100 == 0) {
                    ASSERT_NEAR(t, EnthalpyRHSolver::TemperatureAt(h, RH, 101325.0), 1e-10) << RH;
                }
            }
        }
    }
    EXPECT_EQ(EnthalpyRHSolver::TemperatureOnCurve(40.0, 0.4321, 101325.0),
              EnthalpyRHSolver::TemperatureAt(40.0, 0.4321, 101325.0));
}

// Each thread keeps its own pieces; threads working at once agree.
TEST(AirTables, ThreadsReadTheirOwnPieces) {
    double results[2] = {0.0, 0.0};
    auto work = [&](int slot) {
        double sum = 0.0;
        for (int i = 0; i < 3000; ++i) sum += AIR::GetTwb(20.0 + 0.01 * i, 1.0, 95000.0) + AIR::GetTdbByHAndRH(50.0, 0.7, 95000.0);
        results[slot] = sum;
    };
    std::thread a(work, 0);
    std::thread b(work, 1);
    a.join();
    b.join();
    EXPECT_EQ(results[0], results[1]);
}

}  // namespace
