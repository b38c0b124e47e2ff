#include "zefra/platform/host/QoCmdTable.h"

#include "zefra/platform/host/AcEdCommandStack.h"

void QoDefineCommand(const wchar_t* group, const QoCmdTable* table, int count, int flags) {
    if (table == nullptr) return;
    AcEdCommandStack* commands = acedRegCmds();
    for (int i = 0; i < count; ++i)
        commands->addCommand(group, table[i].globalName, table[i].flags | flags, table[i].handler);
}
