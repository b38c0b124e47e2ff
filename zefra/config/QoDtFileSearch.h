#pragma once
// Where the configuration files are looked for, and where they are written.
//
// A file name is looked for, in this order, in
//   1. the directory named by the environment variable ZEFRA_CONFIG_DIR;
//   2. the current directory;
//   3. the user's directory: $XDG_CONFIG_HOME/zefra, else $HOME/.config/zefra
//      (skipped when ZEFRA_CONFIG_DIR is set, which then takes its place);
//   4. the installed data directory: share/zefra found relative to where the
//      library or the program lies, so a moved installation finds its own,
//      then <prefix>/share/zefra of the configured prefix;
//   5. the data directory of the source tree, so that a build works before
//      it is installed.
// The last two are shipped data and are never written: a file found there
// is saved into the writable directory (1, else 3) instead, where the next
// search finds it first.

#include "zefra/platform/mfc/CString.h"

#include <string>
#include <vector>

class QoDtFileSearch {
public:
    static std::vector<std::string> SearchDirectories();
    // ZEFRA_CONFIG_DIR, else the user's directory; empty when neither can
    // be named (no HOME).
    static std::string WritableDirectory();
    static bool IsShippedData(const std::string& path);
    // The full path of the first file with this name; false if none.
    static bool Find(const std::string& fileName, std::string& fullPath);
    // Where a file found at `found` (empty: not found) is to be saved: the
    // same place, unless that is shipped data. The writable directory is
    // made when needed. False when there is nowhere to write.
    static bool SavePath(const std::string& found, const std::string& fileName, std::string& target);
};

// Finds one of the suite's files as described above. An absolute name is
// taken as it stands. The file of a global tree (Config.xml, History.xml)
// that was loaded or saved is the file that tree came from, not what a
// search would find now.
bool FindFile(const wchar_t* name, CString& fullPath);
