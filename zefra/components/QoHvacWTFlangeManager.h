#pragma once
#include "zefra/ZefraExport.h"
// Flange thickness and projection of pipes, as a step function of the
// nominal size. Two tables: one for the air-conditioning water and VRV
// kinds ("ZEFRA\WATER\FLANGESET"), one for the three heating kinds
// ("ZEFRA\HEATING\FLANGESET"). A row holds from its start up to the next
// row's start; the last row holds for all larger sizes, and sizes below
// the table get thickness 1.0 and projection 0.0. Tables are kept sorted by
// start, rows of equal start in the order they came. Ducts have no table:
// operations on ESysDuct change nothing and look up the defaults.
//
// Saving a table also refills g_HvacPipeGBData with its rows.
//
// Start, thickness and projection are finite numbers not below 0: a row with
// anything else is refused (false, the table unchanged) and skipped when the
// store is read, so that the table stays in order. A size of NaN lies below
// every table.

#include "zefra/containers/QoList.h"
#include "zefra/layers/EQoDbHvacSystemType.h"
#include "zefra/module/QoModuleSingleton.h"
#include "zefra/platform/entities/SFlangeExtrudeData.h"
#include "zefra/platform/mfc/CString.h"

class ZEFRA_API QoHvacWTFlangeManager {
public:
    static QoHvacWTFlangeManager* GetInstance();

    QoHvacWTFlangeManager(const QoHvacWTFlangeManager&) = default;
    QoHvacWTFlangeManager& operator=(const QoHvacWTFlangeManager&) = default;
    ~QoHvacWTFlangeManager() = default;

    QoList<SFlangeExtrudeData> GetFlangeData(HVAC::EQoDbHvacSystemType kind) const;
    // A row the tables take.
    static bool IsValidRow(const SFlangeExtrudeData& row);

    // Takes the rows, sorted; false, with the table as it was, if one of
    // them is refused or the kind has no table.
    void SetFlangeData(QoList<SFlangeExtrudeData> rows, HVAC::EQoDbHvacSystemType kind);
    // The same, saying whether the change was made (false: refused, nothing changed).
    bool TrySetFlangeData(QoList<SFlangeExtrudeData> rows, HVAC::EQoDbHvacSystemType kind);
    // Appends without looking for a row of the same start, then sorts; false
    // for a refused row or a kind without table.
    void AddExtrudeData(const SFlangeExtrudeData& row, HVAC::EQoDbHvacSystemType kind);
    // The same, saying whether the change was made (false: refused, nothing changed).
    bool TryAddExtrudeData(const SFlangeExtrudeData& row, HVAC::EQoDbHvacSystemType kind);
    void Clear(HVAC::EQoDbHvacSystemType kind);
    void Sort(HVAC::EQoDbHvacSystemType kind);

    double GetThickness(double size, HVAC::EQoDbHvacSystemType kind) const;
    double GetExrtude(double size, HVAC::EQoDbHvacSystemType kind) const;
    double GetKTThickness(double size) const { return GetThickness(size, HVAC::ESysKT); }
    double GetKTExrtude(double size) const { return GetExrtude(size, HVAC::ESysKT); }

    // Rewrites the kind's dictionary (made if missing) and the shared rows.
    void SaveToDict(HVAC::EQoDbHvacSystemType kind);
    // Takes the stored rows; an empty or missing store keeps the table.
    void ReadFromDict(HVAC::EQoDbHvacSystemType kind);

protected:
    // The water path for any kind without the heating table, ducts included.
    static CString GetDictPath(HVAC::EQoDbHvacSystemType kind);

private:
    friend class QoModuleSingleton<QoHvacWTFlangeManager>;
    QoHvacWTFlangeManager();

    QoList<SFlangeExtrudeData>* TableOf(HVAC::EQoDbHvacSystemType kind);
    const QoList<SFlangeExtrudeData>* TableOf(HVAC::EQoDbHvacSystemType kind) const;
    // The row that holds for the size; null below the table.
    const SFlangeExtrudeData* RowFor(double size, HVAC::EQoDbHvacSystemType kind) const;

    QoList<SFlangeExtrudeData> m_waterTable;
    QoList<SFlangeExtrudeData> m_heatingTable;
};
