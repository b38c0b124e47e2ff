#include "BatchCommands.h"

#include "Cli.h"
#include "CsvTable.h"
#include "InputFiles.h"
#include "OutputFile.h"
#include "PointIO.h"
#include "Progress.h"

#include "zefra/air/HDGCurB.h"
#include "zefra/air/HDGPointBatch.h"

#include <algorithm>
#include <cctype>
#include <deque>
#include <memory>
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
constexpr const char* kOutputHeader[11] = {"Tdb [°C]", "RH [-]",     "H [kJ/kg]",   "D [g/kg]",
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

class PointBatch {
public:
    PointBatch(const BatchOptions& options, bool json) : m_options(options), m_json(json) {}

    void Run() {
        const std::string where = "--batch " + m_options.file;
        const std::string text = ReadInputText("--batch", m_options.file, kLargestBatchFile);
        CsvReader reader(text);
        std::vector<std::string> header;
        bool any = false;
        try {
            any = reader.Next(header);
        } catch (const UsageError& error) {
            throw UsageError(where + ": " + error.what());
        }
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
        Json json;
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
            // The object of `zefra point --json`.
            json = PointToJson(point);
            json.erase("name");
            json["pressure"] = rows.pressures[k];
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

}  // namespace zefra::cli
