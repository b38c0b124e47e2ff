#pragma once
// A valve or pipe accessory on water piping.

#include "zefra/platform/entities/QoStringW.h"
#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacValve : public AcDbEntity {
public:
    const QoStringW& GetSystemName() const { return m_systemName; }
    void SetSystemName(const QoStringW& name);

private:
    QoStringW m_systemName;
};
