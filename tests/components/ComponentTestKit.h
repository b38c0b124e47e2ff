#pragma once
// Shared set-up of the component settings tests: every test starts from a
// configuration tree of its own, no manager built, and the shared entity
// objects as the entity library makes them.

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/module/ZefraModuleExitList.h"
#include "zefra/platform/entities/QoDbHvacDefaultFitData.h"
#include "zefra/platform/entities/QoDbHvacPipeDrawSetData.h"
#include "zefra/platform/entities/ZefraPipeGBData.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace componenttest {

// Destroys the managers built so far, so the next GetInstance reads afresh.
inline void ResetModule() {
    ZefraModuleExitList::RunAll();
    QoDtDictionary empty;
    g_dictCfg.Swap(empty);
    g_HvacFitAndDisplayData = QoDbHvacDefaultFitData();
    g_HvacPipeDrawSetData = QoDbHvacPipeDrawSetData();
    g_HvacPipeGBData.Clear(ZefraPipeGBData::EFlangeExtrude);
}

inline QoDtDictOptionItem* AddOption(QoDtDictionary& dict, const wchar_t* key,
                                     std::initializer_list<const wchar_t*> choices, int selection) {
    auto* option = static_cast<QoDtDictOptionItem*>(dict.FindOrAddItem(key, QoDtDictItem::eDtOption));
    for (const wchar_t* choice : choices) option->options.Append(choice);
    option->selection = selection;
    return option;
}

// Resets on construction, so that members of a derived fixture may take a
// fresh manager, and again at tear-down.
class FreshModule : public ::testing::Test {
protected:
    FreshModule() { ResetModule(); }
    void TearDown() override { ResetModule(); }
};

}  // namespace componenttest
