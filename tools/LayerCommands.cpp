// zefra systems list|add|del and zefra layer: the named systems of the
// layer standard, and the layer that a sort of drawn thing goes on.

#include "Cli.h"
#include "PointIO.h"

#include "zefra/config/HvacConfigAccess.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictStringItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtFileSearch.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/layers/HvacLayerKeys.h"
#include "zefra/layers/HvacLayerResolution.h"
#include "zefra/layers/QoHvacDuctLayerManager.h"
#include "zefra/layers/SHvacSystemKind.h"
#include "zefra/platform/host/AcDbDatabase.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>
#include <iostream>
#include <memory>
#include <string>

namespace zefra::cli {

namespace {

using HVAC::EQoDbHvacSystemType;

std::string Utf8(const CString& text) { return QoDtTextCodec::ToUtf8(text); }
CString Wide(const std::string& text) { return QoDtTextCodec::FromUtf8(text); }

struct KindName {
    const char* name;
    EQoDbHvacSystemType kind;
};

const KindName kKindNames[] = {
    {"duct", HVAC::ESysDuct}, {"kt", HVAC::ESysKT},     {"vrv", HVAC::ESysVRV},
    {"dbcn", HVAC::ESysDBCN}, {"fhcn", HVAC::ESysFHCN}, {"czcn", HVAC::ESysCZCN},
};

EQoDbHvacSystemType ParseKind(const std::string& text) {
    std::string lower = text;
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return std::tolower(c); });
    for (const KindName& entry : kKindNames)
        if (lower == entry.name) return entry.kind;
    throw UsageError("unknown system kind '" + text + "'; use one of duct, kt, vrv, dbcn, fhcn, czcn");
}

std::string KindText(EQoDbHvacSystemType kind) {
    for (const KindName& entry : kKindNames)
        if (entry.kind == kind) return entry.name;
    return std::to_string(static_cast<int>(kind));
}

// The configuration the commands work on, loaded into g_dictCfg where the
// register reads it: the file of --config, or Config.xml as the system finds
// it.
class LayerConfig {
public:
    explicit LayerConfig(const std::string& chosen) : m_chosen(chosen) {
        if (!m_chosen.empty()) {
            CString message;
            if (!g_dictCfg.LoadFromXML(Wide(m_chosen), &message)) throw UsageError(Utf8(message));
        } else if (QoDtConfigStore::GetLoadState(QoDtConfigStore::eConfig) == QoDtConfigStore::eNotLoaded) {
            LoadConfigData();
        }
        if (m_chosen.empty()) {
            switch (QoDtConfigStore::GetLoadState(QoDtConfigStore::eConfig)) {
                case QoDtConfigStore::eLoaded: break;
                case QoDtConfigStore::eLoadFailed: throw UsageError("Config.xml could not be read");
                default: {
                    std::string searched;
                    for (const std::string& directory : QoDtFileSearch::SearchDirectories())
                        if (!directory.empty()) searched += "\n  " + directory;
                    throw UsageError("Config.xml not found; searched:" + searched);
                }
            }
        }
        // The register may have been built before this load.
        QoHvacDuctLayerManager* layers = QoHvacDuctLayerManager::GetInstance();
        layers->ReRead();
        layers->ReReadSysUserComparison();
    }

    // Writes the tree back and gives the file written: the --config file, or
    // where the system saves Config.xml (shipped data goes to the user's
    // directory instead).
    std::string Save() const {
        if (!m_chosen.empty()) {
            CString message;
            if (!g_dictCfg.SaveToXML(Wide(m_chosen), &message)) throw UsageError(Utf8(message));
            return m_chosen;
        }
        CString found;
        CString target;
        if (!FindFile(QoDtConfigStore::FileName(QoDtConfigStore::eConfig), found) ||
            !QoDtConfigStore::SaveTarget(QoDtConfigStore::eConfig, found, target))
            throw UsageError("nowhere to save the configuration: set ZEFRA_CONFIG_DIR or HOME");
        // HVAC::SaveConfigData's steps, with the result of the write checked.
        g_dictCfg.children.MoveToFirst();
        CString message;
        if (!g_dictCfg.SaveToXML(target, &message))
            throw UsageError("the configuration was not saved: " + Utf8(message));
        return Utf8(target);
    }

private:
    std::string m_chosen;
};

