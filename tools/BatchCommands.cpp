#include "BatchCommands.h"

#include "Cli.h"
#include "CsvTable.h"
#include "InputFiles.h"
#include "OutputFile.h"
#include "PointIO.h"
#include "Progress.h"
#include "SchemeRun.h"

#include "zefra/air/HDGChecks.h"
#include "zefra/air/HDGCurB.h"
#include "zefra/air/HDGPointBatch.h"

#include <algorithm>
#include <cctype>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zefra::cli {

namespace {

using Json = nlohmann::ordered_json;

constexpr size_t kLargestBatchFile = size_t{1} << 30;  // bytes
constexpr int kRowsPerBlock = 4096;
constexpr size_t kFlushBytes = 64 * 1024;

// The property columns, by the point command's option names, in the order of
// EHvacHDGPointCalItemType.
constexpr const char* kColumnNames[7] = {"tdb", "rh", "h", "d", "twb", "tdp", "pv"};

// The eleven output columns with their units.
constexpr const char* kOutputHeader[11] = {"Tdb [°C]", "RH [1]",     "H [kJ/kg]",   "D [g/kg]",
                                           "Twb [°C]", "Tdp [°C]",   "Pv [Pa]",     "Den [kg/m³]",
                                           "SV [m³/kg]", "Ds [g/kg]", "Ps [Pa]"};

struct BatchOptions {
    std::string file;
    std::string out;
    bool skipBad = false;
};

std::string Trimmed(const std::string& text) {
    size_t begin = 0;
    size_t end = text.size();
    while (begin < end && std::isspace(static_cast<unsigned char>(text[begin]))) ++begin;
    while (end > begin && std::isspace(static_cast<unsigned char>(text[end - 1]))) --end;
    return text.substr(begin, end - begin);
}

std::string Lower(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

std::string SupportedPairs() {
    std::string text;
    for (int a = 0; a < 7; ++a)
        for (int b = a + 1; b < 7; ++b)
            if (HDGPointBatch::IsSupportedPair(static_cast<EHvacHDGPointCalItemType>(a),
                                               static_cast<EHvacHDGPointCalItemType>(b)))
                text += std::string(text.empty() ? "" : ", ") + kColumnNames[a] + "," + kColumnNames[b];
    return text;
}

// Where the header puts the pair, the pressure and the carried columns.
struct Layout {
    int columns = 0;
    EHvacHDGPointCalItemType kinds[2] = {HDGPT_TDB, HDGPT_RH};
    int valueColumn[2] = {-1, -1};
    std::string valueName[2];
    int pressureColumn = -1;
    std::vector<int> carried;  // every column but the pair's two, in order
};

Layout ReadLayout(const std::string& where, const std::vector<std::string>& header) {
    Layout layout;
    layout.columns = static_cast<int>(header.size());
    std::vector<std::string> seen;
    int given = 0;
    std::string names;
    for (int i = 0; i < layout.columns; ++i) {
        const std::string name = Lower(Trimmed(header[static_cast<size_t>(i)]));
        if (!name.empty() && std::find(seen.begin(), seen.end(), name) != seen.end())
            throw UsageError(where + ": the header names the column '" + header[static_cast<size_t>(i)] + "' twice");
        seen.push_back(name);
        const auto kind = std::find(std::begin(kColumnNames), std::end(kColumnNames), name);
        if (kind != std::end(kColumnNames)) {
            if (given < 2) {
                layout.kinds[given] = static_cast<EHvacHDGPointCalItemType>(kind - std::begin(kColumnNames));
                layout.valueColumn[given] = i;
                layout.valueName[given] = name;
            }
            names += std::string(given ? ", " : "") + name;
            ++given;
        } else if (name == "pressure") {
            // Carried as well: the table keeps what the row was given.
            layout.pressureColumn = i;
            layout.carried.push_back(i);
        } else {
            layout.carried.push_back(i);
        }
    }
    if (given != 2)
        throw UsageError(where + ": the header must name exactly two of the columns tdb, rh, h, d, twb, tdp, pv; it names " +
                         (given ? std::to_string(given) + " (" + names + ")" : std::string("none")) +
                         "; supported pairs: " + SupportedPairs());
    if (!HDGPointBatch::IsSupportedPair(layout.kinds[0], layout.kinds[1]))
        throw UsageError(where + ": " + layout.valueName[0] + " with " + layout.valueName[1] +
                         " doesn't define a state (its two properties aren't independent); supported pairs: " +
                         SupportedPairs());
    return layout;
}

// One block of rows, parsed.
struct Rows {
    std::vector<std::vector<std::string_view>> fields;  // into the text or `unquoted`
    std::deque<std::string> unquoted;
    std::vector<int> lines;
    std::vector<std::string> errors;  // empty where the row is good so far
    std::vector<double> values[2];
    std::vector<double> pressures;
    std::vector<int> calculated;  // rows given to the calculation, in order
};

// The first line of a table; false for an empty one. A malformed line is
// refused naming the table.
bool ReadHeader(CsvReader& reader, const std::string& where, std::vector<std::string>& header) {
    try {
        return reader.Next(header);
    } catch (const UsageError& error) {
        throw UsageError(where + ": " + error.what());
    }
}

class PointBatch {
public:
    PointBatch(const BatchOptions& options, bool json) : m_options(options), m_json(json) {}

    void Run() {
        const std::string where = "--batch " + m_options.file;
        const std::string text = ReadInputText("--batch", m_options.file, kLargestBatchFile);
        CsvReader reader(text);
        std::vector<std::string> header;
        const bool any = ReadHeader(reader, where, header);
        if (!any)
            throw UsageError(where + ": the table is empty; its first line must name the columns, such as tdb,rh");
        m_layout = ReadLayout(where, header);
        m_header = header;

        OutputFile output("--out", m_options.out);
        std::string buffer;
        buffer.reserve(kFlushBytes + 4096);
        if (!m_json) WriteHeader(buffer);
        Progress progress(static_cast<size_t>(std::count(text.begin(), text.end(), '\n')));
        size_t done = 0;
        Rows rows;
        rows.fields.resize(kRowsPerBlock);
        for (;;) {
            const int count = ReadBlock(reader, rows, where);
            if (count == 0) break;
            Calculate(rows, count);
            for (int r = 0; r < count; ++r) {
                const std::string& error = rows.errors[static_cast<size_t>(r)];
                if (!error.empty() && !m_options.skipBad) throw UsageError(where + ": " + error);
                WriteRow(buffer, rows, r);
                // Written out a little at a time, the text stays in the cache.
                if (buffer.size() >= kFlushBytes) output.Write(buffer);
            }
            output.Write(buffer);
            done += static_cast<size_t>(count);
            progress.Update(done);
        }
        output.Write(buffer);
        output.Commit();
    }

private:
    int ReadBlock(CsvReader& reader, Rows& rows, const std::string& where) {
        rows.lines.clear();
        rows.errors.clear();
        rows.unquoted.clear();
        for (auto& column : rows.values) column.clear();
        rows.pressures.clear();
        rows.calculated.clear();
        int count = 0;
        while (count < kRowsPerBlock) {
            std::vector<std::string_view>& fields = rows.fields[static_cast<size_t>(count)];
            try {
                if (!reader.Next(fields, rows.unquoted)) break;
            } catch (const UsageError& error) {
                throw UsageError(where + ": " + error.what());
            }
            rows.lines.push_back(reader.Line());
            rows.errors.push_back(ParseRow(fields, reader.Line(), rows));
            if (rows.errors.back().empty()) rows.calculated.push_back(count);
            ++count;
        }
        return count;
    }

    // Reads the pair and the pressure of a row into the block's arrays; the
    // error, or empty.
    std::string ParseRow(const std::vector<std::string_view>& fields, int line, Rows& rows) {
        const auto at = [line] { return "line " + std::to_string(line); };
        if (static_cast<int>(fields.size()) != m_layout.columns)
            return at() + ": " + std::to_string(fields.size()) + (fields.size() == 1 ? " field" : " fields") +
                   " where the header has " + std::to_string(m_layout.columns);
        double values[2];
        for (int i = 0; i < 2; ++i) {
            const std::string_view field = fields[static_cast<size_t>(m_layout.valueColumn[i])];
            if (!ParseCsvNumber(field, values[i]))
                return at() + ", column " + m_layout.valueName[i] + ": '" + std::string(field) + "' is not a number";
        }
        double pressure = GetHDGCurB();
        if (m_layout.pressureColumn >= 0) {
            const std::string_view field = fields[static_cast<size_t>(m_layout.pressureColumn)];
            if (field.find_first_not_of(" \t") != std::string_view::npos && !ParseCsvNumber(field, pressure))
                return at() + ", column pressure: '" + std::string(field) + "' is not a number";
        }
        rows.values[0].push_back(values[0]);
        rows.values[1].push_back(values[1]);
        rows.pressures.push_back(pressure);
        return std::string();
    }

    void Calculate(Rows& rows, int count) {
        const int n = static_cast<int>(rows.calculated.size());
        SHDGPointColumns columns;
        for (int kind = 0; kind < 11; ++kind) {
            m_results[kind].resize(static_cast<size_t>(n));
            columns.Values[kind] = m_results[kind].data();
        }
        m_resultOf.assign(static_cast<size_t>(count), -1);
        for (int i = 0; i < n; ++i) m_resultOf[static_cast<size_t>(rows.calculated[static_cast<size_t>(i)])] = i;
        if (n == 0) return;
        const auto faults = HDGPointBatch::CalculateChecked(
            m_layout.kinds[0], rows.values[0].data(), m_layout.kinds[1], rows.values[1].data(), n, columns,
            m_layout.valueName[0], m_layout.valueName[1],
            m_layout.pressureColumn >= 0 ? rows.pressures.data() : nullptr);
        for (const SHDGBatchFault& fault : faults) {
            const int row = rows.calculated[static_cast<size_t>(fault.Index)];
            std::string& error = rows.errors[static_cast<size_t>(row)];
            const std::string& field = fault.Fault.Field;
            std::string column;
            if (field == m_layout.valueName[0] || field == m_layout.valueName[1] || field == "pressure")
                column = ", column " + field;
            else
                column = ", columns " + m_layout.valueName[0] + " and " + m_layout.valueName[1];
            if (error.empty())
                error = "line " + std::to_string(rows.lines[static_cast<size_t>(row)]) + column + ": " +
                        fault.Fault.Message;
            else
                error += "; " + fault.Fault.Message;
        }
    }

    void WriteHeader(std::string& out) const {
        bool first = true;
        for (const int column : m_layout.carried) {
            if (!first) out += ',';
            AppendCsvField(out, m_header[static_cast<size_t>(column)]);
            first = false;
        }
        for (const char* name : kOutputHeader) {
            if (!first) out += ',';
            out += name;
            first = false;
        }
        if (m_options.skipBad) out += ",error";
        out += '\n';
    }

    void WriteRow(std::string& out, const Rows& rows, int r) const {
        const std::vector<std::string_view>& fields = rows.fields[static_cast<size_t>(r)];
        const std::string& error = rows.errors[static_cast<size_t>(r)];
        const int result = error.empty() ? m_resultOf[static_cast<size_t>(r)] : -1;
        if (m_json) {
            WriteJsonRow(out, rows, r, result);
            return;
        }
        bool first = true;
        for (const int column : m_layout.carried) {
            if (!first) out += ',';
            // A short row (refused) carries what it has.
            if (static_cast<size_t>(column) < fields.size()) AppendCsvField(out, fields[static_cast<size_t>(column)]);
            first = false;
        }
        for (int kind = 0; kind < 11; ++kind) {
            if (!first) out += ',';
            if (result >= 0) AppendNumber(out, m_results[kind][static_cast<size_t>(result)]);
            first = false;
        }
        if (m_options.skipBad) {
            out += ',';
            AppendCsvField(out, error);
        }
        out += '\n';
    }

    void WriteJsonRow(std::string& out, const Rows& rows, int r, int result) const {
        const std::vector<std::string_view>& fields = rows.fields[static_cast<size_t>(r)];
        // Each row the document `zefra point --json` writes for its state,
        // with the row's line and carried columns.
        Json json;
        json["command"] = "point";
        if (result >= 0) {
            ZefraHDGPoint point;
            const size_t k = static_cast<size_t>(result);
            point.SetTdb(m_results[HDGPT_TDB][k]);
            point.SetRH(m_results[HDGPT_RH][k]);
            point.SetH(m_results[HDGPT_H][k]);
            point.SetD(m_results[HDGPT_D][k]);
            point.SetTwb(m_results[HDGPT_TWB][k]);
            point.SetTdp(m_results[HDGPT_TDP][k]);
            point.SetPv(m_results[HDGPT_PV][k]);
            point.SetDen(m_results[HDGPT_DEN][k]);
            point.SetSV(m_results[HDGPT_SV][k]);
            point.SetDs(m_results[HDGPT_DS][k]);
            point.SetPs(m_results[HDGPT_PS][k]);
            EHvacHDGPointCalItemType first = HDGPT_TDB;
            EHvacHDGPointCalItemType second = HDGPT_RH;
            HDGPointBatch::RecordedPair(m_layout.kinds[0], m_layout.kinds[1], first, second);
            point.SetCalPara1Type(first);
            point.SetCalPara2Type(second);
            json["pressure"] = rows.pressures[k];
            json["units"] = m_units;
            json["point"] = PointToJson(point);
        }
        json["line"] = rows.lines[static_cast<size_t>(r)];
        if (!m_layout.carried.empty()) {
            Json carried = Json::object();
            for (const int column : m_layout.carried)
                if (static_cast<size_t>(column) < fields.size())
                    carried[Trimmed(m_header[static_cast<size_t>(column)])] = std::string(fields[static_cast<size_t>(column)]);
            json["columns"] = std::move(carried);
        }
        if (result < 0) json["error"] = rows.errors[static_cast<size_t>(r)];
        out += json.dump(-1, ' ', false, Json::error_handler_t::replace);
        out += '\n';
    }

    const BatchOptions& m_options;
    bool m_json;
    Layout m_layout;
    std::vector<std::string> m_header;
    std::vector<double> m_results[11];
    std::vector<int> m_resultOf;  // row in the block → its element of the results, or −1
    Json m_units = UnitsJson();
};

}  // namespace

std::function<bool(bool json)> RegisterPointBatch(CLI::App& point) {
    auto options = std::make_shared<BatchOptions>();
    point.add_option("--batch", options->file,
                     "compute a point for every row of a CSV table (- for standard input); the header names the "
                     "pair (tdb, rh, h, d, twb, tdp, pv) and optionally pressure, in Pa; other columns are carried")
        ->type_name("FILE");
    point.add_option("--out", options->out, "with --batch: write the table to FILE, whole or not at all")
        ->type_name("FILE");
    point.add_flag("--skip-bad", options->skipBad,
                   "with --batch: write refused rows with an error column and go on, instead of stopping");
    CLI::App* command = &point;
    return [options, command](bool json) {
        if (command->count("--batch") == 0) {
            if (command->count("--out")) throw UsageError("--out goes with --batch");
            if (options->skipBad) throw UsageError("--skip-bad goes with --batch");
            return false;
        }
        for (const char* name : kColumnNames)
            if (command->count(std::string("--") + name))
                throw UsageError(std::string("--") + name +
                                 " can't be given with --batch: the table's header names the pair");
        PointBatch(*options, json).Run();
        return true;
    };
}

// ---- Scheme batches --------------------------------------------------------

namespace {

const char* const kPairNames[7] = {"Tdb", "RH", "H", "D", "Twb", "Tdp", "Pv"};

struct SchemeBatchOptions {
    std::string batch;    // --batch FILE.jsonl
    std::string weather;  // --weather FILE.csv
    std::string season = "type";  // --season summer|winter|auto
    std::string out;
    bool skipBad = false;
};

std::string ErrorText(const std::exception& error) { return error.what(); }

// zefra primary|secondary --batch: one given-data document per line, one
// result document per line.
void RunJsonLines(const std::string& scheme, const SchemeBatchOptions& options, const SchemeRunSettings& settings) {
    const std::string where = "--batch " + options.batch;
    const std::string text = ReadInputText("--batch", options.batch, kLargestBatchFile);
    OutputFile output("--out", options.out);
    std::string buffer;
    Progress progress(static_cast<size_t>(std::count(text.begin(), text.end(), '\n')));
    size_t start = 0;
    int line = 0;
    size_t done = 0;
    const double pressure = GetHDGCurB();
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string_view record(text.data() + start, end - start);
        start = end + 1;
        ++line;
        if (!record.empty() && record.back() == '\r') record.remove_suffix(1);
        if (record.find_first_not_of(" \t") == std::string_view::npos) continue;
        nlohmann::ordered_json result;
        try {
            const nlohmann::json document = nlohmann::json::parse(record);
            SetHDGCurB(pressure);
            result = RunSchemeJson(scheme, document, settings);
            result["line"] = line;
        } catch (const nlohmann::json::exception& error) {
            const std::string message = "line " + std::to_string(line) + ": not a JSON object: " + error.what();
            if (!options.skipBad) throw UsageError(where + ": " + message);
            result = {{"command", scheme}, {"line", line}, {"error", message}};
        } catch (const UsageError& error) {
            if (!options.skipBad) throw UsageError(where + ": line " + std::to_string(line) + ": " + error.what());
            result = {{"command", scheme}, {"line", line}, {"error", ErrorText(error)}};
        } catch (const CalculationError& error) {
            if (!options.skipBad)
                throw CalculationError(where + ": line " + std::to_string(line) + ": " + error.what());
            result = {{"command", scheme}, {"line", line}, {"error", ErrorText(error)}};
        }
        buffer += result.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
        buffer += '\n';
        if (buffer.size() >= kFlushBytes) output.Write(buffer);
        progress.Update(++done);
    }
    SetHDGCurB(pressure);
    output.Write(buffer);
    output.Commit();
}

}  // namespace

