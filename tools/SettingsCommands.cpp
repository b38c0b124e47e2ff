// zefra settings: what the configuration means to each settings manager.
// zefra flange: the duct flange table's lookups and edits, and the pipe
// flange lookup.

#include "Cli.h"
#include "PointIO.h"

#include "zefra/components/QoHvacDrawSetManager.h"
#include "zefra/components/QoHvacDuctCalculateManager.h"
#include "zefra/components/QoHvacDuctDisplayManager.h"
#include "zefra/components/QoHvacDuctFitManager.h"
#include "zefra/components/QoHvacDuctFlangeManager.h"
#include "zefra/components/QoHvacWTFlangeManager.h"
#include "zefra/components/ZefraVRVPipeDiameterManager.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/entities/QoDbHvacDefaultFitData.h"
#include "zefra/platform/host/CommandLine.h"

#include <nlohmann/json.hpp>

#include <cctype>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zefra::cli {

namespace {

using Json = nlohmann::ordered_json;
using HVAC::EQoDbHvacSystemType;

std::string Utf8(const CString& text) { return QoDtTextCodec::ToUtf8(text); }

std::string NumberText(double value) {
    std::string text;
    QoDtTextCodec::AppendDouble(text, value);
    return text;
}

// ---- the configuration file -------------------------------------------

const char* const kConfigHelp = "use this configuration file instead of searching for Config.xml";

// Puts the chosen file, or the one the search finds, into g_dictCfg. The
// store's own messages go to standard error, so that listings stay clean.
void LoadConfiguration(const std::string& chosen) {
    zefra::SetCommandLineSink([](const CString& text) { std::cerr << text.ToUtf8() << std::flush; });
    QoDtDictionary& tree = g_dictCfg;  // the first use runs the search
    if (!chosen.empty()) {
        QoDtDictionary loaded;
        CString message;
        if (!loaded.LoadFromXML(QoDtTextCodec::FromUtf8(chosen), &message)) throw UsageError(message.ToUtf8());
        tree.Swap(loaded);
        return;
    }
    if (QoDtConfigStore::GetLoadState(QoDtConfigStore::eConfig) == QoDtConfigStore::eLoadFailed)
        throw UsageError("Config.xml could not be read (see above)");
}

// Writes g_dictCfg as the system does: back to the file it came from, or,
// for shipped data or no file, into the user's directory.
void SaveConfiguration(const std::string& chosen) {
    g_dictCfg.children.MoveToFirst();
    CString target = QoDtTextCodec::FromUtf8(chosen);
    const CString source = QoDtConfigStore::GetSource(QoDtConfigStore::eConfig);
    if (chosen.empty() && !QoDtConfigStore::SaveTarget(QoDtConfigStore::eConfig, source, target))
        throw UsageError("nowhere to save the configuration: set ZEFRA_CONFIG_DIR or HOME");
    CString message;
    if (!g_dictCfg.SaveToXML(target, &message)) throw UsageError(message.ToUtf8());
    if (chosen.empty() && target != source) std::cout << "saved to " << Utf8(target) << "\n";
}

// ---- listings ---------------------------------------------------------

// An indented listing of a JSON value: objects as "key: value" lines,
// number lists on one line, lists of rows as "- a: 1, b: 2".
void PrintScalar(const Json& value, std::ostream& out) {
    if (value.is_string())
        out << value.get<std::string>();
    else if (value.is_number_float())
        out << NumberText(value.get<double>());
    else
        out << value.dump();
}

void PrintListing(const Json& object, int depth, std::ostream& out) {
    const std::string indent(static_cast<size_t>(depth) * 2, ' ');
    for (const auto& [key, value] : object.items()) {
        out << indent << key << ":";
        if (value.is_object()) {
            out << "\n";
            PrintListing(value, depth + 1, out);
        } else if (value.is_array() && !value.empty() && value.front().is_object()) {
            out << "\n";
            for (const Json& row : value) {
                out << indent << "  -";
                const char* separator = " ";
                for (const auto& [field, cell] : row.items()) {
                    out << separator << field << ": ";
                    PrintScalar(cell, out);
                    separator = ", ";
                }
                out << "\n";
            }
        } else if (value.is_array()) {
            out << " [";
            const char* separator = "";
            for (const Json& cell : value) {
                out << separator;
                PrintScalar(cell, out);
                separator = ", ";
            }
            out << "]\n";
        } else {
            out << " ";
            PrintScalar(value, out);
            out << "\n";
        }
    }
}

// The selected text of an option item of the tree; empty without one.
std::string OptionText(const wchar_t* path) {
    const QoDtDictItem* item = g_dictCfg.FindItem(path);
    if (item == nullptr || item->GetType() != QoDtDictItem::eDtOption) return std::string();
    return Utf8(static_cast<const QoDtDictOptionItem&>(*item).GetSelectedText());
}

Json CStringOptionJson(const QoHvacCStringOption& option) {
    Json choices = Json::array();
    for (const CString* choice = option.GetFirst(); choice != nullptr; choice = option.GetNext(choice))
        choices.push_back(Utf8(*choice));
    return Json{{"selection", option.GetCurSelIndex()}, {"text", Utf8(option.GetCurSelString())}, {"choices", choices}};
}

Json NumbersJson(const QoDynArrayBase<double>& numbers) {
    Json list = Json::array();
    for (const double* n = numbers.GetFirst(); n != nullptr; n = numbers.GetNext(n)) list.push_back(*n);
    return list;
}

// A visitor that puts stored fields into a JSON object under their keys.
struct FieldsToJson {
    Json& object;
    template <typename Field>
    void operator()(const wchar_t* key, const Field& value) const {
        object[Utf8(key)] = value;
    }
    void operator()(const wchar_t* key, const CString& value) const { object[Utf8(key)] = Utf8(value); }
};

const char* EntityTypeName(QoDbHvacDuctFlange::EFlangeType type) {
    switch (type) {
        case QoDbHvacDuctFlange::EFlangeAngleSteel: return "angle steel";
        case QoDbHvacDuctFlange::EFlangeCommonPlate: return "common plate";
        default: return "none";
    }
}

Json DuctFlangeJson() {
    const QoHvacDuctFlangeManager& manager = *QoHvacDuctFlangeManager::GetInstance();
    Json rows = Json::array();
    for (int i = 0; i < manager.GetSizeSetNum(); ++i)
        rows.push_back({{"above", manager.GetStartRange(i)}, {"up to", manager.GetEndRange(i)}, {"offset", manager.GetOffset(i)}});
    return Json{{"branch", "ZEFRA\\FLANGESET"},
                {"style", manager.GetFlangeType()},
                {"style text", OptionText(L"ZEFRA\\FLANGESET\\STYLE")},
                {"flange entity", EntityTypeName(manager.GetFlangeEntityType())},
                {"sealed", manager.GetSearlarType()},
                {"offset beyond the table", manager.GetDefaultOffset()},
                {"sizes", rows}};
}

Json PipeFlangeRows(const QoHvacWTFlangeManager& manager, EQoDbHvacSystemType kind) {
    Json rows = Json::array();
    const QoList<SFlangeExtrudeData> table = manager.GetFlangeData(kind);
    for (const SFlangeExtrudeData* row = table.GetFirst(); row != nullptr; row = table.GetNext(row))
        rows.push_back({{"from", row->start}, {"thickness", row->thickness}, {"extrude", row->extrude}});
    return rows;
}

Json PipeFlangeJson() {
    const QoHvacWTFlangeManager& manager = *QoHvacWTFlangeManager::GetInstance();
    return Json{{"water and VRV (ZEFRA\\WATER\\FLANGESET)", PipeFlangeRows(manager, HVAC::ESysKT)},
                {"heating (ZEFRA\\HEATING\\FLANGESET)", PipeFlangeRows(manager, HVAC::ESysCZCN)},
                {"below the first step", Json{{"thickness", 1.0}, {"extrude", 0.0}}}};
}

Json VrvJson() {
    const ZefraVRVPipeDiameterManager& manager = *ZefraVRVPipeDiameterManager::GetInstance();
    return Json{{"branch", "ZEFRA\\WATER\\VRVPIPE"},
                {"WT", NumbersJson(manager.GetListData(true))},
                {"AIR", NumbersJson(manager.GetListData(false))}};
}

template <typename Record>
Json RecordHead(const Record& record, const CString& typeName) {
    return Json{{"type", record.type}, {"type name", Utf8(typeName)}, {"name", Utf8(record.name)},
                {"widthA", record.widthA}, {"heightA", record.heightA}, {"widthB", record.widthB},
                {"heightB", record.heightB}};
}

Json RecordJson(const SHvacDuctElbowData& r, const CString& typeName) {
    Json j = RecordHead(r, typeName);
    j.update({{"curvature", r.curvature}, {"angle", r.angle}, {"segments", r.segmentCount}});
    return j;
}

Json RecordJson(const SHvacDuctTransData& r, const CString& typeName) {
    Json j = RecordHead(r, typeName);
    j.update({{"section line", r.sectionLine}, {"calculation", r.calcType}, {"eccentricity", r.eccentricity},
              {"length", r.length}, {"angle", r.angle}});
    return j;
}

Json RecordJson(const SHvacDuctOffsetData& r, const CString& typeName) {
    Json j = RecordHead(r, typeName);
    j.update({{"length", r.length}, {"offset", r.offsetDistance}, {"curvature", r.curvature}});
    return j;
}

Json RecordJson(const SHvacDuctTeeData& r, const CString& typeName) {
    Json j = RecordHead(r, typeName);
    j.update({{"widthC", r.widthC}, {"heightC", r.heightC}, {"curvature", r.curvature}, {"angle", r.angle}});
    return j;
}

Json RecordJson(const SHvacDuctCrossData& r, const CString& typeName) {
    Json j = RecordHead(r, typeName);
    j.update({{"widthC", r.widthC}, {"heightC", r.heightC}, {"widthD", r.widthD}, {"heightD", r.heightD},
              {"curvature", r.curvature}, {"angle", r.angle}});
    return j;
}

Json FittingsJson() {
    QoHvacDuctFitManager& m = *QoHvacDuctFitManager::GetInstance();
    // A copy looks up the names, so that unknown types don't enter the
    // manager's catalogues.
    QoHvacDuctFitManager names = m;
    Json records = Json{
        {"RectElbow", RecordJson(m.m_rectElbow, names.GetElbowNameWithType(m.m_rectElbow.type))},
        {"CircleElbow", RecordJson(m.m_circleElbow, names.GetElbowNameWithType(m.m_circleElbow.type))},
        {"RectTransition", RecordJson(m.m_rectTrans, names.GetTransNameWithType(m.m_rectTrans.type))},
        {"CircleTransition", RecordJson(m.m_circleTrans, names.GetTransNameWithType(m.m_circleTrans.type))},
        {"RectOffset", RecordJson(m.m_rectOffset, names.GetOffsetNameWithType(m.m_rectOffset.type))},
        {"CircleOffset", RecordJson(m.m_circleOffset, names.GetOffsetNameWithType(m.m_circleOffset.type))},
        {"RectTee", RecordJson(m.m_rectTee, names.GetTeeNameWithType(m.m_rectTee.type))},
        {"CircleTee", RecordJson(m.m_circleTee, names.GetTeeNameWithType(m.m_circleTee.type))},
        {"RectCross", RecordJson(m.m_rectCross, names.GetCrossNameWithType(m.m_rectCross.type))},
        {"CircleCross", RecordJson(m.m_circleCross, names.GetCrossNameWithType(m.m_circleCross.type))}};
    Json options = Json{{"use dial", m.m_useDial},
                        {"riser hole symbol", m.m_riserHoleSymbol},
                        {"raised elbow 2D style", m.m_raisedElbow2dStyle},
                        {"raised offset 2D style", m.m_raisedOffset2dStyle},
                        {"node first at elevation change", m.m_elevationChangeNode},
                        {"offset for a small rise", m.m_shortRiseOffset},
                        {"raised offset angle", m.m_raisedOffsetAngle},
                        {"raised return offset curvature", m.m_returnOffsetCurvature}};
    return Json{{"branch", "ZEFRA\\DEFAULTFITTING"}, {"options", options}, {"records", records}};
}

Json DisplayJson() {
    const QoHvacDuctDisplayManager& m = *QoHvacDuctDisplayManager::GetInstance();
    const Json ductAxis = Json{{"RECTDUCT", m.m_rectDuct},         {"RECTELBOW", m.m_rectElbow},
                               {"RECTTEE", m.m_rectTee},           {"RECTCROSS", m.m_rectCross},
                               {"RECTTRANSITION", m.m_rectTransition}, {"RECTOFFSET", m.m_rectOffset},
                               {"CIRCDUCT", m.m_circDuct},         {"CIRCELBOW", m.m_circElbow},
                               {"CIRCTEE", m.m_circTee},           {"CIRCCROSS", m.m_circCross},
                               {"CIRCTRANSITION", m.m_circTransition}, {"CIRCTYDF", m.m_circTydf},
                               {"CIRCOFFSET", m.m_circOffset}};
    const Json waterAxis = Json{{"PIPE", m.m_pipe},         {"RISER", m.m_riser},         {"ELBOW", m.m_elbow},
                                {"TEE", m.m_tee},           {"CROSS", m.m_cross},         {"MULTIPORT", m.m_multiport},
                                {"REDUCE", m.m_reduce},     {"GOOSENECK", m.m_gooseneck}, {"BENDBRIDGE", m.m_bendBridge}};
    const Json duct = Json{{"branch", "ZEFRA\\DISPLAYSET"},
                           {"show mask", m.m_ductShowMask},
                           {"break offset", m.m_ductBreakOffset},
                           {"allow clip", m.m_ductAllowClip},
                           {"single line", m.GetLineType(HVAC::ESysDuct) == 0},
                           {"line type", CStringOptionJson(m.m_ductLineType)},
                           {"axis shown", ductAxis}};
    const Json water = Json{{"branch", "ZEFRA\\WATER\\DISPLAYSET"},
                            {"show mask", m.m_waterShowMask},
                            {"break offset", m.m_waterBreakOffset},
                            {"show 2D reducer", m.m_show2dReducer},
                            {"2D reducer type", m.m_2dReducerType},
                            {"2D reducer length", m.m_2dReducerLength},
                            {"single line", m.GetLineType(HVAC::ESysKT) == 0},
                            {"line type", CStringOptionJson(m.m_waterLineType)},
                            {"axis shown", waterAxis}};
    return Json{{"ducts", duct}, {"water", water}, {"dash line colour", g_HvacFitAndDisplayData.m_dashLineColor}};
}

Json DrawSetRecordJson(const SHvacDrawSetData& data) {
    Json record = Json::object();
    SHvacDrawSetData::ForEachStoredField(data, FieldsToJson{record});
    return record;
}

Json DrawSetJson() {
    QoHvacDrawSetManager& m = *QoHvacDrawSetManager::GetInstance();
    Json radiators = Json::object();
    SHvacRadDrawSetData::ForEachStoredField(m.GetRadDrawSetData(), FieldsToJson{radiators});
    return Json{{"bend radius (RADIUSOFCUR, all kinds)", m.GetKTDrawSetData().m_radiusOfCur},
                {"water and VRV (ZEFRA\\WATER\\DRAWSET)", DrawSetRecordJson(m.GetKTDrawSetData())},
                {"floor heating (ZEFRA\\DBCN\\DRAWSET)", DrawSetRecordJson(m.GetDrawSetData(HVAC::ESysDBCN))},
                {"heating (ZEFRA\\HEATING\\DRAWSET)", DrawSetRecordJson(m.GetCnDrawSetData())},
                {"radiators", radiators}};
}

Json CalculationJson() {
    const QoHvacDuctCalculateManager& m = *QoHvacDuctCalculateManager::GetInstance();
    return Json{{"branch", "ZEFRA\\CALCONDITION"},
                {"Pressure", m.m_pressure},
                {"MobileMedia", Utf8(m.m_mobileMedia)},
                {"Temperature", m.m_temperature},
                {"RelativeHumidity", m.m_relativeHumidity},
                {"Density", m.m_density},
                {"KinematicViscosity", m.m_kinematicViscosity},
                {"WindVelocityMin", m.m_windVelocityMin},
                {"WindVelocityMax", m.m_windVelocityMax},
                {"BmzMin", m.m_bmzMin},
                {"BmzMax", m.m_bmzMax},
                {"GjXz", m.m_gjXz}};
}

struct SettingsSection {
    const char* name;
    std::function<Json()> make;
};

const std::vector<SettingsSection>& Sections() {
    static const std::vector<SettingsSection> sections = {
        {"flange", &DuctFlangeJson}, {"pipe-flange", &PipeFlangeJson}, {"vrv", &VrvJson},
        {"fittings", &FittingsJson}, {"display", &DisplayJson},        {"calc", &CalculationJson},
        {"drawset", &DrawSetJson}};
    return sections;
}

// ---- the duct flange table's edits --------------------------------------

// The table as loaded, for an edit; refuses a configuration that has no
// place to store it.
QoHvacDuctFlangeManager& EditableFlangeTable() {
    const QoDtDictionary* branch = g_dictCfg.FindDict(L"ZEFRA\\FLANGESET");
    if (branch == nullptr) throw UsageError("the configuration has no flange branch ZEFRA\\FLANGESET");
    if (branch->FindDict(L"SIZESET") == nullptr)
        throw UsageError("the configuration has no flange size table ZEFRA\\FLANGESET\\SIZESET");
    return *QoHvacDuctFlangeManager::GetInstance();
}

// The index of the row with exactly that upper bound; -1 if none.
int RowEndingAt(const QoHvacDuctFlangeManager& table, double end) {
    for (int i = 0; i < table.GetSizeSetNum(); ++i)
        if (table.GetEndRange(i) == end) return i;
    return -1;
}

[[noreturn]] void NoRowEndingAt(double end) { throw UsageError("no row of the flange table ends at " + NumberText(end)); }

// Bounds, offsets and sizes are finite numbers not below 0; anything else is
// refused before the file is touched.
void CheckTableNumber(const char* what, double value) {
    if (!QoHvacDuctFlangeManager::IsTableValue(value))
        throw UsageError(std::string(what) + " must be a finite number not below 0, not " + NumberText(value));
}

void SaveFlangeTable(QoHvacDuctFlangeManager& table, const std::string& file) {
    table.SaveToDict();
    SaveConfiguration(file);
}

struct FlangeArguments {
    std::string file;
    double first = 0.0;
    double second = 0.0;
    std::string kind = "kt";
    bool json = false;
};

EQoDbHvacSystemType ParseKind(const std::string& kind) {
    static const std::map<std::string, EQoDbHvacSystemType> kinds = {
        {"kt", HVAC::ESysKT}, {"vrv", HVAC::ESysVRV}, {"dbcn", HVAC::ESysDBCN}, {"fhcn", HVAC::ESysFHCN}, {"czcn", HVAC::ESysCZCN}};
    std::string lower = kind;
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return kinds.at(lower);
}

void RegisterFlangeEdits(CLI::App& flange, const std::shared_ptr<FlangeArguments>& args) {
    CLI::App* setEnd = flange.add_subcommand("set-end", "move the upper bound of a row; raising it swallows the rows it passes");
    setEnd->add_option("row-end", args->first, "the present upper bound of the row")->required();
    setEnd->add_option("new-end", args->second, "its new upper bound")->required();
    setEnd->callback([args] {
        CheckTableNumber("the row's end", args->first);
        CheckTableNumber("the new end", args->second);
        const ConfigEditLock lock(args->file);
        LoadConfiguration(args->file);
        QoHvacDuctFlangeManager& table = EditableFlangeTable();
        const int row = RowEndingAt(table, args->first);
        if (row < 0) NoRowEndingAt(args->first);
        if (!table.ChangeEndRange(args->second, args->first))
            throw UsageError("the row ending at " + NumberText(args->first) + " starts at " +
                             NumberText(table.GetStartRange(row)) + "; it can't end at or below its start");
        SaveFlangeTable(table, args->file);
    });

    CLI::App* setStart = flange.add_subcommand("set-start", "move the lower bound of a row, splitting or removing the rows below");
    setStart->add_option("row-end", args->first, "the upper bound of the row")->required();
    setStart->add_option("new-start", args->second, "its new lower bound")->required();
    setStart->callback([args] {
        CheckTableNumber("the row's end", args->first);
        CheckTableNumber("the new start", args->second);
        const ConfigEditLock lock(args->file);
        LoadConfiguration(args->file);
        QoHvacDuctFlangeManager& table = EditableFlangeTable();
        // Checked first: the table would otherwise keep the new bound.
        if (RowEndingAt(table, args->first) < 0) NoRowEndingAt(args->first);
        if (!table.ChangeStartRange(args->second, args->first))
            throw UsageError("the row ending at " + NumberText(args->first) + " can't start at " +
                             NumberText(args->second) + " or above");
        SaveFlangeTable(table, args->file);
    });

    CLI::App* add = flange.add_subcommand(
        "add", "add a row ending at END with OFFSET (replacing a row with that end); without arguments, append a row as wide as the last");
    add->add_option("end", args->first, "upper bound of the new row");
    add->add_option("offset", args->second, "its flange offset");
    add->callback([args, add] {
        const size_t given = add->count("end") + add->count("offset");
        if (given == 1) throw UsageError("give both END and OFFSET, or neither");
        if (given == 2) {
            CheckTableNumber("the end", args->first);
            CheckTableNumber("the offset", args->second);
        }
        const ConfigEditLock lock(args->file);
        LoadConfiguration(args->file);
        QoHvacDuctFlangeManager& table = EditableFlangeTable();
        if (given == 0 && !table.TryAddItem())
            throw UsageError("a row as wide as the last would end beyond the largest number");
        if (given == 2 && !table.TryAddSizeSet(args->first, args->second)) throw UsageError("the row was refused");
        SaveFlangeTable(table, args->file);
    });

    CLI::App* del = flange.add_subcommand("del", "remove the row ending at END; the row above takes over its sizes");
    del->add_option("end", args->first, "upper bound of the row")->required();
    del->callback([args] {
        CheckTableNumber("the end", args->first);
        const ConfigEditLock lock(args->file);
        LoadConfiguration(args->file);
        QoHvacDuctFlangeManager& table = EditableFlangeTable();
        if (!table.DelItem(args->first)) NoRowEndingAt(args->first);
        SaveFlangeTable(table, args->file);
    });

    CLI::App* setOffset = flange.add_subcommand("set-offset", "give the row ending at END a new offset");
    setOffset->add_option("end", args->first, "upper bound of the row")->required();
    setOffset->add_option("offset", args->second, "the new offset")->required();
    setOffset->callback([args] {
        CheckTableNumber("the end", args->first);
        CheckTableNumber("the offset", args->second);
        const ConfigEditLock lock(args->file);
        LoadConfiguration(args->file);
        QoHvacDuctFlangeManager& table = EditableFlangeTable();
        if (!table.ChangeOffset(args->second, args->first)) NoRowEndingAt(args->first);
        SaveFlangeTable(table, args->file);
    });

    CLI::App* setLast = flange.add_subcommand("set-last", "make END the end of the table, cutting or extending it");
    setLast->add_option("end", args->first, "the new last upper bound")->required();
    setLast->callback([args] {
        CheckTableNumber("the end", args->first);
        const ConfigEditLock lock(args->file);
        LoadConfiguration(args->file);
        QoHvacDuctFlangeManager& table = EditableFlangeTable();
        if (!table.SetLastEndRange(args->first)) throw UsageError("the end was refused");
        SaveFlangeTable(table, args->file);
    });

    for (CLI::App* edit : {setEnd, setStart, add, del, setOffset, setLast}) edit->add_option("--config", args->file, kConfigHelp);
}

void RegisterFlangeLookups(CLI::App& flange, const std::shared_ptr<FlangeArguments>& args) {
    CLI::App* offset = flange.add_subcommand("offset", "the duct flange offset for a duct size");
    offset->add_option("size", args->first, "duct size")->required();
    offset->add_flag("--json", args->json, "print JSON");
    offset->callback([args] {
        CheckTableNumber("the duct size", args->first);
        LoadConfiguration(args->file);
        const double result = QoHvacDuctFlangeManager::GetInstance()->GetOffset(args->first);
        if (args->json)
            PrintJson(std::cout, "flange offset", Json{{"size", args->first}, {"offset", result}});
        else
            std::cout << NumberText(result) << "\n";
    });

    CLI::App* pipe = flange.add_subcommand("pipe", "pipe flange thickness and projection for a nominal size");
    pipe->add_option("size", args->first, "nominal pipe size")->required();
    pipe->add_option("--kind", args->kind, "system kind (default kt)")
        ->check(CLI::IsMember({"kt", "vrv", "dbcn", "fhcn", "czcn"}, CLI::ignore_case));
    pipe->add_flag("--json", args->json, "print JSON");
    pipe->callback([args] {
        CheckTableNumber("the pipe size", args->first);
        LoadConfiguration(args->file);
        const EQoDbHvacSystemType kind = ParseKind(args->kind);
        const QoHvacWTFlangeManager& manager = *QoHvacWTFlangeManager::GetInstance();
        const double thickness = manager.GetThickness(args->first, kind);
        const double extrude = manager.GetExrtude(args->first, kind);
        if (args->json)
            PrintJson(std::cout, "flange pipe",
                      Json{{"size", args->first}, {"kind", args->kind}, {"thickness", thickness}, {"extrude", extrude}});
        else
            std::cout << "thickness " << NumberText(thickness) << "\nextrude " << NumberText(extrude) << "\n";
    });

    for (CLI::App* lookup : {offset, pipe}) lookup->add_option("--config", args->file, kConfigHelp);
}

}  // namespace

