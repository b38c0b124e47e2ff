// Engineering mode: every sound design balances, both schemes, both seasons,
// all types; literal mode keeps the system's results.

#include "zefra/air/HDGChecks.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

namespace {

struct Tally {
    int sound = 0;
    int literalMessages = 0;
    int engineeringMessages = 0;
};

bool HasBalanceWarning(const HDGWarningList& warnings) {
    for (const SHDGWarning& w : warnings)
        if (w.Code == "heat-balance" || w.Code == "moisture-balance") return true;
    return false;
}

bool Failed(const HDGWarningList& warnings) {
    for (const SHDGWarning& w : warnings)
        if (w.Code == "search-failed") return true;
    return false;
}

template <typename Info>
void RandomDesign(std::mt19937_64& random, bool summer, Info& info) {
    std::uniform_real_distribution<double> u(0.0, 1.0);
    const auto between = [&](double a, double b) { return a + (b - a) * u(random); };
    if (summer) {
        info.PointN = ZefraHDGPoint(between(20, 28), between(0.4, 0.65), L"N");
        info.PointW = ZefraHDGPoint(between(28, 38), between(0.4, 0.8), L"W");
        info.Qn = between(2, 1000);
        info.Mw = info.Qn / between(5000, 40000);
        info.SfWc = between(4, 10);
    } else {
        info.PointN = ZefraHDGPoint(between(16, 22), between(0.3, 0.6), L"N");
        info.PointW = ZefraHDGPoint(between(-15, 0), between(0.4, 0.9), L"W");
        info.Qn = between(2, 200);
        info.Mw = between(0, 0.002);
        info.Go = info.Qn / between(3, 12);
    }
    info.SfGdWs = between(0, 1.5);
    info.HfGdWs = between(0, 1.0);
    info.ptL_RH = between(0.85, 0.95);
    info.FreshAirRatio = between(0.1, 0.6);
}

template <typename Scheme, typename Info>
void Tour(int scheme_types_from, int scheme_types_to, bool (*isSummer)(int), Tally& tally, unsigned seed) {
    std::mt19937_64 random(seed);
    for (int i = 0; i < 400; ++i) {
        for (int type = scheme_types_from; type <= scheme_types_to; ++type) {
            Info info;
            RandomDesign(random, isSummer(type), info);
            info.CalPriRetAirType = static_cast<decltype(info.CalPriRetAirType)>(type);
            if constexpr (std::is_same_v<Info, SHDGSecondaryReturnAirInfo>)
                if (!isSummer(type)) info.Gr1 = info.Go * (1.0 - info.FreshAirRatio) * 0.5;
            if (!HDGChecks::GivenData(info).empty()) continue;
            Scheme engineering;
            engineering.SetCalculationMode(EHDGCalculationMode::Engineering);
            engineering.SetGivenData(info);
            engineering.Calculate();
            if (!HDGChecks::Results(engineering).empty() || Failed(engineering.GetWarnings())) continue;
            ++tally.sound;
            if (HasBalanceWarning(engineering.GetWarnings())) {
                ++tally.engineeringMessages;
                ADD_FAILURE() << "type " << type << " design " << i << ": "
                              << engineering.GetWarnings().front().Message;
            }
            Scheme literal;
            literal.SetGivenData(info);
            literal.Calculate();
            if (HasBalanceWarning(literal.GetWarnings())) ++tally.literalMessages;
        }
    }
}

bool PrimarySummer(int type) { return type <= 1; }
bool SecondarySummer(int type) { return type == 0; }

TEST(EngineeringMode, EverySoundDesignBalances) {
    Tally primary;
    Tour<ZefraHDGPrimaryReturnAir, SHDGPrimaryReturnAirInfo>(0, 5, PrimarySummer, primary, 17);
    Tally secondary;
    Tour<ZefraHDGSecondaryReturnAir, SHDGSecondaryReturnAirInfo>(0, 4, SecondarySummer, secondary, 29);
    EXPECT_GT(primary.sound, 1000);
    EXPECT_GT(secondary.sound, 500);
    EXPECT_EQ(primary.engineeringMessages, 0);
    EXPECT_EQ(secondary.engineeringMessages, 0);
    std::printf("primary: %d sound designs, balance messages literal %d, engineering %d\n", primary.sound,
                primary.literalMessages, primary.engineeringMessages);
    std::printf("secondary: %d sound designs, balance messages literal %d, engineering %d\n", secondary.sound,
                secondary.literalMessages, secondary.engineeringMessages);
}

TEST(EngineeringMode, LiteralModeIsTheDefaultAndUnchanged) {
    ZefraHDGPrimaryReturnAir literal;
    EXPECT_EQ(literal.GetCalculationMode(), EHDGCalculationMode::Literal);
    SHDGPrimaryReturnAirInfo info = literal.GetGivenData();
    info.CalPriRetAirType = HDGPRI_DJ_ISENTH_HEAT;
    info.PointN = ZefraHDGPoint(20, 0.45, L"N");
    info.PointW = ZefraHDGPoint(-12, 0.75, L"W");
    info.Qn = 20;
    info.Mw = 0.0005;
    info.FreshAirRatio = 0.5;
    literal.SetGivenData(info);
    literal.Calculate();
    // A new object remembers a summer ratio of 1.0: the literal preheat branch mixes at it.
    EXPECT_TRUE(HasBalanceWarning(literal.GetWarnings()));

    ZefraHDGPrimaryReturnAir engineering;
    engineering.SetCalculationMode(EHDGCalculationMode::Engineering);
    engineering.SetGivenData(info);
    engineering.Calculate();
    EXPECT_FALSE(HasBalanceWarning(engineering.GetWarnings()));
    EXPECT_EQ(HDGChecks::Describe(HDGChecks::Results(engineering)), "");
    // W' is the preheated outdoor air at W's moisture, warmer than W.
    EXPECT_GT(engineering.GetPointW1().GetTdb(), engineering.GetPointW().GetTdb());
    EXPECT_DOUBLE_EQ(engineering.GetPointW1().GetD(), engineering.GetPointW().GetD());
    EXPECT_GT(engineering.GetQw1(), 0.0);
}

TEST(EngineeringMode, AWarmMixRaisesTheFreshAirShareInsteadOfPreheating) {
    SHDGPrimaryReturnAirInfo info;
    info.CalPriRetAirType = HDGPRI_DJ_ISENTH_HEAT;
    info.PointN = ZefraHDGPoint(22, 0.5, L"N");
    info.PointW = ZefraHDGPoint(-2, 0.6, L"W");
    info.Qn = 5;
    info.Mw = 0.0002;
    info.FreshAirRatio = 0.05;
    ZefraHDGPrimaryReturnAir scheme;
    scheme.SetCalculationMode(EHDGCalculationMode::Engineering);
    scheme.SetGivenData(info);
    scheme.Calculate();
    const HDGWarningList warnings = scheme.GetWarnings();
    ASSERT_FALSE(warnings.empty());
    EXPECT_EQ(warnings.back().Code, "fresh-air-share-raised");
    EXPECT_GT(scheme.GetFreshAirRatio(), 0.05);
    EXPECT_DOUBLE_EQ(scheme.GetGw(), scheme.GetFreshAirRatio() * scheme.GetGo());
    EXPECT_EQ(scheme.GetQw1(), 0.0);
    EXPECT_NEAR(scheme.GetPointC().GetH(), scheme.GetPointL().GetH(), 1e-9);
    EXPECT_FALSE(HasBalanceWarning(warnings));
}

}  // namespace
