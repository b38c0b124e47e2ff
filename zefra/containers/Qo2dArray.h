#pragma once
#include "zefra/ZefraExport.h"
// Exact two-dimensional array: an array of rows, row r being element r.

#include "zefra/containers/QoArray.h"

template <typename T>
class ZEFRA_API Qo2dArray : public QoArray<QoArray<T>> {
    using Rows = QoArray<QoArray<T>>;

public:
    explicit Qo2dArray(int rows = 0, int cols = 0) : Rows() { ReAllocate(rows, cols, false); }

    // Resizes the array of rows, then every row, each with the same keep.
    void ReAllocate(int rows, int cols, bool keep) {
        Rows::ReAllocate(rows, keep);
        for (int r = 0; r < this->GetLength(); ++r) this->GetAt(r).ReAllocate(cols, keep);
    }
    void SetAll(const T& d) {
        for (int r = 0; r < this->GetLength(); ++r) this->GetAt(r).SetAll(d);
    }
};
