#include "zefra/platform/host/AcDbTextStyleTable.h"

#include "zefra/platform/host/AcDbHostApplicationServices.h"

#include <map>

AcDbTextStyleTable::AcDbTextStyleTable() { add(L"Standard", m_current); }

bool AcDbTextStyleTable::getAt(const wchar_t* name, AcDbObjectId& id) const {
    if (name == nullptr) return false;
    for (const auto& style : m_styles) {
        if (style.second.CompareNoCase(name) == 0) {
            id = style.first;
            return true;
        }
    }
    return false;
}

bool AcDbTextStyleTable::add(const wchar_t* name, AcDbObjectId& id) {
    if (name == nullptr || *name == L'\0') return false;
    if (getAt(name, id)) return true;
    id = AcDbObjectId::MakeNew();
    m_styles.emplace_back(id, CString(name));
    return true;
}

bool AcDbTextStyleTable::setCurrentStyle(const AcDbObjectId& id) {
    for (const auto& style : m_styles) {
        if (style.first == id) {
            m_current = id;
            return true;
        }
    }
    return false;
}

AcDbTextStyleTable& acdbTextStyleTable(AcDbDatabase* database) {
    static std::map<const AcDbDatabase*, AcDbTextStyleTable> tables;
    if (database == nullptr) database = acdbHostApplicationServices()->workingDatabase();
    return tables[database];
}

AcDbObjectId GetTextStyleId(const wchar_t* name, AcDbDatabase* database) {
    AcDbObjectId id;
    acdbTextStyleTable(database).getAt(name, id);
    return id;
}
