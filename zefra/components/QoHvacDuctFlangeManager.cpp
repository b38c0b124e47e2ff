#include "zefra/components/QoHvacDuctFlangeManager.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/platform/geometry/Zero.h"

#include <cmath>
#include <cwchar>
#include <iterator>

namespace {

const wchar_t* const kBranch = L"ZEFRA\\FLANGESET";
const wchar_t* const kStyleKey = L"STYLE";
const wchar_t* const kDefaultSizeKey = L"DEFAULTSIZE";
const wchar_t* const kSizeSetKey = L"SIZESET";
const wchar_t* const kEndRangeAttribute = L"endrange";
const wchar_t* const kOffsetAttribute = L"offset";

// The one tolerance test of the table: a is not below b.
bool NotBelow(double a, double b) { return a - b >= -g_fZero; }

// A bound looked up by exact value: NaN would match any row of the map.
bool IsLookupKey(double endRange) { return std::isfinite(endRange); }

// Text to number as the C library's _wtof reads it: 0.0 when unparsable.
double ParseNumber(const CString& text) { return std::wcstod(text.GetString(), nullptr); }

QoDtDictionary* FindBranch() {
    QoDtDictionary* branch = g_dictCfg.FindDict(kBranch);
    return branch;
}

QoDtDictOptionItem* FindStyle(QoDtDictionary& branch) {
    QoDtDictItem* item = branch.FindItem(kStyleKey);
    return item != nullptr && item->GetType() == QoDtDictItem::eDtOption ? static_cast<QoDtDictOptionItem*>(item)
                                                                         : nullptr;
}

}  // namespace

QoHvacDuctFlangeManager* QoHvacDuctFlangeManager::GetInstance() {
    return QoModuleSingleton<QoHvacDuctFlangeManager>::Get();
}

QoHvacDuctFlangeManager::QoHvacDuctFlangeManager() {
    if (FindBranch() != nullptr) ReadFromDict();
}

QoDbHvacDuctFlange::EFlangeType QoHvacDuctFlangeManager::GetFlangeEntityType() const {
    switch (m_style) {
        case EFlangeStyleAngle:
        case EFlangeStyleAngleSealed: return QoDbHvacDuctFlange::EFlangeAngleSteel;
        case EFlangeStylePlate:
        case EFlangeStylePlateSealed: return QoDbHvacDuctFlange::EFlangeCommonPlate;
        default: return QoDbHvacDuctFlange::EFlangeNone;
    }
}

bool QoHvacDuctFlangeManager::GetSearlarType() const {
    return m_style == EFlangeStyleAngleSealed || m_style == EFlangeStylePlateSealed;
}

bool QoHvacDuctFlangeManager::IsTableValue(double value) { return std::isfinite(value) && value >= 0.0; }

bool QoHvacDuctFlangeManager::TrySetDefaultOffset(double offset) {
    if (!IsTableValue(offset)) return false;
    m_defaultOffset = offset;
    return true;
}

void QoHvacDuctFlangeManager::SetDefaultOffset(double offset) { TrySetDefaultOffset(offset); }

double QoHvacDuctFlangeManager::GetEndRange(int i) const {
    if (i >= GetSizeSetNum() || m_sizeSet.empty()) return -1.0;
    return std::next(m_sizeSet.begin(), i < 0 ? 0 : i)->first;
}

double QoHvacDuctFlangeManager::GetStartRange(int i) const {
    if (i >= GetSizeSetNum()) return -1.0;
    if (i <= 0) return 0.0;
    return std::next(m_sizeSet.begin(), i - 1)->first;
}

double QoHvacDuctFlangeManager::GetOffset(int i) const {
    if (i >= GetSizeSetNum() || m_sizeSet.empty()) return m_defaultOffset;
    return std::next(m_sizeSet.begin(), i < 0 ? 0 : i)->second;
}

double QoHvacDuctFlangeManager::GetOffset(double size) const {
    for (const auto& [endRange, offset] : m_sizeSet)
        if (NotBelow(endRange, size)) return offset;
    return m_defaultOffset;
}

bool QoHvacDuctFlangeManager::TryAddSizeSet(double endRange, double offset) {
    if (!IsTableValue(endRange) || !IsTableValue(offset)) return false;
    m_sizeSet[endRange] = offset;
    return true;
}

void QoHvacDuctFlangeManager::AddSizeSet(double endRange, double offset) { TryAddSizeSet(endRange, offset); }

bool QoHvacDuctFlangeManager::TryAddItem() {
    double last = 0.0;
    double step = 200.0;
    if (!m_sizeSet.empty()) {
        auto row = m_sizeSet.begin();
        last = row->first;
        for (++row; row != m_sizeSet.end(); ++row) {
            step = row->first - last;
            last = row->first;
        }
    }
    // Near the largest numbers the sum may not lie above the last end.
    const double end = last + step;
    return end > last && TryAddSizeSet(end, m_defaultOffset);
}

