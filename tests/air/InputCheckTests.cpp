// The checks that front ends run around the engine: what they refuse, and
// that whatever they let through is a possible state of air.

#include "air/AirTestSupport.h"
#include "zefra/air/HDGChecks.h"
#include "zefra/air/HDGCurB.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"
#include "zefra/platform/airlib/Air.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

const char* const kShort[] = {"Tdb", "RH", "H", "D", "Twb", "Tdp", "Pv"};

HDGFaults CheckPoint(EHvacHDGPointCalItemType k1, double v1, EHvacHDGPointCalItemType k2, double v2,
                     ZefraHDGPoint& point) {
    point = ZefraHDGPoint();
    const auto set = [&point](EHvacHDGPointCalItemType kind, double value) {
        switch (kind) {
            case HDGPT_TDB: point.SetTdb(value); break;
            case HDGPT_RH: point.SetRH(value); break;
            case HDGPT_H: point.SetH(value); break;
            case HDGPT_D: point.SetD(value); break;
            case HDGPT_TWB: point.SetTwb(value); break;
            case HDGPT_TDP: point.SetTdp(value); break;
            default: point.SetPv(value); break;
        }
    };
    set(k1, v1);
    set(k2, v2);
    point.SetCalPara1Type(k1);
    point.SetCalPara2Type(k2);
    return HDGChecks::Point(point, "point", kShort[k1], kShort[k2]);
}

// What a possible state of air is, written out independently of the checks.
std::string WhyImpossible(const ZefraHDGPoint& p, double B) {
    for (int kind = HDGPT_TDB; kind <= HDGPT_PS; ++kind)
        if (!std::isfinite(p.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(kind))))
            return "property " + std::to_string(kind) + " not finite";
    if (p.GetTdb() < -60.0 || p.GetTdb() > 100.0) return "Tdb out of range";
    if (p.GetRH() < 0.0 || p.GetRH() > 1.0 + 1e-9) return "RH outside 0..1";
    if (p.GetD() < 0.0 || p.GetD() > p.GetDs() * (1.0 + 1e-9)) return "D outside 0..Ds";
    if (!(p.GetPs() < B) || p.GetPv() >= B) return "past boiling";
    if (p.GetTdp() > p.GetTwb() + 1e-6 || p.GetTwb() > p.GetTdb() + 1e-6) return "Tdp <= Twb <= Tdb broken";
    if (!(p.GetDen() > 0.0) || !(p.GetSV() > 0.0)) return "density";
    if (std::fabs(AIR::GetH(p.GetTdb(), p.GetD()) - p.GetH()) > 1e-9 * (1.0 + std::fabs(p.GetH())))
        return "H off the enthalpy relation";
    return "";
}

struct PointCase {
    EHvacHDGPointCalItemType k1;
    double v1;
    EHvacHDGPointCalItemType k2;
    double v2;
    double B;
    const char* refusal;  // a fragment of the message; nullptr: accepted
};

