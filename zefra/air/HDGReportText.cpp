#include "zefra/air/HDGReportText.h"

#include "zefra/chart/HDGChartItemTables.h"
#include "zefra/chart/QoHvacHDGSysSetManager.h"
#include "zefra/platform/airlib/NT.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

// Each text is written straight into one buffer sized ahead, from literal
// pieces and figures, with the settings it needs read once: a treatment
// writes four texts, and built from temporaries and lookups by name they cost
// far more than the treatment's own arithmetic.

namespace {

const double kBalanceTolerance = 0.001;

const wchar_t kRule[] = L"\r\n-----------------------------------";

// A text written in place into a buffer sized ahead, which grows if a text
// runs longer. The pieces are short, and copying them straight in costs less
// than a string append each.
class TextWriter {
public:
    explicit TextWriter(size_t room) {
        m_text.resize(room + NT::kMostFixedLength);
        m_at = &m_text[0];
        m_end = m_at + m_text.size();
    }

    template <size_t N>
    void Put(const wchar_t (&literal)[N]) {
        Put(literal, N - 1);
    }
    void Put(const std::wstring& text) { Put(text.data(), text.size()); }
    void Put(wchar_t ch) {
        MakeRoom(1);
        *m_at++ = ch;
    }
    void Put(const wchar_t* text, size_t length) {
        MakeRoom(length);
        std::copy(text, text + length, m_at);
        m_at += length;
    }
    void Figure(double value, int decimals) {
        MakeRoom(NT::kMostFixedLength);
        m_at += NT::WriteFixed(m_at, value, decimals);
    }

    CString Done() {
        m_text.resize(static_cast<size_t>(m_at - m_text.data()));
        return CString(std::move(m_text));
    }

private:
    void MakeRoom(size_t length) {
        if (static_cast<size_t>(m_end - m_at) >= length) return;
        const size_t used = static_cast<size_t>(m_at - m_text.data());
        m_text.resize(std::max(2 * m_text.size(), used + length));
        m_at = &m_text[0] + used;
        m_end = &m_text[0] + m_text.size();
    }

