#pragma once
#include "zefra/ZefraExport.h"
// One line of a label as the label entity takes it: name, prefix, value and
// suffix stay separate, to be shown in that order.

#include "zefra/platform/entities/QoStringW.h"

class ZEFRA_API QoHvacDuctLabelData {
public:
    QoHvacDuctLabelData() = default;
    QoHvacDuctLabelData(const QoStringW& name, const QoStringW& prefix, const QoStringW& value,
                        const QoStringW& suffix, long listIndex, long precision, int extra);
    QoHvacDuctLabelData(const QoHvacDuctLabelData&) = default;
    QoHvacDuctLabelData& operator=(const QoHvacDuctLabelData&) = default;
    ~QoHvacDuctLabelData() = default;

    QoStringW name;
    QoStringW prefix;
    QoStringW value;
    QoStringW suffix;
    // The label list the line came from.
    long listIndex = 0;
    // Decimals of a numeric value.
    long precision = 0;
    // Left to the label entity; 0 from the composition.
    int extra = 0;
    // A value the entity may recompute from: a flow in m³/h before its unit
    // conversion, or for an elevation the digit of the height it gives
    // ("0" by the duct's alignment, "1" top, "2" centre, "3" bottom).
    QoStringW baseValue;
};
