#include "zefra/labels/QoHvacCStringOption.h"

#include "zefra/config/QoDtDictOptionItem.h"

#include <cwchar>

QoHvacCStringOption::~QoHvacCStringOption() = default;

void QoHvacCStringOption::AddOption(const CString& text) {
    Append(text);
    m_curSel = GetLength() - 1;
}

bool QoHvacCStringOption::SetCurSel(const CString& text, bool add) {
    for (MoveToFirst(); !IsOut(); MoveToNext()) {
        if (std::wcscmp(GetCurData(), text) == 0) {
            m_curSel = GetCur();
            return true;
        }
    }
    if (!add) return false;
    AddOption(text);
    return true;
}

CString QoHvacCStringOption::GetCurSelString() const {
    const CString* text = GetTo(m_curSel);
    return text != nullptr ? *text : CString();
}

bool QoHvacCStringOption::SaveToDict(QoDtDictOptionItem* item) const {
    if (item == nullptr) return false;
    item->selection = m_curSel;
    return true;
}

bool QoHvacCStringOption::ReadFromDict(QoDtDictOptionItem* item) {
    if (item == nullptr) return false;
    Reset();
    for (const CString* text = item->options.GetFirst(); text != nullptr; text = item->options.GetNext(text))
        Append(*text);
    m_curSel = item->selection;
    return true;
}
