// The batch must give what one point at a time gives, bit for bit, for every
// pair, in either order of the kinds, at one pressure or a pressure each.

#include "zefra/air/HDGCurB.h"
#include "zefra/air/HDGPointBatch.h"
#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/airlib/AirMany.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

bool SameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

class PressureGuard {
public:
    PressureGuard() : m_saved(GetHDGCurB()) {}
    ~PressureGuard() { SetHDGCurB(m_saved); }

private:
    double m_saved;
};

struct Columns {
    std::vector<double> values[11];
    SHDGPointColumns view;

    explicit Columns(size_t n) {
        for (int kind = 0; kind < 11; ++kind) {
            values[kind].assign(n, -7.0);
            view.Values[kind] = values[kind].data();
        }
    }
};

constexpr EHvacHDGPointCalItemType kPairs[][2] = {
    {HDGPT_TDB, HDGPT_RH}, {HDGPT_TDB, HDGPT_H},  {HDGPT_TDB, HDGPT_D},   {HDGPT_TDB, HDGPT_TWB},
    {HDGPT_TDB, HDGPT_TDP}, {HDGPT_TDB, HDGPT_PV}, {HDGPT_RH, HDGPT_H},   {HDGPT_RH, HDGPT_D},
    {HDGPT_RH, HDGPT_TWB}, {HDGPT_RH, HDGPT_TDP}, {HDGPT_RH, HDGPT_PV},   {HDGPT_H, HDGPT_D},
    {HDGPT_H, HDGPT_TDP},  {HDGPT_H, HDGPT_PV},   {HDGPT_D, HDGPT_TWB},   {HDGPT_TWB, HDGPT_TDP},
    {HDGPT_TWB, HDGPT_PV},
};

// States spread over the chart and beyond it: cold and hot, dry and
// saturated, at pressures from high mountains to deep mines, with a few
// that no air can have (the batch, like Calculate, tests no range).
struct Sample {
    std::vector<double> values[11];
    std::vector<double> pressures;
};

Sample MakeSample(size_t n, unsigned seed) {
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> tdb(-55.0, 95.0);
    std::uniform_real_distribution<double> rh(0.0, 1.0);
    std::uniform_real_distribution<double> pressure(50000.0, 110000.0);
    Sample sample;
    ZefraHDGPoint point;
    for (size_t k = 0; k < n; ++k) {
        const double B = pressure(random);
        SetHDGCurB(B);
        double t = tdb(random);
        double r = rh(random);
        if (k % 50 == 3) r = 1.0;
        if (k % 50 == 7) r = 0.0;
        if (k % 50 == 11) t = 0.01;
        point.CalByTdbAndRH(t, r);
        for (int kind = 0; kind < 11; ++kind)
            sample.values[kind].push_back(point.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(kind)));
        if (k % 97 == 5) sample.values[HDGPT_RH].back() = 1.3;  // above saturation
        if (k % 89 == 9) sample.values[HDGPT_PV].back() = std::numeric_limits<double>::quiet_NaN();
        sample.pressures.push_back(B);
    }
    return sample;
}

void SetValue(ZefraHDGPoint& point, EHvacHDGPointCalItemType kind, double value) {
    switch (kind) {
        case HDGPT_TDB: point.SetTdb(value); break;
        case HDGPT_RH: point.SetRH(value); break;
        case HDGPT_H: point.SetH(value); break;
        case HDGPT_D: point.SetD(value); break;
        case HDGPT_TWB: point.SetTwb(value); break;
        case HDGPT_TDP: point.SetTdp(value); break;
        default: point.SetPv(value); break;
    }
}

// Point k one at a time, as a front end would: the kinds and values set,
// then Calculate.
ZefraHDGPoint OneAtATime(EHvacHDGPointCalItemType kind1, double value1, EHvacHDGPointCalItemType kind2,
                         double value2, double B) {
    SetHDGCurB(B);
    ZefraHDGPoint point;
    SetValue(point, kind1, value1);
    SetValue(point, kind2, value2);
    point.SetCalPara1Type(kind1);
    point.SetCalPara2Type(kind2);
    EXPECT_TRUE(point.Calculate());
    return point;
}

