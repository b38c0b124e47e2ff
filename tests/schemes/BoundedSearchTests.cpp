// The summer searches end for any input: absurd and non-finite states make
// them fail with their text, never run on. These run the library directly,
// as the front ends' checks would not let such states through.

#include "air/AirTestSupport.h"
#include "zefra/air/HDGCurB.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

std::string Texts(const CStringArray& texts) {
    std::string all;
    for (int i = 0; i < texts.GetSize(); ++i) all += texts.GetAt(i).ToUtf8() + "\n";
    return all;
}

struct Extreme {
    double Pressure;
    double RoomTdb;
    double RoomRH;
};

// A pressure typed in kPa gives a moisture content of about 2e10 g/kg; the
// others give infinite or non-finite rooms.
const Extreme kExtremes[] = {
    {101.325, 22.0, 0.6}, {1e-300, 22.0, 0.6}, {101325.0, 1e300, 0.6}, {101325.0, kInf, 0.6},
    {101325.0, 22.0, kInf}, {101325.0, kNaN, 0.6}, {kNaN, 22.0, 0.6},   {101325.0, 1e6, 1e6},
};

TEST(BoundedSearch, PrimarySummerSearchEndsForAnyRoom) {
    for (const EHDGSearchMode mode : {EHDGSearchMode::Quick, EHDGSearchMode::FullWalk}) {
        for (const Extreme& x : kExtremes) {
            ScopedPressure pressure(x.Pressure);
            ZefraHDGPrimaryReturnAir scheme;
            scheme.SetSearchMode(mode);
            SHDGPrimaryReturnAirInfo given = scheme.GetGivenData();
            given.PointN = ZefraHDGPoint(x.RoomTdb, x.RoomRH, L"N");
            scheme.SetGivenData(given);
            EXPECT_TRUE(scheme.Calculate());
            const std::string texts = Texts(scheme.GetResultInfo());
            // Where the walk can't start it finds nothing; where it runs on it stops at its bound.
            if (given.PointN.GetD() >= 1e4 || !(given.PointN.GetD() >= 0.0)) {
                EXPECT_NE(texts.find("送风点O，露点L计算失败"), std::string::npos)
                    << x.Pressure << " " << x.RoomTdb << " " << x.RoomRH;
            }
        }
    }
}

TEST(BoundedSearch, SecondarySummerSearchEndsForAnyMixState) {
    for (const EHDGSearchMode mode : {EHDGSearchMode::Quick, EHDGSearchMode::FullWalk}) {
        for (const Extreme& x : kExtremes) {
            ScopedPressure pressure(x.Pressure);
            ZefraHDGSecondaryReturnAir scheme;
            scheme.SetSearchMode(mode);
            SHDGSecondaryReturnAirInfo given = scheme.GetGivenData();
            given.PointN = ZefraHDGPoint(x.RoomTdb, x.RoomRH, L"N");
            scheme.SetGivenData(given);
            EXPECT_TRUE(scheme.Calculate());
        }
        // M above 2000 °C: the walk would take a million steps and more, and gives up.
        ZefraHDGSecondaryReturnAir hot;
        hot.SetSearchMode(mode);
        SHDGSecondaryReturnAirInfo given = hot.GetGivenData();
        given.PointN = ZefraHDGPoint(1e12, 0.0, L"N");
        given.SfWc = -1e10;
        hot.SetGivenData(given);
        EXPECT_TRUE(hot.Calculate());
        EXPECT_NE(Texts(hot.GetResultInfo()).find("露点L计算失败"), std::string::npos);
    }
}

TEST(BoundedSearch, SoundDesignsNeverMeetTheBound) {
    // The built-in designs and a hot humid room keep the system's results.
    for (const double rh : {0.3, 0.6, 0.9}) {
        ZefraHDGPrimaryReturnAir primary;
        SHDGPrimaryReturnAirInfo given = primary.GetGivenData();
        given.PointN = ZefraHDGPoint(35.0, rh, L"N");
        primary.SetGivenData(given);
        primary.Calculate();
        EXPECT_EQ(Texts(primary.GetResultInfo()).find("计算失败"), std::string::npos) << rh;
        ZefraHDGSecondaryReturnAir secondary;
        secondary.Calculate();
        EXPECT_EQ(Texts(secondary.GetResultInfo()).find("计算失败"), std::string::npos);
    }
}

}  // namespace
