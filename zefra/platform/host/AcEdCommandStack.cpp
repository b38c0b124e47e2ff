#include "zefra/platform/host/AcEdCommandStack.h"

#include "zefra/platform/host/AcRxDictionary.h"

#include <algorithm>

bool AcEdCommandStack::addCommand(const wchar_t* group, const wchar_t* globalName, int flags, Handler handler) {
    if (group == nullptr || globalName == nullptr || *group == L'\0' || *globalName == L'\0') return false;
    if (find(globalName) != nullptr) return false;
    m_commands.push_back(Command{CString(group), CString(globalName), flags, handler});
    return true;
}

bool AcEdCommandStack::removeGroup(const wchar_t* group) {
    if (group == nullptr) return false;
    const auto inGroup = [group](const Command& command) { return command.group.CompareNoCase(group) == 0; };
    const auto removed = std::remove_if(m_commands.begin(), m_commands.end(), inGroup);
    const bool any = removed != m_commands.end();
    m_commands.erase(removed, m_commands.end());
    return any;
}

bool AcEdCommandStack::hasGroup(const wchar_t* group) const {
    if (group == nullptr) return false;
    return std::any_of(m_commands.begin(), m_commands.end(),
                       [group](const Command& command) { return command.group.CompareNoCase(group) == 0; });
}

CString AcEdCommandStack::groupOf(const wchar_t* globalName) const {
    const Command* command = find(globalName);
    return command != nullptr ? command->group : CString();
}

bool AcEdCommandStack::runCommand(const wchar_t* globalName) const {
    const Command* command = find(globalName);
    if (command == nullptr) return false;
    if (command->handler != nullptr) command->handler();
    return true;
}

const AcEdCommandStack::Command* AcEdCommandStack::find(const wchar_t* globalName) const {
    if (globalName == nullptr) return nullptr;
    for (const Command& command : m_commands)
        if (command.name.CompareNoCase(globalName) == 0) return &command;
    return nullptr;
}

AcEdCommandStack* acedRegCmds() {
    return static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(ACRX_COMMAND_DOCK));
}