namespace {

// zefra primary|secondary --weather: a design over outdoor states, a row each.
class WeatherRun {
public:
    WeatherRun(const std::string& scheme, const SchemeBatchOptions& options, const SchemeRunSettings& settings,
               const std::string& input)
        : m_scheme(scheme), m_options(options), m_settings(settings),
          m_firstWinterType(scheme == "primary" ? 2 : 1) {
        if (input == "-" && options.weather == "-")
            throw UsageError("--input and --weather can't both read standard input");
        if (!input.empty()) {
            const std::string text = ReadInputText("--input", input);
            try {
                m_design = nlohmann::json::parse(text);
            } catch (const nlohmann::json::exception& error) {
                throw UsageError("--input " + input + ": not JSON: " + error.what());
            }
            if (!m_design.is_object()) throw UsageError("--input " + input + ": expected a JSON object of given fields");
        } else {
            m_design = nlohmann::json::object();
        }
        m_bothSeasons = m_design.contains("summer") || m_design.contains("winter");
        const std::string& season = options.season;
        if (season != "type" && season != "summer" && season != "winter" && season != "auto")
            throw UsageError("--season: '" + season + "' is not one of summer, winter, auto");
        if (season == "auto" && settings.type)
            throw UsageError("--season auto chooses the season per row; --type can't be given with it");
        if (season == "auto" && !input.empty() && !(m_design.contains("summer") && m_design.contains("winter")))
            throw UsageError("--season auto needs a design of both seasons: an --input with \"summer\" and "
                             "\"winter\", or the built-in designs");
        if (season == "type" && m_bothSeasons && !settings.type)
            throw UsageError("--input " + input + " holds both seasons: choose one with --season or --type");
    }