void ExpectSameAsOneAtATime(EHvacHDGPointCalItemType kind1, EHvacHDGPointCalItemType kind2, const Sample& sample,
                            size_t n, bool perElement, double B) {
    Columns out(n);
    SetHDGCurB(B);
    ASSERT_TRUE(HDGPointBatch::Calculate(kind1, sample.values[kind1].data(), kind2, sample.values[kind2].data(),
                                         static_cast<int>(n), out.view, perElement ? sample.pressures.data() : nullptr));
    for (size_t k = 0; k < n; ++k) {
        const ZefraHDGPoint one = OneAtATime(kind1, sample.values[kind1][k], kind2, sample.values[kind2][k],
                                             perElement ? sample.pressures[k] : B);
        for (int kind = 0; kind < 11; ++kind) {
            const double expected = one.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(kind));
            ASSERT_TRUE(SameBits(out.values[kind][k], expected))
                << "pair (" << kind1 << ", " << kind2 << ") element " << k << " kind " << kind << ": "
                << out.values[kind][k] << " vs " << expected << (perElement ? " (pressure each)" : "");
        }
    }
}

TEST(PointBatch, EveryPairGivesTheBitsOfOneAtATime) {
    PressureGuard guard;
    // Not a multiple of the batch's block, so that the last block is short.
    const size_t n = 700;
    const Sample sample = MakeSample(n, 20);
    for (const auto& pair : kPairs) {
        for (const bool swapped : {false, true}) {
            const auto kind1 = swapped ? pair[1] : pair[0];
            const auto kind2 = swapped ? pair[0] : pair[1];
            ExpectSameAsOneAtATime(kind1, kind2, sample, n, false, 101325.0);
            ExpectSameAsOneAtATime(kind1, kind2, sample, n, false, 61640.0);
        }
    }
}

TEST(PointBatch, APressurePerElementGivesTheBitsOfOneAtATime) {
    PressureGuard guard;
    // A few pressures, repeated and interleaved, as a weather station's
    // readings rounded to a hectopascal would be.
    const size_t n = 300;
    Sample sample = MakeSample(n, 21);
    const double pressures[] = {101325.0, 100800.0, 99700.0, 101325.0, 84500.0};
    for (size_t k = 0; k < n; ++k) sample.pressures[k] = pressures[(k * 7 + k / 13) % 5];
    for (const auto& pair : kPairs) ExpectSameAsOneAtATime(pair[0], pair[1], sample, n, true, 0.0);
}

// A sweep at one relative humidity: after about a thousand calls the air
// library answers that curve from pieces instead of the exact solve. Each
// side runs on a thread of its own, so both start from an empty cache, and
// both must switch at the same element.
TEST(PointBatch, ASweepAtOneHumidityFollowsTheCurveCacheLikeOneAtATime) {
    PressureGuard guard;
    SetHDGCurB(101325.0);
    const size_t n = 3000;
    std::vector<double> rh(n, 0.47);
    std::vector<double> h;
    for (size_t k = 0; k < n; ++k) h.push_back(-20.0 + 0.031 * static_cast<double>(k) + (k % 3 == 1 ? 40.0 : 0.0));
    for (const auto kind : {HDGPT_H, HDGPT_TWB}) {
        std::vector<double> second = h;
        if (kind == HDGPT_TWB)
            for (double& value : second) value = value / 3.0;
        Columns out(n);
        std::thread([&] {
            HDGPointBatch::Calculate(HDGPT_RH, rh.data(), kind, second.data(), static_cast<int>(n), out.view);
        }).join();
        std::vector<double> expected[11];
        std::thread([&] {
            for (size_t k = 0; k < n; ++k) {
                const ZefraHDGPoint one = OneAtATime(HDGPT_RH, rh[k], kind, second[k], 101325.0);
                for (int item = 0; item < 11; ++item)
                    expected[item].push_back(one.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(item)));
            }
        }).join();
        for (size_t k = 0; k < n; ++k)
            for (int item = 0; item < 11; ++item)
                ASSERT_TRUE(SameBits(out.values[item][k], expected[item][k])) << "element " << k << " kind " << item;
    }
}

