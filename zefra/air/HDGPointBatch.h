#pragma once
// State points by the thousand: the eleven properties of many states from
// arrays of one supported pair, for tables of weather hours and design sweeps.
//
// Each element comes out bit for bit as ZefraHDGPoint::Calculate gives it
// with the same pair at the same pressure: the batch runs the same
// operations in the same order, only a step at a time over a block of
// elements, with the many-at-once air functions. Where a result depends on
// the history of the air library's cache of curves (the pairs (RH, H) and
// (RH, Twb)), the batch makes its calls into that cache in the order the
// points one at a time would make them.
//
// Inputs and outputs are structures of arrays; no output may overlap an
// input.

#include "zefra/ZefraExport.h"
#include "zefra/air/HDGChecks.h"
#include "zefra/air/ZefraHDGPoint.h"

#include <vector>

// Eleven output arrays, in the order of EHvacHDGPointCalItemType: Values[HDGPT_TDB]
// holds the dry bulbs, Values[HDGPT_PS] the saturated vapour pressures.
struct SHDGPointColumns {
    double* Values[11] = {};

    double* operator[](EHvacHDGPointCalItemType kind) const { return Values[kind]; }
};

// A fault of one element of a checked batch.
struct SHDGBatchFault {
    int Index = 0;  // the element
    SHDGInputFault Fault;
};

ZEFRA_API_BEGIN
namespace HDGPointBatch {

// Whether ZefraHDGPoint::Calculate supports the unordered pair {kind1, kind2}.
bool IsSupportedPair(EHvacHDGPointCalItemType kind1, EHvacHDGPointCalItemType kind2);

// The pair that a point given by {kind1, kind2} records after Calculate:
// {H, D} records (Tdb, D), every other pair the order of its CalBy operation.
// False for a pair that isn't supported.
bool RecordedPair(EHvacHDGPointCalItemType kind1, EHvacHDGPointCalItemType kind2, EHvacHDGPointCalItemType& first,
                  EHvacHDGPointCalItemType& second);

// The states of n points, point k given by values1[k] of kind1 and values2[k]
// of kind2, at the pressure pressures[k] in Pa, or at GetHDGCurB() for all
// when pressures is null. Writes out[kind][k] for all eleven kinds. Like
// Calculate it tests no range; false, with nothing written, for an
// unsupported pair.
bool Calculate(EHvacHDGPointCalItemType kind1, const double* values1, EHvacHDGPointCalItemType kind2,
               const double* values2, int n, const SHDGPointColumns& out, const double* pressures = nullptr);

// Calculate with the input checks of HDGChecks on every element: the
// pressure (when given per element), both values, their order (Tdp ≤ Twb ≤
// Tdb), and the state computed. field1 and field2 name the values in the
// messages. Gives the faults in order of element, each with its index; the
// eleven outputs of a faulty element are NaN. An unsupported pair gives one
// fault with index −1 and writes nothing.
std::vector<SHDGBatchFault> CalculateChecked(EHvacHDGPointCalItemType kind1, const double* values1,
                                             EHvacHDGPointCalItemType kind2, const double* values2, int n,
                                             const SHDGPointColumns& out, const std::string& field1,
                                             const std::string& field2, const double* pressures = nullptr);

}  // namespace HDGPointBatch
ZEFRA_API_END