    void Run() {
        const std::string where = "--weather " + m_options.weather;
        const std::string text = ReadInputText("--weather", m_options.weather, kLargestBatchFile);
        CsvReader reader(text);
        std::vector<std::string> header;
        const bool any = ReadHeader(reader, where, header);
        if (!any) throw UsageError(where + ": the table is empty; its first line must name the columns, such as tdb,rh");
        m_layout = ReadLayout(where, header);
        m_header = header;
        m_pressure = GetHDGCurB();
        if (m_options.season == "auto") m_roomEnthalpy = RoomEnthalpy();

        OutputFile output("--out", m_options.out);
        std::string buffer;
        Progress progress(static_cast<size_t>(std::count(text.begin(), text.end(), '\n')));
        std::vector<std::string_view> fields;
        std::deque<std::string> unquoted;
        size_t done = 0;
        bool headerWritten = false;
        for (;;) {
            unquoted.clear();
            try {
                if (!reader.Next(fields, unquoted)) break;
            } catch (const UsageError& error) {
                throw UsageError(where + ": " + error.what());
            }
            const int line = reader.Line();
            std::string error;
            nlohmann::ordered_json result = RunRow(fields, line, error);
            if (!error.empty() && !m_options.skipBad) throw UsageError(where + ": " + error);
            if (!m_json && !headerWritten) {
                WriteHeader(buffer, error.empty() ? result : Probe());
                headerWritten = true;
            }
            WriteRow(buffer, fields, line, result, error);
            if (buffer.size() >= kFlushBytes) output.Write(buffer);
            progress.Update(++done);
        }
        if (!m_json && !headerWritten) WriteHeader(buffer, Probe());
        SetHDGCurB(m_pressure);
        output.Write(buffer);
        output.Commit();
    }

