#include "zefra/air/HDGPointBatch.h"

#include "zefra/air/HDGCurB.h"
#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/airlib/AirMany.h"
#include "zefra/platform/airlib/VectorClones.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace HDGPointBatch {

namespace {

// Elements go through the steps a block at a time, small enough for the
// block's arrays to stay in the first-level cache.
constexpr int kBlock = 256;

// The CalBy operations that Calculate reaches, with their two kinds in the
// order of their arguments, in the order Calculate tries them.
enum class Operation {
    TdbAndRH, TdbAndH, TdbAndD, TdbAndTwb, TdbAndTdp, TdbAndPv, RHAndH, RHAndD, RHAndTwb,
    RHAndTdp, RHAndPv, HAndD, HAndTdp, HAndPv, DAndTwb, TwbAndTdp, TwbAndPv,
};

struct OperationPair {
    Operation operation;
    EHvacHDGPointCalItemType first;
    EHvacHDGPointCalItemType second;
};

constexpr OperationPair kOperations[] = {
    {Operation::TdbAndRH, HDGPT_TDB, HDGPT_RH},   {Operation::TdbAndH, HDGPT_TDB, HDGPT_H},
    {Operation::TdbAndD, HDGPT_TDB, HDGPT_D},     {Operation::TdbAndTwb, HDGPT_TDB, HDGPT_TWB},
    {Operation::TdbAndTdp, HDGPT_TDB, HDGPT_TDP}, {Operation::TdbAndPv, HDGPT_TDB, HDGPT_PV},
    {Operation::RHAndH, HDGPT_RH, HDGPT_H},       {Operation::RHAndD, HDGPT_RH, HDGPT_D},
    {Operation::RHAndTwb, HDGPT_RH, HDGPT_TWB},   {Operation::RHAndTdp, HDGPT_RH, HDGPT_TDP},
    {Operation::RHAndPv, HDGPT_RH, HDGPT_PV},     {Operation::HAndD, HDGPT_H, HDGPT_D},
    {Operation::HAndTdp, HDGPT_H, HDGPT_TDP},     {Operation::HAndPv, HDGPT_H, HDGPT_PV},
    {Operation::DAndTwb, HDGPT_D, HDGPT_TWB},     {Operation::TwbAndTdp, HDGPT_TWB, HDGPT_TDP},
    {Operation::TwbAndPv, HDGPT_TWB, HDGPT_PV},
};

const OperationPair* FindOperation(EHvacHDGPointCalItemType kind1, EHvacHDGPointCalItemType kind2) {
    for (const OperationPair& entry : kOperations)
        if ((entry.first == kind1 && entry.second == kind2) || (entry.first == kind2 && entry.second == kind1))
            return &entry;
    return nullptr;
}

ZEFRA_VECTOR_CLONES
void Multiply(const double* __restrict a, const double* __restrict b, double* __restrict out, int n) {
    for (int k = 0; k < n; ++k) out[k] = a[k] * b[k];
}

void Copy(const double* from, double* to, int n) {
    if (from != to) std::memmove(to, from, sizeof(double) * static_cast<size_t>(n));
}

// One block of elements: the point's fields as arrays, and the pressures.
struct Block {
    double* Tdb;
    double* RH;
    double* H;
    double* D;
    double* Twb;
    double* Tdp;
    double* Pv;
    double* Den;
    double* SV;
    double* Ds;
    double* Ps;
    const double* B;
    int n;

    Block(const SHDGPointColumns& out, int start, const double* pressures, int count)
        : Tdb(out[HDGPT_TDB] + start), RH(out[HDGPT_RH] + start), H(out[HDGPT_H] + start),
          D(out[HDGPT_D] + start), Twb(out[HDGPT_TWB] + start), Tdp(out[HDGPT_TDP] + start),
          Pv(out[HDGPT_PV] + start), Den(out[HDGPT_DEN] + start), SV(out[HDGPT_SV] + start),
          Ds(out[HDGPT_DS] + start), Ps(out[HDGPT_PS] + start), B(pressures), n(count) {}

    // ZefraHDGPoint::CalCommonTail; the wet bulbs only when not already read.
    void CommonTail(bool wetBulbsRead = false) {
        AIR::GetDenMany(Tdb, RH, Ps, B, Den, n);
        AIR::GetSVByDAndDenMany(D, Den, SV, n);
        if (!wetBulbsRead) AIR::GetTwbMany(H, B, Twb, n);
        AIR::GetTdpMany(D, B, Tdp, n);
        AIR::GetDByPvMany(Ps, B, Ds, n);
    }

