#pragma once
#include "zefra/ZefraExport.h"
// Settings of the enthalpy-humidity chart: how it is drawn, which items the
// point and return-air reports show, and the abbreviations, unit names and
// precisions of the report texts. The manager is also the module's set of
// unit converters: a report converts a value by calling the base concerned.
//
// One instance per process, built at the first GetInstance() from
// g_dictCfg "ZEFRA\HDG" and destroyed with the module's other singletons.
// Changes stay in memory until SaveData, which writes the tree but not the
// file.

#include "zefra/chart/SHvacHDGDrawSet.h"
#include "zefra/module/QoModuleSingleton.h"
#include "zefra/platform/airlib/CDenUnitConvert.h"
#include "zefra/platform/airlib/CHUnitConvert.h"
#include "zefra/platform/airlib/CMwUnitConvert.h"
#include "zefra/platform/airlib/CQUnitConvert.h"
#include "zefra/platform/airlib/CVUnitConvert.h"
#include "zefra/platform/mfc/CNTArray.h"
#include "zefra/platform/mfc/CString.h"

#include <vector>

class ZEFRA_API QoHvacHDGSysSetManager : public CHUnitConvert,
                               public CQUnitConvert,
                               public CVUnitConvert,
                               public CMwUnitConvert,
                               public CDenUnitConvert {
public:
    static QoHvacHDGSysSetManager* GetInstance() { return QoModuleSingleton<QoHvacHDGSysSetManager>::Get(); }

    QoHvacHDGSysSetManager(const QoHvacHDGSysSetManager&) = delete;
    QoHvacHDGSysSetManager& operator=(const QoHvacHDGSysSetManager&) = delete;

    // False only when g_dictCfg has no "ZEFRA\HDG"; nothing changes then.
    bool ReadData();
    bool SaveData() const;
    // Moves the enthalpy, air-flow, heat-load, moisture and density converters
    // to the units that the unit names give. A name that its converter doesn't
    // know leaves the converter where it was; the row then takes the
    // converter's own name, so that no figure is labelled with a unit it
    // isn't in, and the name is listed in GetUnknownUnitsNames().
    void UpdateAllCurUnitsConvertSet();

    // A unit name that no converter knew, as it stood in the table.
    struct SUnknownUnitsName {
        CString item;  // "焓", "风量", "冷热负荷", "湿负荷" or "密度"
        CString name;
    };
    // The names replaced by the last UpdateAllCurUnitsConvertSet, and by
    // SetUnitsName since then.
    const std::vector<SUnknownUnitsName>& GetUnknownUnitsNames() const { return m_UnknownUnitsNames; }
    // Whether the unit item has a converter; the names that converter knows
    // (nothing for "温度", "含湿量" and "压力").
    static bool HasUnitsConverter(const CString& item);
    static bool IsKnownUnitsName(const CString& item, const CString& unit);
    static void GetKnownUnitsNames(const CString& item, CStringArray& names);

    // Lookups by item name: exact whole-string match, first row wins. A name
    // without a row gives false, an empty text, or a precision of 2.
    bool SetDisplayItem(const CString& name, bool display);
    bool IsDisplayItem(const CString& name) const;
    bool SetDisplayYcHfItem(const CString& name, bool display);
    bool IsDisplayYcHfItem(const CString& name) const;
    bool SetDisplayEcHfItem(const CString& name, bool display);
    bool IsDisplayEcHfItem(const CString& name) const;
    bool SetAbbreviationName(const CString& name, const CString& abbreviation);
    CString GetAbbreviationName(const CString& name) const;
    // Also moves the matching converter to the new unit.
    bool SetUnitsName(const CString& name, const CString& unit);
    CString GetUnitsName(const CString& name) const;
    bool SetPrecision(const CString& name, int precision);
    int GetPrecision(const CString& name) const;
    int GetDislayItemNumbers() const;

    SHvacHDGDrawSet& GetDrawSet() { return m_DrawSet; }
    const SHvacHDGDrawSet& GetDrawSet() const { return m_DrawSet; }
    void SetDrawSet(const SHvacHDGDrawSet& drawSet) { m_DrawSet = drawSet; }

    // The tables themselves, row by row in the order of the item names.
    CNTArray<bool, bool>& GetDisplayItems() { return m_DisplayItems; }
    CNTArray<bool, bool>& GetYcHfItems() { return m_YcHfItems; }
    CNTArray<bool, bool>& GetEcHfItems() { return m_EcHfItems; }
    CStringArray& GetAbbreviations() { return m_Abbreviations; }
    CStringArray& GetUnitsNames() { return m_UnitsNames; }
    CNTArray<int, int>& GetPrecisions() { return m_Precisions; }
    const CNTArray<bool, bool>& GetDisplayItems() const { return m_DisplayItems; }
    const CNTArray<bool, bool>& GetYcHfItems() const { return m_YcHfItems; }
    const CNTArray<bool, bool>& GetEcHfItems() const { return m_EcHfItems; }
    const CStringArray& GetAbbreviations() const { return m_Abbreviations; }
    const CStringArray& GetUnitsNames() const { return m_UnitsNames; }
    const CNTArray<int, int>& GetPrecisions() const { return m_Precisions; }

private:
    friend class QoModuleSingleton<QoHvacHDGSysSetManager>;
    QoHvacHDGSysSetManager();
    ~QoHvacHDGSysSetManager() override = default;

    // Tables left short by a missing dictionary get the built-in values of
    // their remaining rows, so that every lookup by name finds its row.
    void TopUpTables();
    void UpdateConverter(int unitRow);
    // The converter's own name in place of a name it doesn't know.
    void FallBackToConverterUnit(int unitRow);

    SHvacHDGDrawSet m_DrawSet;
    CNTArray<bool, bool> m_DisplayItems;
    CNTArray<bool, bool> m_YcHfItems;
    CNTArray<bool, bool> m_EcHfItems;
    CStringArray m_Abbreviations;
    CStringArray m_UnitsNames;
    CNTArray<int, int> m_Precisions;
    std::vector<SUnknownUnitsName> m_UnknownUnitsNames;
};
