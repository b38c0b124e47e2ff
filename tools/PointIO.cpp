#include "PointIO.h"

#include "zefra/air/HDGChecks.h"
#include "zefra/air/HDGCurB.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace zefra::cli {

namespace {

// The options in the order of EHvacHDGPointCalItemType.
struct PropertyOption {
    const char* option;
    EHvacHDGPointCalItemType kind;
    const char* help;
};

constexpr PropertyOption kProperties[7] = {
    {"tdb", HDGPT_TDB, "dry-bulb temperature, °C"},
    {"rh", HDGPT_RH, "relative humidity as a fraction (0.6 is 60 %)"},
    {"h", HDGPT_H, "enthalpy, kJ/kg of dry air"},
    {"d", HDGPT_D, "moisture content, g/kg of dry air"},
    {"twb", HDGPT_TWB, "wet-bulb temperature, °C"},
    {"tdp", HDGPT_TDP, "dew-point temperature, °C"},
    {"pv", HDGPT_PV, "vapour partial pressure, Pa"},
};

std::string SupportedPairs(const std::string& prefix) {
    static const int kPairs[][2] = {{0, 1}, {0, 2}, {0, 3}, {0, 4}, {0, 5}, {0, 6}, {1, 2}, {1, 3}, {1, 4},
                                    {1, 5}, {1, 6}, {2, 3}, {2, 5}, {2, 6}, {3, 4}, {4, 5}, {4, 6}};
    std::string text;
    for (const auto& pair : kPairs) {
        if (!text.empty()) text += ", ";
        text += "--" + prefix + kProperties[pair[0]].option + " with --" + prefix + kProperties[pair[1]].option;
    }
    return text;
}

struct Row {
    const char* name;
    const char* symbol;
    double value;
    int decimals;
    const char* unit;
};

// Display width of UTF-8 text: one column per code point.
size_t Columns(const std::string& text) {
    size_t n = 0;
    for (unsigned char c : text)
        if ((c & 0xC0) != 0x80) ++n;
    return n;
}

}  // namespace

double ParseNumber(const std::string& option, const std::string& text) {
    const char* begin = text.c_str();
    char* end = nullptr;
    errno = 0;
    const double value = std::strtod(begin, &end);
    if (text.empty() || end != begin + text.size() || errno == ERANGE || !std::isfinite(value))
        throw UsageError(option + ": '" + text + "' is not a number");
    return value;
}

PointArguments::PointArguments(std::string prefix, std::string label)
    : m_prefix(std::move(prefix)), m_label(std::move(label)) {}

void PointArguments::Register(CLI::App& command) {
    for (int i = 0; i < 7; ++i)
        command.add_option("--" + m_prefix + kProperties[i].option, m_values[i], m_label + ": " + kProperties[i].help)
            ->type_name("NUMBER");
}

bool PointArguments::IsGiven() const {
    for (const auto& value : m_values)
        if (value) return true;
    return false;
}

ZefraHDGPoint PointArguments::Build(const CString& name) const {
    int given[7];
    int count = 0;
    for (int i = 0; i < 7; ++i)
        if (m_values[i]) given[count++] = i;
    const std::string pairs = "supported pairs: " + SupportedPairs(m_prefix);
    if (count != 2)
        throw UsageError(m_label + " needs exactly two properties, " + std::to_string(count) + " given; " + pairs);

    ZefraHDGPoint point;
    point.SetName(name);
    std::string fields[2];
    for (int k = 0; k < 2; ++k) {
        const PropertyOption& property = kProperties[given[k]];
        fields[k] = "--" + m_prefix + property.option;
        const std::string& text = *m_values[given[k]];
        double value = 0.0;
        try {
            value = ParseNumber(fields[k], text);
        } catch (const UsageError& error) {
            throw UsageError(std::string(error.what()) + "; " + pairs);
        }
        switch (property.kind) {
            case HDGPT_TDB: point.SetTdb(value); break;
            case HDGPT_RH: point.SetRH(value); break;
            case HDGPT_H: point.SetH(value); break;
            case HDGPT_D: point.SetD(value); break;
            case HDGPT_TWB: point.SetTwb(value); break;
            case HDGPT_TDP: point.SetTdp(value); break;
            default: point.SetPv(value); break;
        }
    }
    point.SetCalPara1Type(kProperties[given[0]].kind);
    point.SetCalPara2Type(kProperties[given[1]].kind);
    const HDGFaults faults = HDGChecks::Point(point, m_label, fields[0], fields[1]);
    if (!faults.empty()) {
        std::string message = HDGChecks::Describe(faults);
        if (message.find("doesn't define a state") != std::string::npos) message += "; " + pairs;
        throw UsageError(message);
    }
    point.SetName(name);
    return point;
}

ZefraHDGPoint PointArguments::BuildOr(const CString& name, const ZefraHDGPoint& fallback) const {
    return IsGiven() ? Build(name) : fallback;
}

