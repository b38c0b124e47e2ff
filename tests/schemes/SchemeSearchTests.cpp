#include "zefra/air/HDGCurB.h"
#include "zefra/air/HDGPrimarySupplyPointSearch.h"
#include "zefra/air/HDGRunningSum.h"
#include "zefra/air/HDGSecondaryDewPointSearch.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"
#include "zefra/platform/airlib/Air.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <vector>

namespace {

bool SameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

class PressureGuard {
public:
    PressureGuard() : m_saved(GetHDGCurB()) {}
    ~PressureGuard() { SetHDGCurB(m_saved); }

private:
    double m_saved;
};

}  // namespace

TEST(HDGRunningSum, JumpsLandOnTheValuesOfTheLoop) {
    std::mt19937_64 random(20240611);
    std::uniform_real_distribution<double> start(-40.0, 40.0);
    const double steps[] = {0.002, -0.002, 0.001, -0.0123, 1e-7, -3e-9, 0.75, 1e-17, 0.5};
    for (int trial = 0; trial < 400; ++trial) {
        const double step = steps[trial % 9];
        const double first = trial % 5 == 0 ? 0.0 : start(random);
        std::vector<double> loop{first};
        for (int i = 0; i < 6000; ++i) loop.push_back(loop.back() + step);
        HDGRunningSum sum(first, step);
        // Forward and backward requests alike.
        for (int probe = 0; probe < 40; ++probe) {
            const long long n = static_cast<long long>(random() % loop.size());
            ASSERT_TRUE(SameBits(sum.ValueAfter(n), loop[n])) << "start " << first << " step " << step << " n " << n;
        }
        // Blocks of values, across the binades' edges.
        sum.ExtendTo(static_cast<long long>(loop.size()));
        double block[300];
        const long long from = static_cast<long long>(random() % (loop.size() - 300));
        sum.ValuesWithin(from, 300, block);
        for (int k = 0; k < 300; ++k)
            ASSERT_TRUE(SameBits(block[k], loop[from + k])) << "start " << first << " step " << step << " n " << from + k;
    }
}

TEST(HDGPrimarySupplyPointSearch, FindAcceptsTheStepOfTheFullScan) {
    PressureGuard pressure;
    std::mt19937_64 random(7);
    auto uniform = [&random](double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(random); };
    int evaluations = 0;
    for (int trial = 0; trial < 600; ++trial) {
        SetHDGCurB(uniform(70000.0, 105000.0));
        const ZefraHDGPoint room(uniform(5.0, 40.0), uniform(0.05, 1.0), L"N");
        const double epsilon = trial % 5 == 0 ? uniform(-20000.0, 5000.0) : uniform(3000.0, 100000.0);
        const double rise = trial % 4 == 0 ? 0.0 : uniform(0.0, 10.0);
        HDGPrimarySupplyPointSearch search(room, epsilon, uniform(0.3, 1.0), rise);
        const auto fast = search.Find();
        evaluations += search.GetEvaluationCount();
        const auto full = search.FindByFullScan();
        ASSERT_EQ(fast.Found, full.Found) << "trial " << trial;
        ASSERT_TRUE(SameBits(fast.Pass.D, full.Pass.D)) << "trial " << trial;
        ASSERT_TRUE(SameBits(fast.Pass.HO, full.Pass.HO) && SameBits(fast.Pass.TL, full.Pass.TL));
    }
    EXPECT_LT(evaluations / 600, 30);
}

TEST(HDGSecondaryDewPointSearch, FindKeepsTheStepOfTheFullScan) {
    PressureGuard pressure;
    std::mt19937_64 random(11);
    auto uniform = [&random](double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(random); };
    int evaluations = 0;
    for (int trial = 0; trial < 150; ++trial) {
        SetHDGCurB(uniform(70000.0, 105000.0));
        const ZefraHDGPoint returnAir(uniform(5.0, 40.0), uniform(0.05, 1.0), L"N'");
        ZefraHDGPoint mix;
        mix.CalByTdbAndD(uniform(-3.0, 35.0), std::max(0.1, returnAir.GetD() + uniform(-8.0, 3.0)));
        HDGSecondaryDewPointSearch search(mix, returnAir, uniform(0.3, 1.0));
        const auto fast = search.Find();
        evaluations += search.GetEvaluationCount();
        const auto full = search.FindByFullScan();
        ASSERT_EQ(fast.Found, full.Found) << "trial " << trial;
        ASSERT_EQ(fast.Step, full.Step) << "trial " << trial;
        ASSERT_TRUE(SameBits(fast.D, full.D) && SameBits(fast.H, full.H)) << "trial " << trial;
    }
    EXPECT_LT(evaluations / 150, 200);
}

