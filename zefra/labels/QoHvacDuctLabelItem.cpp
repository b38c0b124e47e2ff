#include "zefra/labels/QoHvacDuctLabelItem.h"

#include "zefra/config/QoDtDictItem.h"

CString QoHvacDuctLabelItem::GetLabelText() const { return prefix + content + suffix; }

CString QoHvacDuctLabelItem::GetLabelText(const CString& text) const { return prefix + text + suffix; }

bool QoHvacDuctLabelItem::SaveToItem(QoDtDictItem* item) const {
    if (item == nullptr) return false;
    item->SetAttributeBoolValue(L"selected", selected);
    item->SetAttributeValue(L"labelname", labelname);
    item->SetAttributeValue(L"content", content);
    item->SetAttributeValue(L"suffix", suffix);
    item->SetAttributeValue(L"prefix", prefix);
    item->SetAttributeIntValue(L"percition", percition);
    return true;
}

bool QoHvacDuctLabelItem::ReadFromItem(QoDtDictItem* item) {
    if (item == nullptr) return false;
    selected = item->GetAttributeBoolValue(L"selected");
    labelname = item->GetAttributeValue(L"labelname");
    content = item->GetAttributeValue(L"content");
    suffix = item->GetAttributeValue(L"suffix");
    prefix = item->GetAttributeValue(L"prefix");
    percition = item->GetAttributeIntValue(L"percition");
    return true;
}
