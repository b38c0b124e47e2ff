#include "zefra/air/HDGReportText.h"

#include "zefra/chart/QoHvacHDGSysSetManager.h"
#include "zefra/platform/airlib/NT.h"

#include <string>

namespace {

const double kBalanceTolerance = 0.001;

CString Figure(double value, int decimals) { return NT::ftoa(value, decimals, false); }

// "\r\n" and the parts, tab-separated twice, as the report window lines them up.
CString Row(const CString& a, const CString& b) { return L"\r\n" + a + L"\t\t" + b; }
CString Row(const CString& a, const CString& b, const CString& c) { return Row(a, b) + L"\t\t" + c; }

CString Heading(const wchar_t* heading) { return CString(heading) + HDGReportText::Rule(); }

// The items of a point line, in their order. The names are those of the
// display filter and the abbreviations; the last has no 分.
const wchar_t* const kPointItems[] = {
    L"干球温度", L"相对湿度", L"焓", L"含湿量", L"湿球温度", L"露点温度",
    L"水蒸气分压力", L"密度", L"比容", L"饱和含湿量", L"饱和水蒸气压力",
};
constexpr int kPointItemCount = static_cast<int>(sizeof(kPointItems) / sizeof(kPointItems[0]));

const std::wstring kCelsius = L"℃";
const std::wstring kPercent = L"%";
const std::wstring kPerDryAir = L"g/kg.干空气";
const std::wstring kPascal = L"Pa";
const std::wstring kPerKilogram = L"m^3/kg";

// What a point line takes from the chart settings, fetched once per text.
class PointFormat {
public:
    explicit PointFormat(const QoHvacHDGSysSetManager& settings)
        : m_settings(settings),
          m_tDigits(settings.GetPrecision(L"温度")),
          m_hDigits(settings.GetPrecision(L"焓")),
          m_dDigits(settings.GetPrecision(L"含湿量")),
          m_pDigits(settings.GetPrecision(L"压力")),
          m_denDigits(settings.GetPrecision(L"密度")),
          m_svDigits(settings.GetPrecision(L"比容")),
          m_hUnit(settings.GetUnitsName(L"焓")),
          m_denUnit(settings.GetUnitsName(L"密度")) {
        for (int i = 0; i < kPointItemCount; ++i) {
            m_abbr[i] = settings.GetAbbreviationName(kPointItems[i]);
            m_shown[i] = settings.IsDisplayItem(kPointItems[i]);
        }
    }

    // The items that the display filter lets through, separated by tabs,
    // appended to out.
    void AppendItems(std::wstring& out, const ZefraHDGPoint& pt) const {
        const double values[kPointItemCount] = {
            pt.GetTdb(), pt.GetRH() * 100.0, m_settings.HConvertStdToCur(pt.GetH()), pt.GetD(), pt.GetTwb(),
            pt.GetTdp(), pt.GetPv(), m_settings.DenConvertStdToCur(pt.GetDen()), pt.GetSV(), pt.GetDs(), pt.GetPs(),
        };
        const int digits[kPointItemCount] = {m_tDigits, 2, m_hDigits, m_dDigits, m_tDigits, m_tDigits,
                                             m_pDigits, m_denDigits, m_svDigits, m_dDigits, m_pDigits};
        const std::wstring* units[kPointItemCount] = {&kCelsius, &kPercent, &m_hUnit.Str(), &kPerDryAir,
                                                      &kCelsius, &kCelsius, &kPascal, &m_denUnit.Str(),
                                                      &kPerKilogram, &kPerDryAir, &kPascal};
        bool first = true;
        for (int i = 0; i < kPointItemCount; ++i) {
            if (!m_shown[i]) continue;
            if (!first) out += L'\t';
            first = false;
            out += m_abbr[i].Str();
            out += L':';
            NT::AppendFixed(out, values[i], digits[i]);
            out += *units[i];
        }
    }

private:
    const QoHvacHDGSysSetManager& m_settings;
    int m_tDigits, m_hDigits, m_dDigits, m_pDigits, m_denDigits, m_svDigits;
    CString m_hUnit, m_denUnit;
    CString m_abbr[kPointItemCount];
    bool m_shown[kPointItemCount] = {};
};

}  // namespace

HDGReportText::HDGReportText(QoHvacHDGSysSetManager& settings) : m_settings(settings) {}

const wchar_t* HDGReportText::Rule() { return L"\r\n-----------------------------------"; }

CString HDGReportText::PointText(const CString& title, const CNTArray<ZefraHDGPoint, ZefraHDGPoint&>& points,
                                 bool withReturnDuctRise) const {
    const PointFormat format(m_settings);
    std::wstring text = title.Str() + Rule();
    text.reserve(text.size() + static_cast<size_t>(points.GetSize()) * 256);
    for (int p = 0; p < points.GetSize(); ++p) {
        const ZefraHDGPoint& point = points.GetAt(p);
        text += L"\r\n";
        text += point.GetName().Str();
        if (withReturnDuctRise && point.GetName().GetLength() < 2) text += L' ';  // level with "N'"
        text += L": ";
        format.AppendItems(text, point);
    }
    return CString(std::move(text));
}

CString HDGReportText::Flow(const wchar_t* format, double flow) const {
    CString part;
    part.Format(format, Figure(m_settings.VConvertStdToCur(flow), m_settings.GetPrecision(L"风量")).GetString(),
                m_settings.GetVCurUnit().GetString());
    return part;
}

