#pragma once
// Comma-separated tables as the batch commands read and write them (RFC 4180):
// fields in double quotes may hold commas, line breaks and doubled quotes;
// lines end in LF or CRLF; a UTF-8 byte-order mark before the header is
// skipped; empty lines are skipped.

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace zefra::cli {

class CsvReader {
public:
    // Reads from `text`, which must outlive the reader.
    explicit CsvReader(std::string_view text);

    // The next record's fields; false at the end of the text. Throws
    // UsageError for a quoted field that isn't closed or is followed by
    // anything but a comma or the line's end.
    bool Next(std::vector<std::string>& fields);

    // The same, as views: into the text, or for a quoted field with doubled
    // quotes into a string added to `unquoted`, which must outlive the views.
    bool Next(std::vector<std::string_view>& fields, std::deque<std::string>& unquoted);

    // The line on which the record last read starts, from 1.
    int Line() const { return m_recordLine; }

    // How far the reader has come, in bytes of the text.
    size_t Offset() const { return m_at; }

private:
    std::string_view m_text;
    size_t m_at = 0;
    int m_line = 1;
    int m_recordLine = 0;
};

// Appends one field, in double quotes when it holds a comma, a quote, a line
// break or leading or trailing spaces.
void AppendCsvField(std::string& out, std::string_view field);

// Appends the fields separated by commas, and a line break.
void AppendCsvRecord(std::string& out, const std::vector<std::string>& fields);

// Appends a number to ten significant digits, without trailing zeros.
void AppendNumber(std::string& out, double value);

// Parses a decimal number, spaces around it allowed; false for anything else
// and for infinities and NaN.
bool ParseCsvNumber(std::string_view text, double& value);

}  // namespace zefra::cli
