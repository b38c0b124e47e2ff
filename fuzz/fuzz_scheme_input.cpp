// libFuzzer target: the given data of both return-air schemes, as numbers or
// as a process record, through the input checks and the calculation. Any
// input is either refused by the checks, or calculates; a calculation whose
// results the checks let through has every point, flow and load finite. The
// run's -timeout catches a search that doesn't end.

#include "zefra/air/HDGChecks.h"
#include "zefra/air/HDGCurB.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtXmlFile.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

void RequireFinitePoint(const ZefraHDGPoint& point) {
    for (int kind = HDGPT_TDB; kind <= HDGPT_PS; ++kind)
        Require(std::isfinite(point.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(kind))));
    Require(point.GetRH() <= 1.0 + 1e-6);
}

ZefraHDGPoint FuzzedPoint(FuzzedDataProvider& data, const wchar_t* name) {
    static const int kPairs[][2] = {{0, 1}, {0, 2}, {0, 3}, {0, 4}, {0, 5}, {0, 6}, {1, 2}, {1, 3}, {1, 4},
                                    {1, 5}, {1, 6}, {2, 3}, {2, 5}, {2, 6}, {3, 4}, {4, 5}, {4, 6}};
    const auto& pair = kPairs[data.ConsumeIntegralInRange<int>(0, 16)];
    ZefraHDGPoint point;
    point.SetName(name);
    for (int k = 0; k < 2; ++k) {
        const double value = data.ConsumeFloatingPoint<double>();
        switch (pair[k]) {
            case 0: point.SetTdb(value); break;
            case 1: point.SetRH(value); break;
            case 2: point.SetH(value); break;
            case 3: point.SetD(value); break;
            case 4: point.SetTwb(value); break;
            case 5: point.SetTdp(value); break;
            default: point.SetPv(value); break;
        }
    }
    point.SetCalPara1Type(static_cast<EHvacHDGPointCalItemType>(pair[0]));
    point.SetCalPara2Type(static_cast<EHvacHDGPointCalItemType>(pair[1]));
    point.Calculate();
    return point;
}

template <typename Info>
void FuzzCommonFields(FuzzedDataProvider& data, Info& info) {
    info.PointN = FuzzedPoint(data, L"N");
    info.PointW = FuzzedPoint(data, L"W");
    for (double* field : {&info.Qn, &info.Mw, &info.SfGdWs, &info.HfGdWs, &info.ptL_RH, &info.FreshAirRatio,
                          &info.Gw, &info.Go, &info.SfWc})
        if (data.ConsumeBool()) *field = data.ConsumeFloatingPoint<double>();
    info.FreshAirType = data.ConsumeIntegralInRange<int>(0, 1);
}

// Checks, calculates and checks again; aborts when an accepted design gives
// a result that isn't finite.
template <typename Scheme, typename Info>
void Run(Scheme& scheme, const Info& info, bool fullWalk) {
    if (!HDGChecks::GivenData(info).empty()) return;
    scheme.SetGivenData(info);
    if (fullWalk) scheme.SetSearchMode(EHDGSearchMode::FullWalk);
    Require(scheme.Calculate());
    if (!HDGChecks::Results(scheme).empty()) return;
    for (const ZefraHDGPoint& point : {scheme.GetPointN(), scheme.GetPointW(), scheme.GetPointN1(),
                                        scheme.GetPointW1(), scheme.GetPointC(), scheme.GetPointL(),
                                        scheme.GetPointK(), scheme.GetPointO()})
        RequireFinitePoint(point);
    for (const double value : {scheme.GetGn(), scheme.GetQw(), scheme.GetQr(), scheme.GetQo(), scheme.GetQk(),
                               scheme.GetQw1(), scheme.GetQl(), scheme.GetQp(), scheme.GetMww(), scheme.GetMwp()})
        Require(std::isfinite(value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    FuzzedDataProvider data(bytes, size);
    const int mode = data.ConsumeIntegralInRange<int>(0, 3);
    const bool fullWalk = data.ConsumeBool();
    const double pressure = data.ConsumeBool() ? 101325.0 : data.ConsumeFloatingPoint<double>();
    if (HDGChecks::Pressure(pressure)) return 0;
    SetHDGCurB(pressure);

    if (mode < 2) {
        if (mode == 0) {
            SHDGPrimaryReturnAirInfo info;
            info.CalPriRetAirType = static_cast<EHDGPriRetAirType>(data.ConsumeIntegralInRange<int>(-1, 6));
            FuzzCommonFields(data, info);
            ZefraHDGPrimaryReturnAir scheme;
            Run(scheme, info, fullWalk);
        } else {
            SHDGSecondaryReturnAirInfo info;
            info.CalPriRetAirType = static_cast<EHDGSecRetAirType>(data.ConsumeIntegralInRange<int>(-1, 5));
            FuzzCommonFields(data, info);
            if (data.ConsumeBool()) info.Gr1 = data.ConsumeFloatingPoint<double>();
            ZefraHDGSecondaryReturnAir scheme;
            Run(scheme, info, fullWalk);
        }
        return 0;
    }

    // A process record, as `--load` reads it.
    QoDtDictionary record;
    std::string error;
    if (!QoDtXmlFile::FromText(record, data.ConsumeRemainingBytesAsString(), error)) return 0;
    if (mode == 2) {
        ZefraHDGPrimaryReturnAir scheme;
        if (scheme.ReadXml(&record)) Run(scheme, scheme.GetGivenData(), fullWalk);
    } else {
        ZefraHDGSecondaryReturnAir scheme;
        if (scheme.ReadXml(&record)) Run(scheme, scheme.GetGivenData(), fullWalk);
    }
    return 0;
}
