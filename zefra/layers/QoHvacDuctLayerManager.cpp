#include "zefra/layers/QoHvacDuctLayerManager.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictStringItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/layers/QoDtInitLayer.h"
#include "zefra/layers/QoDtLayerStandard.h"
#include "zefra/layers/SHvacSystemKind.h"
#include "zefra/module/QoModuleSingleton.h"

#include <vector>

using HVAC::EQoDbHvacSystemType;

namespace {

// The first child with that key; null for a null dictionary.
QoDtDictItem* FindChild(QoDtDictionary* dict, const CString& key) {
    if (!dict) return nullptr;
    for (QoDtDictItem* const* p = dict->children.GetFirst(); p; p = dict->children.GetNext(p))
        if ((*p)->name == key) return *p;
    return nullptr;
}

// Removes the first child with that key from the list; the list frees it.
void DeleteChild(QoDtDictionary* dict, const CString& key) {
    if (!dict) return;
    QoDtDictItemList& children = dict->children;
    for (children.MoveToFirst(); !children.IsOut(); children.MoveToNext()) {
        if (children.GetCurData()->name == key) {
            children.DelCur();
            return;
        }
    }
}

bool CursorIsValid(const QoDtDictItemList& children) {
    return children.GetCur() >= 0 && children.GetCur() < children.GetLength();
}

// Removes that very item from the dictionary's list; the list frees it.
void DeleteItem(QoDtDictionary* dict, const QoDtDictItem* item) {
    if (!dict || !item) return;
    QoDtDictItemList& children = dict->children;
    for (children.MoveToFirst(); !children.IsOut(); children.MoveToNext()) {
        if (children.GetCurData() == item) {
            children.DelCur();
            return;
        }
    }
}

// The system item of that key: a leaf child; null for a null dictionary.
QoDtDictItem* FindSystemItem(QoDtDictionary* systems, const CString& key) {
    if (!systems) return nullptr;
    for (QoDtDictItem* const* p = systems->children.GetFirst(); p; p = systems->children.GetNext(p))
        if (!(*p)->IsDict() && (*p)->name == key) return *p;
    return nullptr;
}

// The group named by a display name: a dictionary child.
QoDtDictionary* FindGroup(QoDtDictionary* groups, const CString& name) {
    if (!groups) return nullptr;
    for (QoDtDictItem* const* p = groups->children.GetFirst(); p; p = groups->children.GetNext(p))
        if ((*p)->IsDict() && (*p)->name == name) return static_cast<QoDtDictionary*>(*p);
    return nullptr;
}

bool OtherSystemNamed(QoDtDictionary* systems, const CString& name, const QoDtDictItem* except) {
    for (QoDtDictItem* const* p = systems->children.GetFirst(); p; p = systems->children.GetNext(p))
        if (*p != except && !(*p)->IsDict() && (*p)->localname == name) return true;
    return false;
}

// A group under a name that no system of the kind bears resolves nothing;
// before a system takes that name, such leftovers go, so that the name
// brings along nothing but the system's own group.
void DeleteLeftoverGroups(QoDtDictionary* groups, const CString& name) {
    while (QoDtDictionary* leftover = FindGroup(groups, name)) DeleteItem(groups, leftover);
}

// Keys go into layer keys, where "-" separates the parts; names and keys
// both become dictionary keys, where "\\" separates a path.
bool IsSystemKey(const CString& key) {
    return !key.IsEmpty() && key.Find(L'\\') < 0 && key.Find(L'-') < 0;
}

bool IsSystemName(const CString& name) { return !name.IsEmpty() && name.Find(L'\\') < 0; }

bool IsLook(const QoHvacDuctLayerManager::SSystemLook& look) {
    if (look.colorIndex && (*look.colorIndex < 0 || *look.colorIndex > 256)) return false;
    return !look.lineType || !look.lineType->IsEmpty();
}

void ApplyLook(QoDtDictItem& system, const QoHvacDuctLayerManager::SSystemLook& look) {
    if (look.lineType) system.SetAttributeValue(L"linetype", *look.lineType);
    if (look.colorIndex) {
        CString color;
        color.Format(L"%d", *look.colorIndex);
        system.SetAttributeValue(L"color", color);
    }
    if (look.comment) system.SetAttributeValue(L"comment", *look.comment);
    if (look.value && system.GetType() == QoDtDictItem::eDtString)
        static_cast<QoDtDictStringItem&>(system).value = *look.value;
}

// Gives an entry a new layer key; an entry of that key already in the group
// (a leftover) makes room.
void RekeyEntry(QoDtDictionary& group, QoDtDictItem& entry, const CString& layerKey) {
    if (entry.name == layerKey) return;
    for (QoDtDictItem* const* p = group.children.GetFirst(); p; p = group.children.GetNext(p)) {
        if (*p != &entry && (*p)->name == layerKey) {
            DeleteItem(&group, *p);
            break;
        }
    }
    entry.name = layerKey;
}

}  // namespace