TEST(InputChecks, PointsAreRefusedWithTheFaultNamed) {
    const PointCase cases[] = {
        {HDGPT_TDB, 22, HDGPT_RH, 0.6, 101325, nullptr},
        {HDGPT_TDB, 22, HDGPT_RH, 1.0, 101325, nullptr},
        {HDGPT_TDB, -60, HDGPT_RH, 0.5, 50000, nullptr},
        {HDGPT_TDB, 22, HDGPT_RH, 55, 101325, "RH = 55 looks like a percentage; relative humidity is a fraction "
                                               "from 0 to 1: 0.55"},
        {HDGPT_TDB, 22, HDGPT_RH, 1.01, 101325, "RH = 1.01 is outside the allowed range, 0 … 1"},
        {HDGPT_TDB, 22, HDGPT_RH, -0.1, 101325, "RH = -0.1 is outside"},
        {HDGPT_TDB, kNaN, HDGPT_RH, 0.5, 101325, "Tdb = nan is not a finite number"},
        {HDGPT_TDB, 22, HDGPT_RH, kInf, 101325, "RH = inf is not a finite number"},
        {HDGPT_TDB, 295.15, HDGPT_RH, 0.5, 101325, "looks like kelvin: temperatures are in °C, 22"},
        {HDGPT_TDB, 120, HDGPT_RH, 0.1, 101325, "Tdb = 120 °C is outside the allowed range, -60 … 100 °C"},
        {HDGPT_TDB, 20, HDGPT_TDP, 25, 101325, "Tdp = 25 °C is above Tdb = 20 °C: the dew point can't exceed"},
        {HDGPT_TWB, 25, HDGPT_TDB, 20, 101325, "Twb = 25 °C is above Tdb = 20 °C: the wet bulb can't exceed"},
        {HDGPT_TWB, 15, HDGPT_TDP, 16, 101325, "Tdp = 16 °C is above Twb = 15 °C"},
        {HDGPT_TDB, 20, HDGPT_D, 20, 101325, "above saturation: RH = 1.34964"},
        {HDGPT_TDB, 20, HDGPT_D, 20, 101325, "saturated air holds D = 14.6964 g/kg"},
        {HDGPT_TDB, 20, HDGPT_D, -1, 101325, "D = -1 g/kg is outside"},
        {HDGPT_H, 60, HDGPT_D, 30, 101325, "above saturation"},
        {HDGPT_H, 47361, HDGPT_D, 9.9, 101325, "47361 J/kg is 47.361 kJ/kg"},
        {HDGPT_TDB, 20, HDGPT_H, 10, 101325, "g/kg is negative; air can't be drier than dry air"},
        {HDGPT_RH, 1, HDGPT_TDP, 99.9, 50000, "above saturation"},
        {HDGPT_TDB, 20, HDGPT_PV, 101325, 101325, "is not below the atmospheric pressure"},
        {HDGPT_TDB, 22, HDGPT_RH, 0, 101325, "drier than the supported range"},
        {HDGPT_TDB, 90, HDGPT_RH, 0.5, 60000, "at or above the boiling point at 60000 Pa"},
        {HDGPT_H, 45, HDGPT_TWB, 16, 101325, "doesn't define a state"},
        {HDGPT_RH, 0.5, HDGPT_H, 1e6, 101325, "H = 1e+06 kJ/kg is outside"},
    };
    for (const PointCase& c : cases) {
        ScopedPressure pressure(c.B);
        ZefraHDGPoint point;
        const HDGFaults faults = CheckPoint(c.k1, c.v1, c.k2, c.v2, point);
        const std::string row = std::string(kShort[c.k1]) + "=" + std::to_string(c.v1) + " " + kShort[c.k2] + "=" +
                                std::to_string(c.v2);
        if (!c.refusal) {
            EXPECT_TRUE(faults.empty()) << row << ": " << HDGChecks::Describe(faults);
            EXPECT_EQ(WhyImpossible(point, c.B), "") << row;
        } else {
            ASSERT_FALSE(faults.empty()) << row;
            EXPECT_NE(HDGChecks::Describe(faults).find(c.refusal), std::string::npos)
                << row << ": " << HDGChecks::Describe(faults);
        }
    }
}

TEST(InputChecks, PressuresOutsideTheRangeNameTheLikelyUnit) {
    EXPECT_FALSE(HDGChecks::Pressure(101325.0));
    EXPECT_FALSE(HDGChecks::Pressure(50000.0));
    EXPECT_FALSE(HDGChecks::Pressure(110000.0));
    const std::pair<double, const char*> refused[] = {
        {101.325, "101.325 looks like kPa; the pressure is in Pa: 101325"},
        {1013.25, "1013.25 looks like hPa; the pressure is in Pa: 101325"},
        {1.01325, "1.01325 looks like bar; the pressure is in Pa: 101325"},
        {0.0, "outside the supported 50000 … 110000 Pa"},
        {-3.0, "outside the supported"},
        {200000.0, "outside the supported"},
        {kNaN, "not a finite number"},
        {kInf, "not a finite number"},
    };
    for (const auto& [B, fragment] : refused) {
        const auto fault = HDGChecks::Pressure(B, "--pressure");
        ASSERT_TRUE(fault) << B;
        EXPECT_NE(fault->Message.find(fragment), std::string::npos) << fault->Message;
    }
}