// The kind's flag set below "ZEFRA"; null when it is missing and not made.
QoDtDictionary* FlagSet(EQoDbHvacSystemType kind, bool create) {
    const CString path = CString(L"ZEFRA\\") + HVAC::SHvacSystemKind::Find(kind)->flagSet;
    return create ? g_dictCfg.FindOrAddDict(path) : g_dictCfg.FindDict(path);
}

// ---- systems -------------------------------------------------------------

void ListSystems(EQoDbHvacSystemType kind, bool json) {
    QoHvacDuctLayerManager* layers = QoHvacDuctLayerManager::GetInstance();
    layers->ReRead();
    const QoDtDictionary* systems = layers->GetSysDefDict(kind);
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    if (systems) {
        for (QoDtDictItem* const* p = systems->children.GetFirst(); p; p = systems->children.GetNext(p)) {
            const CString flag = layers->GetFlagWithSysname((*p)->localname, kind);
            list.push_back({{"key", Utf8((*p)->name)}, {"name", Utf8((*p)->localname)}, {"flag", Utf8(flag)}});
        }
    }
    if (json) {
        PrintJson(std::cout, "systems list", nlohmann::ordered_json{{"kind", KindText(kind)}, {"systems", list}});
        return;
    }
    if (list.empty()) {
        std::cout << "no systems of kind " << KindText(kind) << "\n";
        return;
    }
    size_t keyWidth = 3;
    for (const auto& system : list) keyWidth = std::max(keyWidth, system["key"].get<std::string>().size());
    std::cout << "key" << std::string(keyWidth - 3 + 2, ' ') << "name (flag)\n";
    for (const auto& system : list) {
        const std::string key = system["key"];
        const std::string flag = system["flag"];
        std::cout << key << std::string(keyWidth - key.size() + 2, ' ') << system["name"].get<std::string>()
                  << " (" << (flag.empty() ? "no flag" : flag) << ")\n";
    }
}

struct AddRequest {
    std::string key;
    std::string name;
    std::string value;
    std::string sample;
    std::string flag;
    std::string newKey;  // rename only
    std::string comment;
    int color = 0;
    std::string lineType;
};

using SystemLook = QoHvacDuctLayerManager::SSystemLook;

// The look and description options that the user gave.
SystemLook LookOf(const CLI::App& command, const AddRequest& request) {
    SystemLook look;
    if (command.count("--linetype") > 0) look.lineType = Wide(request.lineType);
    if (command.count("--color") > 0) look.colorIndex = request.color;
    if (command.count("--comment") > 0) look.comment = Wide(request.comment);
    if (command.count("--value") > 0) look.value = Wide(request.value);
    return look;
}

// The name of the system that has the key, for messages.
std::string NameOfKey(QoHvacDuctLayerManager& layers, const CString& key, EQoDbHvacSystemType kind) {
    CString name;
    layers.GetSysLocalName(key, name, kind);
    return Utf8(name);
}

