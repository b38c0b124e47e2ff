#include "zefra/layers/QoDtLayerStandard.h"

#include "zefra/config/QoDtDictStringItem.h"
#include "zefra/config/QoDtDictionary.h"

#include <cwchar>

const wchar_t* const QoDtLayerStandard::kFieldDef = L"LAYER_FIELD_DEF";
const wchar_t* const QoDtLayerStandard::kAssemblyDef = L"ASSEMBLY_LAYER_DEF";
const wchar_t* const QoDtLayerStandard::kModelDef = L"MODEL_LAYER_DEF";
const wchar_t* const QoDtLayerStandard::kDiscipline = L"暖通";

namespace {

const QoDtDictItem* FindLeafChild(const QoDtDictionary* dict, const CString& key) {
    if (!dict) return nullptr;
    const QoDtDictItem* item = dict->children.Find(key.Str());
    return item && !item->IsDict() ? item : nullptr;
}

CString TextOf(const QoDtDictItem* item) {
    if (!item || item->GetType() != QoDtDictItem::eDtString) return CString();
    return static_cast<const QoDtDictStringItem*>(item)->value;
}

// A colour index outside the palette (0 by block ... 256 by layer) is ignored.
void TakeColor(QoDtLayerDef& def, const CString& text) {
    if (text.IsEmpty()) return;
    const long index = std::wcstol(text, nullptr, 10);
    if (index >= 0 && index <= 256) def.colorIndex = static_cast<std::uint16_t>(index);
}

void TakeLineType(QoDtLayerDef& def, const CString& text) {
    if (!text.IsEmpty()) def.lineType = text;
}

}  // namespace

QoDtLayerStandard::QoDtLayerStandard(QoDtDictionary* standard)
    : m_fieldRoot(FindDisciplineRoot(standard, kFieldDef)),
      m_assemblyRoot(FindDisciplineRoot(standard, kAssemblyDef)),
      m_modelRoot(FindDisciplineRoot(standard, kModelDef)) {}

QoDtDictionary* QoDtLayerStandard::FindDisciplineRoot(QoDtDictionary* standard, const wchar_t* tree) {
    if (!standard) return nullptr;
    QoDtDictItem* treeItem = standard->FindItem(tree);
    if (!treeItem || !treeItem->IsDict()) return nullptr;
    QoDtDictItem* root = static_cast<QoDtDictionary*>(treeItem)->FindItem(kDiscipline);
    return root && root->IsDict() ? static_cast<QoDtDictionary*>(root) : nullptr;
}

bool QoDtLayerStandard::FillLayerDef(QoDtLayerDef& def) const {
    if (def.key.IsEmpty()) return false;
    const Sources sources = FindSources(def.key);
    if (sources.entry || sources.model) {
        FillFromLayer(def, sources);
        return true;
    }
    if (const QoDtDictItem* system = FindSystemByKey(def.key)) {
        FillFromSystem(def, *system);
        return true;
    }
    return false;
}

QoDtLayerStandard::Sources QoDtLayerStandard::FindSources(const CString& key) const {
    Sources sources;
    CString modelKey = key;
    if (const HVAC::SHvacSystemKind* kind = HVAC::SHvacSystemKind::FindByLayerKey(key)) {
        sources.system = FindSystemInKey(*kind, key);
        if (sources.system) {
            // Only the group of the system that bears the key now counts: a
            // group left behind under a former display name never wins.
            sources.entry = FindLeafChild(FindGroup(*kind, sources.system->localname), key);
            kind->RemoveSystemPart(key, sources.system->name, modelKey);
        } else {
            sources.entry = FindEntryOfAnySystem(*kind, key, sources.system);
        }
    }
    sources.model = FindModelDef(key);
    if (!sources.model && modelKey != key) sources.model = FindModelDef(modelKey);
    return sources;
}

const QoDtDictionary* QoDtLayerStandard::FindGroup(const HVAC::SHvacSystemKind& kind, const CString& name) const {
    const QoDtDictionary* groups = m_assemblyRoot ? m_assemblyRoot->FindDict(kind.assemblyDict) : nullptr;
    if (!groups || name.IsEmpty()) return nullptr;
    for (QoDtDictItem* const* p = groups->children.GetFirst(); p; p = groups->children.GetNext(p))
        if ((*p)->IsDict() && (*p)->name == name) return static_cast<const QoDtDictionary*>(*p);
    return nullptr;
}