    void SetJson(bool json) { m_json = json; }

private:
    // The room's enthalpy in the summer design: outdoor air above it is a
    // summer hour.
    double RoomEnthalpy() {
        nlohmann::json fields = SeasonFields(false);
        SchemeRunSettings settings = m_settings;
        settings.type = TypeFor(false, fields);
        const nlohmann::ordered_json result = RunSchemeJson(m_scheme, fields, settings);
        for (const auto& point : result["points"])
            if (point.value("name", "") == "N") return point["H"].get<double>();
        throw CalculationError("the summer design has no room state N");
    }

    // A result of the design itself, for the columns when the first row has
    // none; empty when the design has none either.
    nlohmann::ordered_json Probe() {
        const bool winter = m_options.season == "winter" ||
                            (m_options.season == "type" && m_settings.type && *m_settings.type >= m_firstWinterType);
        SetHDGCurB(m_pressure);
        try {
            const nlohmann::json fields = SeasonFields(winter);
            SchemeRunSettings settings = m_settings;
            settings.type = TypeFor(winter, fields);
            return RunSchemeJson(m_scheme, fields, settings);
        } catch (const std::exception&) {
            return nlohmann::ordered_json::object();
        }
    }

    nlohmann::json SeasonFields(bool winter) const {
        if (m_bothSeasons) {
            const char* season = winter ? "winter" : "summer";
            return m_design.contains(season) ? m_design[season] : nlohmann::json::object();
        }
        return m_design;
    }

