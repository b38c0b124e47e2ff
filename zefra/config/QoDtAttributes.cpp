#include "zefra/config/QoDtAttributes.h"

#include <utility>

const CString* QoDtAttributes::Find(const wchar_t* name) const {
    for (const auto& entry : m_entries)
        if (entry.first == name) return &entry.second;
    return nullptr;
}

void QoDtAttributes::Set(const CString& name, const CString& value) {
    for (auto& entry : m_entries) {
        if (entry.first == name) {
            entry.second = value;
            return;
        }
    }
    m_entries.emplace_back(name, value);
}

void QoDtAttributes::Set(CString&& name, CString&& value) {
    for (auto& entry : m_entries) {
        if (entry.first == name) {
            entry.second = std::move(value);
            return;
        }
    }
    m_entries.emplace_back(std::move(name), std::move(value));
}

bool QoDtAttributes::Remove(const wchar_t* name) {
    for (auto it = m_entries.begin(); it != m_entries.end(); ++it) {
        if (it->first == name) {
            m_entries.erase(it);
            return true;
        }
    }
    return false;
}

CString QoDtAttributes::GetName(int index) const {
    if (index < 0 || index >= GetCount()) return CString();
    return m_entries[static_cast<size_t>(index)].first;
}

CString QoDtAttributes::GetValue(int index) const {
    if (index < 0 || index >= GetCount()) return CString();
    return m_entries[static_cast<size_t>(index)].second;
}