const QoDtDictItem* QoDtLayerStandard::FindEntryOfAnySystem(const HVAC::SHvacSystemKind& kind, const CString& key,
                                                            const QoDtDictItem*& system) const {
    const QoDtDictionary* systems = FindSystemDict(kind);
    if (!systems) return nullptr;
    for (QoDtDictItem* const* p = systems->children.GetFirst(); p; p = systems->children.GetNext(p)) {
        if ((*p)->IsDict()) continue;
        if (const QoDtDictItem* entry = FindLeafChild(FindGroup(kind, (*p)->localname), key)) {
            system = *p;
            return entry;
        }
    }
    return nullptr;
}

QoDtDictionary* QoDtLayerStandard::FindSystemDict(const HVAC::SHvacSystemKind& kind) const {
    return m_fieldRoot ? m_fieldRoot->FindDict(kind.systemDict) : nullptr;
}

const QoDtDictItem* QoDtLayerStandard::FindSystemInKey(const HVAC::SHvacSystemKind& kind,
                                                       const CString& key) const {
    const QoDtDictionary* systems = FindSystemDict(kind);
    if (!systems) return nullptr;
    // Where one system key begins another ("LQ" and "LQG"), the longer one
    // is the system of the key.
    const QoDtDictItem* best = nullptr;
    CString modelKey;
    for (QoDtDictItem* const* p = systems->children.GetFirst(); p; p = systems->children.GetNext(p)) {
        if ((*p)->IsDict()) continue;
        if (!kind.RemoveSystemPart(key, (*p)->name, modelKey)) continue;
        if (!best || (*p)->name.GetLength() > best->name.GetLength()) best = *p;
    }
    return best;
}

const QoDtDictItem* QoDtLayerStandard::FindSystemByKey(const CString& key) const {
    int count = 0;
    const HVAC::SHvacSystemKind* rows = HVAC::SHvacSystemKind::Rows(count);
    for (int i = 0; i < count; ++i)
        if (const QoDtDictItem* system = FindLeafChild(FindSystemDict(rows[i]), key)) return system;
    return nullptr;
}

const QoDtDictItem* QoDtLayerStandard::FindModelDef(const CString& key) const {
    return FindLeafChild(m_modelRoot, key);
}

void QoDtLayerStandard::FillFromLayer(QoDtLayerDef& def, const Sources& sources) {
    // The first source that gives the attribute a non-empty text.
    auto attribute = [&sources](const wchar_t* name) {
        for (const QoDtDictItem* source : {sources.entry, sources.model, sources.system}) {
            if (!source) continue;
            CString text = source->GetAttributeValue(name);
            if (!text.IsEmpty()) return text;
        }
        return CString();
    };
    const CString systemName = sources.system ? sources.system->localname : CString();
    auto withSystem = [&systemName](const CString& text) {
        return systemName.IsEmpty() ? text : text + L"-" + systemName;
    };

    const CString modelLayer = TextOf(sources.model);
    def.layerName = TextOf(sources.entry);
    if (def.layerName.IsEmpty()) def.layerName = modelLayer.IsEmpty() ? def.key : withSystem(modelLayer);

    const CString modelLocalName = sources.model ? sources.model->localname : CString();
    def.localName = modelLocalName.IsEmpty() ? systemName : withSystem(modelLocalName);

    TakeColor(def, attribute(L"color"));
    TakeLineType(def, attribute(L"linetype"));
    def.comment = attribute(L"comment");
    const CString weight = attribute(L"lineweight");
    if (!weight.IsEmpty()) def.SetLineWeight(std::wcstod(weight, nullptr));
    const CString scale = attribute(L"linescale");
    const double scaleValue = scale.IsEmpty() ? 0.0 : std::wcstod(scale, nullptr);
    if (scaleValue > 0.0) def.SetLineScale(scaleValue);
}

void QoDtLayerStandard::FillFromSystem(QoDtLayerDef& def, const QoDtDictItem& system) {
    def.localName = system.localname;
    TakeColor(def, system.GetAttributeValue(L"color"));
    TakeLineType(def, system.GetAttributeValue(L"linetype"));
    def.comment = system.GetAttributeValue(L"comment");
}
