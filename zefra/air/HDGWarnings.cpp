#include "zefra/air/HDGWarnings.h"

namespace {

struct SKnownText {
    const wchar_t* Text;
    const char* Code;
    const char* Message;
};

const SKnownText kKnownTexts[] = {
    {L"送风点O，露点L计算失败。调整室内参数重新计算。", "search-failed",
     "the search for the supply state O and the dew point L found no step; the results are not meaningful"},
    {L"混合点C计算失败，L点的焓不在W点与N点的焓之间。调整室外参数或新风比重新计算。", "search-failed",
     "the mixing point C was not found: L's enthalpy doesn't lie between W's and N's"},
    {L"露点L计算失败，混合点M的温度超出计算范围。调整室内参数重新计算。", "search-failed",
     "the search for the dew point L gave up: the mix M lies beyond the range of the walk"},
    {L"冷热负荷不守恒，计算有误。", "heat-balance",
     "the heat loads don't balance: the load carried by the unit differs from the sum of the loads"},
    {L"湿负荷不守恒，计算有误。", "moisture-balance",
     "the moisture loads don't balance: the unit's moisture load differs from the sum of the loads"},
};

}  // namespace

HDGWarningList HDGWarningsInTexts(const CStringArray& resultInfo) {
    HDGWarningList warnings;
    for (int i = 0; i < resultInfo.GetSize(); ++i) {
        const CString& text = resultInfo.GetAt(i);
        for (const SKnownText& known : kKnownTexts)
            if (text.Find(known.Text) >= 0) warnings.push_back({known.Code, known.Message, CString(known.Text)});
    }
    return warnings;
}