TEST(PointBatch, RecordsThePairCalculateRecords) {
    for (const auto& pair : kPairs) {
        for (const bool swapped : {false, true}) {
            const auto kind1 = swapped ? pair[1] : pair[0];
            const auto kind2 = swapped ? pair[0] : pair[1];
            const ZefraHDGPoint one = OneAtATime(kind1, 20.0, kind2, 0.5, 101325.0);
            EHvacHDGPointCalItemType first{};
            EHvacHDGPointCalItemType second{};
            ASSERT_TRUE(HDGPointBatch::RecordedPair(kind1, kind2, first, second));
            EXPECT_EQ(first, one.GetCalPara1Type());
            EXPECT_EQ(second, one.GetCalPara2Type());
        }
    }
    EHvacHDGPointCalItemType first{};
    EHvacHDGPointCalItemType second{};
    for (const auto& pair : {std::pair{HDGPT_H, HDGPT_TWB}, {HDGPT_D, HDGPT_TDP}, {HDGPT_TDB, HDGPT_DEN},
                             {HDGPT_RH, HDGPT_RH}}) {
        EXPECT_FALSE(HDGPointBatch::RecordedPair(pair.first, pair.second, first, second));
        Columns out(1);
        const double one = 1.0;
        EXPECT_FALSE(HDGPointBatch::Calculate(pair.first, &one, pair.second, &one, 1, out.view));
        EXPECT_EQ(out.values[0][0], -7.0);  // nothing written
    }
}

// The many-at-once air functions on what the batch never hands them in
// practice: arguments beyond the tables, NaN, infinities, no humidity.
TEST(PointBatch, ManyAtOnceAirFunctionsMatchOnOddArguments) {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<double> x = {-250.0, -100.0000001, -100.0, -0.0, 0.01, 0.0100006, 60.0, 200.0, 200.5, 399.0,
                                   nan, inf, -inf, 1e-300, 35.2, 35.2, 35.2};
    const std::vector<double> y = {0.5, 0.0, -0.2, 1.0, 1.5, nan, 0.3, 1e-9, inf, 0.99, 0.5, 0.5, 0.5, 0.5, 0.5,
                                   0.6, 0.7};
    const std::vector<double> B = {101325.0, 101325.0, 50000.0, 110000.0, 101325.0, 101325.0, 80000.0,
                                   101325.0, 101325.0, 101325.0, 101325.0, nan, 101325.0, 101325.0, 101325.0,
                                   101325.0, 90000.0};
    const int n = static_cast<int>(x.size());
    std::vector<double> out(x.size());
    const auto check = [&](const char* name, auto many, auto one) {
        many(out.data());
        for (int k = 0; k < n; ++k)
            ASSERT_TRUE(SameBits(out[static_cast<size_t>(k)], one(k))) << name << " at " << k;
    };
    check("GetHByTwbMany", [&](double* o) { AIR::GetHByTwbMany(x.data(), B.data(), o, n); },
          [&](int k) { return AIR::GetHByTwb(x[k], B[k]); });
    check("GetDByTdpMany", [&](double* o) { AIR::GetDByTdpMany(x.data(), B.data(), o, n); },
          [&](int k) { return AIR::GetDByTdp(x[k], B[k]); });
    check("GetTdpMany", [&](double* o) { AIR::GetTdpMany(y.data(), B.data(), o, n); },
          [&](int k) { return AIR::GetTdp(y[k], B[k]); });
    check("GetTwbMany", [&](double* o) { AIR::GetTwbMany(x.data(), B.data(), o, n); },
          [&](int k) { return AIR::GetTwb(x[k], 0.5, B[k]); });
    check("GetTdbByDAndRHMany", [&](double* o) { AIR::GetTdbByDAndRHMany(x.data(), y.data(), B.data(), o, n); },
          [&](int k) { return AIR::GetTdbByDAndRH(x[k], y[k], B[k]); });
    check("GetTdbByHAndRHMany", [&](double* o) { AIR::GetTdbByHAndRHMany(x.data(), y.data(), B.data(), o, n); },
          [&](int k) { return AIR::GetTdbByHAndRH(x[k], y[k], B[k]); });
    std::vector<double> ps(x.size());
    AIR::GetPsMany(x.data(), ps.data(), n);
    check("GetDenMany", [&](double* o) { AIR::GetDenMany(x.data(), y.data(), ps.data(), B.data(), o, n); },
          [&](int k) { return AIR::GetDen(x[k], y[k], B[k]); });
    // Wet bulbs along a walk in enthalpy that crosses the curves' meeting and
    // leaves the pieces at both ends.
    std::vector<double> h;
    for (int k = 0; k < 900; ++k) h.push_back(-120.0 + 0.53 * k);
    std::vector<double> twb(h.size());
    const std::vector<double> sameB(h.size(), 101325.0);
    AIR::GetTwbMany(h.data(), sameB.data(), twb.data(), static_cast<int>(h.size()));
    for (size_t k = 0; k < h.size(); ++k) ASSERT_TRUE(SameBits(twb[k], AIR::GetTwb(h[k], 1.0, 101325.0))) << h[k];
}

