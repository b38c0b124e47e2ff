#include "zefra/config/QoDtDictionary.h"

#include "zefra/config/QoDtDictBoolItem.h"
#include "zefra/config/QoDtDictDoubleArrayItem.h"
#include "zefra/config/QoDtDictDoubleItem.h"
#include "zefra/config/QoDtDictIntItem.h"
#include "zefra/config/QoDtDictStringItem.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/config/QoDtTextEncoding.h"
#include "zefra/config/QoDtXmlFile.h"
#include "zefra/platform/mfc/CArchive.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace {

const wchar_t kSeparator = L'\\';

bool IsBlank(std::string_view text) { return QoDtTextCodec::TrimSpace(text).empty(); }

}  // namespace

// ---- look-up -------------------------------------------------------------

const QoDtDictItem* QoDtDictionary::Lookup(std::wstring_view path) const {
    const QoDtDictionary* dict = this;
    for (;;) {
        const size_t separator = path.find(kSeparator);
        const QoDtDictItem* item = dict->children.Find(path.substr(0, separator));
        if (separator == std::wstring_view::npos || item == nullptr) return item;
        if (!item->IsDict()) return nullptr;
        dict = static_cast<const QoDtDictionary*>(item);
        path.remove_prefix(separator + 1);
    }
}

QoDtDictionary* QoDtDictionary::FindDict(const CString& path) {
    QoDtDictItem* item = FindItem(path);
    return item != nullptr && item->IsDict() ? static_cast<QoDtDictionary*>(item) : nullptr;
}

const QoDtDictionary* QoDtDictionary::FindDict(const CString& path) const {
    const QoDtDictItem* item = FindItem(path);
    return item != nullptr && item->IsDict() ? static_cast<const QoDtDictionary*>(item) : nullptr;
}

QoDtDictionary* QoDtDictionary::FindOrAddDict(const CString& path) {
    std::wstring_view rest = path.Str();
    QoDtDictionary* dict = this;
    for (;;) {
        const size_t separator = rest.find(kSeparator);
        const std::wstring_view key = rest.substr(0, separator);
        if (key.empty()) return nullptr;
        QoDtDictItem* item = dict->children.Find(key);
        if (item == nullptr) {
            auto* added = new QoDtDictionary;
            added->name = CString(std::wstring(key));
            dict->children.Append(added);
            item = added;
        } else if (!item->IsDict()) {
            return nullptr;
        }
        dict = static_cast<QoDtDictionary*>(item);
        if (separator == std::wstring_view::npos) return dict;
        rest.remove_prefix(separator + 1);
    }
}

QoDtDictionary* QoDtDictionary::ParentOf(const CString& path, bool create, std::wstring_view& leaf) {
    const std::wstring_view whole = path.Str();
    const size_t separator = whole.rfind(kSeparator);
    if (separator == std::wstring_view::npos) {
        leaf = whole;
        return this;
    }
    leaf = whole.substr(separator + 1);
    const CString parentPath(path.GetString(), static_cast<int>(separator));
    return create ? FindOrAddDict(parentPath) : FindDict(parentPath);
}

const QoDtDictionary* QoDtDictionary::ParentOf(const CString& path, std::wstring_view& leaf) const {
    return const_cast<QoDtDictionary*>(this)->ParentOf(path, false, leaf);
}

QoDtDictItem* QoDtDictionary::FindOrAddItem(const CString& path, DictDataType type) {
    return FindOrAddItem(path, static_cast<int>(type));
}

QoDtDictItem* QoDtDictionary::FindOrAddItem(const CString& path, int type) {
    if (GetTypeName(type) == nullptr) return nullptr;
    std::wstring_view leaf;
    QoDtDictionary* parent = ParentOf(path, true, leaf);
    if (parent == nullptr || leaf.empty()) return nullptr;
    if (QoDtDictItem* found = parent->children.Find(leaf)) return found;
    QoDtDictItem* added = Create(type);
    added->name = CString(std::wstring(leaf));
    parent->children.Append(added);
    return added;
}

// ---- values --------------------------------------------------------------

bool QoDtDictionary::GetValue(const CString& path, CString& value) const {
    const QoDtDictItem* item = FindItem(path);
    if (item == nullptr || item->GetType() != eDtString) return false;
    value = static_cast<const QoDtDictStringItem*>(item)->value;
    return true;
}

