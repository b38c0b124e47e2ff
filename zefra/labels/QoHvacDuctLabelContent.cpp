#include "zefra/labels/QoHvacDuctLabelContent.h"

#include "zefra/config/QoDtDictBoolItem.h"
#include "zefra/config/QoDtDictStringItem.h"
#include "zefra/config/QoDtDictionary.h"

bool QoHvacDuctLabelContent::SaveToDict(QoDtDictionary* dict) const {
    if (dict == nullptr) return false;
    dict->children.Reset();

    auto* checkItem = new QoDtDictBoolItem;
    checkItem->value = check;
    checkItem->SetAttributeValue(L"name", L"CHECK");
    checkItem->SetAttributeValue(L"localname", L"是否显示");
    dict->children.Append(checkItem);

    for (int i = 0; i < strings.GetLength(); ++i) {
        auto* stringItem = new QoDtDictStringItem;
        stringItem->value = strings[i];
        stringItem->SetAttributeValue(L"name", strings[i]);
        stringItem->SetAttributeValue(L"localname", strings[i]);
        dict->children.Append(stringItem);
    }
    return true;
}

bool QoHvacDuctLabelContent::ReadFromDict(QoDtDictionary* dict) {
    if (dict == nullptr) return false;
    strings.Reset();
    const QoDtDictItemList& children = dict->children;
    for (QoDtDictItem* const* slot = children.GetFirst(); slot != nullptr; slot = children.GetNext(slot)) {
        const QoDtDictItem* child = *slot;
        if (child == nullptr) continue;
        if (child->GetType() == QoDtDictItem::eDtBool)
            check = static_cast<const QoDtDictBoolItem*>(child)->value;
        else if (child->GetType() == QoDtDictItem::eDtString)
            strings.Append(static_cast<const QoDtDictStringItem*>(child)->value);
    }
    return true;
}
