#include "zefra/labels/QoHvacDuctLabelData.h"

QoHvacDuctLabelData::QoHvacDuctLabelData(const QoStringW& name_, const QoStringW& prefix_, const QoStringW& value_,
                                         const QoStringW& suffix_, long listIndex_, long precision_, int extra_)
    : name(name_),
      prefix(prefix_),
      value(value_),
      suffix(suffix_),
      listIndex(listIndex_),
      precision(precision_),
      extra(extra_) {}