void PressureArgument::Register(CLI::App& command) {
    command.add_option("--pressure", m_text, "atmospheric pressure, Pa")->type_name("NUMBER")->capture_default_str();
}

void PressureArgument::Apply() const {
    const double B = ParseNumber("--pressure", m_text);
    if (const auto fault = HDGChecks::Pressure(B, "--pressure")) throw UsageError(fault->Message);
    SetHDGCurB(B);
}

std::string CalItemName(int kind) {
    static const char* const kNames[] = {"Tdb", "RH", "H", "D", "Twb", "Tdp", "Pv", "Den", "SV", "Ds", "Ps"};
    return kind >= 0 && kind < 11 ? kNames[kind] : std::to_string(kind);
}

void PrintPointTable(std::ostream& out, const ZefraHDGPoint& point) {
    const Row rows[] = {
        {"Dry-bulb temperature", "Tdb", point.GetTdb(), 2, "°C"},
        {"Relative humidity", "RH", point.GetRH() * 100.0, 2, "%"},
        {"Enthalpy", "H", point.GetH(), 3, "kJ/kg"},
        {"Moisture content", "D", point.GetD(), 3, "g/kg"},
        {"Wet-bulb temperature", "Twb", point.GetTwb(), 2, "°C"},
        {"Dew-point temperature", "Tdp", point.GetTdp(), 2, "°C"},
        {"Vapour pressure", "Pv", point.GetPv(), 1, "Pa"},
        {"Density", "Den", point.GetDen(), 4, "kg/m³"},
        {"Specific volume", "SV", point.GetSV(), 4, "m³/kg"},
        {"Saturated moisture content", "Ds", point.GetDs(), 3, "g/kg"},
        {"Saturated vapour pressure", "Ps", point.GetPs(), 1, "Pa"},
    };
    size_t nameWidth = 0;
    size_t valueWidth = 0;
    std::string values[11];
    for (size_t i = 0; i < 11; ++i) {
        std::ostringstream text;
        text << std::fixed << std::setprecision(rows[i].decimals) << rows[i].value;
        values[i] = text.str();
        nameWidth = std::max(nameWidth, Columns(rows[i].name));
        valueWidth = std::max(valueWidth, values[i].size());
    }
    for (size_t i = 0; i < 11; ++i) {
        out << "  " << rows[i].name << std::string(nameWidth - Columns(rows[i].name) + 2, ' ') << rows[i].symbol
            << std::string(5 - Columns(rows[i].symbol), ' ') << std::string(valueWidth - values[i].size(), ' ')
            << values[i] << ' ' << rows[i].unit << '\n';
    }
}

nlohmann::ordered_json PointToJson(const ZefraHDGPoint& point) {
    nlohmann::ordered_json json;
    json["name"] = point.GetName().ToUtf8();
    for (int kind = HDGPT_TDB; kind <= HDGPT_PS; ++kind)
        json[CalItemName(kind)] = point.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(kind));
    json["pair"] = {CalItemName(point.GetCalPara1Type()), CalItemName(point.GetCalPara2Type())};
    return json;
}

}  // namespace zefra::cli

namespace zefra::cli {

nlohmann::ordered_json UnitsJson() {
    return {{"Tdb", "°C"},  {"RH", "1"},      {"H", "kJ/kg"},  {"D", "g/kg"},   {"Twb", "°C"},
            {"Tdp", "°C"},  {"Pv", "Pa"},     {"Den", "kg/m³"}, {"SV", "m³/kg"}, {"Ds", "g/kg"},
            {"Ps", "Pa"},   {"pressure", "Pa"}, {"flow", "kg/s"}, {"ratio", "1"}, {"load", "kW"},
            {"moistureLoad", "kg/s"}, {"heatHumidityRatio", "kJ/kg"}};
}

}  // namespace zefra::cli

namespace zefra::cli {

namespace {

std::string CamelCase(const std::string& key) {
    std::string camel;
    bool upper = false;
    for (char c : key) {
        if (c == ' ' || c == '_') {
            upper = !camel.empty();
            continue;
        }
        camel += upper && c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        upper = false;
    }
    return camel;
}

nlohmann::ordered_json CamelKeys(const nlohmann::ordered_json& value) {
    if (value.is_array()) {
        nlohmann::ordered_json list = nlohmann::ordered_json::array();
        for (const auto& item : value) list.push_back(CamelKeys(item));
        return list;
    }
    if (!value.is_object()) return value;
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    for (auto it = value.begin(); it != value.end(); ++it) object[CamelCase(it.key())] = CamelKeys(*it);
    return object;
}

}  // namespace

void PrintJson(std::ostream& out, const std::string& command, const nlohmann::ordered_json& document) {
    nlohmann::ordered_json json;
    json["command"] = command;
    const nlohmann::ordered_json body = CamelKeys(document);
    for (auto it = body.begin(); it != body.end(); ++it)
        if (it.key() != "command") json[it.key()] = *it;
    out << json.dump(2) << '\n';
}

}  // namespace zefra::cli