bool QoDtDictionary::GetValue(const CString& path, double& value) const {
    const QoDtDictItem* item = FindItem(path);
    if (item == nullptr) return false;
    switch (item->GetType()) {
        case eDtDouble: value = static_cast<const QoDtDictDoubleItem*>(item)->value; return true;
        case eDtInt: value = static_cast<const QoDtDictIntItem*>(item)->value; return true;
        default: return false;
    }
}

bool QoDtDictionary::GetValue(const CString& path, int& value) const {
    const QoDtDictItem* item = FindItem(path);
    if (item == nullptr) return false;
    switch (item->GetType()) {
        case eDtInt: value = static_cast<const QoDtDictIntItem*>(item)->value; return true;
        case eDtBool: value = static_cast<const QoDtDictBoolItem*>(item)->value; return true;
        default: return false;
    }
}

bool QoDtDictionary::GetValue(const CString& path, bool& value) const {
    const QoDtDictItem* item = FindItem(path);
    if (item == nullptr) return false;
    switch (item->GetType()) {
        case eDtBool: value = static_cast<const QoDtDictBoolItem*>(item)->value != 0; return true;
        case eDtInt: value = static_cast<const QoDtDictIntItem*>(item)->value != 0; return true;
        default: return false;
    }
}

bool QoDtDictionary::GetValue(const CString& path, QoDynArrayBase<double>& value) const {
    const QoDtDictItem* item = FindItem(path);
    if (item == nullptr || item->GetType() != eDtDoubleArray) return false;
    value.DeepCopy(static_cast<const QoDtDictDoubleArrayItem*>(item)->value);
    return true;
}

QoDtDictItem* QoDtDictionary::ValueItem(const CString& path, int type) {
    std::wstring_view leaf;
    QoDtDictionary* parent = ParentOf(path, true, leaf);
    if (parent == nullptr || leaf.empty()) return nullptr;
    QoDtDictItem* found = parent->children.Find(leaf);
    if (found != nullptr && found->GetType() == type) return found;
    if (found != nullptr && found->IsDict()) return nullptr;
    QoDtDictItem* fresh = Create(type);
    if (found != nullptr) {
        fresh->CopyData(*found);  // another kind: key, local name and attributes
        parent->children.Replace(found, fresh);
    } else {
        fresh->name = CString(std::wstring(leaf));
        parent->children.Append(fresh);
    }
    return fresh;
}

bool QoDtDictionary::SetValue(const CString& path, const CString& value) {
    QoDtDictItem* item = ValueItem(path, eDtString);
    if (item == nullptr) return false;
    static_cast<QoDtDictStringItem*>(item)->value = value;
    return true;
}

bool QoDtDictionary::SetValue(const CString& path, double value) {
    QoDtDictItem* item = ValueItem(path, eDtDouble);
    if (item == nullptr) return false;
    static_cast<QoDtDictDoubleItem*>(item)->value = value;
    return true;
}

bool QoDtDictionary::SetValue(const CString& path, int value) {
    QoDtDictItem* item = ValueItem(path, eDtInt);
    if (item == nullptr) return false;
    static_cast<QoDtDictIntItem*>(item)->value = value;
    return true;
}

bool QoDtDictionary::SetValue(const CString& path, bool value) {
    QoDtDictItem* item = ValueItem(path, eDtBool);
    if (item == nullptr) return false;
    static_cast<QoDtDictBoolItem*>(item)->value = value ? 1 : 0;
    return true;
}

bool QoDtDictionary::SetValue(const CString& path, const QoDynArrayBase<double>& value) {
    QoDtDictItem* item = ValueItem(path, eDtDoubleArray);
    if (item == nullptr) return false;
    static_cast<QoDtDictDoubleArrayItem*>(item)->value = value;
    return true;
}

// ---- whole-tree operations ----------------------------------------------

void QoDtDictionary::CopyData(const QoDtDictItem& other) {
    CopyCommon(other);
    if (other.GetType() != GetType() || &other == this) return;
    // Clone first: `other` may lie inside this dictionary.
    std::vector<QoDtDictItem*> copies;
    const QoDtDictItemList& source = static_cast<const QoDtDictionary&>(other).children;
    for (QoDtDictItem* const* child = source.GetFirst(); child != nullptr; child = source.GetNext(child))
        if (QoDtDictItem* copy = *child != nullptr ? (*child)->Clone() : nullptr) copies.push_back(copy);
    children.Reset();
    for (QoDtDictItem* copy : copies) children.Append(copy);
}

