#pragma once
// One row of an application's command table, and the helper of the suite's
// object library that defines a table's commands on the host.

struct QoCmdTable {
    const wchar_t* globalName;
    void (*handler)();
    int flags;
};

// Adds the first `count` rows of the table to the command stack under the
// group; each row's flags are combined with `flags`. Rows whose name is
// taken are skipped.
void QoDefineCommand(const wchar_t* group, const QoCmdTable* table, int count, int flags);
