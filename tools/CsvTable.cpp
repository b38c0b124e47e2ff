#include "CsvTable.h"

#include "Cli.h"

#include <charconv>
#include <cmath>

namespace zefra::cli {

CsvReader::CsvReader(std::string_view text) : m_text(text) {
    if (m_text.substr(0, 3) == "\xEF\xBB\xBF") m_at = 3;
}

bool CsvReader::Next(std::vector<std::string>& fields) {
    const size_t size = m_text.size();
    // Empty lines carry no record.
    while (m_at < size && (m_text[m_at] == '\n' || m_text[m_at] == '\r')) {
        if (m_text[m_at] == '\n') ++m_line;
        ++m_at;
    }
    if (m_at >= size) {
        fields.clear();
        return false;
    }
    m_recordLine = m_line;
    // The strings of the fields are reused from record to record.
    size_t used = 0;
    const auto next = [&fields, &used]() -> std::string& {
        if (used == fields.size()) fields.emplace_back();
        std::string& field = fields[used++];
        field.clear();
        return field;
    };
    for (;;) {
        std::string& field = next();
        if (m_at < size && m_text[m_at] == '"') {
            ++m_at;
            for (;;) {
                if (m_at >= size)
                    throw UsageError("line " + std::to_string(m_recordLine) + ": a quoted field is not closed");
                const char c = m_text[m_at++];
                if (c == '"') {
                    if (m_at < size && m_text[m_at] == '"') {
                        field += '"';
                        ++m_at;
                        continue;
                    }
                    break;
                }
                if (c == '\n') ++m_line;
                field += c;
            }
            if (m_at < size && m_text[m_at] != ',' && m_text[m_at] != '\n' && m_text[m_at] != '\r')
                throw UsageError("line " + std::to_string(m_line) +
                                 ": a quoted field is followed by text before the next comma");
        } else {
            const size_t start = m_at;
            while (m_at < size && m_text[m_at] != ',' && m_text[m_at] != '\n' && m_text[m_at] != '\r') ++m_at;
            field.assign(m_text.data() + start, m_at - start);
        }
        if (m_at >= size) break;
        const char c = m_text[m_at];
        if (c == ',') {
            ++m_at;
            continue;
        }
        // The record's end: LF or CRLF (a lone CR too).
        ++m_at;
        if (c == '\r' && m_at < size && m_text[m_at] == '\n') ++m_at;
        ++m_line;
        break;
    }
    fields.resize(used);
    return true;
}

void AppendCsvField(std::string& out, std::string_view field) {
    const bool quote = field.find_first_of(",\"\r\n") != std::string_view::npos ||
                       (!field.empty() && (field.front() == ' ' || field.back() == ' '));
    if (!quote) {
        out += field;
        return;
    }
    out += '"';
    for (const char c : field) {
        if (c == '"') out += '"';
        out += c;
    }
    out += '"';
}

void AppendCsvRecord(std::string& out, const std::vector<std::string>& fields) {
    for (size_t i = 0; i < fields.size(); ++i) {
        if (i) out += ',';
        AppendCsvField(out, fields[i]);
    }
    out += '\n';
}

void AppendNumber(std::string& out, double value) {
    char text[32];
    const auto result = std::to_chars(text, text + sizeof text, value);
    out.append(text, result.ptr);
}

bool ParseCsvNumber(std::string_view text, double& value) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    if (text.empty()) return false;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc() && result.ptr == text.data() + text.size() && std::isfinite(value);
}

}  // namespace zefra::cli