[[noreturn]] void RefuseEdit(QoHvacDuctLayerManager::ESystemEdit result, EQoDbHvacSystemType kind,
                             const AddRequest& request, const std::string& keyGiven, const std::string& nameGiven) {
    QoHvacDuctLayerManager& layers = *QoHvacDuctLayerManager::GetInstance();
    const std::string of = " of kind " + KindText(kind);
    switch (result) {
        case QoHvacDuctLayerManager::eNoSystemList:
            throw UsageError("the layer standard has no system list for kind " + KindText(kind));
        case QoHvacDuctLayerManager::eUnknownSystem: throw UsageError("no system '" + request.key + "'" + of);
        case QoHvacDuctLayerManager::eUnknownSample:
            if (request.sample.empty()) throw UsageError("kind " + KindText(kind) + " has no system to copy the layers from");
            throw UsageError("no system '" + request.sample + "'" + of + " to copy");
        case QoHvacDuctLayerManager::eBadKey:
            throw UsageError("the system key '" + keyGiven + "' must not be empty or hold '-' or a backslash");
        case QoHvacDuctLayerManager::eBadName:
            throw UsageError("the display name '" + nameGiven + "' must not be empty or hold a backslash");
        case QoHvacDuctLayerManager::eKeyTaken:
            throw UsageError("the key '" + keyGiven + "' belongs to system '" + NameOfKey(layers, Wide(keyGiven), kind) +
                             "'" + of);
        case QoHvacDuctLayerManager::eNameTaken: {
            CString owner;
            layers.GetSysKey(Wide(nameGiven), owner, kind);
            throw UsageError("the name '" + nameGiven + "' belongs to system '" + Utf8(owner) + "'" + of);
        }
        case QoHvacDuctLayerManager::eBadLook: throw UsageError("--linetype must not be empty");
        case QoHvacDuctLayerManager::eSystemEdited: break;
    }
    throw UsageError("the system could not be changed");
}

// Sets the system's flag in the kind's flag set, which the layer tree
// doesn't hold.
void StoreFlag(EQoDbHvacSystemType kind, const CString& key, const CString& name, const std::string& flagText) {
    QoDtDictionary* flagSet = FlagSet(kind, true);
    QoDtDictItem* item = flagSet ? flagSet->FindOrAddItem(key, QoDtDictItem::eDtString) : nullptr;
    if (!item) throw UsageError("the flag could not be stored");
    item->SetAttributeValue(L"flag", Wide(flagText));
    if (item->GetType() == QoDtDictItem::eDtString) static_cast<QoDtDictStringItem*>(item)->value = name;
}

// A new key copies a sample of its kind; a key the kind has already is
// renamed in place, keeping what isn't given.
void AddSystem(const LayerConfig& config, EQoDbHvacSystemType kind, const AddRequest& request, const SystemLook& look) {
    QoHvacDuctLayerManager* layers = QoHvacDuctLayerManager::GetInstance();
    const CString key = Wide(request.key);
    const CString name = Wide(request.name);
    if (name.IsEmpty()) RefuseEdit(QoHvacDuctLayerManager::eBadName, kind, request, request.key, request.name);
    const bool existed = layers->FindSystem(key, kind);
    if (existed && !request.sample.empty())
        throw UsageError("system '" + request.key + "' of kind " + KindText(kind) +
                         " exists; --sample applies to a new system only");
    const QoHvacDuctLayerManager::ESystemEdit result =
        existed ? layers->RenameSystem(key, CString(), name, look, kind)
                : layers->AddSystemFromSample(key, name, Wide(request.sample), look, kind);
    if (result != QoHvacDuctLayerManager::eSystemEdited) RefuseEdit(result, kind, request, request.key, request.name);
    if (!request.flag.empty()) StoreFlag(kind, key, name, request.flag);
    layers->ReReadSysUserComparison();
    const std::string saved = config.Save();
    std::cout << (existed ? "updated" : "added") << " system " << request.key << " (" << request.name << ") of kind "
              << KindText(kind) << "; saved to " << saved << "\n";
}