    std::optional<long long> TypeFor(bool winter, const nlohmann::json& fields) const {
        if (m_settings.type) return m_settings.type;
        if (fields.contains("CalPriRetAirType")) {
            const auto& type = fields["CalPriRetAirType"];
            if (type.is_number_integer() && (type.get<long long>() >= m_firstWinterType) == winter) return std::nullopt;
        }
        return winter ? m_firstWinterType : 0;
    }

    nlohmann::ordered_json RunRow(const std::vector<std::string_view>& fields, int line, std::string& error) {
        const std::string at = "line " + std::to_string(line);
        if (static_cast<int>(fields.size()) != m_layout.columns) {
            error = at + ": " + std::to_string(fields.size()) + " fields where the header has " +
                    std::to_string(m_layout.columns);
            return {};
        }
        double values[2];
        for (int i = 0; i < 2; ++i) {
            const std::string_view field = fields[static_cast<size_t>(m_layout.valueColumn[i])];
            if (!ParseCsvNumber(field, values[i])) {
                error = at + ", column " + m_layout.valueName[i] + ": '" + std::string(field) + "' is not a number";
                return {};
            }
        }
        double pressure = m_pressure;
        if (m_layout.pressureColumn >= 0) {
            const std::string_view field = fields[static_cast<size_t>(m_layout.pressureColumn)];
            if (field.find_first_not_of(" \t") != std::string_view::npos && !ParseCsvNumber(field, pressure)) {
                error = at + ", column pressure: '" + std::string(field) + "' is not a number";
                return {};
            }
            if (const auto fault = HDGChecks::Pressure(pressure)) {
                error = at + ", column pressure: " + fault->Message;
                return {};
            }
        }
        SetHDGCurB(pressure);
        // The outdoor state, checked as every point is.
        ZefraHDGPoint outdoor;
        const std::string& name1 = m_layout.valueName[0];
        const std::string& name2 = m_layout.valueName[1];
        const HDGFaults given = HDGChecks::Given(m_layout.kinds[0], values[0], name1, m_layout.kinds[1], values[1],
                                                 name2, pressure);
        if (!given.empty()) {
            error = at + ", column " + given.front().Field + ": " + given.front().Message;
            return {};
        }
        bool winter = m_options.season == "winter" ||
                      (m_options.season == "type" && m_settings.type && *m_settings.type >= m_firstWinterType);
        if (m_options.season == "auto") {
            SHDGPointColumns columns;
            double state[11];
            for (int kind = 0; kind < 11; ++kind) columns.Values[kind] = &state[kind];
            HDGPointBatch::Calculate(m_layout.kinds[0], &values[0], m_layout.kinds[1], &values[1], 1, columns);
            winter = !(state[HDGPT_H] > m_roomEnthalpy);
        }
        // The season's given fields, kept from row to row: only W changes.
        std::optional<nlohmann::json>& fields2 = m_rowFields[winter ? 1 : 0];
        if (!fields2) fields2 = SeasonFields(winter);
        nlohmann::json& outdoor2 = (*fields2)["PointW"];
        outdoor2 = nlohmann::json::object();
        outdoor2[kPairNames[m_layout.kinds[0]]] = values[0];
        outdoor2[kPairNames[m_layout.kinds[1]]] = values[1];
        SchemeRunSettings settings = m_settings;
        settings.type = TypeFor(winter, *fields2);
        settings.brief = !m_json;  // the table needs a few columns, JSON Lines whole documents
        try {
            return RunSchemeJson(m_scheme, *fields2, settings);
        } catch (const UsageError& e) {
            error = at + ": " + e.what();
        } catch (const CalculationError& e) {
            error = at + ": " + e.what();
        }
        return {};
    }

