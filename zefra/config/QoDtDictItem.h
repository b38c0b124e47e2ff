#pragma once
#include "zefra/ZefraExport.h"
// One node of a configuration tree. A plain item carries a key, a local name
// and string attributes (the rows of the flange tables are such items); the
// kinds that hold a value or children derive from it. Items are made with
// new and handed to a dictionary, which owns them from then on.
//
// Every item writes itself to and reads itself from an XML element and a
// binary archive: `item >> target` writes, `item << source` reads. A read
// that fails gives false and leaves the item as it was. Writing goes through
// WriteXml, which a file's writer calls with its text output and `>>` with
// an output into pugixml elements, so that both give one form.

#include "zefra/config/QoDtAttributes.h"
#include "zefra/config/QoDtBlockPool.h"
#include "zefra/config/QoDtItemKey.h"
#include "zefra/config/QoDtXmlOutput.h"
#include "zefra/config/QoUtXMLDOMNode.h"
#include "zefra/platform/mfc/CString.h"
#include "zefra/platform/mfc/Exceptions.h"

#include <string>
#include <string_view>

class CArchive;

class ZEFRA_API QoDtDictItem {
public:
    enum DictDataType {
        eDtBool = 1,
        eDtInt = 2,
        eDtDouble = 3,
        eDtRow = 4,  // a plain item that carries attributes only
        eDtString = 5,
        eDtOption = 6,
        eDtDoubleArray = 7,
        eDtDictionary = 8,
    };

    // The key under which the parent finds the item. It is also the
    // attribute "name", as `localname` is the attribute "localname".
    QoDtItemKey name;
    // The text that a settings editor shows for the item.
    CString localname;

    QoDtDictItem() = default;
    QoDtDictItem(const QoDtDictItem&) = delete;
    QoDtDictItem& operator=(const QoDtDictItem&) = delete;

    virtual ~QoDtDictItem() = default;

    // Items come from the trees' block pool (see QoDtBlockPool).
    static void* operator new(size_t size) { return QoDtBlockPool::Allocate(size); }
    static void operator delete(void* block, size_t size) noexcept { QoDtBlockPool::Free(block, size); }
    virtual int GetType() const { return eDtRow; }
    // Takes over key, local name, attributes and, from an item of the same
    // kind, the value (a dictionary copies the whole subtree).
    virtual void CopyData(const QoDtDictItem& other);
    virtual void operator>>(_auto_ptr<QoUtXMLDOMNode>& node) const;
    virtual void operator>>(CArchive& ar) const;
    virtual bool operator<<(_auto_ptr<QoUtXMLDOMNode>& node);
    virtual bool operator<<(CArchive& ar);

    // Writes the item as one element (a dictionary with its subtree).
    virtual void WriteXml(QoDtXmlOutput& out) const;

    bool IsDict() const { return GetType() == eDtDictionary; }

    // A missing attribute reads as an empty text, 0 or false.
    CString GetAttributeValue(const wchar_t* attribute) const;
    double GetAttributeDoubleValue(const wchar_t* attribute) const;
    int GetAttributeIntValue(const wchar_t* attribute) const;
    bool GetAttributeBoolValue(const wchar_t* attribute) const;
    void SetAttributeValue(const wchar_t* attribute, const wchar_t* value);
    void SetAttributeDoubleValue(const wchar_t* attribute, double value);
    void SetAttributeIntValue(const wchar_t* attribute, int value);
    void SetAttributeBoolValue(const wchar_t* attribute, bool value);
    bool HasAttribute(const wchar_t* attribute) const;
    bool RemoveAttribute(const wchar_t* attribute);
    // The attributes other than "name" and "localname", in order.
    const QoDtAttributes& GetAttributes() const { return m_attributes; }

    // A new empty item of the given kind; null for an unknown code.
    static QoDtDictItem* Create(int type);
    // A new item with the same kind and data.
    QoDtDictItem* Clone() const;
    // The kind's name in files and listings ("bool", "dict", ...); null for
    // an unknown code. GetTypeFromName gives 0 for an unknown name.
    static const char* GetTypeName(int type);
    static int GetTypeFromName(std::string_view typeName);

protected:
    // Key, local name and attributes: the part that all kinds share.
    struct Common {
        CString name;
        CString localname;
        QoDtAttributes attributes;
    };

    friend class QoDtDictionary;
    friend class QoDtXmlReader;

    void CopyCommon(const QoDtDictItem& other);
    void WriteCommon(CArchive& ar) const;
    static Common ReadCommon(CArchive& ar);
    void TakeCommon(Common&& common);

    // Reads the element into this item, which is new and seen by nobody
    // else: on a failure the node holds the cause, and the caller throws the
    // item away. `item << node` reads through a new item, so that a refused
    // element changes nothing.
    virtual bool ReadXml(QoUtXMLDOMNode& node);
    // Key, local name and attributes of the element, into this new item;
    // false, with the cause in the node, for names that repeat.
    bool ReadCommonXml(QoUtXMLDOMNode& node);
    // One attribute of the element: "name" and "localname" are the fields,
    // others are stored under their unescaped names. False when the name,
    // unescaped, is one the element already gave (`seen` keeps count of
    // "name" and "localname" from call to call; start it at 0): written back,
    // such an element would not be well-formed, or would change its key.
    bool TakeXmlAttribute(std::string_view xmlName, CString&& value, unsigned& seen);
    // The kinds whose element holds a text take their value from it here;
    // false, with the cause when `cause` is given, if the text isn't a value
    // of the kind. The item is new, as for ReadXml.
    virtual bool ReadXmlValue(std::string_view text, std::string* cause);
    // ReadXml for those kinds: text only, the value, then key, local name and
    // attributes.
    bool ReadTextElement(QoUtXMLDOMNode& node);
    // Opens the item's element and writes key, local name and attributes.
    void WriteStartXml(QoDtXmlOutput& out) const;

    // Fails the node unless the element holds nothing but white space.
    static bool ExpectNoContent(QoUtXMLDOMNode& node);
    // The element's text; fails the node if the element holds an element.
    static bool ReadTextOnly(QoUtXMLDOMNode& node, std::string_view& text);
    // `<kind name="key">`, for messages.
    static std::string Describe(pugi::xml_node element);

    // Runs an archive read; a read past the end or malformed data gives false.
    template <typename Read>
    static bool ReadGuarded(Read read) {
        try {
            return read();
        } catch (const CArchiveException&) {
            return false;
        }
    }

private:
    QoDtAttributes m_attributes;
};