void RenameSystem(const LayerConfig& config, EQoDbHvacSystemType kind, const AddRequest& request, const SystemLook& look) {
    QoHvacDuctLayerManager* layers = QoHvacDuctLayerManager::GetInstance();
    const CString key = Wide(request.key);
    const std::string oldName = NameOfKey(*layers, key, kind);
    const QoHvacDuctLayerManager::ESystemEdit result =
        layers->RenameSystem(key, Wide(request.newKey), Wide(request.name), look, kind);
    if (result != QoHvacDuctLayerManager::eSystemEdited) RefuseEdit(result, kind, request, request.newKey, request.name);
    const std::string newKey = request.newKey.empty() ? request.key : request.newKey;
    const std::string newName = request.name.empty() ? oldName : request.name;
    if (!request.flag.empty()) StoreFlag(kind, Wide(newKey), Wide(newName), request.flag);
    layers->ReReadSysUserComparison();
    const std::string saved = config.Save();
    std::cout << "renamed system " << request.key << " (" << oldName << ") of kind " << KindText(kind) << " to "
              << newKey << " (" << newName << "); saved to " << saved << "\n";
}

void DeleteSystem(const LayerConfig& config, EQoDbHvacSystemType kind, const std::string& keyText) {
    QoHvacDuctLayerManager* layers = QoHvacDuctLayerManager::GetInstance();
    const CString key = Wide(keyText);
    CString name;
    layers->GetSysLocalName(key, name, kind);
    if (!layers->DelSystem(key, kind))
        throw UsageError("no system '" + keyText + "' of kind " + KindText(kind));
    // The flag set is not part of the layer tree; the flag goes with the system.
    if (QoDtDictionary* flagSet = FlagSet(kind, false)) {
        QoDtDictItemList& flags = flagSet->children;
        for (flags.MoveToFirst(); !flags.IsOut(); flags.MoveToNext()) {
            if (flags.GetCurData()->name == key) {
                flags.DelCur();
                break;
            }
        }
    }
    layers->ReReadSysUserComparison();
    const std::string saved = config.Save();
    std::cout << "deleted system " << keyText << " (" << Utf8(name) << ") of kind " << KindText(kind)
              << "; saved to " << saved << "\n";
}

// ---- layer ---------------------------------------------------------------

struct LayerQuery {
    CString model;
    CString system;
    bool plan = true;
    EQoDbHvacSystemType kind = HVAC::ESysDuct;
    int location = 0;
    bool flexible = false;
};

enum LayerArgument : unsigned {
    kPlan = 1,
    kSystem = 2,
    kKind = 4,
    kLocation = 8,
    kFlexible = 16,
    kModel = 32,
};

// One function of the HVAC::GetProp... family as the command offers it. A
// function without a kind argument works on `fixedKind`.
struct LayerFunction {
    const char* name;
    const char* apiName;
    unsigned arguments;
    EQoDbHvacSystemType fixedKind;
    CString (*key)(const LayerQuery&);
};

namespace LK = HVAC::LayerKey;
constexpr unsigned kSP = kSystem | kPlan;
constexpr unsigned kSPK = kSystem | kPlan | kKind;
constexpr EQoDbHvacSystemType kNoKind = HVAC::ESysDuct;

