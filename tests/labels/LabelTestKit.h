#pragma once
// Shared pieces of the label tests: a configuration tree that starts empty,
// short ways to build label lines and the "ZEFRA\LABELSET" branch, and
// texts in UTF-8 for readable failures. Every test takes down the module's
// singletons first, so that the managers are built afresh from the tree
// that the test sets up.

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/labels/QoHvacDuctLabelItem.h"
#include "zefra/module/ZefraModuleExitList.h"
#include "zefra/platform/entities/QoStringW.h"

#include <gtest/gtest.h>

#include <string>

inline std::string U(const CString& text) { return text.ToUtf8(); }
inline std::string U(const QoStringW& text) { return CString(text.GetString()).ToUtf8(); }

inline QoHvacDuctLabelItem MakeItem(const wchar_t* labelname, const wchar_t* prefix, const wchar_t* suffix,
                                    int percition, const wchar_t* content, bool selected = true) {
    QoHvacDuctLabelItem item;
    item.labelname = labelname;
    item.prefix = prefix;
    item.suffix = suffix;
    item.percition = percition;
    item.content = content;
    item.selected = selected;
    return item;
}

class LabelTest : public ::testing::Test {
protected:
    void SetUp() override {
        ZefraModuleExitList::RunAll();
        QoDtDictionary empty;
        g_dictCfg.Swap(empty);
    }

    static QoDtDictionary& Branch() { return *g_dictCfg.FindOrAddDict(L"ZEFRA\\LABELSET"); }

    // The row item `row` of list `list`, made if missing.
    static QoDtDictItem& Row(int list, int row) {
        CString path;
        path.Format(L"LABELITEM\\LABEL%d\\%d", list, row);
        return *Branch().FindOrAddItem(path, QoDtDictItem::eDtRow);
    }
    static void StoreRow(int list, int row, const QoHvacDuctLabelItem& item) { item.SaveToItem(&Row(list, row)); }
};