void QoDtDictionary::Swap(QoDtDictionary& other) {
    if (&other == this) return;
    children.Swap(other.children);
    Common mine{name, localname, GetAttributes()};
    Common theirs{other.name, other.localname, other.GetAttributes()};
    TakeCommon(std::move(theirs));
    other.TakeCommon(std::move(mine));
}

int QoDtDictionary::GetDepth() const {
    // Iterative: a tree built through the API may be far deeper than a file
    // may hold.
    std::vector<std::pair<const QoDtDictionary*, int>> pending{{this, 1}};
    int deepest = 0;
    while (!pending.empty()) {
        const auto [dict, depth] = pending.back();
        pending.pop_back();
        deepest = std::max(deepest, depth);
        for (QoDtDictItem* const* child = dict->children.GetFirst(); child != nullptr;
             child = dict->children.GetNext(child))
            if (*child != nullptr && (*child)->IsDict())
                pending.emplace_back(static_cast<const QoDtDictionary*>(*child), depth + 1);
    }
    return deepest;
}

QoDtDictionary::~QoDtDictionary() {
    // Trees of ordinary depth are freed the plain way (in list order, which
    // the block pool's next use likes best). Below 256 levels the children
    // of every dictionary are taken out before it is freed, so no
    // destructor there frees a tree below it: the stack stays bounded
    // however deep the tree is.
    constexpr int kPlainDepth = 256;
    static thread_local int nesting = 0;
    if (children.GetLength() == 0) return;
    if (nesting < kPlainDepth) {
        ++nesting;
        children.Reset();
        --nesting;
        return;
    }
    std::vector<QoDtDictItem*> pending;
    children.ReleaseAll(pending);
    while (!pending.empty()) {
        QoDtDictItem* item = pending.back();
        pending.pop_back();
        if (item != nullptr && item->IsDict()) static_cast<QoDtDictionary*>(item)->children.ReleaseAll(pending);
        delete item;
    }
}

// ---- XML -----------------------------------------------------------------

void QoDtDictionary::WriteXml(QoDtXmlOutput& out) const {
    WriteStartXml(out);
    for (QoDtDictItem* const* item = children.GetFirst(); item != nullptr; item = children.GetNext(item))
        if (*item != nullptr) (*item)->WriteXml(out);
    out.Close();
}

bool QoDtDictionary::operator<<(_auto_ptr<QoUtXMLDOMNode>& node) {
    QoDtDictionary fresh;
    if (!fresh.ReadXml(*node)) return false;
    Swap(fresh);
    return true;
}

bool QoDtDictionary::ReadXml(QoUtXMLDOMNode& node) {
    if (node.GetDepth() > kMaxDepth) {
        node.Fail("dictionaries nest deeper than " + std::to_string(kMaxDepth) + " levels");
        return false;
    }
    if (!IsBlank(node.Element().value())) {
        node.FailAt(node.Element(), "unexpected text in " + Describe(node.Element()));
        return false;
    }
    _auto_ptr<QoUtXMLDOMNode>& child = node.ChildNode();
    for (pugi::xml_node element = node.Element().first_child(); element; element = element.next_sibling()) {
        const pugi::xml_node_type kind = element.type();
        if (kind != pugi::node_element) {
            if ((kind == pugi::node_pcdata || kind == pugi::node_cdata) && !IsBlank(element.value())) {
                node.FailAt(node.Element(), "unexpected text in " + Describe(node.Element()));
                return false;
            }
            continue;
        }
        const int type = GetTypeFromName(element.name());
        if (type == 0) {
            node.FailAt(element, "unknown item type <" + std::string(element.name()) + ">");
            return false;
        }
        std::unique_ptr<QoDtDictItem> item(Create(type));
        child->SetElement(element);
        if (!item->ReadXml(*child)) {
            node.TakeFailure(*child);
            return false;
        }
        children.Append(item.release());
    }
    return ReadCommonXml(node);
}

// ---- archive -------------------------------------------------------------

void QoDtDictionary::operator>>(CArchive& ar) const {
    WriteCommon(ar);
    uint64_t count = 0;
    for (QoDtDictItem* const* item = children.GetFirst(); item != nullptr; item = children.GetNext(item))
        if (*item != nullptr) ++count;
    ar.WriteCount(count);
    for (QoDtDictItem* const* item = children.GetFirst(); item != nullptr; item = children.GetNext(item)) {
        if (*item == nullptr) continue;
        ar << (*item)->GetType();
        **item >> ar;
    }
}

