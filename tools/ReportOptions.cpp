#include "ReportOptions.h"

#include "InputFiles.h"

#include "Cli.h"

#include "zefra/chart/HDGChartItemTables.h"
#include "zefra/chart/QoHvacHDGSysSetManager.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/config/QoDtXmlFile.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <vector>

namespace zefra::cli {
namespace {

// The items of the unit table that have a converter, by their keys of
// --units; temperature, moisture content and pressure have none.
const std::map<std::string, const wchar_t*>& UnitItems() {
    static const std::map<std::string, const wchar_t*> kItems = {
        {"H", L"焓"}, {"G", L"风量"}, {"Q", L"冷热负荷"}, {"Mw", L"湿负荷"}, {"Den", L"密度"},
    };
    return kItems;
}

const wchar_t* UnitItem(const std::string& key) {
    const auto& items = UnitItems();
    const auto found = items.find(key);
    if (found != items.end()) return found->second;
    for (const auto& [shortKey, item] : items)
        if (QoDtTextCodec::ToUtf8(item) == key) return item;
    for (const char* fixed : {"T", "D", "P", "温度", "含湿量", "压力"})
        if (key == fixed)
            throw UsageError("--units: \"" + key + "\" has no converter: temperatures, moisture contents and " +
                             "pressures are always shown in ℃, g/kg and Pa");
    throw UsageError("--units: unknown key \"" + key + "\" (use H, G, Q, Mw, Den or 焓, 风量, 冷热负荷, 湿负荷, 密度)");
}

}  // namespace

std::string KnownUnitsList(const CString& item) {
    CStringArray names;
    QoHvacHDGSysSetManager::GetKnownUnitsNames(item, names);
    std::string list;
    for (int i = 0; i < names.GetSize(); ++i) list += (i == 0 ? "" : ", ") + names.GetAt(i).ToUtf8();
    return list;
}

void WarnUnknownStoredUnits() {
    const QoHvacHDGSysSetManager& settings = *QoHvacHDGSysSetManager::GetInstance();
    const std::vector<QoHvacHDGSysSetManager::SUnknownUnitsName>& unknown = settings.GetUnknownUnitsNames();
    if (unknown.empty()) return;
    std::string file = QoDtConfigStore::GetSource(QoDtConfigStore::eConfig).ToUtf8();
    if (file.empty()) file = "Config.xml";
    for (const auto& entry : unknown) {
        const std::string shown = settings.GetUnitsName(entry.item).ToUtf8();
        std::cerr << "zefra: warning: " << file << ": ";
        if (entry.name.IsEmpty())
            std::cerr << "no unit name for " << entry.item.ToUtf8();
        else
            std::cerr << "unit name \"" << entry.name.ToUtf8() << "\" of " << entry.item.ToUtf8() << " is unknown";
        std::cerr << " (ZEFRA\\HDG\\UnitsItemSet\\" << HDGChartItemTables::UnitRow(entry.item)
                  << "); the report shows " << shown << "\n";
    }
}

void ApplyReportUnits(const std::string& unitList) {
    QoHvacHDGSysSetManager& settings = *QoHvacHDGSysSetManager::GetInstance();
    WarnUnknownStoredUnits();
    if (unitList.empty()) return;
    size_t start = 0;
    while (start <= unitList.size()) {
        const size_t end = std::min(unitList.find(',', start), unitList.size());
        const std::string pair = unitList.substr(start, end - start);
        const size_t equals = pair.find('=');
        if (equals == std::string::npos || equals == 0 || equals + 1 == pair.size())
            throw UsageError("--units: expected KEY=UNIT, got \"" + pair + "\"");
        const CString item = UnitItem(pair.substr(0, equals));
        const CString unit = QoDtTextCodec::FromUtf8(pair.substr(equals + 1));
        if (!QoHvacHDGSysSetManager::IsKnownUnitsName(item, unit))
            throw UsageError("--units: \"" + unit.ToUtf8() + "\" isn't a unit of " + item.ToUtf8() + "; use " +
                             KnownUnitsList(item));
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
