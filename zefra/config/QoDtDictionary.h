#pragma once
#include "zefra/ZefraExport.h"
// A branch of a configuration tree: an item with children.
//
// Paths are texts whose components are separated by one backslash, each
// component descending one dictionary: "ZEFRA\SPACE". Every operation that
// takes a key also takes a path. Look-ups never add anything and never move
// the cursor of a child list; an operation that adds a child appends it, and
// the list's cursor ends on it as after Append. When two children share a
// key, the first in list order is the one found.
//
// Values: GetValue and SetValue work on CString, double, int, bool and
// QoDynArrayBase<double>. SetValue makes the child with the matching kind;
// GetValue reads that kind, and also an int item as a double, a Boolean item
// as an int and an int item as a bool. A miss leaves the target untouched.
// SetValue on a child of another kind puts a child of the right kind in its
// place (keeping its position, local name and attributes), except that it
// never replaces a dictionary.

#include "zefra/config/QoDtDictItem.h"
#include "zefra/config/QoDtDiskFile.h"
#include "zefra/config/QoDtDictItemList.h"
#include "zefra/containers/QoDynArrayBase.h"

#include <memory>
#include <string>
#include <string_view>

class ZEFRA_API QoDtDictionary : public QoDtDictItem {
public:
    // Dictionaries nest at most this deep, the outermost counted as one;
    // files with deeper trees are refused.
    static constexpr int kMaxDepth = 64;

    // The children, in the order they were added. The list owns them.
    QoDtDictItemList children;

    QoDtDictionary() = default;
    // Frees the tree without recursion, however deep it is.
    ~QoDtDictionary() override;

    int GetType() const override { return eDtDictionary; }
    void CopyData(const QoDtDictItem& other) override;
    using QoDtDictItem::operator>>;
    void operator>>(CArchive& ar) const override;
    bool operator<<(_auto_ptr<QoUtXMLDOMNode>& node) override;
    bool operator<<(CArchive& ar) override;
    void WriteXml(QoDtXmlOutput& out) const override;

    QoDtDictItem* FindItem(const CString& path) { return const_cast<QoDtDictItem*>(Lookup(path.Str())); }
    const QoDtDictItem* FindItem(const CString& path) const { return Lookup(path.Str()); }
    QoDtDictionary* FindDict(const CString& path);
    const QoDtDictionary* FindDict(const CString& path) const;
    // Adds the missing dictionaries on the way. Null when a component is
    // empty or names an item that isn't a dictionary.
    QoDtDictionary* FindOrAddDict(const CString& path);
    // The item at `path`, added with that kind if missing (dictionaries on
    // the way too). Null for an unknown kind, an empty component or a path
    // through an item that isn't a dictionary.
    QoDtDictItem* FindOrAddItem(const CString& path, DictDataType type);
    QoDtDictItem* FindOrAddItem(const CString& path, int type);

    bool GetValue(const CString& path, CString& value) const;
    bool GetValue(const CString& path, double& value) const;
    bool GetValue(const CString& path, int& value) const;
    bool GetValue(const CString& path, bool& value) const;
    bool GetValue(const CString& path, QoDynArrayBase<double>& value) const;

    bool SetValue(const CString& path, const CString& value);
    bool SetValue(const CString& path, const wchar_t* value) { return SetValue(path, CString(value)); }
    bool SetValue(const CString& path, double value);
    bool SetValue(const CString& path, int value);
    bool SetValue(const CString& path, bool value);
    bool SetValue(const CString& path, const QoDynArrayBase<double>& value);

    // Writes this dictionary and everything below it to the file, replacing
    // it as a whole (see QoDtDiskFile). False, with the cause in `message`
    // when one is given, if the file can't be written; the old file is then
    // left as it was.
    //
    // The save holds the file's write lock (QoDtFileLock). When the file is
    // the one this tree was loaded from (or last saved to) and another
    // program has replaced it since, the save is refused, so that its
    // changes are not lost without a word; `overwriteChanged` saves anyway.
    // A file that was read in another encoding than UTF-8 is first kept
    // beside itself as "<file>.<encoding>.bak" ("Config.xml.gbk.bak"), or
    // "<file>.<encoding>.<n>.bak" when that name is taken.
    bool SaveToXML(const wchar_t* file, CString* message = nullptr) const { return SaveToXML(file, message, false); }
    bool SaveToXML(const wchar_t* file, CString* message, bool overwriteChanged) const;
    // Replaces this dictionary's content (key, local name, attributes and
    // children) by the file's. A missing, unreadable, malformed or foreign
    // file gives false with the cause in `message` and changes nothing.
    // The tree remembers the file (see GetSourceFile).
    bool LoadFromXML(const wchar_t* file, CString* message = nullptr);

    // The file this tree was last loaded from or saved to (absolute), and
    // the encoding it was read in; empty if none.
    std::string GetSourceFile() const { return m_source ? m_source->path : std::string(); }
    std::string GetSourceEncoding() const { return m_source ? m_source->encoding : std::string(); }
    void ForgetSourceFile() { m_source.reset(); }

    // Exchanges the whole content with another dictionary.
    void Swap(QoDtDictionary& other);
    // Levels of dictionaries from this one down, this one counted.
    int GetDepth() const;

private:
    struct Source {
        std::string path;      // absolute, as it was named
        std::string resolved;  // the file behind symbolic links
        std::string encoding;
        QoDtDiskFile::Identity identity;
    };
    // Set by loads and saves; not part of the content (Swap and CopyData
    // leave it).
    mutable std::unique_ptr<Source> m_source;

    const QoDtDictItem* Lookup(std::wstring_view path) const;
    // The dictionary that holds the last component of `path`, and that
    // component; with `create`, missing dictionaries are added.
    QoDtDictionary* ParentOf(const CString& path, bool create, std::wstring_view& leaf);
    const QoDtDictionary* ParentOf(const CString& path, std::wstring_view& leaf) const;
    // The child at `path` with the kind `type`, made or put in place as
    // SetValue needs it; null where SetValue fails.
    QoDtDictItem* ValueItem(const CString& path, int type);
    bool ReadXml(QoUtXMLDOMNode& node) override;
    bool ReadTree(CArchive& ar, int depth);
};