void RegisterSettingsCommands(CLI::App& app) {
    struct SettingsArguments {
        std::string file;
        std::string manager;
        bool json = false;
    };
    auto settingsArgs = std::make_shared<SettingsArguments>();
    std::vector<std::string> names;
    for (const SettingsSection& section : Sections()) names.emplace_back(section.name);

    CLI::App* settings = app.add_subcommand("settings", "print the effective component settings, from Config.xml and the built-in values");
    settings->add_option("manager", settingsArgs->manager, "only this one")->check(CLI::IsMember(names));
    settings->add_flag("--json", settingsArgs->json, "print JSON instead of a listing");
    settings->add_option("--config", settingsArgs->file, kConfigHelp);
    settings->callback([settingsArgs] {
        LoadConfiguration(settingsArgs->file);
        Json all = Json::object();
        for (const SettingsSection& section : Sections())
            if (settingsArgs->manager.empty() || settingsArgs->manager == section.name) all[section.name] = section.make();
        if (settingsArgs->json)
            PrintJson(std::cout, "settings", all);
        else
            PrintListing(all, 0, std::cout);
    });

    auto flangeArgs = std::make_shared<FlangeArguments>();
    CLI::App* flange = app.add_subcommand("flange", "look up and edit the flange tables");
    flange->require_subcommand(1);
    RegisterFlangeLookups(*flange, flangeArgs);
    RegisterFlangeEdits(*flange, flangeArgs);
}

}  // namespace zefra::cli