QoHvacDuctLayerManager* QoHvacDuctLayerManager::GetInstance() {
    return QoModuleSingleton<QoHvacDuctLayerManager>::Get();
}

QoHvacDuctLayerManager::QoHvacDuctLayerManager() {
    ReRead();
    ReReadSysUserComparison();
}

QoHvacDuctLayerManager::KindDicts* QoHvacDuctLayerManager::DictsOf(EQoDbHvacSystemType kind) {
    return const_cast<KindDicts*>(static_cast<const QoHvacDuctLayerManager*>(this)->DictsOf(kind));
}

const QoHvacDuctLayerManager::KindDicts* QoHvacDuctLayerManager::DictsOf(EQoDbHvacSystemType kind) const {
    switch (kind) {
        case HVAC::ESysDuct: return &m_duct;
        case HVAC::ESysKT: return &m_kt;
        case HVAC::ESysVRV: return &m_vrv;
        case HVAC::ESysDBCN: return &m_dbcn;
        case HVAC::ESysFHCN: return &m_fhcn;
        case HVAC::ESysCZCN: return &m_czcn;
    }
    return nullptr;
}

QoDtDictionary* QoHvacDuctLayerManager::FindDisciplineRoot(QoDtDictionary* standard, const wchar_t* tree,
                                                           QoDtDictionary* unchanged) {
    QoDtDictItem* treeItem = standard ? standard->FindItem(tree) : nullptr;
    if (!treeItem || !treeItem->IsDict()) return unchanged;
    QoDtDictItem* root = static_cast<QoDtDictionary*>(treeItem)->FindItem(QoDtLayerStandard::kDiscipline);
    return root && root->IsDict() ? static_cast<QoDtDictionary*>(root) : nullptr;
}

void QoHvacDuctLayerManager::ReRead() {
    QoDtDictItem* layerRoot = g_dictCfg.FindItem(kLayerRoot);
    if (layerRoot && layerRoot->IsDict()) m_pLayerDict = static_cast<QoDtDictionary*>(layerRoot);

    QoDtDictionary* standard = GetCurLayerStd();
    m_pFieldRoot = FindDisciplineRoot(standard, QoDtLayerStandard::kFieldDef, m_pFieldRoot);
    m_pAssemblyRoot = FindDisciplineRoot(standard, QoDtLayerStandard::kAssemblyDef, m_pAssemblyRoot);

    int count = 0;
    const HVAC::SHvacSystemKind* rows = HVAC::SHvacSystemKind::Rows(count);
    for (int i = 0; i < count; ++i) {
        KindDicts* dicts = DictsOf(rows[i].kind);
        dicts->assembly = m_pAssemblyRoot ? m_pAssemblyRoot->FindDict(rows[i].assemblyDict) : nullptr;
        dicts->systems = m_pFieldRoot ? m_pFieldRoot->FindDict(rows[i].systemDict) : nullptr;
    }
}

QoDtDictionary* QoHvacDuctLayerManager::GetSysDefDict(EQoDbHvacSystemType kind) const {
    const KindDicts* dicts = DictsOf(kind);
    return dicts ? dicts->systems : nullptr;
}

