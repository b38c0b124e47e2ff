// libFuzzer target: path operations. The input is a list of paths, one a
// line, each led by a byte that picks the operation. After every step the
// tree must agree with itself: what FindOrAdd made is what Find finds, a
// look-up never adds, and every child is found under its own key.

#include "zefra/config/HvacConfigAccess.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtXmlFile.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void Check(bool condition) {
    if (!condition) std::abort();
}

int CountItems(const QoDtDictionary& dict) {
    int count = dict.children.GetLength();
    for (QoDtDictItem* const* child = dict.children.GetFirst(); child != nullptr; child = dict.children.GetNext(child))
        if ((*child)->IsDict()) count += CountItems(static_cast<const QoDtDictionary&>(**child));
    return count;
}

// Each child is found by its key, unless an earlier sibling has the same key.
void CheckFindable(const QoDtDictionary& dict) {
    for (QoDtDictItem* const* child = dict.children.GetFirst(); child != nullptr; child = dict.children.GetNext(child)) {
        const QoDtDictItem* found = dict.FindItem((*child)->name);
        if ((*child)->name.Find(L'\\') < 0) Check(found != nullptr && found->name == (*child)->name);
        if ((*child)->IsDict()) CheckFindable(static_cast<const QoDtDictionary&>(**child));
    }
}

void Step(QoDtDictionary& tree, uint8_t op, const CString& path) {
    const int before = CountItems(tree);
    const QoDtDictItem* found = tree.FindItem(path);
    tree.FindDict(path);
    Check(CountItems(tree) == before);

    switch (op % 6) {
        case 0: {
            QoDtDictionary* dict = tree.FindOrAddDict(path);
            if (dict != nullptr) {
                Check(tree.FindDict(path) == dict);
                Check(tree.FindOrAddDict(path) == dict);
            }
            break;
        }
        case 1: {
            const int value = static_cast<int>(op) * 7919;
            if (tree.SetValue(path, value)) {
                int back = 0;
                Check(tree.GetValue(path, back) && back == value);
            }
            break;
        }
        case 2: {
            QoDtDictItem* item = tree.FindOrAddItem(path, (op >> 3) % 10);
            if (item != nullptr) Check(tree.FindItem(path) == item);
            break;
        }
        case 3: {
            CString parent;
            CString item;
            if (HVAC::SeparatePathAndItem(path, parent, item)) Check(parent + L"\\" + item == path);
            break;
        }
        case 4:
            // Rename what the path reaches; the new key must be found at once.
            if (found != nullptr) {
                QoDtDictItem* item = tree.FindItem(path);
                item->name += L"~";
            }
            break;
        default:
            if (QoDtDictionary* dict = tree.FindDict(path)) dict->children.Reset();
            break;
    }
    CheckFindable(tree);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    QoDtDictionary tree;
    size_t start = 0;
    while (start < size) {
        size_t end = start;
        while (end < size && data[end] != '\n') ++end;
        if (end > start) {
            const std::string line(reinterpret_cast<const char*>(data) + start + 1, end - start - 1);
            Step(tree, data[start], CString::FromUtf8(line));
        }
        start = end + 1;
    }
    // Whatever the steps built must survive the file format, odd keys included.
    std::string text;
    std::string error;
    if (QoDtXmlFile::ToText(tree, text, error)) {
        QoDtDictionary loaded;
        Check(QoDtXmlFile::FromText(loaded, text, error));
        std::string again;
        Check(QoDtXmlFile::ToText(loaded, again, error) && again == text);
    }
    return 0;
}