    // The columns of a result: its flows, loads and moisture loads, then O,
    // L and C, then the warnings.
    void WriteHeader(std::string& out, const nlohmann::ordered_json& first) {
        bool comma = false;
        const auto add = [&](const std::string& name) {
            if (comma) out += ',';
            AppendCsvField(out, name);
            comma = true;
        };
        for (const int column : m_layout.carried) add(m_header[static_cast<size_t>(column)]);
        add("season");
        add("type");
        static const std::pair<const char*, const char*> kGroups[] = {
            {"flows", "kg/s"}, {"loads", "kW"}, {"moistureLoads", "kg/s"}};
        for (const auto& [group, unit] : kGroups) {
            std::vector<std::string> keys;
            if (first.contains(group))
                for (auto it = first[group].begin(); it != first[group].end(); ++it) keys.push_back(it.key());
            if (keys.empty()) keys = DefaultKeys(group);
            for (const std::string& key : keys) {
                const char* u = key == "FreshAirRatio" ? "1" : key == "HeatHumidityRatio" ? "kJ/kg" : unit;
                add(key + " [" + u + "]");
                m_columns.push_back({group, key});
            }
        }
        for (const char* letter : {"O", "L", "C"})
            for (const auto& [item, unit] : {std::pair{"Tdb", "°C"}, {"RH", "1"}, {"H", "kJ/kg"}, {"D", "g/kg"}}) {
                add(std::string(letter) + " " + item + " [" + unit + "]");
                m_pointColumns.push_back({letter, item});
            }
        add("warnings");
        if (m_options.skipBad) add("error");
        out += '\n';
    }

