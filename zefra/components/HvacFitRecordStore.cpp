#include "zefra/components/HvacFitRecordStore.h"

#include "zefra/config/QoDtDictionary.h"

namespace HvacFitRecordStore {

namespace {

const wchar_t* const kType = L"默认类型";
const wchar_t* const kName = L"名称";
const wchar_t* const kWidthA = L"A宽度";
const wchar_t* const kHeightA = L"A高度";
const wchar_t* const kWidthB = L"B宽度";
const wchar_t* const kHeightB = L"B高度";
const wchar_t* const kWidthC = L"C宽度";
const wchar_t* const kHeightC = L"C高度";
const wchar_t* const kWidthD = L"D宽度";
const wchar_t* const kHeightD = L"D高度";
const wchar_t* const kCurvature = L"曲率";
const wchar_t* const kAngle = L"角度";
const wchar_t* const kSegmentCount = L"虾米弯节数";
const wchar_t* const kSectionLine = L"截面指示线";
const wchar_t* const kCalcType = L"计算类型";
const wchar_t* const kEccentricity = L"偏心距离";
const wchar_t* const kLength = L"长度";
const wchar_t* const kOffsetDistance = L"偏移距离";

// The part that every family shares; widths and heights go in pairs.
template <typename Record>
void ReadCommon(const QoDtDictionary& dict, Record& record) {
    int type = 0;
    if (dict.GetValue(kType, type)) record.type = type;
    dict.GetValue(kName, record.name);
    dict.GetValue(kWidthA, record.widthA);
    dict.GetValue(kHeightA, record.heightA);
    dict.GetValue(kWidthB, record.widthB);
    dict.GetValue(kHeightB, record.heightB);
}

template <typename Record>
void WriteCommon(QoDtDictionary& dict, const Record& record) {
    dict.SetValue(kType, record.type);
    dict.SetValue(kName, record.name);
    dict.SetValue(kWidthA, record.widthA);
    dict.SetValue(kHeightA, record.heightA);
    dict.SetValue(kWidthB, record.widthB);
    dict.SetValue(kHeightB, record.heightB);
}

}  // namespace

void Read(const QoDtDictionary& dict, SHvacDuctElbowData& record) {
    ReadCommon(dict, record);
    dict.GetValue(kCurvature, record.curvature);
    dict.GetValue(kAngle, record.angle);
    dict.GetValue(kSegmentCount, record.segmentCount);
}

void Read(const QoDtDictionary& dict, SHvacDuctTransData& record) {
    ReadCommon(dict, record);
    dict.GetValue(kSectionLine, record.sectionLine);
    dict.GetValue(kCalcType, record.calcType);
    dict.GetValue(kEccentricity, record.eccentricity);
    dict.GetValue(kLength, record.length);
    dict.GetValue(kAngle, record.angle);
}

void Read(const QoDtDictionary& dict, SHvacDuctOffsetData& record) {
    ReadCommon(dict, record);
    dict.GetValue(kLength, record.length);
    dict.GetValue(kOffsetDistance, record.offsetDistance);
    dict.GetValue(kCurvature, record.curvature);
}

void Read(const QoDtDictionary& dict, SHvacDuctTeeData& record) {
    ReadCommon(dict, record);
    dict.GetValue(kWidthC, record.widthC);
    dict.GetValue(kHeightC, record.heightC);
    dict.GetValue(kCurvature, record.curvature);
    dict.GetValue(kAngle, record.angle);
}

void Read(const QoDtDictionary& dict, SHvacDuctCrossData& record) {
    ReadCommon(dict, record);
    dict.GetValue(kWidthC, record.widthC);
    dict.GetValue(kHeightC, record.heightC);
    dict.GetValue(kWidthD, record.widthD);
    dict.GetValue(kHeightD, record.heightD);
    dict.GetValue(kCurvature, record.curvature);
    dict.GetValue(kAngle, record.angle);
}

void Write(QoDtDictionary& dict, const SHvacDuctElbowData& record) {
    WriteCommon(dict, record);
    dict.SetValue(kCurvature, record.curvature);
    dict.SetValue(kAngle, record.angle);
    dict.SetValue(kSegmentCount, record.segmentCount);
}

void Write(QoDtDictionary& dict, const SHvacDuctTransData& record) {
    WriteCommon(dict, record);
    dict.SetValue(kSectionLine, record.sectionLine);
    dict.SetValue(kCalcType, record.calcType);
    dict.SetValue(kEccentricity, record.eccentricity);
    dict.SetValue(kLength, record.length);
    dict.SetValue(kAngle, record.angle);
}

void Write(QoDtDictionary& dict, const SHvacDuctOffsetData& record) {
    WriteCommon(dict, record);
    dict.SetValue(kLength, record.length);
    dict.SetValue(kOffsetDistance, record.offsetDistance);
    dict.SetValue(kCurvature, record.curvature);
}

void Write(QoDtDictionary& dict, const SHvacDuctTeeData& record) {
    WriteCommon(dict, record);
    dict.SetValue(kWidthC, record.widthC);
    dict.SetValue(kHeightC, record.heightC);
    dict.SetValue(kCurvature, record.curvature);
    dict.SetValue(kAngle, record.angle);
}

void Write(QoDtDictionary& dict, const SHvacDuctCrossData& record) {
    WriteCommon(dict, record);
    dict.SetValue(kWidthC, record.widthC);
    dict.SetValue(kHeightC, record.heightC);
    dict.SetValue(kWidthD, record.widthD);
    dict.SetValue(kHeightD, record.heightD);
    dict.SetValue(kCurvature, record.curvature);
    dict.SetValue(kAngle, record.angle);
}

}  // namespace HvacFitRecordStore
