#pragma once
// What zefra primary and zefra secondary add around the report texts of a
// scheme: the units of the texts, the texts on standard output, and the
// process record in an XML file.

#include "zefra/air/ZefraHDGProcess.h"

#include <ostream>
#include <string>

namespace zefra::cli {

// First warns on standard error of every unit name in the configuration that
// no converter knew (the report shows the converter's own unit there), then
// sets the units of the report texts for this run from "Q=kW,G=m^3/h,...",
// when the list isn't empty. Keys: H, G, Q, Mw, Den or the item names 焓,
// 风量, 冷热负荷, 湿负荷, 密度, the items that have a converter. Throws
// UsageError on any other key or a unit that the converter doesn't know.
void ApplyReportUnits(const std::string& unitList);

// The unit names the converter of a unit item knows, as "W, kW, ...";
// empty for an item without a converter.
std::string KnownUnitsList(const CString& item);

// The warnings of ApplyReportUnits alone.
void WarnUnknownStoredUnits();

// The result texts one after the other, as the system writes them; on a
// terminal the "\r\n" line ends become plain ones. Ends with a line end.
void PrintResultTexts(std::ostream& out, const CStringArray& texts, bool terminal);

// Writes the record of the process into `file`. Throws UsageError when the
// file can't be written.
void SaveProcessRecord(ZefraHDGProcess& process, const std::string& file);

// Reads the process from the record `recordName` in `file` ("-": standard
// input). Throws UsageError when the file can't be read or holds no complete
// record.
void LoadProcessRecord(ZefraHDGProcess& process, const std::string& file, const wchar_t* recordName,
                       const char* what);

// The same from the text of a record (for "-", standard input).
void LoadProcessRecordText(ZefraHDGProcess& process, const std::string& text, const wchar_t* recordName,
                           const char* what);

}  // namespace zefra::cli