    std::wstring m_text;
    wchar_t* m_at = nullptr;
    wchar_t* m_end = nullptr;
};

// The items of a point line, in their order. The names are those of the
// display filter and the abbreviations; the last has no 分.
const wchar_t* const kPointItems[] = {
    L"干球温度", L"相对湿度", L"焓", L"含湿量", L"湿球温度", L"露点温度",
    L"水蒸气分压力", L"密度", L"比容", L"饱和含湿量", L"饱和水蒸气压力",
};
constexpr int kPointItemCount = static_cast<int>(sizeof(kPointItems) / sizeof(kPointItems[0]));

// Where the texts' items stand in the settings tables. The item tables are
// fixed, so each name is looked up once per process rather than per figure.
// 比容 has no unit row: its precision is the lookups' default.
struct SSettingRows {
    int temperature, moistureContent, enthalpy, pressure, flow, heatLoad, moistureLoad, density, specificVolume;
    int point[kPointItemCount];
};

const SSettingRows& Rows() {
    static const SSettingRows rows = [] {
        SSettingRows r{};
        r.temperature = HDGChartItemTables::UnitRow(L"温度");
        r.moistureContent = HDGChartItemTables::UnitRow(L"含湿量");
        r.enthalpy = HDGChartItemTables::UnitRow(L"焓");
        r.pressure = HDGChartItemTables::UnitRow(L"压力");
        r.flow = HDGChartItemTables::UnitRow(L"风量");
        r.heatLoad = HDGChartItemTables::UnitRow(L"冷热负荷");
        r.moistureLoad = HDGChartItemTables::UnitRow(L"湿负荷");
        r.density = HDGChartItemTables::UnitRow(L"密度");
        r.specificVolume = HDGChartItemTables::UnitRow(L"比容");
        for (int i = 0; i < kPointItemCount; ++i) r.point[i] = HDGChartItemTables::DisplayRow(kPointItems[i]);
        return r;
    }();
    return rows;
}

// Read by row, a table cut short answers as the lookups by name do for a
// row it no longer has: a precision of 2, an empty text, not shown.
int PrecisionAt(const QoHvacHDGSysSetManager& settings, int row) {
    const CNTArray<int, int>& table = settings.GetPrecisions();
    return row >= 0 && row < table.GetSize() ? table.GetData()[row] : 2;
}

const std::wstring& TextAt(const CStringArray& table, int row) {
    static const std::wstring none;
    return row >= 0 && row < table.GetSize() ? table.GetData()[row].Str() : none;
}

bool ShownAt(const QoHvacHDGSysSetManager& settings, int row) {
    const CNTArray<bool, bool>& table = settings.GetDisplayItems();
    return row >= 0 && row < table.GetSize() && table.GetData()[row];
}

constexpr std::wstring_view kCelsius = L"℃";
constexpr std::wstring_view kPercent = L"%";
constexpr std::wstring_view kPerDryAir = L"g/kg.干空气";
constexpr std::wstring_view kPascal = L"Pa";
constexpr std::wstring_view kPerKilogram = L"m^3/kg";

// What a point line takes from the chart settings, read once per text: the
// items the display filter lets through, with precision and the text around
// their figures. Between two figures the text is the same on every line
// (unit, tab, abbreviation, colon), so it is put together once.
class PointFormat {
public:
    explicit PointFormat(const QoHvacHDGSysSetManager& settings) : m_settings(settings) {
        const SSettingRows& rows = Rows();
        const int tDigits = PrecisionAt(settings, rows.temperature);
        const int dDigits = PrecisionAt(settings, rows.moistureContent);
        const int pDigits = PrecisionAt(settings, rows.pressure);
        const int digits[kPointItemCount] = {
            tDigits, 2, PrecisionAt(settings, rows.enthalpy), dDigits, tDigits, tDigits,
            pDigits, PrecisionAt(settings, rows.density), PrecisionAt(settings, rows.specificVolume), dDigits,
            pDigits,
        };
        const std::wstring_view units[kPointItemCount] = {
            kCelsius, kPercent, TextAt(settings.GetUnitsNames(), rows.enthalpy), kPerDryAir,
            kCelsius, kCelsius, kPascal, TextAt(settings.GetUnitsNames(), rows.density),
            kPerKilogram, kPerDryAir, kPascal,
        };
        m_pieces.reserve(160);
        const std::wstring_view* unitBefore = nullptr;
        for (int i = 0; i < kPointItemCount; ++i) {
            if (!ShownAt(settings, rows.point[i])) continue;
            const size_t begin = m_pieces.size();
            if (unitBefore) {
                m_pieces += *unitBefore;
                m_pieces += L'\t';
            }
            m_pieces += TextAt(settings.GetAbbreviations(), rows.point[i]);
            m_pieces += L':';
            m_ends[m_count] = m_pieces.size();
            m_kinds[m_count] = i;
            m_digits[m_count] = digits[i];
            m_lineLength += m_pieces.size() - begin + kFigureRoom;
            unitBefore = &units[i];
            ++m_count;
        }
        if (unitBefore) m_pieces += *unitBefore;
        m_lineLength += m_pieces.size() - (m_count > 0 ? m_ends[m_count - 1] : 0);
    }

    // Room for one line, figures of usual length assumed.
    size_t LineLength() const { return m_lineLength; }

    // The items, tab-separated.
    void WriteItems(TextWriter& out, const ZefraHDGPoint& pt) const {
        if (m_count == 0) return;
        const wchar_t* pieces = m_pieces.data();
        size_t begin = 0;
        for (int n = 0; n < m_count; ++n) {
            out.Put(pieces + begin, m_ends[n] - begin);
            out.Figure(Value(m_kinds[n], pt), m_digits[n]);
            begin = m_ends[n];
        }
        out.Put(pieces + begin, m_pieces.size() - begin);
    }

private:
    static constexpr size_t kFigureRoom = 12;

    double Value(int kind, const ZefraHDGPoint& pt) const {
        switch (kind) {
            case 0: return pt.GetTdb();
            case 1: return pt.GetRH() * 100.0;
            case 2: return m_settings.HConvertStdToCur(pt.GetH());
            case 3: return pt.GetD();
            case 4: return pt.GetTwb();
            case 5: return pt.GetTdp();
            case 6: return pt.GetPv();
            case 7: return m_settings.DenConvertStdToCur(pt.GetDen());
            case 8: return pt.GetSV();
            case 9: return pt.GetDs();
            default: return pt.GetPs();
        }
    }

