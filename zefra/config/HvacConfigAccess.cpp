#include "zefra/config/HvacConfigAccess.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtFileSearch.h"
#include "zefra/platform/host/AcDbDatabase.h"
#include "zefra/platform/host/CommandLine.h"
#include "zefra/platform/host/QoDbHvacSpace.h"

namespace HVAC {

namespace {

const wchar_t kSpacePath[] = L"ZEFRA\\SPACE";
const wchar_t kTextSizeKey[] = L"TEXTSIZE";
const wchar_t kVisibleFieldKey[] = L"VISIBLE_FIELD";

template <typename T>
bool GetRemembered(const CString& full, T& value) {
    CString path;
    CString item;
    if (!SeparatePathAndItem(full, path, item)) return false;
    QoDtDictionary* dict = g_dictHistoryData.FindOrAddDict(path);
    return dict != nullptr && dict->GetValue(item, value);
}

template <typename T>
bool SetRemembered(const CString& full, const T& value) {
    CString path;
    CString item;
    if (!SeparatePathAndItem(full, path, item)) return false;
    QoDtDictionary* dict = g_dictHistoryData.FindOrAddDict(path);
    if (dict == nullptr) return false;
    dict->SetValue(item, value);
    SaveHistoryData();
    return true;
}

QoDtDictionary* SpaceSettings() {
    QoDtDictItem* item = g_dictCfg.FindItem(kSpacePath);
    return item != nullptr && item->IsDict() ? static_cast<QoDtDictionary*>(item) : nullptr;
}

AcDbDatabase* WorkingDatabase() { return acdbHostApplicationServices()->workingDatabase(); }

}  // namespace

bool SeparatePathAndItem(const CString& full, CString& path, CString& item) {
    path = full;
    const int separator = path.ReverseFind(L'\\');
    if (separator < 0) return false;
    path = full.Left(separator);
    item = full.Right(full.GetLength() - separator - 1);
    return true;
}

bool GetDefaultValue(const CString& full, CString& value) { return GetRemembered(full, value); }
bool GetDefaultValue(const CString& full, double& value) { return GetRemembered(full, value); }
bool GetDefaultValue(const CString& full, int& value) { return GetRemembered(full, value); }
bool GetDefaultValue(const CString& full, bool& value) { return GetRemembered(full, value); }

bool SetDefaultValue(const CString& full, const CString& value) { return SetRemembered(full, value); }
bool SetDefaultValue(const CString& full, double value) { return SetRemembered(full, value); }
bool SetDefaultValue(const CString& full, int value) { return SetRemembered(full, value); }
bool SetDefaultValue(const CString& full, bool value) { return SetRemembered(full, value); }

void SaveConfigData() {
    CString found;
    if (!FindFile(QoDtConfigStore::FileName(QoDtConfigStore::eConfig), found)) return;
    g_dictCfg.children.MoveToFirst();
    CString target;
    if (!QoDtConfigStore::SaveTarget(QoDtConfigStore::eConfig, found, target)) return;
    // A refused save (the file changed on disk meanwhile, or can't be
    // written) leaves the changes in memory; the user reads why.
    CString message;
    if (!g_dictCfg.SaveToXML(target, &message)) acutPrintf(L"\n%s\n", message.GetString());
}

bool GetHvacSpaceInfoFromConfig(double& textSize, CString& visibleField) {
    const QoDtDictionary* space = SpaceSettings();
    if (space == nullptr) return false;
    space->GetValue(kTextSizeKey, textSize);
    return space->GetValue(kVisibleFieldKey, visibleField);
}

bool SetHvacSpaceInfoToConfig(double textSize, const CString& visibleField) {
    QoDtDictionary* space = SpaceSettings();
    if (space == nullptr) return false;
    space->SetValue(kTextSizeKey, textSize);
    space->SetValue(kVisibleFieldKey, visibleField);
    SaveConfigData();
    return true;
}

bool SetConfigHvacSpaceInfoToCurDwg(bool onlyIfUnset) {
    const QoDtDictionary* space = SpaceSettings();
    if (space == nullptr) return false;
    double textSize = 3.0;
    if (space->GetValue(kTextSizeKey, textSize) && !onlyIfUnset) QoDbSetHvacSpaceTextSize(textSize, WorkingDatabase());
    CString visibleField;
    if (space->GetValue(kVisibleFieldKey, visibleField)) {
        if (QoDbGetHvacSpaceVisibleField(WorkingDatabase()).IsEmpty() || !onlyIfUnset)
            QoDbSetHvacSpaceVisibleField(visibleField, WorkingDatabase());
    }
    return true;
}

ECustomProject GetCustomProject() { return ECustomStandard; }

}  // namespace HVAC
