#include "zefra/components/QoHvacDuctFitManager.h"

#include "zefra/components/HvacFitRecordStore.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/platform/entities/QoDbHvacDefaultFitData.h"
#include "zefra/platform/host/CommandLine.h"

namespace {

const wchar_t* const kRoot = L"ZEFRA\\DEFAULTFITTING";

const wchar_t* const kUseDial = L"使用刻度盘";
const wchar_t* const kRiserHoleSymbol = L"立风管孔洞符号类型";
const wchar_t* const kRaisedElbow2dStyle = L"变高弯头二维显示样式";
const wchar_t* const kRaisedOffset2dStyle = L"变高乙字弯二维显示样式";
const wchar_t* const kElevationChangeNode = L"标高变化时优先生成的节点";
const wchar_t* const kShortRiseOffset = L"标高变化不够生成变高弯头时生成的乙字弯";
const wchar_t* const kRaisedOffsetAngle = L"变高乙字弯的角度";
const wchar_t* const kReturnOffsetCurvature = L"变高来回乙字弯的曲率";

struct SFamilyStore {
    const wchar_t* rectDict;
    const wchar_t* circleDict;
    const wchar_t* failure;  // printed when the record's dictionary can't be had
};

const SFamilyStore kElbowStore = {L"RectElbow", L"CircleElbow", L"\n弯头默认数据保存到文件失败!"};
const SFamilyStore kTransStore = {L"RectTransition", L"CircleTransition", L"\n变径默认数据保存到文件失败!"};
const SFamilyStore kOffsetStore = {L"RectOffset", L"CircleOffset", L"\n乙字弯默认数据保存到文件失败!"};
const SFamilyStore kTeeStore = {L"RectTee", L"CircleTee", L"\n三通默认数据保存到文件失败!"};
const SFamilyStore kCrossStore = {L"RectCross", L"CircleCross", L"\n四通默认数据保存到文件失败!"};

struct SCatalogueEntry {
    int type;
    const wchar_t* name;
};

const SCatalogueEntry kElbowCatalogue[] = {
    {0, L"内外圆弧"},         {1, L"内外圆弧消声"},     {2, L"分段"},
    {3, L"内圆弧"},           {4, L"内圆弧消声"},       {5, L"内斜线"},
    {6, L"内斜线消声"},       {7, L"内圆弧单导流"},     {8, L"内圆弧双导流"},
    {9, L"内斜线单导流"},     {10, L"内斜线双导流"},    {11, L"内圆弧消声单导流"},
    {12, L"内圆弧消声双导流"}, {13, L"内斜线消声单导流"}, {14, L"内斜线消声双导流"},
    {15, L"斜接"},            {16, L"内圆弧隔板消声"},  {17, L"内斜线隔板消声"},
    {100, L"圆弧"},           {101, L"圆弧消声"},       {102, L"分段"},
    {103, L"褶皱"},           {104, L"圆弧单导流"},     {105, L"圆弧双导流"},
    {106, L"圆弧消声单导流"}, {107, L"圆弧消声双导流"}, {108, L"斜接"},
};

const SCatalogueEntry kTransCatalogue[] = {
    {0, L"变径"}, {1, L"天圆地方"}, {100, L"变径"}, {101, L"天圆地方"},
};

const SCatalogueEntry kOffsetCatalogue[] = {
    {0, L"双弧乙字弯"},   {1, L"来回乙字弯"},   {2, L"Z形乙字弯"},
    {100, L"双弧乙字弯"}, {101, L"来回乙字弯"}, {102, L"Z形乙字弯"},
};

const SCatalogueEntry kTeeCatalogue[] = {
    {0, L"普通三通"},          {1, L"普通三通(插管式)"},   {2, L"承插三通"},
    {3, L"承插三通(插管式)"},  {4, L"斜接三通"},           {5, L"Y型三通"},
    {6, L"V型三通"},           {7, L"T型三通"},            {8, L"圆角三通"},
    {9, L"圆角三通(插管式)"},  {100, L"普通三通"},         {101, L"普通三通(插管式)"},
    {102, L"承插三通"},        {103, L"斜接三通"},         {104, L"Y型三通"},
    {105, L"V型三通"},         {106, L"Y型三通(带弯头)"},  {107, L"T型三通(带弯头)"},
    {108, L"锥型三通(带弯头)"},
};

const SCatalogueEntry kCrossCatalogue[] = {
    {0, L"普通四通"},         {1, L"普通四通(插管式)"}, {2, L"承插四通"},  {3, L"承插四通(插管式)"},
    {4, L"圆角四通"},         {5, L"圆角四通(插管式)"}, {6, L"直角四通"},  {7, L"交叉四通"},
    {100, L"普通四通"},       {101, L"承插四通"},       {102, L"斜接四通"},
};

template <std::size_t N>
void Fill(QoHvacDuctFitManager::Catalogue& catalogue, const SCatalogueEntry (&entries)[N]) {
    catalogue.clear();
    for (const SCatalogueEntry& entry : entries) catalogue[entry.type] = entry.name;
}

QoDtDictionary* Root() { return g_dictCfg.FindOrAddDict(kRoot); }

template <typename Record>
void ReadRecord(const wchar_t* dictName, Record& record) {
    QoDtDictionary* root = Root();
    if (root == nullptr) return;
    const QoDtDictItem* item = root->FindItem(dictName);
    if (item != nullptr && item->IsDict()) HvacFitRecordStore::Read(static_cast<const QoDtDictionary&>(*item), record);
}

// The shared object sees the record first, so it is current even when the
// dictionary refuses the write.
template <typename Record>
bool SaveRecord(const Record& record, Record& sharedSlot, const SFamilyStore& store, bool isRect) {
    const Record copy = record;
    sharedSlot = copy;
    QoDtDictionary* root = Root();
    QoDtDictionary* dict = root != nullptr ? root->FindOrAddDict(isRect ? store.rectDict : store.circleDict) : nullptr;
    if (dict == nullptr) {
        acutPrintf(store.failure);
        return false;
    }
    HvacFitRecordStore::Write(*dict, copy);
    return true;
}

}  // namespace

