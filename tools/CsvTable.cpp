#include "CsvTable.h"

#include "Cli.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace zefra::cli {

CsvReader::CsvReader(std::string_view text) : m_text(text) {
    if (m_text.substr(0, 3) == "\xEF\xBB\xBF") m_at = 3;
}

bool CsvReader::Next(std::vector<std::string>& fields) {
    std::vector<std::string_view> views;
    std::deque<std::string> unquoted;
    if (!Next(views, unquoted)) {
        fields.clear();
        return false;
    }
    fields.assign(views.begin(), views.end());
    return true;
}

bool CsvReader::Next(std::vector<std::string_view>& fields, std::deque<std::string>& unquoted) {
    fields.clear();
    const size_t size = m_text.size();
    const char* text = m_text.data();
    // Empty lines carry no record.
    while (m_at < size && (text[m_at] == '\n' || text[m_at] == '\r')) {
        if (text[m_at] == '\n') ++m_line;
        ++m_at;
    }
    if (m_at >= size) return false;
    m_recordLine = m_line;
    for (;;) {
        if (m_at < size && text[m_at] == '"') {
            const size_t start = ++m_at;
            bool doubled = false;
            for (;;) {
                if (m_at >= size)
                    throw UsageError("line " + std::to_string(m_recordLine) + ": a quoted field is not closed");
                const char c = text[m_at++];
                if (c == '"') {
                    if (m_at < size && text[m_at] == '"') {
                        doubled = true;
                        ++m_at;
                        continue;
                    }
                    break;
                }
                if (c == '\n') ++m_line;
            }
            const std::string_view quoted(text + start, m_at - 1 - start);
            if (!doubled) {
                fields.push_back(quoted);
            } else {
                std::string& field = unquoted.emplace_back();
                for (size_t i = 0; i < quoted.size(); ++i) {
                    field += quoted[i];
                    if (quoted[i] == '"') ++i;  // the second of a doubled quote
                }
                fields.push_back(field);
            }
            if (m_at < size && text[m_at] != ',' && text[m_at] != '\n' && text[m_at] != '\r')
                throw UsageError("line " + std::to_string(m_line) +
                                 ": a quoted field is followed by text before the next comma");
        } else {
            const size_t start = m_at;
            while (m_at < size && text[m_at] != ',' && text[m_at] != '\n' && text[m_at] != '\r') ++m_at;
            fields.emplace_back(text + start, m_at - start);
        }
        if (m_at >= size) break;
        const char c = text[m_at];
        if (c == ',') {
            ++m_at;
            continue;
        }
        // The record's end: LF or CRLF (a lone CR too).
        ++m_at;
        if (c == '\r' && m_at < size && text[m_at] == '\n') ++m_at;
        ++m_line;
        break;
    }
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

namespace {

constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};

}  // namespace

void AppendNumber(std::string& out, double value) {
    // Ten significant digits, written from an integer: several times faster
    // than the general conversions, which dominated the time of a batch.
    // Values beyond 1e-4 … 1e10, rare in a state of air, take the general
    // path.
    constexpr int kDigits = 10;
    const double magnitude = std::fabs(value);
    if (!(magnitude >= 1e-4 && magnitude < 9.9999999995e9)) {
        if (value == 0.0) {
            out += '0';
            return;
        }
        char text[40];
        const auto result = std::to_chars(text, text + sizeof text, value, std::chars_format::general, kDigits);
        out.append(text, result.ptr);
        return;
    }
    // The decimal exponent e: 10^e <= magnitude < 10^(e+1).
    int e = 0;
    if (magnitude >= 1.0) {
        while (e < 9 && magnitude >= kPowersOfTen[e + 1]) ++e;
    } else {
        e = -1;
        while (magnitude * kPowersOfTen[-e] < 1.0) --e;
    }
    const int shift = kDigits - 1 - e;  // from 0 (e = 9) to 13 (e = -4)
    auto digits = static_cast<unsigned long long>(magnitude * kPowersOfTen[shift] + 0.5);
    if (digits >= 10000000000ull) {  // rounded up to the next power of ten
        digits /= 10;
        ++e;
    }
    // The ten digits, as two halves of five: a digit and two pairs each.
    char d[kDigits];
    const auto half = [](unsigned value, char* to) {
        static const char kPairs[] =
            "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
            "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
            "8081828384858687888990919293949596979899";
        const unsigned rest = value % 10000;
        to[0] = static_cast<char>('0' + value / 10000);
        std::memcpy(to + 1, kPairs + 2 * (rest / 100), 2);
        std::memcpy(to + 3, kPairs + 2 * (rest % 100), 2);
    };
    half(static_cast<unsigned>(digits / 100000), d);
    half(static_cast<unsigned>(digits % 100000), d + 5);
    char text[40];
    char* const start = text + 1;  // room for the sign
    char* p = start;
    if (e >= 0) {
        for (int i = 0; i <= e; ++i) *p++ = d[i];
        int last = kDigits - 1;
        while (last > e && d[last] == '0') --last;
        if (last > e) {
            *p++ = '.';
            for (int i = e + 1; i <= last; ++i) *p++ = d[i];
        }
    } else {
        *p++ = '0';
        *p++ = '.';
        for (int i = -1; i > e; --i) *p++ = '0';
        int last = kDigits - 1;
        while (d[last] == '0') --last;
        for (int i = 0; i <= last; ++i) *p++ = d[i];
    }
    char* end = p;
    p = start;
    if (value < 0.0) *--p = '-';
    out.append(p, end);
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