QoDtDictionary* QoHvacDuctLayerManager::GetAssDict(EQoDbHvacSystemType kind) const {
    const KindDicts* dicts = DictsOf(kind);
    return dicts ? dicts->assembly : nullptr;
}

bool QoHvacDuctLayerManager::FindSystem(const CString& key, EQoDbHvacSystemType kind) {
    ReRead();
    QoDtDictionary* systems = GetSysDefDict(kind);
    if (!systems || systems->children.GetLength() == 0) return false;
    return systems->FindItem(key) != nullptr;
}

bool QoHvacDuctLayerManager::FindName(const CString& name, EQoDbHvacSystemType kind) {
    CStringArray names;
    if (!GetAllSystemName(names, kind)) return false;
    for (int i = 0; i < names.GetSize(); ++i)
        if (names[i] == name) return true;
    return false;
}

bool QoHvacDuctLayerManager::FindFlag(const CString& flag, EQoDbHvacSystemType kind) {
    CStringArray flags;
    if (!GetAllFlag(flags, kind)) return false;
    for (int i = 0; i < flags.GetSize(); ++i)
        if (flags[i] == flag) return true;
    return false;
}

bool QoHvacDuctLayerManager::GetSysKey(const CString& name, CString& key, EQoDbHvacSystemType kind) {
    ReRead();
    QoDtDictionary* systems = GetSysDefDict(kind);
    if (!systems) return false;
    for (QoDtDictItem* const* p = systems->children.GetFirst(); p; p = systems->children.GetNext(p)) {
        if ((*p)->localname == name) {
            key = (*p)->name;
            return true;
        }
    }
    return false;
}

bool QoHvacDuctLayerManager::GetSysLocalName(const CString& key, CString& name, EQoDbHvacSystemType kind) {
    ReRead();
    if (!FindSystem(key, kind)) return false;
    const QoDtDictItem* system = FindChild(GetSysDefDict(kind), key);
    if (!system) return false;
    name = system->localname;
    return true;
}

bool QoHvacDuctLayerManager::GetAllSystemName(CStringArray& names, EQoDbHvacSystemType kind) {
    ReRead();
    if (!m_pFieldRoot) return false;
    QoDtDictionary* systems = GetSysDefDict(kind);
    if (!systems) return true;
    for (QoDtDictItem* const* p = systems->children.GetFirst(); p; p = systems->children.GetNext(p))
        names.Add((*p)->localname);
    return true;
}

bool QoHvacDuctLayerManager::GetAllSystemName(QoArray<CString>& names, EQoDbHvacSystemType kind) {
    CStringArray found;
    if (!GetAllSystemName(found, kind)) return false;
    for (int i = 0; i < found.GetSize(); ++i) names.Append(found[i]);
    return true;
}

bool QoHvacDuctLayerManager::GetAllFlag(CStringArray& flags, EQoDbHvacSystemType kind) {
    CStringArray names;
    if (!GetAllSystemName(names, kind)) return false;
    flags.RemoveAll();
    for (int i = 0; i < names.GetSize(); ++i) flags.Add(GetFlagWithSysname(names[i], kind));
    return true;
}

CString QoHvacDuctLayerManager::GetFlagWithSysname(const CString& name, EQoDbHvacSystemType kind) {
    CString key;
    if (!GetSysKey(name, key, kind)) return CString();
    const HVAC::SHvacSystemKind* row = HVAC::SHvacSystemKind::Find(kind);
    QoDtDictionary* zefra = g_dictCfg.FindDict(L"ZEFRA");
    QoDtDictionary* flagSet = zefra && row ? zefra->FindDict(row->flagSet) : nullptr;
    const QoDtDictItem* item = flagSet ? flagSet->FindItem(key) : nullptr;
    if (!item) return CString();
    CString flag = item->GetAttributeValue(L"flag");
    flag.MakeUpper();
    return flag;
}

