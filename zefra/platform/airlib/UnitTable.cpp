#include "zefra/platform/airlib/UnitTable.h"

#include "zefra/platform/mfc/CArray.h"

#include <cwchar>
#include <cwctype>

namespace {

bool SameIgnoringCase(const wchar_t* a, const wchar_t* b) {
    for (; *a && *b; ++a, ++b)
        if (std::towlower(static_cast<wint_t>(*a)) != std::towlower(static_cast<wint_t>(*b))) return false;
    return *a == *b;
}

}  // namespace

int UnitTable::FindCode(const CString& name) const {
    for (int pass = 0; pass < 2; ++pass) {
        for (int code = 0; code < m_count; ++code) {
            const UnitEntry& entry = m_entries[code];
            const wchar_t* names[5] = {entry.displayName, entry.aliases[0], entry.aliases[1], entry.aliases[2],
                                       entry.aliases[3]};
            for (const wchar_t* candidate : names) {
                if (!candidate) continue;
                const bool match = pass == 0 ? std::wcscmp(candidate, name.GetString()) == 0
                                             : SameIgnoringCase(candidate, name.GetString());
                if (match) return code;
            }
        }
    }
    return -1;
}

CString UnitTable::GetName(int code) const { return IsCode(code) ? CString(m_entries[code].displayName) : CString(); }

void UnitTable::AppendNames(CStringArray& names) const {
    for (int code = 0; code < m_count; ++code) {
        names.Add(CString(m_entries[code].displayName));
        for (const wchar_t* alias : m_entries[code].aliases)
            if (alias) names.Add(CString(alias));
    }
}

double UnitTable::Convert(double value, int from, int to) const {
    if (!IsCode(from) || !IsCode(to) || from == to) return value;
    return value * m_entries[from].sizeInBase / m_entries[to].sizeInBase;
}