// The full scans evaluate many steps at once; they must still keep the step
// that the literal walks keep, written here as the loops they are.
TEST(SchemeSearches, FullScansKeepTheStepsOfTheLiteralWalks) {
    PressureGuard pressure;
    std::mt19937_64 random(23);
    auto uniform = [&random](double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(random); };
    for (int trial = 0; trial < 40; ++trial) {
        const double B = uniform(70000.0, 105000.0);
        SetHDGCurB(B);
        const double rh = trial % 7 == 0 ? 1.0 : uniform(0.3, 1.0);

        const ZefraHDGPoint room(uniform(5.0, 40.0), uniform(0.05, 1.0), L"N");
        const double epsilon = trial % 5 == 0 ? uniform(-20000.0, 5000.0) : uniform(3000.0, 100000.0);
        const double rise = trial % 4 == 0 ? 0.0 : uniform(0.0, 10.0);
        double best = 100.0;
        bool improved = false;
        double acceptedD = std::nan("");
        for (double d = room.GetD() - 0.002; d >= 0.0; d = d - 0.002) {
            const double hO = room.GetH() - epsilon * (room.GetD() - d) / 1000.0;
            const double diff = std::fabs(AIR::GetTdb(hO, d) - AIR::GetTdbByDAndRH(d, rh, B) - rise);
            if (best > diff) {
                improved = true;
                best = diff;
                if (diff <= 0.005) {
                    acceptedD = d;
                    break;
                }
            } else if (improved) {
                acceptedD = d;
                break;
            }
        }
        const auto primary = HDGPrimarySupplyPointSearch(room, epsilon, rh, rise).FindByFullScan();
        ASSERT_EQ(primary.Found, !std::isnan(acceptedD)) << "trial " << trial;
        if (primary.Found) {
            ASSERT_TRUE(SameBits(primary.Pass.D, acceptedD)) << "trial " << trial;
        }

        const ZefraHDGPoint returnAir(uniform(5.0, 40.0), uniform(0.05, 1.0), L"N'");
        ZefraHDGPoint mix;
        mix.CalByTdbAndD(uniform(-1.0, 35.0), std::max(0.1, returnAir.GetD() + uniform(-8.0, 3.0)));
        double least = 1000.0;
        long long kept = -1;
        long long step = 0;
        for (double t = 0.0; mix.GetTdb() >= t; t = t + 0.002, ++step) {
            const double d = AIR::GetD(t, rh, B);
            const double h = AIR::GetH(t, d);
            const double diff = std::fabs((mix.GetH() - h) / (returnAir.GetH() - h) -
                                          (mix.GetD() - d) / (returnAir.GetD() - d));
            if (least > diff && !(std::fabs(h - mix.GetH()) <= 0.001)) {
                least = diff;
                kept = step;
            }
        }
        const auto secondary = HDGSecondaryDewPointSearch(mix, returnAir, rh).FindByFullScan();
        ASSERT_EQ(secondary.Step, kept) << "trial " << trial;
    }
}

// The walk accepts the first step within 0.005 °C, or else the step after the
// smallest difference: checked against the differences of the walk itself.
TEST(HDGPrimarySupplyPointSearch, AcceptsWithinToleranceOrTheStepAfterTheSmallest) {
    const ZefraHDGPoint room(22.0, 0.6, L"N");
    const double rise = 1.0;
    auto walk = [&](double epsilon) {
        std::vector<double> diffs;
        for (double d = room.GetD() - 0.002; d >= 0.0; d = d - 0.002) {
            const double hO = room.GetH() - epsilon * (room.GetD() - d) / 1000.0;
            const double tO = AIR::GetTdb(hO, d);
            diffs.push_back(std::fabs(tO - AIR::GetTdbByDAndRH(d, 0.9, GetHDGCurB()) - rise));
        }
        return diffs;
    };
    auto acceptedIndex = [&](double epsilon) {
        HDGPrimarySupplyPointSearch search(room, epsilon, 0.9, rise);
        const auto result = search.Find();
        EXPECT_TRUE(result.Found);
        return static_cast<size_t>(std::llround((room.GetD() - result.Pass.D) / 0.002)) - 1;
    };

    // Gentle slope: the gap passes through the tolerance band.
    const std::vector<double> gentle = walk(8285.7);
    const size_t k = acceptedIndex(8285.7);
    EXPECT_LE(gentle[k], 0.005);
    for (size_t i = 1; i < k; ++i) EXPECT_LT(gentle[i], gentle[i - 1]);
    EXPECT_GT(gentle[k - 1], 0.005);

    // Steep slope: the gap jumps over the band, and the step after the
    // smallest difference is taken, not the smallest.
    const std::vector<double> steep = walk(60000.0);
    const size_t j = acceptedIndex(60000.0);
    ASSERT_GE(j, 2u);
    EXPECT_GT(steep[j], 0.005);
    EXPECT_GE(steep[j], steep[j - 1]);
    for (size_t i = 1; i < j; ++i) EXPECT_LT(steep[i], steep[i - 1]);
}

// A scheme calculated with the full walk has the points and loads of the
// quick search.
TEST(SchemeSearches, CalculateGivesTheSameSchemeEitherWay) {
    ZefraHDGPoint outdoor;
    outdoor.CalByTdbAndTwb(35.0, 28.0);
    auto expectSameEitherWay = [](auto quick, const auto& given) {
        auto full = quick;
        full.SetSearchMode(EHDGSearchMode::FullWalk);
        quick.SetGivenData(given);
        full.SetGivenData(given);
        ASSERT_TRUE(quick.Calculate() && full.Calculate());
        for (const auto* scheme : {&quick, &full}) ASSERT_EQ(scheme->GetResultInfo().GetSize(), 4);
        auto figures = [](const auto& scheme) {
            return std::vector<double>{scheme.GetPointL().GetH(), scheme.GetPointL().GetD(),
                                       scheme.GetPointO().GetH(), scheme.GetPointC().GetH(),
                                       scheme.GetQp(),            scheme.GetGo()};
        };
        EXPECT_EQ(figures(quick), figures(full));
    };
    for (const double load : {11.6, 48.0}) {
        SHDGPrimaryReturnAirInfo primary;
        SHDGSecondaryReturnAirInfo secondary;
        primary.PointN = secondary.PointN = ZefraHDGPoint(26.0, 0.55, L"N");
        primary.PointW = secondary.PointW = outdoor;
        primary.Qn = secondary.Qn = load;
        expectSameEitherWay(ZefraHDGPrimaryReturnAir(), primary);
        expectSameEitherWay(ZefraHDGSecondaryReturnAir(), secondary);
    }
}
