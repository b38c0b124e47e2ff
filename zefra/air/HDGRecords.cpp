// Records of the state point and of the five processes in a caller's
// dictionary. Keys are the stored format and stay as they are spelled here,
// "饱程含湿量" included. Only given data is stored: results come back with
// Calculate.

#include "zefra/air/ZefraHDGHeatHumRat.h"
#include "zefra/air/ZefraHDGLine.h"
#include "zefra/air/ZefraHDGMixAir.h"
#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"
#include "zefra/config/QoDtDictionary.h"

namespace {

const wchar_t* const kPointsKey = L"状态点";

// Given data common to both return-air schemes, in the order written.
template <typename Info, typename Visit>
void VisitGivenValues(Info& given, Visit visit) {
    visit(L"室内冷热负荷", given.Qn);
    visit(L"室内湿负荷", given.Mw);
    visit(L"送风管道温升", given.SfGdWs);
    visit(L"回风管道温升", given.HfGdWs);
    visit(L"露点L的相对湿度", given.ptL_RH);
    visit(L"新风类型", given.FreshAirType);
    visit(L"新风比", given.FreshAirRatio);
    visit(L"新风量", given.Gw);
    visit(L"送风量", given.Go);
}

// The first return air is a given of the secondary scheme only.
template <typename Visit>
void VisitFirstReturnAir(SHDGPrimaryReturnAirInfo&, Visit) {}
template <typename Visit>
void VisitFirstReturnAir(SHDGSecondaryReturnAirInfo& given, Visit visit) {
    visit(L"一次回风量", given.Gr1);
}

const wchar_t* const kItemKeys[4] = {
    L"室内空气状态点计算项1",
    L"室内空气状态点计算项2",
    L"室外空气状态点计算项1",
    L"室外空气状态点计算项2",
};

template <typename Scheme, typename Info>
bool SaveSchemeRecord(QoDtDictionary* dict, const wchar_t* recordName, Info& given) {
    if (!dict) return false;
    QoDtDictionary* record = dict->FindOrAddDict(recordName);
    if (!record) return false;
    record->SetValue(L"计算类型", static_cast<int>(given.CalPriRetAirType));
    given.PointN.SaveXml(record);
    given.PointW.SaveXml(record);
    auto save = [record](const wchar_t* key, const auto& value) { record->SetValue(key, value); };
    VisitGivenValues(given, save);
    VisitFirstReturnAir(given, save);
    const bool saved = record->SetValue(L"送风温差", given.SfWc);

    const EHvacHDGPointCalItemType kinds[4] = {
        given.PointN.GetCalPara1Type(), given.PointN.GetCalPara2Type(),
        given.PointW.GetCalPara1Type(), given.PointW.GetCalPara2Type(),
    };
    for (int i = 0; i < 4; ++i) record->SetValue(kItemKeys[i], Scheme::GetCalItemTypeStr(kinds[i]));
    return saved;
}

template <typename Scheme, typename Info>
bool ReadSchemeRecord(QoDtDictionary* dict, const wchar_t* recordName, Info& given) {
    if (!dict) return false;
    QoDtDictionary* record = dict->FindDict(recordName);
    if (!record) return false;
    int type = 0;  // a record without a type is a summer one
    record->GetValue(L"计算类型", type);
    given.CalPriRetAirType = static_cast<decltype(given.CalPriRetAirType)>(type);
    given.PointN.ReadXml(record);
    given.PointW.ReadXml(record);
    auto read = [record](const wchar_t* key, auto& value) { record->GetValue(key, value); };
    VisitGivenValues(given, read);
    VisitFirstReturnAir(given, read);
    const bool readSupplyDt = record->GetValue(L"送风温差", given.SfWc);

    // The item texts decide the kinds of N and W, over the numbers in the
    // point records. One text serves all four keys, so a missing key repeats
    // the item before it.
    CString text;
    EHvacHDGPointCalItemType kinds[4];
    for (int i = 0; i < 4; ++i) {
        record->GetValue(kItemKeys[i], text);
        kinds[i] = Scheme::GetCalItemType(text);
    }
    given.PointN.SetCalPara1Type(kinds[0]);
    given.PointN.SetCalPara2Type(kinds[1]);
    given.PointW.SetCalPara1Type(kinds[2]);
    given.PointW.SetCalPara2Type(kinds[3]);
    return readSupplyDt;
}

}  // namespace

bool ZefraHDGPoint::SaveXml(QoDtDictionary* dict) const {
    if (!dict) return false;
    QoDtDictionary* points = dict->FindOrAddDict(kPointsKey);
    if (!points) return false;
    QoDtDictionary* record = points->FindOrAddDict(Name);
    if (!record) return false;
    record->SetValue(L"干球温度", Tdb);
    record->SetValue(L"相对湿度", RH);
    record->SetValue(L"焓", H);
    record->SetValue(L"含湿量", D);
    record->SetValue(L"湿球温度", Twb);
    record->SetValue(L"露点温度", Tdp);
    record->SetValue(L"水蒸气分压力", Pv);
    record->SetValue(L"密度", Den);
    record->SetValue(L"比容", SV);
    record->SetValue(L"饱程含湿量", Ds);
    record->SetValue(L"饱和水蒸气分压力", Ps);
    record->SetValue(L"名称", Name);
    record->SetValue(L"计算参数1类型", static_cast<int>(CalPara1Type));
    return record->SetValue(L"计算参数2类型", static_cast<int>(CalPara2Type));
}