bool QoDtDictionary::operator<<(CArchive& ar) {
    QoDtDictionary fresh;
    if (!ReadGuarded([&] { return fresh.ReadTree(ar, 1); })) return false;
    Swap(fresh);
    return true;
}

bool QoDtDictionary::ReadTree(CArchive& ar, int depth) {
    if (depth > kMaxDepth) return false;
    TakeCommon(ReadCommon(ar));
    const uint64_t count = ar.ReadCount();
    for (uint64_t k = 0; k < count; ++k) {
        int type = 0;
        ar >> type;
        std::unique_ptr<QoDtDictItem> item(Create(type));
        if (!item) return false;
        const bool read =
            type == eDtDictionary ? static_cast<QoDtDictionary*>(item.get())->ReadTree(ar, depth + 1) : (*item << ar);
        if (!read) return false;
        children.Append(item.release());
    }
    return true;
}

// ---- files ---------------------------------------------------------------

bool QoDtDictionary::SaveToXML(const wchar_t* file, CString* message, bool overwriteChanged) const {
    const CString path(file);
    std::string error;
    const std::string named = QoDtDiskFile::Absolute(QoDtTextCodec::ToUtf8(path));
    const Source* const source = m_source.get();
    // Held from the check to the note of what was written (the save takes
    // it again): no other save comes between.
    QoDtFileLock lock;
    if (!lock.Acquire(named, error)) {
        if (message != nullptr) *message = path + L": " + QoDtTextCodec::FromUtf8(error);
        return false;
    }
    const auto check = [&](const std::string& target, std::string& cause) {
        if (source == nullptr || source->resolved != QoDtDiskFile::Absolute(target)) return true;
        const QoDtDiskFile::Identity now = QoDtDiskFile::IdentityOf(target);
        if (!overwriteChanged && now.exists && now != source->identity) {
            cause = "the file was changed by another program since it was loaded; not overwritten, so that those "
                    "changes are not lost (load it again and repeat the change)";
            return false;
        }
        if (source->encoding.empty() || source->encoding == QoDtTextEncoding::kUtf8 ||
            !QoDtDiskFile::Exists(target))
            return true;
        // The first save in UTF-8 keeps the file as it was beside it.
        std::string original;
        if (!QoDtDiskFile::Read(target, QoDtXmlFile::kMaxFileBytes, original, cause)) {
            cause = "cannot keep the original file: " + cause;
            return false;
        }
        const std::string stem = target + "." + QoDtTextEncoding::FileSuffix(source->encoding);
        std::string backup = stem + ".bak";
        for (int n = 2; QoDtDiskFile::IdentityOf(backup).exists; ++n) backup = stem + "." + std::to_string(n) + ".bak";
        if (!QoDtDiskFile::WriteNew(backup, original, cause)) {
            cause = "cannot keep the original file: " + cause;
            return false;
        }
        return true;
    };
    if (QoDtXmlFile::Save(*this, named, error, check)) {
        std::string resolved;
        std::string ignored;
        if (!QoDtDiskFile::ResolveTarget(named, resolved, ignored)) resolved = named;
        auto fresh = std::make_unique<Source>();
        fresh->path = named;
        fresh->resolved = QoDtDiskFile::Absolute(resolved);
        fresh->encoding = QoDtTextEncoding::kUtf8;
        fresh->identity = QoDtDiskFile::IdentityOf(fresh->resolved);
        m_source = std::move(fresh);
        return true;
    }
    if (message != nullptr) *message = path + L": " + QoDtTextCodec::FromUtf8(error);
    return false;
}

bool QoDtDictionary::LoadFromXML(const wchar_t* file, CString* message) {
    const CString path(file);
    std::string error;
    const std::string named = QoDtDiskFile::Absolute(QoDtTextCodec::ToUtf8(path));
    auto fresh = std::make_unique<Source>();
    std::string resolved;
    if (!QoDtDiskFile::ResolveTarget(named, resolved, error)) resolved = named;
    fresh->path = named;
    fresh->resolved = QoDtDiskFile::Absolute(resolved);
    // Taken before the read: a change after it shows at the next save.
    fresh->identity = QoDtDiskFile::IdentityOf(fresh->resolved);
    if (QoDtXmlFile::Load(*this, named, error, &fresh->encoding)) {
        m_source = std::move(fresh);
        return true;
    }
    if (message != nullptr) *message = path + L": " + QoDtTextCodec::FromUtf8(error);
    return false;
}