TEST(PointBatch, CheckedBatchNamesTheElementAndBlanksIt) {
    PressureGuard guard;
    SetHDGCurB(101325.0);
    const std::vector<double> tdb = {22.0, 22.0, 120.0, 30.0, 25.0, -5.0};
    const std::vector<double> twb = {16.0, 25.0, 20.0, 18.0, 50.0, -6.0};
    Columns out(tdb.size());
    const auto faults = HDGPointBatch::CalculateChecked(HDGPT_TDB, tdb.data(), HDGPT_TWB, twb.data(),
                                                        static_cast<int>(tdb.size()), out.view, "tdb", "twb");
    ASSERT_EQ(faults.size(), 3u);
    EXPECT_EQ(faults[0].Index, 1);  // a wet bulb above the dry bulb
    EXPECT_EQ(faults[0].Fault.Field, "twb");
    EXPECT_EQ(faults[1].Index, 2);  // out of range
    EXPECT_EQ(faults[1].Fault.Field, "tdb");
    EXPECT_EQ(faults[2].Index, 4);  // twb above tdb again
    for (const int bad : {1, 2, 4}) EXPECT_TRUE(std::isnan(out.values[HDGPT_H][static_cast<size_t>(bad)]));
    for (const int good : {0, 3, 5}) {
        const ZefraHDGPoint one = OneAtATime(HDGPT_TDB, tdb[static_cast<size_t>(good)], HDGPT_TWB,
                                             twb[static_cast<size_t>(good)], 101325.0);
        for (int kind = 0; kind < 11; ++kind)
            EXPECT_TRUE(SameBits(out.values[kind][static_cast<size_t>(good)],
                                 one.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(kind))));
    }

    // Per-element pressures: a value in kPa is caught by name; a state above
    // saturation only after the calculation.
    const std::vector<double> tdb2 = {20.0, 20.0, 20.0};
    const std::vector<double> d2 = {5.0, 5.0, 40.0};
    const std::vector<double> B = {101325.0, 101.3, 101325.0};
    Columns out2(3);
    const auto faults2 = HDGPointBatch::CalculateChecked(HDGPT_TDB, tdb2.data(), HDGPT_D, d2.data(), 3, out2.view,
                                                         "tdb", "d", B.data());
    ASSERT_EQ(faults2.size(), 2u);
    EXPECT_EQ(faults2[0].Index, 1);
    EXPECT_EQ(faults2[0].Fault.Field, "pressure");
    EXPECT_NE(faults2[0].Fault.Message.find("kPa"), std::string::npos) << faults2[0].Fault.Message;
    EXPECT_EQ(faults2[1].Index, 2);
    EXPECT_NE(faults2[1].Fault.Message.find("above saturation"), std::string::npos) << faults2[1].Fault.Message;
    EXPECT_FALSE(std::isnan(out2.values[HDGPT_TWB][0]));

    const auto refused = HDGPointBatch::CalculateChecked(HDGPT_D, d2.data(), HDGPT_TDP, d2.data(), 3, out2.view,
                                                         "d", "tdp");
    ASSERT_EQ(refused.size(), 1u);
    EXPECT_EQ(refused[0].Index, -1);
}

}  // namespace
