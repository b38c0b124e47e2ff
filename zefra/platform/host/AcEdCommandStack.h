#pragma once
// The host's command stack: commands by global name, in named groups. A
// command name is unique across groups, without regard to case.

#include "zefra/platform/host/AcRxObject.h"
#include "zefra/platform/mfc/CString.h"

#include <vector>

class AcEdCommandStack : public AcRxObject {
public:
    using Handler = void (*)();

    // False, with nothing added, for an empty group or name, or a name that
    // another command holds already.
    bool addCommand(const wchar_t* group, const wchar_t* globalName, int flags, Handler handler);
    // Removes every command of the group; false when the group has none.
    bool removeGroup(const wchar_t* group);

    bool hasGroup(const wchar_t* group) const;
    // The group of the command; empty when there is no such command.
    CString groupOf(const wchar_t* globalName) const;
    // Runs the command's handler; false when there is no such command.
    bool runCommand(const wchar_t* globalName) const;
    int count() const { return static_cast<int>(m_commands.size()); }

private:
    struct Command {
        CString group;
        CString name;
        int flags;
        Handler handler;
    };

    const Command* find(const wchar_t* globalName) const;

    std::vector<Command> m_commands;
};

// The command stack of the registry.
AcEdCommandStack* acedRegCmds();
