#include "zefra/config/QoDtConfigStore.h"

#include "zefra/config/QoDtFileSearch.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/host/CommandLine.h"

struct QoDtConfigStore::Slot {
    QoDtDictionary tree;
    ELoadState state = eNotLoaded;
};

QoDtConfigStore::Slot& QoDtConfigStore::SlotOf(ETree tree) {
    static Slot config;
    static Slot history;
    return tree == eConfig ? config : history;
}

QoDtDictionary& QoDtConfigStore::Tree(ETree tree) {
    Slot& slot = SlotOf(tree);
    if (slot.state == eNotLoaded) Load(tree);
    return slot.tree;
}

const wchar_t* QoDtConfigStore::FileName(ETree tree) { return tree == eConfig ? L"Config.xml" : L"History.xml"; }

bool QoDtConfigStore::Load(ETree tree) {
    Slot& slot = SlotOf(tree);
    // A load searches anew; FindFile would give the file loaded before.
    std::string path;
    if (!QoDtFileSearch::Find(QoDtTextCodec::ToUtf8(FileName(tree)), path)) {
        slot.state = eFileMissing;
        slot.tree.ForgetSourceFile();
        return false;
    }
    const CString found = QoDtTextCodec::FromUtf8(path);
    CString message;
    if (!slot.tree.LoadFromXML(found, &message)) {
        slot.state = eLoadFailed;
        acutPrintf(L"\n%s\n", message.GetString());
        return false;
    }
    slot.state = eLoaded;
    return true;
}

QoDtConfigStore::ELoadState QoDtConfigStore::GetLoadState(ETree tree) { return SlotOf(tree).state; }

CString QoDtConfigStore::GetSource(ETree tree) {
    const Slot& slot = SlotOf(tree);
    if (slot.state == eLoadFailed || slot.state == eNotLoaded) return CString();
    return QoDtTextCodec::FromUtf8(slot.tree.GetSourceFile());
}

bool QoDtConfigStore::SourceOf(const wchar_t* name, CString& path) {
    for (const ETree tree : {eConfig, eHistory}) {
        if (CString(name) != FileName(tree)) continue;
        const CString source = GetSource(tree);
        if (source.IsEmpty()) return false;
        path = source;
        return true;
    }
    return false;
}

bool QoDtConfigStore::SaveTarget(ETree tree, const CString& found, CString& target) {
    if (SlotOf(tree).state == eLoadFailed) return false;
    std::string path;
    if (!QoDtFileSearch::SavePath(QoDtTextCodec::ToUtf8(found), QoDtTextCodec::ToUtf8(FileName(tree)), path))
        return false;
    target = QoDtTextCodec::FromUtf8(path);
    return true;
}

bool LoadConfigData() { return QoDtConfigStore::Load(QoDtConfigStore::eConfig); }

bool LoadHistoryData() { return QoDtConfigStore::Load(QoDtConfigStore::eHistory); }

void SaveHistoryData() {
    QoDtDictionary& history = g_dictHistoryData;
    CString found;
    FindFile(QoDtConfigStore::FileName(QoDtConfigStore::eHistory), found);
    CString target;
    if (!QoDtConfigStore::SaveTarget(QoDtConfigStore::eHistory, found, target)) return;
    // Remembered inputs, saved at every change: the last writer wins (a
    // refusal would stop this process from ever saving them again).
    CString message;
    if (!history.SaveToXML(target, &message, true)) acutPrintf(L"\n%s\n", message.GetString());
}