bool QoHvacDuctLayerManager::AddSystem(const CString& key, const CString& name, const CString& value,
                                       CString sample, EQoDbHvacSystemType kind) {
    ReRead();
    QoDtDictionary* systems = GetSysDefDict(kind);
    if (!systems) return false;
    if (sample.IsEmpty() && systems->children.GetLength() > 0)
        sample = systems->children.GetAt(0)->GetAttributeValue(L"name");
    if (sample.IsEmpty()) return true;

    QoDtLayerDef sampleDef(sample);
    GetLayerDef(sampleDef, nullptr);  // a sample without definition gives an empty one

    if (QoDtDictItem* item = systems->FindOrAddItem(key, QoDtDictItem::eDtString)) {
        item->SetAttributeValue(L"name", key);
        item->name = key;
        item->SetAttributeValue(L"localname", name);
        item->localname = name;
        item->SetAttributeValue(L"linetype", sampleDef.lineType);
        CString color;
        color.Format(L"%d", static_cast<int>(sampleDef.colorIndex));
        item->SetAttributeValue(L"color", color);
        item->SetAttributeValue(L"comment", L"");
        if (item->GetType() == QoDtDictItem::eDtString) static_cast<QoDtDictStringItem*>(item)->value = value;
    }

    QoDtDictionary* groups = GetAssDict(kind);
    QoDtDictItem* sampleGroup = FindChild(groups, sampleDef.localName);
    if (!sampleGroup || !sampleGroup->IsDict()) return true;

    // The sample's layer keys are taken first: the new group may be the
    // sample's own when the display name is the same.
    std::vector<CString> layerKeys;
    const QoDtDictItemList& sampleEntries = static_cast<QoDtDictionary*>(sampleGroup)->children;
    for (QoDtDictItem* const* p = sampleEntries.GetFirst(); p; p = sampleEntries.GetNext(p)) {
        CString layerKey = (*p)->name;
        layerKey.Replace(sample, key);
        layerKeys.push_back(layerKey);
    }
    if (QoDtDictionary* group = groups->FindOrAddDict(name)) {
        for (const CString& layerKey : layerKeys) group->FindOrAddItem(layerKey, QoDtDictItem::eDtString);
    }
    return true;
}