QoHvacDuctFitManager* QoHvacDuctFitManager::GetInstance() { return QoModuleSingleton<QoHvacDuctFitManager>::Get(); }

QoHvacDuctFitManager::QoHvacDuctFitManager() {
    // Each default names the family's plain fitting: 普通四通, 普通三通,
    // 内圆弧 (圆弧 when circular), 变径, 来回乙字弯.
    m_rectCross.type = 0;
    m_rectTee.type = 0;
    m_rectElbow.type = 3;
    m_rectTrans.type = 0;
    m_rectOffset.type = 1;
    m_circleCross.type = 100;
    m_circleTee.type = 100;
    m_circleElbow.type = 100;
    m_circleTrans.type = 100;
    m_circleOffset.type = 101;
    FillCatalogues();
    ReadData();
}

void QoHvacDuctFitManager::FillCatalogues() {
    Fill(m_crossTypes, kCrossCatalogue);
    Fill(m_teeTypes, kTeeCatalogue);
    Fill(m_elbowTypes, kElbowCatalogue);
    Fill(m_transTypes, kTransCatalogue);
    Fill(m_offsetTypes, kOffsetCatalogue);
}

QoArray<int> QoHvacDuctFitManager::KeysOf(const Catalogue& catalogue) {
    QoArray<int> keys;
    for (const auto& entry : catalogue) keys.Append(entry.first);
    return keys;
}

CString QoHvacDuctFitManager::GetCrossNameWithType(int type) const {
    const auto entry = m_crossTypes.find(type);
    return entry != m_crossTypes.end() ? entry->second : CString();
}

void QoHvacDuctFitManager::ReadOptions() {
    QoDtDictionary* root = Root();
    if (root == nullptr) return;
    root->GetValue(kUseDial, m_useDial);
    root->GetValue(kRiserHoleSymbol, m_riserHoleSymbol);
    root->GetValue(kRaisedElbow2dStyle, m_raisedElbow2dStyle);
    root->GetValue(kRaisedOffset2dStyle, m_raisedOffset2dStyle);
    root->GetValue(kElevationChangeNode, m_elevationChangeNode);
    root->GetValue(kShortRiseOffset, m_shortRiseOffset);
    root->GetValue(kRaisedOffsetAngle, m_raisedOffsetAngle);
    root->GetValue(kReturnOffsetCurvature, m_returnOffsetCurvature);
}

bool QoHvacDuctFitManager::ReadData() {
    ReadOptions();
    ReadRecord(kElbowStore.rectDict, m_rectElbow);
    ReadRecord(kElbowStore.circleDict, m_circleElbow);
    ReadRecord(kTransStore.rectDict, m_rectTrans);
    ReadRecord(kTransStore.circleDict, m_circleTrans);
    ReadRecord(kOffsetStore.rectDict, m_rectOffset);
    ReadRecord(kOffsetStore.circleDict, m_circleOffset);
    ReadRecord(kTeeStore.rectDict, m_rectTee);
    ReadRecord(kTeeStore.circleDict, m_circleTee);
    ReadRecord(kCrossStore.rectDict, m_rectCross);
    ReadRecord(kCrossStore.circleDict, m_circleCross);
    PushRecordsToShared();
    return true;
}

void QoHvacDuctFitManager::PushRecordsToShared() const {
    QoDbHvacDefaultFitData& shared = g_HvacFitAndDisplayData;
    shared.m_rectCross = m_rectCross;
    shared.m_rectTee = m_rectTee;
    shared.m_rectElbow = m_rectElbow;
    shared.m_rectTrans = m_rectTrans;
    shared.m_rectOffset = m_rectOffset;
    shared.m_circleCross = m_circleCross;
    shared.m_circleTee = m_circleTee;
    shared.m_circleElbow = m_circleElbow;
    shared.m_circleTrans = m_circleTrans;
    shared.m_circleOffset = m_circleOffset;
    shared.m_raisedElbow2dStyle = m_raisedElbow2dStyle;
    shared.m_raisedOffset2dStyle = m_raisedOffset2dStyle;
}

