#pragma once
// A water or refrigerant pipe. The pipe itself lies on its layer; flange,
// end lines and axis carry property values of their own. The code prefix
// starts the pipe's label text (for instance "LG" for chilled supply).

#include "zefra/platform/entities/QoHvacEntProperty.h"
#include "zefra/platform/entities/QoStringW.h"
#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacPipe : public AcDbEntity {
public:
    enum EPipeType : int { EPipeNormal = 0, EPipeRiser = 1, EPipeBuckleBend = 2 };

    explicit QoDbHvacPipe(EPipeType type = EPipeNormal);

    EPipeType GetPipeType() const { return m_pipeType; }
    void SetPipeType(EPipeType type) { m_pipeType = type; }

    const QoStringW& GetPreCode() const { return m_preCode; }
    void SetPreCode(const QoStringW& code) { m_preCode = code; }

    double GetSideLineWidth() const { return m_sideLineWidth; }
    void SetSideLineWidth(double width) { m_sideLineWidth = width; }

    const QoHvacEntProperty& GetPropFlange() const { return m_propFlange; }
    void SetPropFlange(const QoHvacEntProperty& prop) { m_propFlange = prop; }
    const QoHvacEntProperty& GetPropEndline() const { return m_propEndline; }
    void SetPropEndline(const QoHvacEntProperty& prop) { m_propEndline = prop; }
    const QoHvacEntProperty& GetPropAxisline() const { return m_propAxisline; }
    void SetPropAxisline(const QoHvacEntProperty& prop) { m_propAxisline = prop; }

private:
    EPipeType m_pipeType;
    QoStringW m_preCode;
    double m_sideLineWidth = 0.0;
    QoHvacEntProperty m_propFlange;
    QoHvacEntProperty m_propEndline;
    QoHvacEntProperty m_propAxisline;
};