    // The three base calculations, on the fields already set.
    void TdbAndRH() {
        AIR::GetPsMany(Tdb, Ps, n);
        Multiply(RH, Ps, Pv, n);
        AIR::GetDByPvMany(Pv, B, D, n);
        AIR::GetHMany(Tdb, D, H, n);
        CommonTail();
    }

    void TdbAndPv() {
        AIR::GetPsMany(Tdb, Ps, n);
        AIR::GetRHByPvAndPsMany(Pv, Ps, RH, n);
        AIR::GetDByPvMany(Pv, B, D, n);
        AIR::GetHMany(Tdb, D, H, n);
        CommonTail();
    }

    void HAndD(bool wetBulbsRead = false) {
        AIR::GetTdbMany(H, D, Tdb, n);
        AIR::GetPsMany(Tdb, Ps, n);
        AIR::GetPvMany(D, B, Pv, n);
        AIR::GetRHByPvAndPsMany(Pv, Ps, RH, n);
        CommonTail(wetBulbsRead);
    }

    // The wrappers' steps before their base calculation.
    void RHAndD() {
        AIR::GetTdbByDAndRHMany(D, RH, B, Tdb, n);
        AIR::GetHMany(Tdb, D, H, n);
        HAndD();
    }

    // The temperature on the curve of RH and the wet bulb both go through
    // the air library's cache of curves, whose history decides whether a
    // curve's pieces or the exact solve answers. They are read element by
    // element, in the order one point at a time reads them, so that the
    // cache answers each call as it would answer that point. H doesn't change
    // after the first step, so the wet bulb can be read before its turn.
    // A sweep along one RH at one pressure whose curves are already built
    // changes nothing in the cache, so it is read a block at a time.
    void RHAndH() {
        const bool oneCurve = n > 0 && CountWithin(RH, n, RH[0], RH[0]) == n && CountWithin(B, n, B[0], B[0]) == n;
        if (!oneCurve || !AIR::GetTdbAndTwbOnBuiltCurves(H, RH[0], B[0], Tdb, Twb, n)) {
            for (int k = 0; k < n; ++k) {
                Tdb[k] = AIR::GetTdbByHAndRH(H[k], RH[k], B[k]);
                Twb[k] = AIR::GetTwb(H[k], RH[k], B[k]);
            }
        }
        AIR::GetDByTdbAndHMany(Tdb, H, D, n);
        HAndD(true);
    }

    // Sets the operation's two input fields from a and b, in its order, and runs it.
    void Run(Operation operation, const double* a, const double* b) {
        switch (operation) {
            case Operation::TdbAndRH: Copy(a, Tdb, n); Copy(b, RH, n); TdbAndRH(); break;
            case Operation::TdbAndPv: Copy(a, Tdb, n); Copy(b, Pv, n); TdbAndPv(); break;
            case Operation::HAndD: Copy(a, H, n); Copy(b, D, n); HAndD(); break;
            case Operation::TdbAndD:
                Copy(a, Tdb, n); Copy(b, D, n);
                AIR::GetHMany(Tdb, D, H, n);
                HAndD();
                break;
            case Operation::TdbAndH:
                Copy(a, Tdb, n); Copy(b, H, n);
                AIR::GetDByTdbAndHMany(Tdb, H, D, n);
                HAndD();
                break;
            case Operation::TdbAndTwb:
                Copy(a, Tdb, n); Copy(b, Twb, n);
                AIR::GetHByTwbMany(Twb, B, H, n);
                AIR::GetDByTdbAndHMany(Tdb, H, D, n);
                HAndD();
                break;
            case Operation::TdbAndTdp:
                Copy(a, Tdb, n); Copy(b, Tdp, n);
                AIR::GetDByTdpMany(Tdp, B, D, n);
                AIR::GetHMany(Tdb, D, H, n);
                HAndD();
                break;
            case Operation::RHAndD: Copy(a, RH, n); Copy(b, D, n); RHAndD(); break;
            case Operation::RHAndH: Copy(a, RH, n); Copy(b, H, n); RHAndH(); break;
            case Operation::RHAndPv:
                Copy(a, RH, n); Copy(b, Pv, n);
                AIR::GetDByPvMany(Pv, B, D, n);
                RHAndD();
                break;
            case Operation::RHAndTdp:
                Copy(a, RH, n); Copy(b, Tdp, n);
                AIR::GetDByTdpMany(Tdp, B, D, n);
                RHAndD();
                break;
            case Operation::RHAndTwb:
                Copy(a, RH, n); Copy(b, Twb, n);
                AIR::GetHByTwbMany(Twb, B, H, n);
                RHAndH();
                break;
            case Operation::HAndPv:
                Copy(a, H, n); Copy(b, Pv, n);
                AIR::GetDByPvMany(Pv, B, D, n);
                HAndD();
                break;
            case Operation::HAndTdp:
                Copy(a, H, n); Copy(b, Tdp, n);
                AIR::GetDByTdpMany(Tdp, B, D, n);
                HAndD();
                break;
            case Operation::DAndTwb:
                Copy(a, D, n); Copy(b, Twb, n);
                AIR::GetHByTwbMany(Twb, B, H, n);
                HAndD();
                break;
            case Operation::TwbAndPv:
                Copy(a, Twb, n); Copy(b, Pv, n);
                AIR::GetHByTwbMany(Twb, B, H, n);
                AIR::GetDByPvMany(Pv, B, D, n);
                HAndD();
                break;
            case Operation::TwbAndTdp:
                Copy(a, Twb, n); Copy(b, Tdp, n);
                AIR::GetHByTwbMany(Twb, B, H, n);
                AIR::GetDByTdpMany(Tdp, B, D, n);
                HAndD();
                break;
        }
    }
};

}  // namespace