    const QoHvacHDGSysSetManager& m_settings;
    // The text ahead of each figure ends at m_ends; the last unit follows the last end.
    std::wstring m_pieces;
    size_t m_ends[kPointItemCount] = {};
    int m_kinds[kPointItemCount] = {};
    int m_digits[kPointItemCount] = {};
    int m_count = 0;
    size_t m_lineLength = 8;  // line end, name and ": "
};

// A relation text (flows, heat loads, moisture loads): under its heading,
// rows of "label：figure unit" items two tabs apart, every figure in the one
// unit and precision of its kind.
class RelationText : public TextWriter {
public:
    template <size_t N>
    RelationText(const wchar_t (&heading)[N], int digits, const CString& unit, size_t room)
        : TextWriter(room + 8 * static_cast<size_t>(unit.GetLength())), m_digits(digits), m_unit(unit) {
        Put(heading);
        Put(kRule);
    }

    void Row() { Put(L"\r\n"); }
    void Gap() { Put(L"\t\t"); }

    // A figure already in the current unit.
    template <size_t N>
    void Item(const wchar_t (&label)[N], double shown) {
        Put(label);
        Figure(shown, m_digits);
        Put(m_unit.Str());
    }

    // The two figures every flow text ends with; neither follows the settings.
    void Ratios(double freshAirRatio, double heatHumidityRatio) {
        Put(L"新风比：");
        Figure(freshAirRatio * 100.0, 2);
        Put(L"%\t\t热湿比：");
        Figure(heatHumidityRatio, 2);
        Put(L"kJ/kg");
    }

private:
    int m_digits;
    CString m_unit;
};

}  // namespace

HDGReportText::HDGReportText(QoHvacHDGSysSetManager& settings) : m_settings(settings) {}

const wchar_t* HDGReportText::Rule() { return kRule; }

CString HDGReportText::PointText(const CString& title, const CNTArray<ZefraHDGPoint, ZefraHDGPoint&>& points,
                                 bool withReturnDuctRise) const {
    const PointFormat format(m_settings);
    TextWriter text(title.Str().size() + 40 + static_cast<size_t>(points.GetSize()) * format.LineLength());
    text.Put(title.Str());
    text.Put(kRule);
    const ZefraHDGPoint* point = points.GetData();
    for (int p = 0; p < points.GetSize(); ++p, ++point) {
        text.Put(L"\r\n");
        const CString name = point->GetName();
        text.Put(name.Str());
        if (withReturnDuctRise && name.GetLength() < 2) text.Put(L' ');  // level with "N'"
        text.Put(L": ");
        format.WriteItems(text, *point);
    }
    return text.Done();
}

CString HDGReportText::PrimaryAirFlowText(const SFlows& flows) const {
    const auto v = [this](double flow) { return m_settings.VConvertStdToCur(flow); };
    RelationText r(L"\r\n风量关系", PrecisionAt(m_settings, Rows().flow), m_settings.GetVCurUnit(), 160);
    r.Row();
    r.Item(L"新风量：", v(flows.Gw));
    r.Gap();
    r.Item(L"回风量：", v(flows.Gn));
    r.Row();
    r.Item(L"送风量：", v(flows.Go));
    r.Gap();
    r.Ratios(flows.FreshAirRatio, flows.HeatHumidityRatio);
    return r.Done();
}

CString HDGReportText::SecondaryAirFlowText(const SFlows& flows) const {
    const auto v = [this](double flow) { return m_settings.VConvertStdToCur(flow); };
    RelationText r(L"\r\n风量关系", PrecisionAt(m_settings, Rows().flow), m_settings.GetVCurUnit(), 220);
    r.Row();
    r.Item(L"新风量：", v(flows.Gw));
    r.Gap();
    r.Item(L"回风量：", v(flows.Gn));
    r.Row();
    r.Item(L"一次回风量：", v(flows.Gr1));
    r.Gap();
    r.Item(L"二次回风量：", v(flows.Gr2));
    r.Row();
    r.Item(L"送风量：", v(flows.Go));
    r.Gap();
    r.Item(L"设备风量：", v(flows.Gr1 + flows.Gw));
    r.Row();
    r.Ratios(flows.FreshAirRatio, flows.HeatHumidityRatio);
    return r.Done();
}