const LayerFunction kLayerFunctions[] = {
    {"model", "GetPropModelLayer", kModel | kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::Make(q.model, q.system, q.plan, q.kind); }},
    {"duct", "GetPropDuctLayer", kSP | kFlexible, HVAC::ESysDuct,
     [](const LayerQuery& q) { return LK::Duct(q.system, q.plan, q.flexible); }},
    {"duct-label", "GetPropDuctLabelLayer", kSP, HVAC::ESysDuct,
     [](const LayerQuery& q) { return LK::DuctLabel(q.system, q.plan); }},
    {"pipe", "GetPropPipeLayer", kSPK, kNoKind, [](const LayerQuery& q) { return LK::Pipe(q.system, q.plan, q.kind); }},
    {"pipe-label", "GetPropPipeLabelLayer", kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::PipeLabel(q.system, q.plan, q.kind); }},
    {"kt-pipe", "GetPropKTPipeLayer", kSP, HVAC::ESysKT,
     [](const LayerQuery& q) { return LK::KTPipe(q.system, q.plan); }},
    {"vrv-pipe", "GetPropVRVPipeLayer", kSP, HVAC::ESysVRV,
     [](const LayerQuery& q) { return LK::VRVPipe(q.system, q.plan); }},
    {"riser", "GetPropRiserLayer", kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::Riser(q.system, q.plan, q.kind); }},
    {"riser-label", "GetPropRiserLabelLayer", kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::RiserLabel(q.system, q.plan, q.kind); }},
    {"bucklebend", "GetPropBucklebendLayer", kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::Bucklebend(q.system, q.plan, q.kind); }},
    {"endline", "GetPropEndlineLayer", kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::Endline(q.system, q.plan, q.kind); }},
    {"axisline", "GetPropAxislineLayer", kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::Axisline(q.system, q.plan, q.kind); }},
    {"flange", "GetPropFlangeLayer", kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::Flange(q.system, q.plan, q.kind); }},
    {"terminal", "GetPropTerminalLayer", kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::Terminal(q.system, q.plan, q.kind); }},
    {"terminal-label", "GetPropTerminalLabelLayer", kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::TerminalLabel(q.system, q.plan, q.kind); }},
    {"equip", "GetPropEquipLayer", kSP, HVAC::ESysDuct,
     [](const LayerQuery& q) { return LK::Equip(q.system, q.plan); }},
    {"equip-label", "GetPropEquipLabelLayer", kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::EquipLabel(q.system, q.plan, q.kind); }},
    {"valve-label", "GetPropValveLabelLayer", kSPK, kNoKind,
     [](const LayerQuery& q) { return LK::ValveLabel(q.system, q.plan, q.kind); }},
    {"equipment", "GetPropEquipmentLayer", kSPK | kLocation, kNoKind,
     [](const LayerQuery& q) { return LK::Equipment(q.system, q.location, q.plan, q.kind); }},
    {"valve", "GetPropValveLayer", kSPK | kLocation, kNoKind,
     [](const LayerQuery& q) { return LK::Valve(q.system, q.location, q.plan, q.kind); }},
    {"radiator", "GetPropRadiatorLayer", kPlan | kKind, kNoKind,
     [](const LayerQuery& q) { return LK::Radiator(q.plan, q.kind); }},
    {"kt-pipe-equip", "GetPropKTPipeEquipLayer", kSP, HVAC::ESysKT,
     [](const LayerQuery& q) { return LK::KTPipeEquip(q.system, q.plan); }},
    {"kt-riser-equip", "GetPropKTRiserEquipLayer", kSP, HVAC::ESysKT,
     [](const LayerQuery& q) { return LK::KTRiserEquip(q.system, q.plan); }},
    {"vrv-pipe-equip", "GetPropVRVPipeEquipLayer", kSP, HVAC::ESysVRV,
     [](const LayerQuery& q) { return LK::VRVPipeEquip(q.system, q.plan); }},
    {"vrv-riser-equip", "GetPropVRVRiserEquipLayer", kSP, HVAC::ESysVRV,
     [](const LayerQuery& q) { return LK::VRVRiserEquip(q.system, q.plan); }},
    {"vrv-fqg", "GetPropVRVFQGLayer", kPlan, HVAC::ESysVRV, [](const LayerQuery& q) { return LK::VRVFQG(q.plan); }},
    {"insulation", "GetPropInsulation", 0, kNoKind, [](const LayerQuery&) { return LK::Insulation(); }},
    {"common-label", "GetPropCommonLabel", 0, kNoKind, [](const LayerQuery&) { return LK::CommonLabel(); }},
    {"broken-sign", "GetPropBrokenSign", 0, kNoKind, [](const LayerQuery&) { return LK::BrokenSign(); }},
    {"floor-line", "GetPropFloorLine", 0, kNoKind, [](const LayerQuery&) { return LK::FloorLine(); }},
    {"material", "GetPropMaterialLayer", 0, kNoKind, [](const LayerQuery&) { return LK::MaterialTable(); }},
    {"hdg-point-label", "GetPropHDG_Point_Label_Layer", 0, kNoKind,
     [](const LayerQuery&) { return LK::HDGPointLabel(); }},
    {"hdg-line-label", "GetPropHDG_Line_Label_Layer", 0, kNoKind,
     [](const LayerQuery&) { return LK::HDGLineLabel(); }},
    {"hdg-point", "GetPropHDG_Point_Layer", 0, kNoKind, [](const LayerQuery&) { return LK::HDGPoint(); }},
    {"hdg-line", "GetPropHDG_Line_Layer", 0, kNoKind, [](const LayerQuery&) { return LK::HDGLine(); }},
    {"hdg-hhr", "GetPropHDG_Hhr_Layer", 0, kNoKind, [](const LayerQuery&) { return LK::HDGHhr(); }},
    {"hdg-rh", "GetPropHDG_rh_Layer", 0, kNoKind, [](const LayerQuery&) { return LK::HDGRh(); }},
    {"hdg-h", "GetPropHDG_h_Layer", 0, kNoKind, [](const LayerQuery&) { return LK::HDGH(); }},
    {"hdg-d", "GetPropHDG_d_Layer", 0, kNoKind, [](const LayerQuery&) { return LK::HDGD(); }},
    {"hdg-t", "GetPropHDG_t_Layer", 0, kNoKind, [](const LayerQuery&) { return LK::HDGT(); }},
    {"hdg-hst", "GetPropHDG_Hst_Layer", 0, kNoKind, [](const LayerQuery&) { return LK::HDGHst(); }},
};

