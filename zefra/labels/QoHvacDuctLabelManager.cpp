#include "zefra/labels/QoHvacDuctLabelManager.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictBoolItem.h"
#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/platform/host/QoDbObjectRegistry.h"
#include "zefra/labels/QoHvacDuctLabelComposer.h"
#include "zefra/platform/host/AcDbHostApplicationServices.h"
#include "zefra/platform/host/AcDbTextStyleTable.h"

#include <algorithm>
#include <cwchar>

namespace {

const wchar_t* const kBranch = L"ZEFRA\\LABELSET";
const wchar_t* const kLabelItems = L"LABELITEM";
const wchar_t* const kRectSize = L"矩形尺寸";
const wchar_t* const kRoundSize = L"圆形尺寸";

CString NumberKey(const wchar_t* stem, int number) {
    CString key;
    key.Format(L"%s%d", stem, number);
    return key;
}

QoDtDictOptionItem* FindOption(QoDtDictionary& dict, const wchar_t* key) {
    return dynamic_cast<QoDtDictOptionItem*>(dict.FindItem(key));
}

QoDtDictBoolItem* FindBool(QoDtDictionary& dict, const wchar_t* key) {
    return dynamic_cast<QoDtDictBoolItem*>(dict.FindItem(key));
}

}  // namespace

QoHvacDuctLabelManager* QoHvacDuctLabelManager::GetInstance() {
    return QoModuleSingleton<QoHvacDuctLabelManager>::Get();
}

QoHvacDuctLabelManager::QoHvacDuctLabelManager()
    : m_linkFlag(L"X"),
      m_isAutoLabel(0),
      m_labelDict(nullptr),
      m_drawFrame(true),
      m_showView(true),
      m_chTextHeight(3.0),
      m_enTextHeight(3.0),
      m_useCadText(false),
      m_arrowSize(2.0),
      m_topHPrefix(L"T"),
      m_midHPrefix(L"C"),
      m_botHPrefix(L"B"),
      m_eleLabelStandard(EEleByAlignment),
      m_autoLabelSpace(150.0) {
    ReadFromDict();
}

bool QoHvacDuctLabelManager::FindLabelDict() {
    QoDtDictItem* item = g_dictCfg.FindItem(kBranch);
    if (item != nullptr && item->IsDict()) m_labelDict = static_cast<QoDtDictionary*>(item);
    return m_labelDict != nullptr;
}

void QoHvacDuctLabelManager::Init() {
    FindLabelDict();
    ReadFromDict();
}

void QoHvacDuctLabelManager::ReadFromDict() {
    if (!FindLabelDict()) return;
    QoDtDictionary& dict = *m_labelDict;
    dict.GetValue(L"LINKFLAG", m_linkFlag);
    dict.GetValue(L"DRAWFRAME", m_drawFrame);
    dict.GetValue(L"SHOWVIEW", m_showView);
    if (const QoDtDictBoolItem* autoLabel = FindBool(dict, L"ISAUTOLABEL")) m_isAutoLabel = autoLabel->value;
    m_autoPos.ReadFromDict(FindOption(dict, L"AUTOPOS"));
    m_arrowType.ReadFromDict(FindOption(dict, L"ARROWTYPE"));
    m_lengthUnit.ReadFromDict(FindOption(dict, L"LENGTHUNIT"));
    dict.GetValue(L"AUTOLABELSPACE", m_autoLabelSpace);
    dict.GetValue(L"ARROWSIZE", m_arrowSize);
    dict.GetValue(L"TOPHPREFIX", m_topHPrefix);
    dict.GetValue(L"MIDHPREFIX", m_midHPrefix);
    dict.GetValue(L"BOTHPREFIX", m_botHPrefix);
    dict.GetValue(L"CHTEXTHEIGHT", m_chTextHeight);
    dict.GetValue(L"ENTEXTHEIGHT", m_enTextHeight);
    dict.GetValue(L"TEXTSTYLE", m_textStyle);
    dict.GetValue(L"USECADTEXT", m_useCadText);
    // Unlike the other settings, a store without the standard means 0.
    int standard = EEleByAlignment;
    dict.GetValue(L"ELELABELSTANDARD", standard);
    m_eleLabelStandard = static_cast<EEleLabelStandard>(standard);

    if (QoDtDictionary* labelItems = dict.FindDict(kLabelItems)) ReadLabelLists(*labelItems);
}

void QoHvacDuctLabelManager::ReadLabelLists(QoDtDictionary& labelItems) {
    for (int list = 0; list < kLabelListCount; ++list) {
        QoArray<QoHvacDuctLabelItem>& items = m_labelItems[list];
        items.Reset();
        QoDtDictionary* stored = labelItems.FindDict(NumberKey(L"LABEL", list));
        if (stored == nullptr) continue;
        // Always nine lines; a missing row gives a blank line that isn't selected.
        items.ReAllocate(kItemsPerList, false);
        for (int row = 0; row < kItemsPerList; ++row) {
            QoHvacDuctLabelItem item;
            item.ReadFromItem(stored->FindItem(NumberKey(L"", row)));
            items[row] = item;
        }
    }
}

