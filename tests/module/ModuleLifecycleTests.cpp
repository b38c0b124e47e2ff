#include "zefra/components/QoHvacDrawSetManager.h"
#include "zefra/components/QoHvacDuctFitManager.h"
#include "zefra/components/QoHvacDuctFlangeManager.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/module/QoModuleSingleton.h"
#include "zefra/module/ZefraModuleExitList.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

namespace {

std::vector<std::string> g_exitOrder;

void RecordExit(const char* name) { g_exitOrder.emplace_back(name); }

class ExitOrder : public ::testing::Test {
protected:
    void SetUp() override {
        ZefraModuleExitList::RunAll();
        QoDtDictionary empty;
        g_dictCfg.Swap(empty);
        g_exitOrder.clear();
        previous = ZefraModuleExitList::SetObserver(&RecordExit);
    }
    void TearDown() override { ZefraModuleExitList::SetObserver(previous); }

    ZefraModuleExitList::Observer previous = nullptr;
};

// A singleton whose construction fails as often as asked.
class Flaky {
public:
    static int failuresLeft;
    static int destroyed;

private:
    friend class QoModuleSingleton<Flaky>;
    Flaky() {
        if (failuresLeft > 0) {
            --failuresLeft;
            throw std::runtime_error("not yet");
        }
    }
    ~Flaky() { ++destroyed; }
};
int Flaky::failuresLeft = 0;
int Flaky::destroyed = 0;

}  // namespace

TEST_F(ExitOrder, DestructorsRunInReverseOrderOfFirstUse) {
    QoHvacDuctFitManager* fit = QoHvacDuctFitManager::GetInstance();
    QoHvacDrawSetManager::GetInstance();
    QoHvacDuctFlangeManager::GetInstance();
    EXPECT_EQ(QoHvacDuctFitManager::GetInstance(), fit);  // a second request registers nothing
    EXPECT_EQ(ZefraModuleExitList::GetCount(), 3);

    ZefraModuleExitList::RunAll();
    EXPECT_EQ(g_exitOrder, (std::vector<std::string>{typeid(QoHvacDuctFlangeManager).name(),
                                                     typeid(QoHvacDrawSetManager).name(),
                                                     typeid(QoHvacDuctFitManager).name()}));
    EXPECT_FALSE(QoModuleSingleton<QoHvacDuctFitManager>::IsBuilt());
    EXPECT_EQ(ZefraModuleExitList::GetCount(), 0);

    // After the exit list ran, a request builds anew and registers again.
    QoHvacDrawSetManager::GetInstance();
    QoHvacDuctFitManager::GetInstance();
    g_exitOrder.clear();
    ZefraModuleExitList::RunAll();
    EXPECT_EQ(g_exitOrder, (std::vector<std::string>{typeid(QoHvacDuctFitManager).name(),
                                                     typeid(QoHvacDrawSetManager).name()}));
}

TEST_F(ExitOrder, AConstructorThatThrowsLeavesNothingBuiltOrRegistered) {
    Flaky::failuresLeft = 2;
    Flaky::destroyed = 0;
    EXPECT_THROW(QoModuleSingleton<Flaky>::Get(), std::runtime_error);
    EXPECT_FALSE(QoModuleSingleton<Flaky>::IsBuilt());
    EXPECT_THROW(QoModuleSingleton<Flaky>::Get(), std::runtime_error);
    EXPECT_EQ(ZefraModuleExitList::GetCount(), 0);

    Flaky* built = QoModuleSingleton<Flaky>::Get();
    EXPECT_NE(built, nullptr);
    EXPECT_EQ(QoModuleSingleton<Flaky>::Get(), built);
    EXPECT_EQ(ZefraModuleExitList::GetCount(), 1);
    ZefraModuleExitList::RunAll();
    EXPECT_EQ(Flaky::destroyed, 1);
    EXPECT_EQ(g_exitOrder.size(), 1u);
}