std::string FunctionNames() {
    std::string names;
    for (const LayerFunction& function : kLayerFunctions) names += (names.empty() ? "" : ", ") + std::string(function.name);
    return names;
}

const LayerFunction& FindFunction(const std::string& name) {
    for (const LayerFunction& function : kLayerFunctions)
        if (name == function.name || name == function.apiName) return function;
    throw UsageError("unknown layer function '" + name + "'; use one of " + FunctionNames() +
                     " (or the GetProp... name)");
}

struct LayerOptions {
    std::string function;
    std::string model;
    std::string system;
    std::string kind;
    bool plan = false;
    bool diagram = false;
    int location = 0;
    bool flexible = false;
    std::string file;
    bool json = false;
    // Which options the user gave.
    bool hasModel = false, hasSystem = false, hasKind = false, hasLocation = false;
};

void Refuse(const LayerFunction& function, const char* option) {
    throw UsageError(std::string("'") + function.name + "' takes no " + option);
}

LayerQuery MakeQuery(const LayerFunction& function, const LayerOptions& options) {
    const unsigned takes = function.arguments;
    if (options.hasModel && !(takes & kModel)) Refuse(function, "--model");
    if (options.hasSystem && !(takes & kSystem)) Refuse(function, "--system");
    if (options.hasKind && !(takes & kKind)) Refuse(function, "--kind (its kind is fixed)");
    if (options.hasLocation && !(takes & kLocation)) Refuse(function, "--location");
    if (options.flexible && !(takes & kFlexible)) Refuse(function, "--flexible");
    if ((options.plan || options.diagram) && !(takes & kPlan)) Refuse(function, "--plan or --diagram");
    if ((takes & kKind) && !options.hasKind)
        throw UsageError(std::string("'") + function.name + "' needs --kind duct|kt|vrv|dbcn|fhcn|czcn");
    if ((takes & kModel) && options.model.empty()) throw UsageError("'model' needs --model, e.g. NT_MODEL_PIPE");

    LayerQuery query;
    query.model = Wide(options.model);
    query.system = Wide(options.system);
    query.plan = !options.diagram;
    query.kind = (takes & kKind) ? ParseKind(options.kind) : function.fixedKind;
    query.location = options.location;
    query.flexible = options.flexible;
    return query;
}

