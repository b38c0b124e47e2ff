#pragma once
#include "zefra/ZefraExport.h"
// An edit of a configuration file that no other writer can come between:
// take the file's write lock, load the file as it is on disk now, change the
// tree, save, let go. Two programs that edit one file at once each apply
// their change to what the other saved; no change is lost.

#include "zefra/config/QoDtDiskFile.h"

#include <functional>
#include <string>

class QoDtDictionary;

class ZEFRA_API QoDtConfigEdit {
public:
    // Changes the tree; false (with the cause in the error) leaves the file
    // as it was. Exceptions pass through, and nothing is saved then either.
    using Change = std::function<bool(QoDtDictionary& tree, std::string& error)>;
    // Names the file to load, asked once the lock is held (the search may
    // find another file once a writer has saved).
    using Source = std::function<std::string()>;

    // Edits the file `target`: under its lock, loads `source()` (default:
    // `target` itself), runs `change`, saves to `target`. False with the
    // cause when the lock isn't free within the bound (QoDtFileLock), the
    // file can't be read or written, or the change refuses.
    static bool Run(const std::string& target, const Change& change, std::string& error,
                    const Source& source = Source());

    // The file a change to the configuration is saved to: `chosen` when
    // given, else where a save of the Config.xml that the search finds goes
    // (see QoDtFileSearch::SavePath). False when there is none.
    static bool TargetOf(const std::string& chosen, std::string& target, std::string& error);
    // Takes the write lock of the configuration file that `chosen` names (as
    // TargetOf), for code that loads, changes and saves it itself.
    static bool Lock(const std::string& chosen, QoDtFileLock& lock, std::string& error);
};
