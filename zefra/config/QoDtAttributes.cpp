#include "zefra/config/QoDtAttributes.h"

#include "zefra/config/QoDtChildIndex.h"

#include <cwchar>
#include <string_view>
#include <utility>

long QoDtAttributes::IndexOf(std::wstring_view key) const {
    if (m_slots.empty()) {
        for (size_t i = 0; i < m_entries.size(); ++i)
            if (std::wstring_view(m_entries[i].first.Str()) == key) return static_cast<long>(i);
        return -1;
    }
    const size_t mask = m_slots.size() - 1;
    for (size_t i = QoDtChildIndex::Hash(key) & mask; m_slots[i] != 0; i = (i + 1) & mask) {
        const size_t entry = m_slots[i] - 1;
        if (std::wstring_view(m_entries[entry].first.Str()) == key) return static_cast<long>(entry);
    }
    return -1;
}

void QoDtAttributes::Enter(size_t entry) {
    if (m_entries.size() <= kIndexFrom) return;
    if (m_slots.empty() || m_entries.size() * 2 > m_slots.size()) {
        Rebuild();
        return;
    }
    const size_t mask = m_slots.size() - 1;
    size_t i = QoDtChildIndex::Hash(m_entries[entry].first.Str()) & mask;
    while (m_slots[i] != 0) i = (i + 1) & mask;
    m_slots[i] = static_cast<uint32_t>(entry + 1);
}

void QoDtAttributes::Rebuild() {
    m_slots.clear();
    if (m_entries.size() <= kIndexFrom) return;
    size_t capacity = 32;
    while (capacity < m_entries.size() * 4) capacity *= 2;
    m_slots.assign(capacity, 0);
    const size_t mask = capacity - 1;
    for (size_t entry = 0; entry < m_entries.size(); ++entry) {
        size_t i = QoDtChildIndex::Hash(m_entries[entry].first.Str()) & mask;
        while (m_slots[i] != 0) i = (i + 1) & mask;
        m_slots[i] = static_cast<uint32_t>(entry + 1);
    }
}

const CString* QoDtAttributes::Find(const wchar_t* name) const {
    if (name == nullptr) return nullptr;
    const long at = IndexOf(std::wstring_view(name, std::wcslen(name)));
    return at < 0 ? nullptr : &m_entries[static_cast<size_t>(at)].second;
}

void QoDtAttributes::Set(const CString& name, const CString& value) {
    const long at = IndexOf(name.Str());
    if (at >= 0) {
        m_entries[static_cast<size_t>(at)].second = value;
        return;
    }
    m_entries.emplace_back(name, value);
    Enter(m_entries.size() - 1);
}

void QoDtAttributes::Set(CString&& name, CString&& value) {
    const long at = IndexOf(name.Str());
    if (at >= 0) {
        m_entries[static_cast<size_t>(at)].second = std::move(value);
        return;
    }
    m_entries.emplace_back(std::move(name), std::move(value));
    Enter(m_entries.size() - 1);
}

bool QoDtAttributes::Remove(const wchar_t* name) {
    if (name == nullptr) return false;
    const long at = IndexOf(std::wstring_view(name, std::wcslen(name)));
    if (at < 0) return false;
    m_entries.erase(m_entries.begin() + at);
    Rebuild();
    return true;
}

CString QoDtAttributes::GetName(int index) const {
    if (index < 0 || index >= GetCount()) return CString();
    return m_entries[static_cast<size_t>(index)].first;
}

CString QoDtAttributes::GetValue(int index) const {
    if (index < 0 || index >= GetCount()) return CString();
    return m_entries[static_cast<size_t>(index)].second;
}
