#pragma once
#include "zefra/ZefraExport.h"
// The string attributes of a dictionary item, in the order they were first
// set. Names are compared exactly, case included. From a few attributes on
// a hashed index by name (keyed as the child index is) stands beside them,
// so an element with tens of thousands of attributes reads in linear time.

#include "zefra/platform/mfc/CString.h"

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

class ZEFRA_API QoDtAttributes {
public:
    // Null when the attribute isn't there.
    const CString* Find(const wchar_t* name) const;
    // Sets the value, adding the attribute behind the others if it is new.
    void Set(const CString& name, const CString& value);
    void Set(CString&& name, CString&& value);
    bool Remove(const wchar_t* name);
    void Clear() {
        m_entries.clear();
        m_slots.clear();
    }
    void Reserve(int count) { m_entries.reserve(static_cast<size_t>(count)); }

    int GetCount() const { return static_cast<int>(m_entries.size()); }
    // Empty for an index out of range.
    CString GetName(int index) const;
    CString GetValue(int index) const;

    // Calls visit(name, value) for each attribute in order.
    template <typename Visit>
    void ForEach(Visit visit) const {
        for (const auto& entry : m_entries) visit(entry.first, entry.second);
    }

    friend bool operator==(const QoDtAttributes& a, const QoDtAttributes& b) { return a.m_entries == b.m_entries; }

private:
    static constexpr size_t kIndexFrom = 8;
    // Position of the name in m_entries, or -1.
    long IndexOf(std::wstring_view name) const;
    void Enter(size_t entry);
    void Rebuild();

    std::vector<std::pair<CString, CString>> m_entries;
    // Open addressing: entry + 1, 0 for an empty slot; empty while there are
    // few attributes.
    std::vector<uint32_t> m_slots;
};
