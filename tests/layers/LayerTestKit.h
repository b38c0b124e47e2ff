#pragma once
// Shared pieces of the layer tests: the shipped configuration loaded into
// g_dictCfg with the system register refreshed and a fresh working drawing,
// and short ways to see what a property value names.

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictStringItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/layers/QoHvacDuctLayerManager.h"
#include "zefra/platform/host/AcDbDatabase.h"

#include <gtest/gtest.h>

#include <string>

inline std::string U(const CString& text) { return text.ToUtf8(); }

class LayerTest : public ::testing::Test {
protected:
    void SetUp() override {
        CString message;
        ASSERT_TRUE(g_dictCfg.LoadFromXML(ShippedConfig(), &message)) << U(message);
        acdbHostApplicationServices()->setWorkingDatabase(&m_drawing);
        Refresh();
    }
    void TearDown() override { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }

    static CString ShippedConfig() { return CString(ZEFRA_SOURCE_DATA_DIR "/Config.xml"); }
    static QoHvacDuctLayerManager& Register() { return *QoHvacDuctLayerManager::GetInstance(); }
    static void Refresh() {
        Register().ReRead();
        Register().ReReadSysUserComparison();
    }
    static QoDtDictionary& Standard() { return *Register().GetCurLayerStd(); }
    static QoDtDictionary& Group(const wchar_t* kindDict, const wchar_t* system) {
        return *Standard().FindDict(CString(L"ASSEMBLY_LAYER_DEF\\暖通\\") + kindDict + L"\\" + system);
    }

    AcDbLayerTableRecord LayerOf(const QoHvacEntProperty& property) const {
        AcDbLayerTableRecord record;
        EXPECT_TRUE(m_drawing.layerTable().getAt(property.layerId, record)) << "the id names no layer";
        return record;
    }
    std::string LayerNameOf(const QoHvacEntProperty& property) const { return U(LayerOf(property).name()); }

    AcDbDatabase m_drawing;
};
