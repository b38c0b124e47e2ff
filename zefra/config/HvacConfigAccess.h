#pragma once
#include "zefra/ZefraExport.h"
// Short ways into the two global trees: remembered values, the one writer of
// the configuration file, and the settings of space (room) labels kept in
// "ZEFRA\SPACE".

#include "zefra/platform/mfc/CString.h"

ZEFRA_API_BEGIN

namespace HVAC {

// Customer builds; only the standard build exists.
enum ECustomProject { ECustomStandard = 0 };

// Splits at the last backslash: "A\B\C" gives "A\B" and "C". Without a
// backslash: false, with `path` = `full` and `item` untouched.
bool SeparatePathAndItem(const CString& full, CString& path, CString& item);

// Remembered values below g_dictHistoryData, by full path. A read makes the
// dictionaries of the path; a miss leaves `value` untouched. Every store
// saves the history file at once.
bool GetDefaultValue(const CString& full, CString& value);
bool GetDefaultValue(const CString& full, double& value);
bool GetDefaultValue(const CString& full, int& value);
bool GetDefaultValue(const CString& full, bool& value);
bool SetDefaultValue(const CString& full, const CString& value);
bool SetDefaultValue(const CString& full, double value);
bool SetDefaultValue(const CString& full, int value);
bool SetDefaultValue(const CString& full, bool value);

// Writes g_dictCfg to "Config.xml"; nothing when the file can't be found.
void SaveConfigData();

bool GetHvacSpaceInfoFromConfig(double& textSize, CString& visibleField);
// Writes both values into "ZEFRA\SPACE" and saves the configuration.
bool SetHvacSpaceInfoToConfig(double textSize, const CString& visibleField);
// Copies "ZEFRA\SPACE" into the working drawing; with `onlyIfUnset` the
// text size is left alone and the visible fields are set only where the
// drawing has none.
bool SetConfigHvacSpaceInfoToCurDwg(bool onlyIfUnset);

ECustomProject GetCustomProject();

}  // namespace HVAC

ZEFRA_API_END