    static std::vector<std::string> DefaultKeys(const std::string& group) {
        if (group == "flows") return {"Go", "Gw", "Gn", "FreshAirRatio"};
        if (group == "loads") return {"Qn", "Qw", "Qr", "Qo", "Qk", "Qw1", "Ql", "Qp"};
        return {"Mw", "Mww", "Mwp"};
    }

    void WriteRow(std::string& out, const std::vector<std::string_view>& fields, int line,
                  const nlohmann::ordered_json& result, const std::string& error) {
        if (m_json) {
            // Each row the document `--json` writes for its run, with the
            // row's line and carried columns; a refused row its error.
            nlohmann::ordered_json row = error.empty() ? result : nlohmann::ordered_json::object();
            if (!error.empty()) row["command"] = m_scheme;
            row["line"] = line;
            if (!m_layout.carried.empty()) {
                nlohmann::ordered_json carried = nlohmann::ordered_json::object();
                for (const int column : m_layout.carried)
                    if (static_cast<size_t>(column) < fields.size())
                        carried[Trimmed(m_header[static_cast<size_t>(column)])] =
                            std::string(fields[static_cast<size_t>(column)]);
                row["columns"] = std::move(carried);
            }
            if (!error.empty()) row["error"] = error;
            out += row.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
            out += '\n';
            return;
        }
        bool comma = false;
        const auto sep = [&] {
            if (comma) out += ',';
            comma = true;
        };
        for (const int column : m_layout.carried) {
            sep();
            if (static_cast<size_t>(column) < fields.size()) AppendCsvField(out, fields[static_cast<size_t>(column)]);
        }
        const bool ok = error.empty();
        sep();
        if (ok) out += result.value("season", "");
        sep();
        if (ok && result.contains("type")) AppendNumber(out, result["type"].get<double>());
        for (const auto& [group, key] : m_columns) {
            sep();
            if (ok && result.contains(group) && result[group].contains(key) && result[group][key].is_number())
                AppendNumber(out, result[group][key].get<double>());
        }
        // The points O, L and C of the result, found once.
        const nlohmann::ordered_json* points[3] = {nullptr, nullptr, nullptr};
        if (ok && result.contains("points"))
            for (const auto& point : result["points"]) {
                const auto name = point.find("name");
                if (name == point.end() || !name->is_string()) continue;
                const std::string& letter = name->get_ref<const std::string&>();
                const int at = letter == "O" ? 0 : letter == "L" ? 1 : letter == "C" ? 2 : -1;
                if (at >= 0 && !points[at]) points[at] = &point;
            }
        for (size_t i = 0; i < m_pointColumns.size(); ++i) {
            sep();
            const nlohmann::ordered_json* point = points[i / 4];
            if (!point) continue;
            const auto value = point->find(m_pointColumns[i].second);
            if (value != point->end() && value->is_number()) AppendNumber(out, value->get<double>());
        }
        sep();
        if (ok && result.contains("warnings")) {
            std::string text;
            for (const auto& warning : result["warnings"]) {
                if (!text.empty()) text += "; ";
                text += warning.value("code", "") + ": " + warning.value("message", "");
            }
            AppendCsvField(out, text);
        }
        if (m_options.skipBad) {
            sep();
            AppendCsvField(out, error);
        }
        out += '\n';
    }

