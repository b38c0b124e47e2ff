#include "zefra/config/QoDtConfigEdit.h"

#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtFileSearch.h"
#include "zefra/config/QoDtTextCodec.h"

bool QoDtConfigEdit::Run(const std::string& target, const Change& change, std::string& error, const Source& source) {
    QoDtFileLock lock;
    if (!lock.Acquire(target, error)) return false;
    const std::string from = source ? source() : target;
    QoDtDictionary tree;
    CString message;
    if (!tree.LoadFromXML(QoDtTextCodec::FromUtf8(from), &message)) {
        error = QoDtTextCodec::ToUtf8(message);
        return false;
    }
    if (!change(tree, error)) return false;
    if (!tree.SaveToXML(QoDtTextCodec::FromUtf8(target), &message)) {
        error = QoDtTextCodec::ToUtf8(message);
        return false;
    }
    return true;
}

bool QoDtConfigEdit::TargetOf(const std::string& chosen, std::string& target, std::string& error) {
    if (!chosen.empty()) {
        target = chosen;
        return true;
    }
    std::string found;
    QoDtFileSearch::Find("Config.xml", found);
    if (!QoDtFileSearch::SavePath(found, "Config.xml", target)) {
        error = "nowhere to save the configuration: set ZEFRA_CONFIG_DIR or HOME";
        return false;
    }
    return true;
}

bool QoDtConfigEdit::Lock(const std::string& chosen, QoDtFileLock& lock, std::string& error) {
    std::string target;
    return TargetOf(chosen, target, error) && lock.Acquire(target, error);
}