bool QoHvacDuctFitManager::SaveData() {
    // The options go only into an existing branch; the records below make
    // it, so a second save writes the options too.
    QoDtDictItem* rootItem = g_dictCfg.FindItem(kRoot);
    if (rootItem != nullptr && rootItem->IsDict()) {
        QoDtDictionary& root = *static_cast<QoDtDictionary*>(rootItem);
        root.SetValue(kUseDial, m_useDial);
        root.SetValue(kRiserHoleSymbol, m_riserHoleSymbol);
        root.SetValue(kRaisedElbow2dStyle, m_raisedElbow2dStyle);
        g_HvacFitAndDisplayData.m_raisedElbow2dStyle = m_raisedElbow2dStyle;
        root.SetValue(kRaisedOffset2dStyle, m_raisedOffset2dStyle);
        g_HvacFitAndDisplayData.m_raisedOffset2dStyle = m_raisedOffset2dStyle;
        root.SetValue(kElevationChangeNode, m_elevationChangeNode);
        root.SetValue(kShortRiseOffset, m_shortRiseOffset);
        root.SetValue(kRaisedOffsetAngle, m_raisedOffsetAngle);
        root.SetValue(kReturnOffsetCurvature, m_returnOffsetCurvature);
    }
    return SaveElbowData(true) && SaveElbowData(false) && SaveTransData(true) && SaveTransData(false) &&
           SaveOffsetData(true) && SaveOffsetData(false) && SaveTeeData(true) && SaveTeeData(false) &&
           SaveCrossData(true) && SaveCrossData(false);
}

bool QoHvacDuctFitManager::SetDefaultFitData(const SHvacDuctElbowData& data, bool isRect, bool save) {
    (isRect ? m_rectElbow : m_circleElbow) = data;
    return save ? SaveElbowData(isRect) : true;
}

bool QoHvacDuctFitManager::SetDefaultFitData(const SHvacDuctTransData& data, bool isRect, bool save) {
    (isRect ? m_rectTrans : m_circleTrans) = data;
    return save ? SaveTransData(isRect) : true;
}

bool QoHvacDuctFitManager::SetDefaultFitData(const SHvacDuctOffsetData& data, bool isRect, bool save) {
    (isRect ? m_rectOffset : m_circleOffset) = data;
    return save ? SaveOffsetData(isRect) : true;
}

bool QoHvacDuctFitManager::SetDefaultFitData(const SHvacDuctTeeData& data, bool isRect, bool save) {
    (isRect ? m_rectTee : m_circleTee) = data;
    return save ? SaveTeeData(isRect) : true;
}

bool QoHvacDuctFitManager::SetDefaultFitData(const SHvacDuctCrossData& data, bool isRect, bool save) {
    (isRect ? m_rectCross : m_circleCross) = data;
    return save ? SaveCrossData(isRect) : true;
}

bool QoHvacDuctFitManager::SaveElbowData(bool isRect) {
    QoDbHvacDefaultFitData& shared = g_HvacFitAndDisplayData;
    return SaveRecord(isRect ? m_rectElbow : m_circleElbow, isRect ? shared.m_rectElbow : shared.m_circleElbow,
                      kElbowStore, isRect);
}

bool QoHvacDuctFitManager::SaveTransData(bool isRect) {
    QoDbHvacDefaultFitData& shared = g_HvacFitAndDisplayData;
    return SaveRecord(isRect ? m_rectTrans : m_circleTrans, isRect ? shared.m_rectTrans : shared.m_circleTrans,
                      kTransStore, isRect);
}

bool QoHvacDuctFitManager::SaveOffsetData(bool isRect) {
    QoDbHvacDefaultFitData& shared = g_HvacFitAndDisplayData;
    return SaveRecord(isRect ? m_rectOffset : m_circleOffset, isRect ? shared.m_rectOffset : shared.m_circleOffset,
                      kOffsetStore, isRect);
}

bool QoHvacDuctFitManager::SaveTeeData(bool isRect) {
    QoDbHvacDefaultFitData& shared = g_HvacFitAndDisplayData;
    return SaveRecord(isRect ? m_rectTee : m_circleTee, isRect ? shared.m_rectTee : shared.m_circleTee, kTeeStore,
                      isRect);
}

bool QoHvacDuctFitManager::SaveCrossData(bool isRect) {
    QoDbHvacDefaultFitData& shared = g_HvacFitAndDisplayData;
    return SaveRecord(isRect ? m_rectCross : m_circleCross, isRect ? shared.m_rectCross : shared.m_circleCross,
                      kCrossStore, isRect);
}
