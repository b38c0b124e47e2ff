#pragma once
// The units that one converter knows: for each code its display name, the
// other names it answers to, and its size in the converter's base unit.

#include "zefra/platform/mfc/CString.h"

class CStringArray;

struct UnitEntry {
    const wchar_t* displayName;
    const wchar_t* aliases[4];  // further accepted names; unused slots null
    double sizeInBase;          // one of this unit in the base unit
};

class UnitTable {
public:
    template <int N>
    constexpr explicit UnitTable(const UnitEntry (&entries)[N]) : m_entries(entries), m_count(N) {}

    int GetCount() const { return m_count; }
    bool IsCode(int code) const { return code >= 0 && code < m_count; }

    // Code of the unit with that name, matched exactly first and then without
    // regard to case; -1 when no unit has that name.
    int FindCode(const CString& name) const;
    CString GetName(int code) const;
    // Every name of every unit, in code order, each display name before its
    // other names.
    void AppendNames(CStringArray& names) const;

    // value in unit `from` expressed in unit `to`; an unknown code converts
    // as the identity.
    double Convert(double value, int from, int to) const;

private:
    const UnitEntry* m_entries;
    int m_count;
};