CString HDGReportText::Load(const wchar_t* format, double load) const {
    CString part;
    part.Format(format, Figure(m_settings.QConvertStdToCur(load), m_settings.GetPrecision(L"冷热负荷")).GetString(),
                m_settings.GetQCurUnit().GetString());
    return part;
}

CString HDGReportText::Moisture(const wchar_t* format, double load) const {
    CString part;
    part.Format(format, Figure(m_settings.MwConvertStdToCur(load), m_settings.GetPrecision(L"湿负荷")).GetString(),
                m_settings.GetMwCurUnit().GetString());
    return part;
}

CString HDGReportText::PrimaryAirFlowText(const SFlows& flows) const {
    CString ratio;
    ratio.Format(L"新风比：%s%s", Figure(flows.FreshAirRatio * 100.0, 2).GetString(), L"%");
    CString heatHum;
    heatHum.Format(L"热湿比：%skJ/kg", NT::ftoa(flows.HeatHumidityRatio, 2, true).GetString());
    return Heading(L"\r\n风量关系") + Row(Flow(L"新风量：%s%s", flows.Gw), Flow(L"回风量：%s%s", flows.Gn)) +
           Row(Flow(L"送风量：%s%s", flows.Go), ratio, heatHum);
}

CString HDGReportText::SecondaryAirFlowText(const SFlows& flows) const {
    CString ratio;
    ratio.Format(L"新风比：%s%s", Figure(flows.FreshAirRatio * 100.0, 2).GetString(), L"%");
    CString heatHum;
    heatHum.Format(L"热湿比：%skJ/kg", NT::ftoa(flows.HeatHumidityRatio, 2, true).GetString());
    return Heading(L"\r\n风量关系") + Row(Flow(L"新风量：%s%s", flows.Gw), Flow(L"回风量：%s%s", flows.Gn)) +
           Row(Flow(L"一次回风量：%s%s", flows.Gr1), Flow(L"二次回风量：%s%s", flows.Gr2)) +
           Row(Flow(L"送风量：%s%s", flows.Go), Flow(L"设备风量：%s%s", flows.Gr1 + flows.Gw)) + Row(ratio, heatHum);
}

CString HDGReportText::LoadBalanceMessage(double carried, double total) const {
    if (NT::IsEqual(m_settings.QConvertStdToCur(carried), m_settings.QConvertStdToCur(total), kBalanceTolerance))
        return CString();
    return L"\r\n冷热负荷不守恒，计算有误。";
}

CString HDGReportText::SummerHeatLoadText(const SLoads& q, bool withReheat) const {
    const double total = q.Qn + q.Qw + q.Qr + q.Qo + (withReheat ? q.Qk : 0.0);
    CString text = Heading(L"\r\n冷负荷关系");
    if (withReheat)
        text += Row(Load(L"室内负荷：%s%s", q.Qn), Load(L"新风负荷：%s%s", q.Qw), Load(L"再热负荷：%s%s", q.Qk));
    else
        text += Row(Load(L"室内负荷：%s%s", q.Qn), Load(L"新风负荷：%s%s", q.Qw));
    text += Row(Load(L"回风管段温升负荷：%s%s", q.Qr), Load(L"送风管段温升负荷：%s%s", q.Qo));
    text += Row(Load(L"设备承担负荷：%s%s", q.Qp), Load(L"总冷负荷：%s%s", total));
    return text + LoadBalanceMessage(q.Qp, total);
}

CString HDGReportText::WinterHeatLoadText(const SLoads& q) const {
    const double total = q.Qn + q.Qw + q.Qr + q.Qo;
    CString text = Heading(L"\r\n冷负荷关系");
    text += Row(Load(L"室内负荷：%s%s", q.Qn), Load(L"新风负荷：%s%s", q.Qw), Load(L"预热负荷：%s%s", q.Qw1));
    text += Row(Load(L"再热负荷：%s%s", q.Qk), Load(L"加湿负荷：%s%s", q.Ql));
    text += Row(Load(L"回风管段温降负荷：%s%s", q.Qr), Load(L"送风管段温降负荷：%s%s", q.Qo));
    text += Row(Load(L"设备承担负荷：%s%s", q.Qp), Load(L"总热负荷：%s%s", total));
    // The preheater carries part of the heat ahead of the unit.
    return text + LoadBalanceMessage(q.Qp + q.Qw1, total);
}

CString HDGReportText::MoistureText(const SMoisture& m, bool winter) const {
    const double total = m.Mw + m.Mww;
    CString text = Heading(L"\r\n湿负荷关系");
    text += Row(Moisture(L"室内湿负荷：%s%s", m.Mw), Moisture(L"新风湿负荷：%s%s", m.Mww));
    text += Row(Moisture(L"机组承担湿负荷：%s%s", m.Mwp), Moisture(L"总湿负荷：%s%s", total));
    // In summer the unit takes out what room and fresh air bring in. In winter
    // the total is a deficit (dry fresh air outweighs the room's gain) and the
    // unit adds moisture, so what it adds must equal the total with the other sign.
    const double expected = winter ? -total : total;
    if (!NT::IsEqual(m_settings.MwConvertStdToCur(m.Mwp), m_settings.MwConvertStdToCur(expected), kBalanceTolerance))
        text += L"\r\n湿负荷不守恒，计算有误。";
    return text;
}