void PrintLayer(const LayerOptions& options) {
    const LayerFunction& function = FindFunction(options.function);
    const LayerQuery query = MakeQuery(function, options);
    QoHvacDuctLayerManager* layers = QoHvacDuctLayerManager::GetInstance();

    // An unknown system is no error: it drops out of the key.
    const bool systemKnown = query.system.IsEmpty() || layers->FindName(query.system, query.kind);
    if (!systemKnown)
        std::cerr << "zefra: note: '" << options.system << "' is not a system of kind " << KindText(query.kind)
                  << "; the key has no system part\n";

    const CString key = function.key(query);
    const QoHvacEntProperty property = HVAC::GetPropOfLayerKey(key);
    QoDtLayerDef def(key);
    const bool defined = layers->GetLayerDef(def, nullptr);
    AcDbLayerTableRecord layer;
    acdbHostApplicationServices()->workingDatabase()->layerTable().getAt(property.layerId, layer);
    const CString comment = layers->GetLayerComment(key);

    if (options.json) {
        nlohmann::ordered_json out = {{"function", function.apiName},
                              {"key", Utf8(key)},
                              {"defined", defined},
                              {"layer", Utf8(layer.name())},
                              {"color", layer.colorIndex()},
                              {"linetype", Utf8(layer.linetypeName())},
                              {"lineweight", property.lineWeight},
                              {"linescale", property.lineScale},
                              {"comment", Utf8(comment)}};
        if (!query.system.IsEmpty()) out["system_known"] = systemKnown;
        PrintJson(std::cout, "layer", out);
        return;
    }
    std::cout << "function:   " << function.apiName << "\n"
              << "key:        " << Utf8(key) << "\n"
              << "layer:      " << Utf8(layer.name()) << (defined ? "" : "  (no definition in the standard)") << "\n"
              << "colour:     " << layer.colorIndex() << "\n"
              << "line type:  " << Utf8(layer.linetypeName()) << "\n"
              << "weight:     " << property.lineWeight << " mm\n"
              << "scale:      " << property.lineScale << "\n"
              << "comment:    " << Utf8(comment) << "\n";
}

}  // namespace

