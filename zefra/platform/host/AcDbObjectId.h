#pragma once
#include "zefra/ZefraExport.h"
// Identity of an object in a drawing database. Ids are unique in the process,
// so an id names one object whatever database holds it; the null id names
// nothing.

#include <cstdint>

class ZEFRA_API AcDbObjectId {
public:
    AcDbObjectId() = default;

    static const AcDbObjectId kNull;

    bool isNull() const { return m_value == 0; }
    void setNull() { m_value = 0; }

    std::int64_t asOldId() const { return m_value; }
    AcDbObjectId& setFromOldId(std::int64_t value) {
        m_value = value;
        return *this;
    }

    // A fresh id that no other object in this process has had.
    static AcDbObjectId MakeNew();

    friend bool operator==(const AcDbObjectId& a, const AcDbObjectId& b) { return a.m_value == b.m_value; }
    friend bool operator!=(const AcDbObjectId& a, const AcDbObjectId& b) { return a.m_value != b.m_value; }
    friend bool operator<(const AcDbObjectId& a, const AcDbObjectId& b) { return a.m_value < b.m_value; }

private:
    std::int64_t m_value = 0;
};
