#pragma once
#include "zefra/ZefraExport.h"
// The two global trees and their loading and saving.
//
//   g_dictCfg          the suite's configuration, file "Config.xml"
//   g_dictHistoryData  values remembered from one use to the next,
//                      file "History.xml"
//
// No constructor runs when the library is loaded: each tree is a static
// object inside an accessor, built at its first use, and loaded there from
// the file that FindFile finds (see QoDtFileSearch). The two names stand for
// those accessors, so `g_dictCfg.FindDict(...)` reads as it would on a
// global object. LoadConfigData and LoadHistoryData load again on request.
//
// Loading never damages anything: a missing file leaves the tree as it is
// (empty at the start); an unreadable or malformed one leaves it as it is,
// prints the cause on the command line, and blocks saving that tree, so that
// the file stays for the user to mend.

#include "zefra/config/QoDtDictionary.h"

class ZEFRA_API QoDtConfigStore {
public:
    enum ETree { eConfig, eHistory };
    enum ELoadState { eNotLoaded, eFileMissing, eLoaded, eLoadFailed };

    static QoDtDictionary& Config() { return Tree(eConfig); }
    static QoDtDictionary& History() { return Tree(eHistory); }
    static QoDtDictionary& Tree(ETree tree);

    static const wchar_t* FileName(ETree tree);
    // Searches for the tree's file and loads it.
    static bool Load(ETree tree);
    static ELoadState GetLoadState(ETree tree);
    // The file the tree was last loaded from or saved to; empty if none.
    static CString GetSource(ETree tree);
    // The file of the global tree whose file name is `name`, when that tree
    // was loaded from or saved to one; does not load it. This is what
    // FindFile answers, so saves go back where the tree came from.
    static bool SourceOf(const wchar_t* name, CString& path);
    // Where a save of the tree goes when its file was found at `found`
    // (empty: not found). False when the tree must not or can't be saved.
    static bool SaveTarget(ETree tree, const CString& found, CString& target);

private:
    struct Slot;
    static Slot& SlotOf(ETree tree);
};

#define g_dictCfg (QoDtConfigStore::Config())
#define g_dictHistoryData (QoDtConfigStore::History())

// The owner's loading of the two trees.
ZEFRA_API bool LoadConfigData();
ZEFRA_API bool LoadHistoryData();
// Writes g_dictHistoryData to its file.
ZEFRA_API void SaveHistoryData();
