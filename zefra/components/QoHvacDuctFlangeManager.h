#pragma once
#include "zefra/ZefraExport.h"
// How far a duct flange stands out, by duct size. The table holds size
// ranges by their upper bound only ("end range"): row i covers the sizes
// above the end of row i - 1 up to its own end, row 0 starts at 0, and
// sizes beyond the last row take the default offset. Because starts are
// not stored the ranges stay gapless; the editing operations that move a
// bound swallow or split neighbouring rows to keep it so.
//
// End ranges are keys compared exactly; only the test of a size against a
// bound allows for g_fZero. Stored below g_dictCfg "ZEFRA\FLANGESET", with
// both numbers of a row rounded to two decimals.
//
// Bounds and offsets are finite numbers not below 0: an edit that would put
// anything else in the table (NaN, an infinity, a negative number) gives
// false and changes nothing, and a read skips such rows.

#include "zefra/module/QoModuleSingleton.h"
#include "zefra/platform/entities/QoDbHvacDuctFlange.h"

#include <map>

class QoDtDictionary;

class ZEFRA_API QoHvacDuctFlangeManager {
public:
    // The selection of the store's "STYLE" option.
    enum EFlangeStyle : int {
        EFlangeStyleNone = 0,
        EFlangeStyleLine = 1,
        EFlangeStyleAngle = 2,
        EFlangeStyleAngleSealed = 3,
        EFlangeStylePlate = 4,
        EFlangeStylePlateSealed = 5,
    };

    static QoHvacDuctFlangeManager* GetInstance();

    QoHvacDuctFlangeManager(const QoHvacDuctFlangeManager&) = default;
    QoHvacDuctFlangeManager& operator=(const QoHvacDuctFlangeManager&) = default;
    ~QoHvacDuctFlangeManager() = default;

    EFlangeStyle GetFlangeType() const { return m_style; }
    QoDbHvacDuctFlange::EFlangeType GetFlangeEntityType() const;
    // Whether the style seals the flange joint.
    bool GetSearlarType() const;

    // A bound or an offset that the table takes.
    static bool IsTableValue(double value);

    double GetDefaultOffset() const { return m_defaultOffset; }
    void SetDefaultOffset(double offset);
    // The same, saying whether the change was made (false: refused, nothing changed).
    bool TrySetDefaultOffset(double offset);

    int GetSizeSetNum() const { return static_cast<int>(m_sizeSet.size()); }
    // Row lookups by index: -1.0 (or the default offset) past the last row
    // and in an empty table; a negative index counts as row 0.
    double GetEndRange(int i) const;
    double GetStartRange(int i) const;
    double GetOffset(int i) const;
    // The offset of the first row whose end is not below the size; the
    // default offset beyond the table.
    double GetOffset(double size) const;

    // Inserts the row, replacing one with the same end range.
    void AddSizeSet(double endRange, double offset);
    // The same, saying whether the change was made (false: refused, nothing changed).
    bool TryAddSizeSet(double endRange, double offset);
    // Appends a row as wide as the last one (200 for the first rows) with
    // the default offset; false if its end would not be a finite number
    // above the last one.
    void AddItem();
    // The same, saying whether the change was made (false: refused, nothing changed).
    bool TryAddItem();
    bool DelItem(double endRange);
    void ResetSize() { m_sizeSet.clear(); }
    bool ChangeOffset(double offset, double endRange);
    // Makes `endRange` the end of the table; the new last row keeps the
    // offset that size had.
    bool SetLastEndRange(double endRange);
    // Moves the end of the row ending at `oldEnd`. Raising it swallows the
    // rows it passes; it can't go down to the row's start. A new end within
    // g_fZero below the old one is the old end: true, nothing changes.
    bool ChangeEndRange(double newEnd, double oldEnd);
    // Puts the start of the row ending at `endRange` at `newStart`, which
    // removes the rows in between or splits the row below.
    bool ChangeStartRange(double newStart, double endRange);

    void ReadFromDict();
    // Writes the tree in memory; HVAC::SaveConfigData puts it on disk.
    void SaveToDict();

private:
    friend class QoModuleSingleton<QoHvacDuctFlangeManager>;
    QoHvacDuctFlangeManager();

    EFlangeStyle m_style = EFlangeStyleNone;
    double m_defaultOffset = 0.0;
    QoDtDictionary* m_dict = nullptr;  // borrowed from g_dictCfg
    std::map<double, double> m_sizeSet;  // end range -> offset
};