QoHvacDuctLayerManager::ESystemEdit QoHvacDuctLayerManager::RenameSystem(const CString& key, const CString& newKeyArg,
                                                                        const CString& newNameArg,
                                                                        const SSystemLook& look,
                                                                        EQoDbHvacSystemType kind) {
    ReRead();
    const HVAC::SHvacSystemKind* row = HVAC::SHvacSystemKind::Find(kind);
    QoDtDictionary* systems = GetSysDefDict(kind);
    if (!row || !systems) return eNoSystemList;
    QoDtDictItem* system = FindSystemItem(systems, key);
    if (!system) return eUnknownSystem;
    const CString oldName = system->localname;
    const CString newKey = newKeyArg.IsEmpty() ? key : newKeyArg;
    const CString newName = newNameArg.IsEmpty() ? oldName : newNameArg;
    if (newKey != key) {
        if (!IsSystemKey(newKey)) return eBadKey;
        if (FindChild(systems, newKey)) return eKeyTaken;
    }
    if (newName != oldName) {
        if (!IsSystemName(newName)) return eBadName;
        if (OtherSystemNamed(systems, newName, system)) return eNameTaken;
    }
    if (!IsLook(look)) return eBadLook;

    QoDtDictionary* groups = GetAssDict(kind);
    QoDtDictionary* group = FindGroup(groups, oldName);
    // A display name that another system shares keeps its group; only the
    // entries of this system leave it.
    const bool shared = group && OtherSystemNamed(systems, oldName, system);
    if (newName != oldName) DeleteLeftoverGroups(groups, newName);
    if (group && !shared) {
        if (newName != oldName) {
            group->name = newName;
            if (group->localname == oldName) group->localname = newName;
        }
        std::vector<QoDtDictItem*> entries;
        for (QoDtDictItem* const* p = group->children.GetFirst(); p; p = group->children.GetNext(p)) entries.push_back(*p);
        CString layerKey;
        for (QoDtDictItem* entry : entries)
            if (row->ReplaceSystemPart(entry->name, key, newKey, layerKey)) RekeyEntry(*group, *entry, layerKey);
    } else if (group) {
        QoDtDictionary* target = newName == oldName ? group : groups->FindOrAddDict(newName);
        std::vector<QoDtDictItem*> entries;
        for (QoDtDictItem* const* p = group->children.GetFirst(); p; p = group->children.GetNext(p)) entries.push_back(*p);
        CString layerKey;
        for (QoDtDictItem* entry : entries) {
            if (!row->ReplaceSystemPart(entry->name, key, newKey, layerKey)) continue;
            if (target == group) {
                RekeyEntry(*group, *entry, layerKey);
            } else if (QoDtDictItem* moved = target->FindOrAddItem(layerKey, entry->GetType())) {
                moved->CopyData(*entry);
                moved->name = layerKey;
                DeleteItem(group, entry);
            }
        }
    }

    // The flag set is keyed by the system key; its item's text is the name.
    QoDtDictionary* zefra = g_dictCfg.FindDict(L"ZEFRA");
    QoDtDictionary* flagSet = zefra ? zefra->FindDict(row->flagSet) : nullptr;
    if (QoDtDictItem* flag = FindChild(flagSet, key)) {
        if (newKey != key) {
            while (QoDtDictItem* leftover = FindChild(flagSet, newKey)) DeleteItem(flagSet, leftover);
            flag->name = newKey;
        }
        if (flag->GetType() == QoDtDictItem::eDtString) {
            CString& text = static_cast<QoDtDictStringItem*>(flag)->value;
            if (text == oldName) text = newName;
        }
    }

    system->SetAttributeValue(L"name", newKey);
    system->SetAttributeValue(L"localname", newName);
    ApplyLook(*system, look);
    return eSystemEdited;
}

QoHvacDuctLayerManager::ESystemEdit QoHvacDuctLayerManager::AddSystemFromSample(const CString& key, const CString& name,
                                                                               const CString& sampleArg,
                                                                               const SSystemLook& look,
                                                                               EQoDbHvacSystemType kind) {
    ReRead();
    const HVAC::SHvacSystemKind* row = HVAC::SHvacSystemKind::Find(kind);
    QoDtDictionary* systems = GetSysDefDict(kind);
    if (!row || !systems) return eNoSystemList;
    if (!IsSystemKey(key)) return eBadKey;
    if (!IsSystemName(name)) return eBadName;
    if (FindChild(systems, key)) return eKeyTaken;
    if (OtherSystemNamed(systems, name, nullptr)) return eNameTaken;
    if (!IsLook(look)) return eBadLook;
    CString sample = sampleArg;
    if (sample.IsEmpty()) {
        for (QoDtDictItem* const* p = systems->children.GetFirst(); p && sample.IsEmpty(); p = systems->children.GetNext(p))
            if (!(*p)->IsDict()) sample = (*p)->name;
    }
    const QoDtDictItem* sampleItem = FindSystemItem(systems, sample);
    if (!sampleItem) return eUnknownSample;

    // The sample's keys are read before anything is added.
    QoDtDictionary* groups = GetAssDict(kind);
    const QoDtDictionary* sampleGroup = FindGroup(groups, sampleItem->localname);
    std::vector<CString> layerKeys;
    if (sampleGroup) {
        CString layerKey;
        for (QoDtDictItem* const* p = sampleGroup->children.GetFirst(); p; p = sampleGroup->children.GetNext(p))
            if (row->ReplaceSystemPart((*p)->name, sample, key, layerKey)) layerKeys.push_back(layerKey);
    }
    QoDtDictItem* system = systems->FindOrAddItem(key, QoDtDictItem::eDtString);
    if (!system) return eNoSystemList;
    system->SetAttributeValue(L"name", key);
    system->SetAttributeValue(L"localname", name);
    sampleItem->GetAttributes().ForEach([system](const CString& attribute, const CString& text) {
        if (attribute != L"comment") system->SetAttributeValue(attribute, text);
    });
    system->SetAttributeValue(L"comment", L"");
    ApplyLook(*system, look);

    DeleteLeftoverGroups(groups, name);
    if (sampleGroup) {
        if (QoDtDictionary* group = groups->FindOrAddDict(name))
            for (const CString& layerKey : layerKeys) group->FindOrAddItem(layerKey, QoDtDictItem::eDtString);
    }
    return eSystemEdited;
}