// Every pair of the dispatch table with values from the ordinary to the
// absurd, at pressures across the supported range: the checks either refuse
// or let through a possible state, never anything else.
TEST(InputChecks, SweepOfPairsAndExtremesLetsOnlyPossibleStatesThrough) {
    const int pairs[][2] = {{0, 1}, {0, 2}, {0, 3}, {0, 4}, {0, 5}, {0, 6}, {1, 2}, {1, 3}, {1, 4},
                            {1, 5}, {1, 6}, {2, 3}, {2, 5}, {2, 6}, {3, 4}, {4, 5}, {4, 6}};
    const double values[] = {-kInf, -1e300, -1000, -100, -60.5, -60, -40, -10, -1e-9, 0, 1e-9, 0.001, 0.3,
                             0.6, 1, 1.0000001, 5, 12, 20, 35, 60, 99.9, 100, 100.5, 295.15, 1000, 2500,
                             1e5, 1e300, kInf, kNaN};
    const double pressures[] = {50000, 80000, 101325, 110000};
    int accepted = 0;
    int refused = 0;
    for (const double B : pressures) {
        ScopedPressure pressure(B);
        for (const auto& pair : pairs) {
            for (const double v1 : values) {
                for (const double v2 : values) {
                    ZefraHDGPoint point;
                    const auto k1 = static_cast<EHvacHDGPointCalItemType>(pair[0]);
                    const auto k2 = static_cast<EHvacHDGPointCalItemType>(pair[1]);
                    // Vapour pressures in Pa, like the other values, scaled to matter.
                    const double a = k1 == HDGPT_PV ? v1 * 100.0 : v1;
                    const double b = k2 == HDGPT_PV ? v2 * 100.0 : v2;
                    const HDGFaults faults = CheckPoint(k1, a, k2, b, point);
                    if (!faults.empty()) {
                        ++refused;
                        for (const SHDGInputFault& fault : faults) ASSERT_FALSE(fault.Message.empty());
                        continue;
                    }
                    ++accepted;
                    ASSERT_EQ(WhyImpossible(point, B), "")
                        << kShort[k1] << "=" << a << " " << kShort[k2] << "=" << b << " B=" << B;
                }
            }
        }
    }
    // Not a vacuous sweep: a good share of the grid is ordinary air.
    EXPECT_GT(accepted, 2000);
    EXPECT_GT(refused, accepted);
    std::printf("sweep: %d accepted, %d refused, 0 impossible\n", accepted, refused);
}

using PrimaryEdit = std::function<void(SHDGPrimaryReturnAirInfo&)>;

