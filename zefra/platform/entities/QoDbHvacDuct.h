#pragma once
#include "zefra/ZefraExport.h"
// An air duct run. Its outline, flange, end lines and axis each take a
// property value of their own, which the duct applies when it draws them.

#include "zefra/platform/geometry/AcGePoint3d.h"
#include "zefra/platform/entities/QoHvacEntProperty.h"
#include "zefra/platform/entities/QoStringW.h"
#include "zefra/platform/host/AcDbEntity.h"

#include <optional>

class ZEFRA_API QoDbHvacDuct : public AcDbEntity {
public:
    // The enumeration belongs to the drawing side and may grow; only the
    // values that callers here tell apart are named.
    enum EDuctType : int { EDuctNormal = 0, EDuctVertical = 1, EDuctFlexible = 3 };

    enum ESectionShape : int { ESectionRect = 0, ESectionRound = 1 };
    // The face of the section by which the duct is set out in height; the
    // end points lie on the axis whatever the face.
    enum EVertAlignment : int { EVertAlignTop = 0, EVertAlignCenter = 1, EVertAlignBottom = 2 };

    explicit QoDbHvacDuct(EDuctType type = EDuctNormal);

    EDuctType GetDuctType() const { return m_ductType; }
    void SetDuctType(EDuctType type) { m_ductType = type; }

    // The system's display name.
    QoStringW GetSystemName() const { return m_systemName; }
    void SetSystemName(QoStringW name);

    const QoHvacEntProperty& GetPropDuctline() const { return m_propDuctline; }
    void SetPropDuctline(const QoHvacEntProperty& prop) { m_propDuctline = prop; }
    const QoHvacEntProperty& GetPropFlange() const { return m_propFlange; }
    void SetPropFlange(const QoHvacEntProperty& prop) { m_propFlange = prop; }
    const QoHvacEntProperty& GetPropEndline() const { return m_propEndline; }
    void SetPropEndline(const QoHvacEntProperty& prop) { m_propEndline = prop; }
    const QoHvacEntProperty& GetPropAxisline() const { return m_propAxisline; }
    void SetPropAxisline(const QoHvacEntProperty& prop) { m_propAxisline = prop; }

    // Section in mm; the width is the diameter of a round duct.
    double GetWidth() const { return m_width; }
    double GetHeight() const { return m_height; }
    void SetWidth(double width) { m_width = width; }
    void SetHeight(double height) { m_height = height; }
    ESectionShape GetSectionShape() const { return m_sectionShape; }
    void SetSectionShape(ESectionShape shape) { m_sectionShape = shape; }
    EVertAlignment GetVertAlignment() const { return m_vertAlignment; }
    void SetVertAlignment(EVertAlignment alignment) { m_vertAlignment = alignment; }

    // End points in mm.
    AcGePoint3d GetStartPoint() const { return m_startPoint; }
    AcGePoint3d GetEndPoint() const { return m_endPoint; }
    void SetStartPoint(const AcGePoint3d& point) { m_startPoint = point; }
    void SetEndPoint(const AcGePoint3d& point) { m_endPoint = point; }
    // Length along the duct in mm.
    double GetActualLength() const { return m_actualLength; }
    void SetActualLength(double length) { m_actualLength = length; }

    // Air flow in m³/h, velocity in m/s, specific friction loss in Pa/m. A
    // value the duct hasn't been given yet gives false, with the argument
    // untouched.
    bool GetWindCapacity(double& flow) const { return Take(m_windCapacity, flow); }
    bool GetWindVelocity(double& velocity) const { return Take(m_windVelocity, velocity); }
    bool GetBMZ(double& bmz) const { return Take(m_bmz, bmz); }
    void SetWindCapacity(double flow) { m_windCapacity = flow; }
    void SetWindVelocity(double velocity) { m_windVelocity = velocity; }
    void SetBMZ(double bmz) { m_bmz = bmz; }

private:
    static bool Take(const std::optional<double>& known, double& out) {
        if (!known) return false;
        out = *known;
        return true;
    }

    EDuctType m_ductType;
    double m_width = 0.0;
    double m_height = 0.0;
    ESectionShape m_sectionShape = ESectionRect;
    EVertAlignment m_vertAlignment = EVertAlignCenter;
    AcGePoint3d m_startPoint;
    AcGePoint3d m_endPoint;
    double m_actualLength = 0.0;
    std::optional<double> m_windCapacity;
    std::optional<double> m_windVelocity;
    std::optional<double> m_bmz;
    QoStringW m_systemName;
    QoHvacEntProperty m_propDuctline;
    QoHvacEntProperty m_propFlange;
    QoHvacEntProperty m_propEndline;
    QoHvacEntProperty m_propAxisline;
};