bool ZefraHDGPoint::ReadXml(QoDtDictionary* dict) {
    if (!dict) return false;
    // Reading, too, leaves a "状态点" behind where there was none.
    QoDtDictionary* points = dict->FindOrAddDict(kPointsKey);
    if (!points) return false;
    // The record is found by the name the point carries now.
    QoDtDictionary* record = points->FindDict(Name);
    if (!record) return false;
    record->GetValue(L"干球温度", Tdb);
    record->GetValue(L"相对湿度", RH);
    record->GetValue(L"焓", H);
    record->GetValue(L"含湿量", D);
    record->GetValue(L"湿球温度", Twb);
    record->GetValue(L"露点温度", Tdp);
    record->GetValue(L"水蒸气分压力", Pv);
    record->GetValue(L"密度", Den);
    record->GetValue(L"比容", SV);
    record->GetValue(L"饱程含湿量", Ds);
    record->GetValue(L"饱和水蒸气分压力", Ps);
    record->GetValue(L"名称", Name);
    int kind = 0;
    if (record->GetValue(L"计算参数1类型", kind)) CalPara1Type = static_cast<EHvacHDGPointCalItemType>(kind);
    const bool read = record->GetValue(L"计算参数2类型", kind);
    if (read) CalPara2Type = static_cast<EHvacHDGPointCalItemType>(kind);
    return read;
}

bool ZefraHDGPrimaryReturnAir::SaveXml(QoDtDictionary* dict) {
    return SaveSchemeRecord<ZefraHDGPrimaryReturnAir>(dict, L"一次回风处理过程", GivenData);
}

bool ZefraHDGPrimaryReturnAir::ReadXml(QoDtDictionary* dict) {
    return ReadSchemeRecord<ZefraHDGPrimaryReturnAir>(dict, L"一次回风处理过程", GivenData);
}

bool ZefraHDGSecondaryReturnAir::SaveXml(QoDtDictionary* dict) {
    return SaveSchemeRecord<ZefraHDGSecondaryReturnAir>(dict, L"二次回风处理过程", GivenData);
}

bool ZefraHDGSecondaryReturnAir::ReadXml(QoDtDictionary* dict) {
    return ReadSchemeRecord<ZefraHDGSecondaryReturnAir>(dict, L"二次回风处理过程", GivenData);
}

// The simple processes keep their keys straight in the dictionary given, and
// their points as "A" and "B" below "状态点".

bool ZefraHDGLine::SaveXml(QoDtDictionary* dict) {
    if (!dict) return false;
    dict->SetValue(L"计算类型", CalType);
    dict->SetValue(L"负荷", Q);
    dict->SetValue(L"风量", G);
    HDGPointA.SetName(L"A");
    HDGPointB.SetName(L"B");
    HDGPointA.SaveXml(dict);
    return HDGPointB.SaveXml(dict);
}

bool ZefraHDGLine::ReadXml(QoDtDictionary* dict) {
    if (!dict) return false;
    dict->GetValue(L"计算类型", CalType);
    dict->GetValue(L"负荷", Q);
    dict->GetValue(L"风量", G);
    HDGPointA.SetName(L"A");
    HDGPointB.SetName(L"B");
    HDGPointA.ReadXml(dict);
    return HDGPointB.ReadXml(dict);
}

bool ZefraHDGMixAir::SaveXml(QoDtDictionary* dict) {
    if (!dict) return false;
    dict->SetValue(L"A状态点风量", Ga);
    dict->SetValue(L"B状态点风量", Gb);
    dict->SetValue(L"混风比A:B", dMixRatio);
    HDGPointA.SetName(L"A");
    HDGPointB.SetName(L"B");
    HDGPointA.SaveXml(dict);
    HDGPointB.SaveXml(dict);
    return true;
}

bool ZefraHDGMixAir::ReadXml(QoDtDictionary* dict) {
    if (!dict) return false;
    dict->GetValue(L"A状态点风量", Ga);
    dict->GetValue(L"B状态点风量", Gb);
    dict->GetValue(L"混风比A:B", dMixRatio);
    HDGPointA.SetName(L"A");
    HDGPointB.SetName(L"B");
    HDGPointA.ReadXml(dict);
    HDGPointB.ReadXml(dict);
    return true;
}

bool ZefraHDGHeatHumRat::SaveXml(QoDtDictionary* dict) {
    if (!dict) return false;
    dict->SetValue(L"计算类型", CalType);
    dict->SetValue(L"冷负荷", Q);
    dict->SetValue(L"湿负荷", Mw);
    HDGPointA.SetName(L"A");
    HDGPointB.SetName(L"B");
    HDGPointA.SaveXml(dict);
    HDGPointB.SaveXml(dict);
    return dict->SetValue(L"热湿比", Value);
}

bool ZefraHDGHeatHumRat::ReadXml(QoDtDictionary* dict) {
    if (!dict) return false;
    dict->GetValue(L"计算类型", CalType);
    dict->GetValue(L"冷负荷", Q);
    dict->GetValue(L"湿负荷", Mw);
    HDGPointA.SetName(L"A");
    HDGPointB.SetName(L"B");
    HDGPointA.ReadXml(dict);
    HDGPointB.ReadXml(dict);
    return dict->GetValue(L"热湿比", Value);
}
