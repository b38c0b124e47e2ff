#include "zefra/air/HDGCalItemText.h"

namespace {

const wchar_t* const kItemTexts[] = {
    L"干球温度", L"相对湿度", L"焓",   L"含湿量",     L"湿球温度",         L"露点温度",
    L"水蒸气分压力", L"密度", L"比容", L"饱程含湿量", L"饱和水蒸气分压力",
};
constexpr int kItemCount = static_cast<int>(sizeof(kItemTexts) / sizeof(kItemTexts[0]));

}  // namespace

CString HDGCalItemText::ToText(EHvacHDGPointCalItemType kind) {
    const int value = static_cast<int>(kind);
    if (value < 0 || value >= kItemCount) return CString();
    return CString(kItemTexts[value]);
}

EHvacHDGPointCalItemType HDGCalItemText::FromText(const CString& text) {
    for (int value = 0; value < kItemCount; ++value)
        if (text == kItemTexts[value]) return static_cast<EHvacHDGPointCalItemType>(value);
    return HDGPT_TDB;
}