void QoHvacDuctFlangeManager::AddItem() { TryAddItem(); }

bool QoHvacDuctFlangeManager::DelItem(double endRange) {
    return IsLookupKey(endRange) && m_sizeSet.erase(endRange) > 0;
}

bool QoHvacDuctFlangeManager::ChangeOffset(double offset, double endRange) {
    if (!IsTableValue(offset) || !IsLookupKey(endRange)) return false;
    const auto row = m_sizeSet.find(endRange);
    if (row == m_sizeSet.end()) return false;
    row->second = offset;
    return true;
}

bool QoHvacDuctFlangeManager::SetLastEndRange(double endRange) {
    if (!TryAddSizeSet(endRange, GetOffset(endRange))) return false;
    m_sizeSet.erase(m_sizeSet.upper_bound(endRange), m_sizeSet.end());
    return true;
}

bool QoHvacDuctFlangeManager::ChangeEndRange(double newEnd, double oldEnd) {
    if (!IsTableValue(newEnd) || !IsLookupKey(oldEnd)) return false;
    const auto oldRow = m_sizeSet.find(oldEnd);
    if (oldRow == m_sizeSet.end()) return false;
    if (oldRow != m_sizeSet.begin() && NotBelow(std::prev(oldRow)->first, newEnd)) return false;
    const double offset = oldRow->second;
    if (newEnd >= oldEnd) {
        // The raised row swallows every row that ends before its new end.
        AddSizeSet(newEnd, offset);
        m_sizeSet.erase(m_sizeSet.find(oldEnd), m_sizeSet.find(newEnd));
    } else if (NotBelow(newEnd, oldEnd)) {
        // Within the zero band below the old end: the same end, nothing moves.
    } else {
        m_sizeSet.erase(oldRow);
        AddSizeSet(newEnd, offset);
    }
    return true;
}

bool QoHvacDuctFlangeManager::ChangeStartRange(double newStart, double endRange) {
    if (!IsTableValue(newStart) || !IsLookupKey(endRange)) return false;
    if (NotBelow(newStart, endRange)) return false;
    AddSizeSet(newStart, GetOffset(newStart));
    const auto startRow = m_sizeSet.find(newStart);
    const auto endRow = m_sizeSet.find(endRange);
    if (endRow == m_sizeSet.end()) return false;
    m_sizeSet.erase(std::next(startRow), endRow);
    return true;
}

void QoHvacDuctFlangeManager::ReadFromDict() {
    QoDtDictionary* branch = FindBranch();
    if (branch == nullptr) return;
    m_dict = branch;
    if (QoDtDictOptionItem* style = FindStyle(*branch)) m_style = static_cast<EFlangeStyle>(style->selection);
    double defaultOffset = m_defaultOffset;
    if (branch->GetValue(kDefaultSizeKey, defaultOffset)) SetDefaultOffset(defaultOffset);
    QoDtDictItem* sizeSet = branch->FindItem(kSizeSetKey);
    m_sizeSet.clear();
    if (sizeSet == nullptr || !sizeSet->IsDict()) return;
    QoDtDictItemList& rows = static_cast<QoDtDictionary*>(sizeSet)->children;
    // A row with a bound or offset that the table refuses is skipped.
    for (rows.MoveToFirst(); !rows.IsOut(); rows.MoveToNext()) {
        const QoDtDictItem* row = rows.GetCurData();
        AddSizeSet(ParseNumber(row->GetAttributeValue(kEndRangeAttribute)),
                   ParseNumber(row->GetAttributeValue(kOffsetAttribute)));
    }
}

void QoHvacDuctFlangeManager::SaveToDict() {
    QoDtDictionary* branch = FindBranch();
    if (branch == nullptr) return;
    m_dict = branch;
    branch->SetValue(kDefaultSizeKey, m_defaultOffset);
    if (QoDtDictOptionItem* style = FindStyle(*branch)) style->selection = m_style;
    QoDtDictItem* sizeSet = branch->FindItem(kSizeSetKey);
    if (sizeSet == nullptr || !sizeSet->IsDict()) return;
    QoDtDictionary& rows = *static_cast<QoDtDictionary*>(sizeSet);
    rows.children.Reset();
    int counter = 0;
    for (const auto& [endRange, offset] : m_sizeSet) {
        CString key;
        key.Format(L"%d", counter);
        QoDtDictItem* row = rows.FindOrAddItem(key, QoDtDictItem::eDtRow);
        if (row == nullptr) continue;
        CString text;
        text.Format(L"%.2f", endRange);
        row->SetAttributeValue(kEndRangeAttribute, text);
        text.Format(L"%.2f", offset);
        row->SetAttributeValue(kOffsetAttribute, text);
        ++counter;
    }
}
