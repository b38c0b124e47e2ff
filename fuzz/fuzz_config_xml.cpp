// libFuzzer target: the configuration file loader. Any input either loads or
// is refused with a cause; whatever loads writes out again, and that text
// reads back to the same tree (through XML and through the binary archive).

#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtXmlFile.h"
#include "zefra/platform/mfc/CArchive.h"

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

namespace {

std::string SavedText(const QoDtDictionary& tree) {
    std::string text;
    std::string error;
    if (!QoDtXmlFile::ToText(tree, text, error)) std::abort();
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    QoDtDictionary tree;
    std::string error;
    if (!QoDtXmlFile::FromText(tree, input, error)) {
        if (error.empty() || tree.children.GetLength() != 0) std::abort();
        return 0;
    }
    const std::string saved = SavedText(tree);

    QoDtDictionary again;
    if (!QoDtXmlFile::FromText(again, saved, error)) std::abort();
    if (SavedText(again) != saved) std::abort();

    std::stringstream bytes;
    {
        CArchive out(bytes, CArchive::store);
        tree >> out;
    }
    QoDtDictionary fromArchive;
    CArchive in(bytes, CArchive::load);
    if (!(fromArchive << in) || SavedText(fromArchive) != saved) std::abort();
    return 0;
}