TEST(InputChecks, GivenDataOfTheSchemesAreRefusedFieldByField) {
    const std::pair<PrimaryEdit, const char*> primary[] = {
        {[](auto&) {}, nullptr},
        {[](auto& g) { g.CalPriRetAirType = static_cast<EHDGPriRetAirType>(99); },
         "CalPriRetAirType = 99 is outside the primary scheme's types 0 … 5"},
        {[](auto& g) { g.PointN.SetRH(55); }, "PointN.RH = 55 looks like a percentage"},
        {[](auto& g) { g.ptL_RH = 90; }, "ptL_RH = 90 looks like a percentage"},
        {[](auto& g) { g.ptL_RH = 0; }, "ptL_RH = 0 is outside the allowed range, above 0"},
        {[](auto& g) { g.FreshAirRatio = 5; }, "FreshAirRatio = 5 looks like a percentage"},
        {[](auto& g) { g.FreshAirRatio = -1; }, "FreshAirRatio = -1 is outside"},
        {[](auto& g) { g.Mw = 1.4; }, "Mw is in kg/s: 1.4 g/s is 0.0014 kg/s"},
        {[](auto& g) { g.Mw = 0.5; }, "heat-humidity ratio of 23.2 kJ/kg, below any room's"},
        {[](auto& g) { g.Mw = 0; }, "Mw = 0 kg/s is outside"},
        {[](auto& g) { g.Qn = 11600; }, "Qn is in kW: 11600 W is 11.6 kW"},
        {[](auto& g) { g.Qn = kNaN; }, "Qn = nan is not a finite number"},
        {[](auto& g) { g.SfGdWs = -200; }, "SfGdWs = -200 K is outside"},
        {[](auto& g) {
             g.CalPriRetAirType = HDGPRI_XJ_SUPPLYDT;
             g.SfWc = 1e9;
         },
         "SfWc = 1e+09 K is outside"},
        {[](auto& g) {
             g.FreshAirType = 1;
             g.Gw = -0.2;
         },
         "Gw = -0.2 kg/s is outside"},
        {[](auto& g) {
             g.CalPriRetAirType = HDGPRI_DJ_ISENTH_HEAT;
             g.Go = 4860;
         },
         "Go is in kg/s: 4860 m³/h is about 1.62 kg/s"},
        {[](auto& g) {
             g.CalPriRetAirType = HDGPRI_DJ_ISENTH_HEAT;
             g.FreshAirType = 1;
             g.Gw = 2;
         },
         "Gw = 2 kg/s is more than the supply flow Go = 1.35 kg/s"},
    };
    for (const auto& [edit, refusal] : primary) {
        SHDGPrimaryReturnAirInfo info;
        edit(info);
        const std::string text = HDGChecks::Describe(HDGChecks::GivenData(info));
        if (!refusal)
            EXPECT_EQ(text, "");
        else
            EXPECT_NE(text.find(refusal), std::string::npos) << refusal << " | " << text;
    }

    SHDGSecondaryReturnAirInfo winter;
    winter.CalPriRetAirType = HDGSEC_DJ_ISENTH_HEAT;
    EXPECT_EQ(HDGChecks::Describe(HDGChecks::GivenData(winter)), "");
    winter.Gr1 = 2.0;
    EXPECT_NE(HDGChecks::Describe(HDGChecks::GivenData(winter)).find("Gr1 = 2 kg/s and the fresh air 0.135 kg/s "
                                                                     "together exceed the supply air Go = 1.35"),
              std::string::npos);
    winter.Gr1 = 0.5;
    winter.FreshAirRatio = 0.0;
    EXPECT_NE(HDGChecks::Describe(HDGChecks::GivenData(winter)).find("the fresh-air flow is 0"), std::string::npos);
}

TEST(InputChecks, ResultsThatAreNoStateOfAirAreNamedByPoint) {
    // The built-in summer design calculates soundly.
    ZefraHDGPrimaryReturnAir summer;
    ASSERT_TRUE(summer.Calculate());
    EXPECT_EQ(HDGChecks::Describe(HDGChecks::Results(summer)), "");
    ZefraHDGSecondaryReturnAir secondary;
    ASSERT_TRUE(secondary.Calculate());
    EXPECT_EQ(HDGChecks::Describe(HDGChecks::Results(secondary)), "");

    // A winter treatment of its summer states preheats the outdoor air into fog.
    ZefraHDGPrimaryReturnAir winter;
    winter.GetCalPriRetAirType(HDGPRI_DJ_ISENTH_HEAT);
    ASSERT_TRUE(winter.Calculate());
    const HDGFaults faults = HDGChecks::Results(winter);
    ASSERT_FALSE(faults.empty());
    EXPECT_EQ(faults.front().Field, "point W'");
    EXPECT_NE(faults.front().Message.find("point W': the state lies above saturation"), std::string::npos);

    // More fresh air than supply air: the return air is negative.
    ZefraHDGPrimaryReturnAir tooMuchFreshAir;
    SHDGPrimaryReturnAirInfo given = tooMuchFreshAir.GetGivenData();
    given.FreshAirType = 1;
    given.Gw = 5.0;
    tooMuchFreshAir.SetGivenData(given);
    tooMuchFreshAir.Calculate();
    EXPECT_NE(HDGChecks::Describe(HDGChecks::Results(tooMuchFreshAir)).find("Gn = "), std::string::npos);
}

TEST(InputChecks, InputErrorCarriesTheFault) {
    const HDGInputError error(*HDGChecks::Pressure(101.325, "pressure"));
    EXPECT_STREQ(error.what(), "101.325 looks like kPa; the pressure is in Pa: 101325");
    EXPECT_EQ(error.GetFault().Field, "pressure");
    EXPECT_EQ(error.GetFault().Value, 101.325);
}

}  // namespace
