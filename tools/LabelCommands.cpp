// zefra label: the lines of a duct label, worked out from a duct described
// in a JSON file, or from the stored contents of the label list.

#include "Cli.h"
#include "PointIO.h"
#include "InputFiles.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtFileSearch.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/labels/QoHvacDuctLabelManager.h"
#include "zefra/platform/entities/QoDbHvacDuct.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <fstream>
#include <initializer_list>
#include <iostream>
#include <memory>
#include <string>
#include <utility>

namespace zefra::cli {

namespace {

using Json = nlohmann::ordered_json;

std::string Utf8(const CString& text) { return QoDtTextCodec::ToUtf8(text); }
std::string Utf8(const QoStringW& text) { return QoDtTextCodec::ToUtf8(CString(text.GetString())); }
CString Wide(const std::string& text) { return QoDtTextCodec::FromUtf8(text); }

// Loads the configuration into g_dictCfg, where the label settings are read:
// the file of --config, or Config.xml as the system finds it.
void LoadLabelConfig(const std::string& chosen) {
    if (!chosen.empty()) {
        CString message;
        if (!g_dictCfg.LoadFromXML(Wide(chosen), &message)) throw UsageError(Utf8(message));
        return;
    }
    if (QoDtConfigStore::GetLoadState(QoDtConfigStore::eConfig) == QoDtConfigStore::eNotLoaded) LoadConfigData();
    switch (QoDtConfigStore::GetLoadState(QoDtConfigStore::eConfig)) {
        case QoDtConfigStore::eLoaded: return;
        case QoDtConfigStore::eLoadFailed: throw UsageError("Config.xml could not be read");
        default: {
            std::string searched;
            for (const std::string& directory : QoDtFileSearch::SearchDirectories())
                if (!directory.empty()) searched += "\n  " + directory;
            throw UsageError("Config.xml not found; searched:" + searched);
        }
    }
}

// Builds a duct from the fields of a JSON object, each checked on its own so
// that an error names the field at fault.
class DuctReader {
public:
    DuctReader(const Json& fields, std::string file) : m_fields(fields), m_file(std::move(file)) {}

    std::unique_ptr<QoDbHvacDuct> Read() const {
        if (!m_fields.is_object()) throw UsageError(m_file + ": the duct must be a JSON object");
        for (const auto& field : m_fields.items())
            if (!IsKnownField(field.key())) throw Bad(field.key(), "is not a field of a duct");

        auto duct = std::make_unique<QoDbHvacDuct>(DuctType());
        duct->SetSectionShape(Shape());
        duct->SetVertAlignment(Alignment());
        const double width = Number("width", Need::Required, Range::Positive);
        duct->SetWidth(width);
        // A round duct is as high as it is wide.
        const bool round = duct->GetSectionShape() == QoDbHvacDuct::ESectionRound;
        duct->SetHeight(Number("height", round ? Need::Optional : Need::Required, Range::Positive, width));
        duct->SetStartPoint(Point("start"));
        duct->SetEndPoint(Point("end"));
        duct->SetActualLength(Number("length", Need::Optional, Range::NonNegative,
                                     Distance(duct->GetStartPoint(), duct->GetEndPoint())));
        if (Has("flow")) duct->SetWindCapacity(Number("flow", Need::Required, Range::NonNegative));
        if (Has("velocity")) duct->SetWindVelocity(Number("velocity", Need::Required, Range::NonNegative));
        if (Has("specific_friction"))
            duct->SetBMZ(Number("specific_friction", Need::Required, Range::NonNegative));
        if (Has("system")) duct->SetSystemName(Wide(Text("system")).GetString());
        return duct;
    }

private:
    enum class Need { Required, Optional };
    enum class Range { Positive, NonNegative };

    static bool IsKnownField(const std::string& key) {
        static const char* const kFields[] = {"width", "height", "shape", "alignment", "type", "start", "end",
                                              "length", "flow", "velocity", "specific_friction", "system"};
        for (const char* known : kFields)
            if (key == known) return true;
        return false;
    }

    UsageError Bad(const std::string& field, const std::string& problem) const {
        return UsageError(m_file + ": duct field '" + field + "' " + problem);
    }

    bool Has(const char* field) const { return m_fields.contains(field); }

    double Number(const char* field, Need need, Range range, double fallback = 0.0) const {
        if (!Has(field)) {
            if (need == Need::Required) throw Bad(field, "is missing");
            return fallback;
        }
        const Json& value = m_fields.at(field);
        if (!value.is_number()) throw Bad(field, "must be a number");
        const double number = value.get<double>();
        if (!std::isfinite(number)) throw Bad(field, "must be a finite number");
        if (range == Range::Positive && !(number > 0.0)) throw Bad(field, "must be greater than 0");
        if (range == Range::NonNegative && number < 0.0) throw Bad(field, "must not be negative");
        return number;
    }

    std::string Text(const char* field) const {
        const Json& value = m_fields.at(field);
        if (!value.is_string()) throw Bad(field, "must be a text");
        return value.get<std::string>();
    }

    // One of the choices, by its position; the first when the field is absent.
    int Choice(const char* field, std::initializer_list<const char*> choices) const {
        if (!Has(field)) return 0;
        const std::string text = Text(field);
        int index = 0;
        std::string listed;
        for (const char* choice : choices) {
            if (text == choice) return index;
            listed += (index++ == 0 ? "" : ", ") + std::string(choice);
        }
        throw Bad(field, "must be one of " + listed);
    }