namespace {

// Whether the pressures mostly stand in runs of one value.
bool InPressureRuns(const double* pressures, int n) {
    int runs = 1;
    for (int k = 1; k < n; ++k) runs += static_cast<int>(!(pressures[k] == pressures[k - 1]));
    return 16 * runs <= n;
}

// Calculate over elements taken in order of pressure: each pressure's
// wet-bulb curve is then built once, where the library keeps only a few at
// a time. Only for operations whose results don't depend on the order of
// the calls.
bool CalculateByPressure(const OperationPair& entry, const double* a, const double* b, int n,
                         const SHDGPointColumns& out, const double* pressures) {
    std::vector<int> order(static_cast<size_t>(n));
    for (int k = 0; k < n; ++k) order[static_cast<size_t>(k)] = k;
    // NaN pressures last, in their order.
    std::stable_sort(order.begin(), order.end(), [pressures](int x, int y) {
        const double px = pressures[x];
        const double py = pressures[y];
        return px < py || (px == px && py != py);
    });
    const size_t size = static_cast<size_t>(n);
    std::vector<double> sorted(3 * size + 11 * size);
    double* sa = sorted.data();
    double* sb = sa + size;
    double* sB = sb + size;
    SHDGPointColumns columns;
    for (int kind = 0; kind < 11; ++kind) columns.Values[kind] = sB + size * static_cast<size_t>(1 + kind);
    for (size_t i = 0; i < size; ++i) {
        sa[i] = a[order[i]];
        sb[i] = b[order[i]];
        sB[i] = pressures[order[i]];
    }
    for (int start = 0; start < n; start += kBlock) {
        const int count = n - start < kBlock ? n - start : kBlock;
        Block block(columns, start, sB + start, count);
        block.Run(entry.operation, sa + start, sb + start);
    }
    for (int kind = 0; kind < 11; ++kind)
        for (size_t i = 0; i < size; ++i) out.Values[kind][order[i]] = columns.Values[kind][i];
    return true;
}

}  // namespace

bool IsSupportedPair(EHvacHDGPointCalItemType kind1, EHvacHDGPointCalItemType kind2) {
    return FindOperation(kind1, kind2) != nullptr;
}

bool RecordedPair(EHvacHDGPointCalItemType kind1, EHvacHDGPointCalItemType kind2, EHvacHDGPointCalItemType& first,
                  EHvacHDGPointCalItemType& second) {
    const OperationPair* entry = FindOperation(kind1, kind2);
    if (!entry) return false;
    const bool hAndD = entry->operation == Operation::HAndD;
    first = hAndD ? HDGPT_TDB : entry->first;
    second = entry->second;
    return true;
}