void RegisterLayerCommands(CLI::App& app) {
    const char* fileHelp = "use this configuration file instead of searching for Config.xml";
    const char* kindHelp = "system kind: duct, kt, vrv, dbcn, fhcn or czcn";

    CLI::App* systems = app.add_subcommand("systems", "list, add and delete the named systems of the layer standard");
    systems->require_subcommand(1);

    struct SystemOptions {
        std::string kind;
        std::string key;
        AddRequest add;
        std::string file;
        bool json = false;
    };
    auto sys = std::make_shared<SystemOptions>();

    CLI::App* list = systems->add_subcommand("list", "print the systems of a kind: key, display name and flag");
    list->add_option("--kind", sys->kind, kindHelp)->required();
    list->add_option("--config", sys->file, fileHelp);
    list->add_flag("--json", sys->json, "print JSON");
    list->callback([sys] {
        const EQoDbHvacSystemType kind = ParseKind(sys->kind);
        LayerConfig config(sys->file);
        ListSystems(kind, sys->json);
    });

    // The look of a system: line type, colour and comment (for a water
    // system its pipe code), and the description.
    auto addLookOptions = [sys](CLI::App* command) {
        command->add_option("--value", sys->add.value, "a description stored with the system");
        command->add_option("--flag", sys->add.flag, "the short code that labels show for the system");
        command->add_option("--comment", sys->add.comment, "the comment; for a water system the code that starts its pipe labels");
        command->add_option("--color", sys->add.color, "colour index, 0 to 256")->check(CLI::Range(0, 256));
        command->add_option("--linetype", sys->add.lineType, "line type name, e.g. DASHED");
        command->add_option("--config", sys->file, "use this configuration file instead of searching for Config.xml");
    };

    CLI::App* add = systems->add_subcommand(
        "add", "add a system copying line type, colour and layer group of a sample of its kind (or change an existing one), and save");
    add->add_option("--kind", sys->kind, kindHelp)->required();
    add->add_option("--key", sys->add.key, "the system's key, as it goes into layer keys")->required();
    add->add_option("--name", sys->add.name, "the display name")->required();
    add->add_option("--sample", sys->add.sample, "key of the system of the same kind to copy (default: the kind's first)");
    addLookOptions(add);
    add->callback([sys, add] {
        const EQoDbHvacSystemType kind = ParseKind(sys->kind);
        const SystemLook look = LookOf(*add, sys->add);
        const ConfigEditLock lock(sys->file);
        LayerConfig config(sys->file);
        AddSystem(config, kind, sys->add, look);
    });

    CLI::App* rename = systems->add_subcommand(
        "rename", "give a system a new display name or key (its layers follow), or a new look, and save");
    rename->add_option("--kind", sys->kind, kindHelp)->required();
    rename->add_option("--key", sys->add.key, "the system's key")->required();
    rename->add_option("--new-key", sys->add.newKey, "its new key");
    rename->add_option("--name", sys->add.name, "its new display name");
    addLookOptions(rename);
    rename->callback([sys, rename] {
        const EQoDbHvacSystemType kind = ParseKind(sys->kind);
        const SystemLook look = LookOf(*rename, sys->add);
        if (rename->count("--new-key") + rename->count("--name") + rename->count("--flag") == 0 && !look.lineType &&
            !look.colorIndex && !look.comment && !look.value)
            throw UsageError("nothing to change: give --name, --new-key, --comment, --color, --linetype, --value or --flag");
        if (rename->count("--new-key") > 0 && sys->add.newKey.empty()) throw UsageError("--new-key must not be empty");
        if (rename->count("--name") > 0 && sys->add.name.empty()) throw UsageError("--name must not be empty");
        const ConfigEditLock lock(sys->file);
        LayerConfig config(sys->file);
        RenameSystem(config, kind, sys->add, look);
    });

    CLI::App* del = systems->add_subcommand("del", "delete a system and its layer group, and save");
    del->add_option("--kind", sys->kind, kindHelp)->required();
    del->add_option("--key", sys->key, "the system's key")->required();
    del->add_option("--config", sys->file, fileHelp);
    del->callback([sys] {
        const EQoDbHvacSystemType kind = ParseKind(sys->kind);
        const ConfigEditLock lock(sys->file);
        LayerConfig config(sys->file);
        DeleteSystem(config, kind, sys->key);
    });

    auto lay = std::make_shared<LayerOptions>();
    CLI::App* layer = app.add_subcommand(
        "layer", "print the layer key and the layer of a GetProp... function, e.g. 'layer pipe --system 冷冻供水 --kind kt'");
    layer->add_option("function", lay->function, "the function: " + FunctionNames())->required();
    layer->add_option("--system", lay->system, "the system's display name");
    layer->add_option("--kind", lay->kind, kindHelp);
    layer->add_option("--model", lay->model, "the model key, for 'model'");
    layer->add_option("--location", lay->location, "1 on a pipe, 2 on a riser, 0 free-standing (equipment, valve)");
    layer->add_flag("--flexible", lay->flexible, "a flexible duct (duct)");
    CLI::Option* plan = layer->add_flag("--plan", lay->plan, "in a plan (the default)");
    layer->add_flag("--diagram", lay->diagram, "in a system diagram")->excludes(plan);
    layer->add_option("--config", lay->file, fileHelp);
    layer->add_flag("--json", lay->json, "print JSON");
    layer->callback([lay, layer] {
        lay->hasModel = layer->count("--model") > 0;
        lay->hasSystem = layer->count("--system") > 0;
        lay->hasKind = layer->count("--kind") > 0;
        lay->hasLocation = layer->count("--location") > 0;
        FindFunction(lay->function);
        LayerConfig config(lay->file);
        PrintLayer(*lay);
    });
}

}  // namespace zefra::cli