    QoDbHvacDuct::EDuctType DuctType() const {
        static const QoDbHvacDuct::EDuctType kTypes[] = {QoDbHvacDuct::EDuctNormal, QoDbHvacDuct::EDuctVertical,
                                                         QoDbHvacDuct::EDuctFlexible};
        return kTypes[Choice("type", {"normal", "vertical", "flexible"})];
    }

    QoDbHvacDuct::ESectionShape Shape() const {
        return static_cast<QoDbHvacDuct::ESectionShape>(Choice("shape", {"rect", "round"}));
    }

    QoDbHvacDuct::EVertAlignment Alignment() const {
        static const QoDbHvacDuct::EVertAlignment kAlignments[] = {
            QoDbHvacDuct::EVertAlignCenter, QoDbHvacDuct::EVertAlignTop, QoDbHvacDuct::EVertAlignBottom};
        return kAlignments[Choice("alignment", {"center", "top", "bottom"})];
    }

    AcGePoint3d Point(const char* field) const {
        if (!Has(field)) return AcGePoint3d();
        const Json& value = m_fields.at(field);
        if (!value.is_array() || value.size() != 3) throw Bad(field, "must be a list of three numbers [x, y, z]");
        double xyz[3];
        for (size_t i = 0; i < 3; ++i) {
            if (!value[i].is_number() || !std::isfinite(value[i].get<double>()))
                throw Bad(field, "must be a list of three numbers [x, y, z]");
            xyz[i] = value[i].get<double>();
        }
        return AcGePoint3d(xyz[0], xyz[1], xyz[2]);
    }

    static double Distance(const AcGePoint3d& a, const AcGePoint3d& b) {
        return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y) + (a.z - b.z) * (a.z - b.z));
    }

    const Json& m_fields;
    std::string m_file;
};

std::unique_ptr<QoDbHvacDuct> ReadDuctFile(const std::string& path) {
    const std::string text = ReadInputText("--duct", path);
    Json fields;
    try {
        fields = Json::parse(text);
    } catch (const Json::exception& e) {
        throw UsageError(path + ": not valid JSON: " + e.what());
    }
    return DuctReader(fields, path).Read();
}

struct LabelArguments {
    int list = 0;
    bool automatic = false;
    std::string ductFile;
    std::string configFile;
    bool json = false;
};

void PrintLines(const QoArray<QoHvacDuctLabelData>& lines, const LabelArguments& args) {
    if (args.json) {
        Json out;
        out["list"] = args.automatic ? Json("auto") : Json(args.list);
        out["lines"] = Json::array();
        for (int i = 0; i < lines.GetLength(); ++i) {
            const QoHvacDuctLabelData& line = lines[i];
            out["lines"].push_back({{"name", Utf8(line.name)},
                                    {"prefix", Utf8(line.prefix)},
                                    {"value", Utf8(line.value)},
                                    {"suffix", Utf8(line.suffix)},
                                    {"base_value", Utf8(line.baseValue)},
                                    {"precision", line.precision}});
        }
        PrintJson(std::cout, "label", out);
        return;
    }
    if (lines.IsEmpty()) std::cerr << "zefra: the label list has no selected lines\n";
    for (int i = 0; i < lines.GetLength(); ++i) {
        const QoHvacDuctLabelData& line = lines[i];
        std::cout << Utf8(line.name) << '\t' << Utf8(line.prefix) << '\t' << Utf8(line.value) << '\t'
                  << Utf8(line.suffix) << '\n';
    }
}

void RunLabel(const LabelArguments& args) {
    if (!args.automatic && args.list < 0) throw UsageError("give --list 0 to 3 for a lead label, or --auto");
    // The duct file is checked before the configuration is looked for.
    std::unique_ptr<QoDbHvacDuct> duct;
    if (!args.ductFile.empty()) duct = ReadDuctFile(args.ductFile);
    LoadLabelConfig(args.configFile);

    const QoHvacDuctLabelManager* labels = QoHvacDuctLabelManager::GetInstance();
    PrintLines(args.automatic ? labels->GetAutoLabelData(duct.get()) : labels->GetLeadLabelData(duct.get(), args.list),
               args);
}

}  // namespace

void RegisterLabelCommands(CLI::App& app) {
    auto args = std::make_shared<LabelArguments>();
    args->list = -1;
    CLI::App* label = app.add_subcommand(
        "label", "the lines of a duct label (name, prefix, value, suffix), from a duct or from the stored contents");
    CLI::Option* list =
        label->add_option("--list", args->list, "lead label list, 0 to 3")->check(CLI::Range(0, 3));
    label->add_flag("--auto", args->automatic, "the automatic label instead of a lead label")->excludes(list);
    label->add_option("--duct", args->ductFile,
                      "JSON file of the duct: width, height (mm), shape rect|round, alignment center|top|bottom, "
                      "type normal|vertical|flexible, start and end [x, y, z] (mm), length (mm), flow (m3/h), "
                      "velocity (m/s), specific_friction (Pa/m), system (its display name)");
    label->add_option("--config", args->configFile, "use this configuration file instead of searching for Config.xml");
    label->add_flag("--json", args->json, "print JSON instead of tab-separated lines");
    label->callback([args] { RunLabel(*args); });
}

}  // namespace zefra::cli