bool HDGReportText::LoadsBalance(double carried, double total) const {
    return NT::IsEqual(m_settings.QConvertStdToCur(carried), m_settings.QConvertStdToCur(total), kBalanceTolerance);
}

CString HDGReportText::SummerHeatLoadText(const SLoads& q, bool withReheat) const {
    const auto load = [this](double value) { return m_settings.QConvertStdToCur(value); };
    const double total = q.Qn + q.Qw + q.Qr + q.Qo + (withReheat ? q.Qk : 0.0);
    RelationText r(L"\r\n冷负荷关系", PrecisionAt(m_settings, Rows().heatLoad), m_settings.GetQCurUnit(), 240);
    r.Row();
    r.Item(L"室内负荷：", load(q.Qn));
    r.Gap();
    r.Item(L"新风负荷：", load(q.Qw));
    if (withReheat) {
        r.Gap();
        r.Item(L"再热负荷：", load(q.Qk));
    }
    r.Row();
    r.Item(L"回风管段温升负荷：", load(q.Qr));
    r.Gap();
    r.Item(L"送风管段温升负荷：", load(q.Qo));
    r.Row();
    r.Item(L"设备承担负荷：", load(q.Qp));
    r.Gap();
    r.Item(L"总冷负荷：", load(total));
    if (!LoadsBalance(q.Qp, total)) r.Put(L"\r\n冷热负荷不守恒，计算有误。");
    return r.Done();
}

CString HDGReportText::WinterHeatLoadText(const SLoads& q) const {
    const auto load = [this](double value) { return m_settings.QConvertStdToCur(value); };
    const double total = q.Qn + q.Qw + q.Qr + q.Qo;
    RelationText r(L"\r\n冷负荷关系", PrecisionAt(m_settings, Rows().heatLoad), m_settings.GetQCurUnit(), 280);
    r.Row();
    r.Item(L"室内负荷：", load(q.Qn));
    r.Gap();
    r.Item(L"新风负荷：", load(q.Qw));
    r.Gap();
    r.Item(L"预热负荷：", load(q.Qw1));
    r.Row();
    r.Item(L"再热负荷：", load(q.Qk));
    r.Gap();
    r.Item(L"加湿负荷：", load(q.Ql));
    r.Row();
    r.Item(L"回风管段温降负荷：", load(q.Qr));
    r.Gap();
    r.Item(L"送风管段温降负荷：", load(q.Qo));
    r.Row();
    r.Item(L"设备承担负荷：", load(q.Qp));
    r.Gap();
    r.Item(L"总热负荷：", load(total));
    // The preheater carries part of the heat ahead of the unit.
    if (!LoadsBalance(q.Qp + q.Qw1, total)) r.Put(L"\r\n冷热负荷不守恒，计算有误。");
    return r.Done();
}

CString HDGReportText::MoistureText(const SMoisture& m, bool winter) const {
    const auto load = [this](double value) { return m_settings.MwConvertStdToCur(value); };
    const double total = m.Mw + m.Mww;
    RelationText r(L"\r\n湿负荷关系", PrecisionAt(m_settings, Rows().moistureLoad), m_settings.GetMwCurUnit(), 160);
    r.Row();
    r.Item(L"室内湿负荷：", load(m.Mw));
    r.Gap();
    r.Item(L"新风湿负荷：", load(m.Mww));
    r.Row();
    r.Item(L"机组承担湿负荷：", load(m.Mwp));
    r.Gap();
    r.Item(L"总湿负荷：", load(total));
    // In summer the unit takes out what room and fresh air bring in. In winter
    // the total is a deficit (dry fresh air outweighs the room's gain) and the
    // unit adds moisture, so what it adds must equal the total with the other sign.
    const double expected = winter ? -total : total;
    if (!NT::IsEqual(load(m.Mwp), load(expected), kBalanceTolerance)) r.Put(L"\r\n湿负荷不守恒，计算有误。");
    return r.Done();
}
