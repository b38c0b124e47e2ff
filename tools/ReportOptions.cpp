#include "ReportOptions.h"

#include "InputFiles.h"

#include "Cli.h"

#include "zefra/chart/QoHvacHDGSysSetManager.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/config/QoDtXmlFile.h"

#include <algorithm>
#include <map>

namespace zefra::cli {
namespace {

// The item of the unit table that a key of --units names.
const std::map<std::string, const wchar_t*>& UnitItems() {
    static const std::map<std::string, const wchar_t*> kItems = {
        {"T", L"温度"},  {"D", L"含湿量"},   {"H", L"焓"},      {"P", L"压力"},
        {"G", L"风量"},  {"Q", L"冷热负荷"}, {"Mw", L"湿负荷"}, {"Den", L"密度"},
    };
    return kItems;
}

const wchar_t* UnitItem(const std::string& key) {
    const auto& items = UnitItems();
    const auto found = items.find(key);
    if (found != items.end()) return found->second;
    for (const auto& [shortKey, item] : items)
        if (QoDtTextCodec::ToUtf8(item) == key) return item;
    throw UsageError("--units: unknown key \"" + key + "\" (use T, D, H, P, G, Q, Mw, Den or 温度, 含湿量, 焓, 压力, " +
                     "风量, 冷热负荷, 湿负荷, 密度)");
}

// Whether the converter of the item knows the unit; the rows without a
// converter take any name.
bool IsKnownUnit(const QoHvacHDGSysSetManager& settings, const CString& item, const CString& unit) {
    if (item == L"焓") return settings.GetHUnitCode(unit) != H_UNIT_UNKNOWN;
    if (item == L"风量") return settings.GetVUnitCode(unit) != V_UNIT_UNKNOWN;
    if (item == L"冷热负荷") return settings.GetQUnitCode(unit) != Q_UNIT_UNKNOWN;
    if (item == L"湿负荷") return settings.GetMwUnitCode(unit) != MW_UNIT_UNKNOWN;
    if (item == L"密度") return settings.GetDenUnitCode(unit) != DEN_UNIT_UNKNOWN;
    return true;
}

}  // namespace

void ApplyReportUnits(const std::string& unitList) {
    QoHvacHDGSysSetManager& settings = *QoHvacHDGSysSetManager::GetInstance();
    size_t start = 0;
    while (start <= unitList.size()) {
        const size_t end = std::min(unitList.find(',', start), unitList.size());
        const std::string pair = unitList.substr(start, end - start);
        const size_t equals = pair.find('=');
        if (equals == std::string::npos || equals == 0 || equals + 1 == pair.size())
            throw UsageError("--units: expected KEY=UNIT, got \"" + pair + "\"");
        const CString item = UnitItem(pair.substr(0, equals));
        const CString unit = QoDtTextCodec::FromUtf8(pair.substr(equals + 1));
        if (!IsKnownUnit(settings, item, unit))
            throw UsageError("--units: \"" + unit.ToUtf8() + "\" isn't a unit of " + item.ToUtf8());
        settings.SetUnitsName(item, unit);
        start = end + 1;
    }
}

void PrintResultTexts(std::ostream& out, const CStringArray& texts, bool terminal) {
    for (int i = 0; i < texts.GetSize(); ++i) {
        CString text = texts.GetAt(i);
        if (terminal) text.Replace(L"\r\n", L"\n");
        out << QoDtTextCodec::ToUtf8(text);
    }
    out << "\n";
}

void SaveProcessRecord(ZefraHDGProcess& process, const std::string& file) {
    QoDtDictionary record;
    process.SaveXml(&record);
    CString message;
    if (!record.SaveToXML(QoDtTextCodec::FromUtf8(file), &message))
        throw UsageError("--save: " + QoDtTextCodec::ToUtf8(message));
}

namespace {

void ReadProcessRecord(ZefraHDGProcess& process, QoDtDictionary& record, const std::string& source,
                       const wchar_t* recordName, const char* what) {
    const std::string name = QoDtTextCodec::ToUtf8(recordName);
    if (!record.FindDict(recordName))
        throw UsageError("--load: " + source + " holds no " + what + " record (\"" + name + "\")");
    if (!process.ReadXml(&record))
        throw UsageError(std::string("--load: the ") + what + " record in " + source + " is incomplete (no \"送风温差\")");
}

}  // namespace

void LoadProcessRecord(ZefraHDGProcess& process, const std::string& file, const wchar_t* recordName,
                       const char* what) {
    RequireRegularFile("--load", file);
    QoDtDictionary record;
    CString message;
    if (!record.LoadFromXML(QoDtTextCodec::FromUtf8(file), &message))
        throw UsageError("--load: " + QoDtTextCodec::ToUtf8(message));
    ReadProcessRecord(process, record, file, recordName, what);
}

void LoadProcessRecordText(ZefraHDGProcess& process, const std::string& text, const wchar_t* recordName,
                           const char* what) {
    QoDtDictionary record;
    std::string error;
    if (!QoDtXmlFile::FromText(record, text, error)) throw UsageError("--load: standard input: " + error);
    ReadProcessRecord(process, record, "standard input", recordName, what);
}

}  // namespace zefra::cli