bool QoHvacDuctLayerManager::DelSystem(const CString& key, EQoDbHvacSystemType kind) {
    ReRead();
    CString name;
    if (!GetSysLocalName(key, name, kind)) return false;
    DeleteChild(GetAssDict(kind), name);
    DeleteChild(GetSysDefDict(kind), key);
    return true;
}

CString QoHvacDuctLayerManager::GetLayerComment(const CString& layerKey) const {
    QoDtLayerDef def(layerKey);
    return GetLayerDef(def, nullptr) ? def.comment : CString();
}

bool QoHvacDuctLayerManager::GetLayerProp(const CString& layerKey, QoHvacEntProperty& property) const {
    QoDtLayerDef def(layerKey);
    if (!GetLayerDef(def, nullptr)) return false;
    property.layerId = QoDtInitLayer(layerKey, nullptr);
    property.lineWeight = def.GetLineWeight();
    property.lineScale = def.GetLineScale();
    return true;
}

CString QoHvacDuctLayerManager::SearchUserDefineSys(const CString& layerName, QoDtDictionary* dict) const {
    if (!dict) return CString();
    QoDtDictItemList& children = dict->children;
    for (children.MoveToFirst(); CursorIsValid(children); children.MoveToNext()) {
        QoDtDictItem* child = children.GetCurData();
        if (child->IsDict()) {
            CString found = SearchUserDefineSys(layerName, static_cast<QoDtDictionary*>(child));
            if (!found.IsEmpty()) return found;
            continue;
        }
        const CString key = child->name;
        CString value;
        if (dict->GetValue(key, value) && value == layerName) return key;
    }
    return CString();
}

CString QoHvacDuctLayerManager::TransUserLayerToSys(const CString& layerName) const {
    CString key = SearchUserDefineSys(layerName, m_pAssemblyRoot);
    if (!key.IsEmpty()) return key;
    for (int i = 0; i < m_sysUserComparison.GetLength(); ++i)
        if (m_sysUserComparison[i].userLayer == layerName) return m_sysUserComparison[i].sysKey;
    return CString();
}

void QoHvacDuctLayerManager::InitialSysUserComparison(QoDtDictionary* dict) {
    if (!dict) return;
    QoDtDictItemList& children = dict->children;
    for (children.MoveToFirst(); CursorIsValid(children); children.MoveToNext()) {
        QoDtDictItem* child = children.GetCurData();
        const int cursor = children.GetCur();
        if (child->IsDict()) {
            InitialSysUserComparison(static_cast<QoDtDictionary*>(child));
        } else {
            QoDtLayerDef def(child->name);
            if (GetLayerDef(def, nullptr)) m_sysUserComparison.Append({def.key, def.layerName});
        }
        children.MoveTo(cursor);
    }
}

void QoHvacDuctLayerManager::ReReadSysUserComparison() {
    if (!m_pAssemblyRoot) return;
    m_sysUserComparison.Reset();
    InitialSysUserComparison(m_pAssemblyRoot);
}

namespace HVAC {

bool GetAllSystemName(CStringArray& names, EQoDbHvacSystemType kind) {
    return QoHvacDuctLayerManager::GetInstance()->GetAllSystemName(names, kind);
}

bool GetAllSystemName(QoArray<CString>& names, EQoDbHvacSystemType kind) {
    return QoHvacDuctLayerManager::GetInstance()->GetAllSystemName(names, kind);
}

}  // namespace HVAC