void QoHvacDuctLabelManager::SaveToDict() {
    if (!FindLabelDict()) return;
    QoDtDictionary& dict = *m_labelDict;
    dict.SetValue(L"LINKFLAG", m_linkFlag);
    dict.SetValue(L"DRAWFRAME", m_drawFrame);
    dict.SetValue(L"SHOWVIEW", m_showView);
    if (QoDtDictBoolItem* autoLabel = FindBool(dict, L"ISAUTOLABEL")) autoLabel->value = m_isAutoLabel;
    m_autoPos.SaveToDict(FindOption(dict, L"AUTOPOS"));
    m_arrowType.SaveToDict(FindOption(dict, L"ARROWTYPE"));
    m_lengthUnit.SaveToDict(FindOption(dict, L"LENGTHUNIT"));
    dict.SetValue(L"AUTOLABELSPACE", m_autoLabelSpace);
    dict.SetValue(L"ARROWSIZE", m_arrowSize);
    dict.SetValue(L"TOPHPREFIX", m_topHPrefix);
    dict.SetValue(L"MIDHPREFIX", m_midHPrefix);
    dict.SetValue(L"BOTHPREFIX", m_botHPrefix);
    dict.SetValue(L"CHTEXTHEIGHT", m_chTextHeight);
    dict.SetValue(L"ENTEXTHEIGHT", m_enTextHeight);
    dict.SetValue(L"TEXTSTYLE", m_textStyle);
    dict.SetValue(L"USECADTEXT", m_useCadText);
    dict.SetValue(L"ELELABELSTANDARD", static_cast<int>(m_eleLabelStandard));

    if (QoDtDictionary* labelItems = dict.FindDict(kLabelItems)) SaveLabelLists(*labelItems);
}

void QoHvacDuctLabelManager::SaveLabelLists(QoDtDictionary& labelItems) const {
    for (int list = 0; list < kLabelListCount; ++list) {
        QoDtDictionary* stored = labelItems.FindOrAddDict(NumberKey(L"LABEL", list));
        if (stored == nullptr) continue;
        // A list left short (its dictionary was missing at the last read)
        // writes only the lines it has; rows are never made here.
        const QoArray<QoHvacDuctLabelItem>& items = m_labelItems[list];
        const int rows = std::min(items.GetLength(), kItemsPerList);
        for (int row = 0; row < rows; ++row) {
            if (QoDtDictItem* target = stored->FindItem(NumberKey(L"", row))) items[row].SaveToItem(target);
        }
    }
}

CString QoHvacDuctLabelManager::GetLengthUnitString() const {
    return GetLengthUnit() == ELengthMetre ? CString(L"m") : CString(L"mm");
}

CString QoHvacDuctLabelManager::GetElevationLabelPrefix(QoDbHvacDuct::EVertAlignment alignment) const {
    switch (alignment) {
        case QoDbHvacDuct::EVertAlignTop: return m_topHPrefix;
        case QoDbHvacDuct::EVertAlignCenter: return m_midHPrefix;
        default: return m_botHPrefix;
    }
}

AcDbObjectId QoHvacDuctLabelManager::GetLabelTextStyle() const {
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (m_useCadText) return acdbTextStyleTable(database).currentStyle();
    return GetTextStyleId(m_textStyle, database);
}

QoHvacDuctLabelData QoHvacDuctLabelManager::GetLabelData(const QoArray<QoHvacDuctLabelItem>& items,
                                                         const CString& name, QoDbHvacDuct* duct) const {
    for (int i = 0; i < items.GetLength(); ++i) {
        if (std::wcscmp(items[i].labelname, name) == 0) return QoHvacDuctLabelComposer(*this).Compose(items[i], duct);
    }
    return QoHvacDuctLabelData(L"", L"", L"", L"", 0, 0, 0);
}

QoArray<QoHvacDuctLabelData> QoHvacDuctLabelManager::CollectLabelData(int list, QoDbHvacDuct* duct) const {
    const QoArray<QoHvacDuctLabelItem>& items = m_labelItems[list];
    const int rows = std::min(items.GetLength(), kItemsPerList);
    QoArray<QoHvacDuctLabelData> lines;
    for (int row = 0; row < rows; ++row) {
        const QoHvacDuctLabelItem& item = items[row];
        if (!item.selected) continue;
        // A duct shows only the size line of its own section.
        if (duct != nullptr) {
            const bool round = duct->GetSectionShape() == QoDbHvacDuct::ESectionRound;
            if (round && item.labelname == kRectSize) continue;
            if (!round && item.labelname == kRoundSize) continue;
        }
        lines.Append(GetLabelData(items, item.labelname, duct));
    }
    return lines;
}

QoArray<QoHvacDuctLabelData> QoHvacDuctLabelManager::GetLeadLabelData(QoDbHvacDuct* duct, int index) const {
    if (index < 0 || index >= kAutoLabelList) return QoArray<QoHvacDuctLabelData>();
    QoArray<QoHvacDuctLabelData> lines = CollectLabelData(index, duct);
    for (int i = 0; i < lines.GetLength(); ++i) lines[i].listIndex = index;
    return lines;
}

QoArray<QoHvacDuctLabelData> QoHvacDuctLabelManager::GetLeadLabelData(int index, const AcDbObjectId& ductId) const {
    return GetLeadLabelData(QoDbObjectRegistry::Open<QoDbHvacDuct>(ductId), index);
}

QoArray<QoHvacDuctLabelData> QoHvacDuctLabelManager::GetAutoLabelData(QoDbHvacDuct* duct) const {
    return CollectLabelData(kAutoLabelList, duct);
}

QoArray<QoHvacDuctLabelData> QoHvacDuctLabelManager::GetAutoLabelData(const AcDbObjectId& ductId) const {
    return GetAutoLabelData(QoDbObjectRegistry::Open<QoDbHvacDuct>(ductId));
}