bool Calculate(EHvacHDGPointCalItemType kind1, const double* values1, EHvacHDGPointCalItemType kind2,
               const double* values2, int n, const SHDGPointColumns& out, const double* pressures) {
    const OperationPair* entry = FindOperation(kind1, kind2);
    if (!entry) return false;
    // Calculate hands the operation its two fields in the operation's order.
    const bool inOrder = entry->first == kind1;
    const double* a = inOrder ? values1 : values2;
    const double* b = inOrder ? values2 : values1;
    const bool keepOrder = entry->operation == Operation::RHAndH || entry->operation == Operation::RHAndTwb;
    if (pressures && !keepOrder && n > 1 && !InPressureRuns(pressures, n))
        return CalculateByPressure(*entry, a, b, n, out, pressures);
    double constantB[kBlock];
    if (!pressures) {
        const double B = GetHDGCurB();
        for (double& value : constantB) value = B;
    }
    for (int start = 0; start < n; start += kBlock) {
        const int count = n - start < kBlock ? n - start : kBlock;
        Block block(out, start, pressures ? pressures + start : constantB, count);
        block.Run(entry->operation, a + start, b + start);
    }
    return true;
}

std::vector<SHDGBatchFault> CalculateChecked(EHvacHDGPointCalItemType kind1, const double* values1,
                                             EHvacHDGPointCalItemType kind2, const double* values2, int n,
                                             const SHDGPointColumns& out, const std::string& field1,
                                             const std::string& field2, const double* pressures) {
    std::vector<SHDGBatchFault> faults;
    if (!IsSupportedPair(kind1, kind2)) {
        faults.push_back({-1, {field1, 0.0,
                               field1 + " with " + field2 +
                                   " doesn't define a state (its two properties aren't independent)"}});
        return faults;
    }
    const double current = GetHDGCurB();
    const auto pressureAt = [&](int k) { return pressures ? pressures[k] : current; };
    // Elements refused before the calculation are calculated from a harmless
    // stand-in, so that no lookup ever sees a NaN or an absurd value, and
    // then blanked.
    std::vector<char> refused(static_cast<size_t>(n), 0);
    std::vector<double> first(values1, values1 + n);
    std::vector<double> second(values2, values2 + n);
    std::vector<double> B;
    if (pressures) B.assign(pressures, pressures + n);
    for (int k = 0; k < n; ++k) {
        const size_t at = faults.size();
        if (pressures)
            if (auto fault = HDGChecks::Pressure(pressures[k])) faults.push_back({k, std::move(*fault)});
        if (faults.size() == at)
            for (SHDGInputFault& fault :
                 HDGChecks::Given(kind1, values1[k], field1, kind2, values2[k], field2, pressureAt(k)))
                faults.push_back({k, std::move(fault)});
        if (faults.size() != at) {
            refused[static_cast<size_t>(k)] = 1;
            const double standIn[7] = {20.0, 0.5, 40.0, 7.0, 14.0, 9.0, 1000.0};
            first[static_cast<size_t>(k)] = standIn[kind1];
            second[static_cast<size_t>(k)] = standIn[kind2];
            if (pressures) B[static_cast<size_t>(k)] = current;
        }
    }
    Calculate(kind1, first.data(), kind2, second.data(), n, out, pressures ? B.data() : nullptr);

    // The states, in order of element among the refusals before them.
    std::vector<SHDGBatchFault> all;
    all.reserve(faults.size());
    size_t next = 0;
    ZefraHDGPoint point;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (int k = 0; k < n; ++k) {
        while (next < faults.size() && faults[next].Index == k) all.push_back(std::move(faults[next++]));
        if (!refused[static_cast<size_t>(k)]) {
            point.SetTdb(out[HDGPT_TDB][k]);
            point.SetRH(out[HDGPT_RH][k]);
            point.SetH(out[HDGPT_H][k]);
            point.SetD(out[HDGPT_D][k]);
            point.SetTwb(out[HDGPT_TWB][k]);
            point.SetTdp(out[HDGPT_TDP][k]);
            point.SetPv(out[HDGPT_PV][k]);
            point.SetDen(out[HDGPT_DEN][k]);
            point.SetSV(out[HDGPT_SV][k]);
            point.SetDs(out[HDGPT_DS][k]);
            point.SetPs(out[HDGPT_PS][k]);
            if (auto fault = HDGChecks::State(point, "the point", pressureAt(k))) {
                all.push_back({k, std::move(*fault)});
                refused[static_cast<size_t>(k)] = 1;
            }
        }
        if (refused[static_cast<size_t>(k)])
            for (double* column : out.Values) column[k] = nan;
    }
    return all;
}

}  // namespace HDGPointBatch