    std::string m_scheme;
    const SchemeBatchOptions& m_options;
    SchemeRunSettings m_settings;
    long long m_firstWinterType;
    nlohmann::json m_design;
    bool m_bothSeasons = false;
    bool m_json = false;
    Layout m_layout;
    std::vector<std::string> m_header;
    double m_pressure = 101325.0;
    double m_roomEnthalpy = 0.0;
    std::optional<nlohmann::json> m_rowFields[2];  // summer, winter
    std::vector<std::pair<std::string, std::string>> m_columns;
    std::vector<std::pair<std::string, std::string>> m_pointColumns;
};

}  // namespace

std::function<bool(const SchemeRunSettings& settings, const std::string& input, bool json)> RegisterSchemeBatch(
    CLI::App& command, const std::string& scheme) {
    auto options = std::make_shared<SchemeBatchOptions>();
    command.add_option("--batch", options->batch,
                       "run every line of a JSON Lines file (- for standard input): one given-data object per line, "
                       "as --input takes it; prints one result per line")
        ->type_name("FILE");
    command.add_option("--weather", options->weather,
                       "run the design (--input or built in) over the outdoor states of a CSV table, one a row: the "
                       "header names the pair (tdb, rh, h, d, twb, tdp, pv) and optionally pressure; other columns "
                       "are carried")
        ->type_name("FILE");
    command.add_option("--season", options->season,
                       "with --weather: summer, winter, or auto (summer when the outdoor enthalpy is above the "
                       "summer room's); by default the season of --type or of the design")
        ->type_name("SEASON");
    command.add_option("--out", options->out, "with --batch or --weather: write to FILE, whole or not at all")
        ->type_name("FILE");
    command.add_flag("--skip-bad", options->skipBad,
                     "with --batch or --weather: write refused rows with their error and go on");
    CLI::App* app = &command;
    return [options, app, scheme](const SchemeRunSettings& settings, const std::string& input, bool json) {
        const bool batch = app->count("--batch") > 0;
        const bool weather = app->count("--weather") > 0;
        if (!batch && !weather) {
            if (app->count("--out")) throw UsageError("--out goes with --batch or --weather");
            if (options->skipBad) throw UsageError("--skip-bad goes with --batch or --weather");
            if (app->count("--season")) throw UsageError("--season goes with --weather");
            return false;
        }
        if (batch && weather) throw UsageError("--batch and --weather can't be given together");
        if (batch && !input.empty()) throw UsageError("--batch reads its given data from the file; --input can't be given with it");
        if (batch && app->count("--season")) throw UsageError("--season goes with --weather");
        if (batch) {
            RunJsonLines(scheme, *options, settings);
        } else {
            WeatherRun run(scheme, *options, settings, input);
            run.SetJson(json);
            run.Run();
        }
        return true;
    };
}

}  // namespace zefra::cli
