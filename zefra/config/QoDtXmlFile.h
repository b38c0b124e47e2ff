#pragma once
// The on-disk form of a configuration tree: UTF-8 XML, one element per item.
//
//   <?xml version="1.0" encoding="UTF-8"?>
//   <zefra-config format="1">
//     <dict name="" localname="...">
//       <dict name="ZEFRA">
//         <dict name="SPACE" localname="房间标注">
//           <double name="TEXTSIZE">3</double>
//           <string name="VISIBLE_FIELD">名称,编号,面积</string>
//           <bool name="CHECK" localname="是否显示">true</bool>
//           <int name="STYLE">2</int>
//           <doubles name="DN">15 20 25</doubles>
//           <option name="LINETYPE"><selection>1</selection><choice>实线</choice><choice>虚线</choice></option>
//           <item name="0" endrange="630.00" offset="40.00" />
//
// The element names the kind, the attribute "name" holds the key and
// "localname" the local name; the item's other attributes follow as XML
// attributes (names that XML can't carry are escaped as "_x<hex>_"). Values
// stand in the text, numbers as the shortest text that reads back exactly.
// The one <dict> below the root element is the dictionary that was saved.

#include "zefra/config/QoDtDiskFile.h"

#include <cstddef>
#include <string>

class QoDtDictionary;

class QoDtXmlFile {
public:
    static constexpr int kFormatVersion = 1;
    static constexpr size_t kMaxFileBytes = size_t{64} << 20;
    // Load keeps a read buffer of up to this size for the next load.
    static constexpr size_t kKeptBufferBytes = size_t{8} << 20;

    // Writes the file in UTF-8 (see QoDtDiskFile::WriteAtomically for
    // `check`).
    static bool Save(const QoDtDictionary& dict, const std::string& path, std::string& error,
                     const QoDtDiskFile::Check& check = QoDtDiskFile::Check());
    // Replaces the dictionary's content by the file's, read in its encoding
    // (see QoDtTextEncoding), which goes to `encoding` when given; on any
    // failure the dictionary stays as it was and `error` says why (with line
    // and column for faults in the XML, and the bytes for invalid ones).
    static bool Load(QoDtDictionary& dict, const std::string& path, std::string& error,
                     std::string* encoding = nullptr);

    static bool ToText(const QoDtDictionary& dict, std::string& text, std::string& error);
    static bool FromText(QoDtDictionary& dict, const std::string& text, std::string& error);
    // FromText with every text parsed by pugixml, as the texts are that the
    // one-pass reader leaves (see QoDtXmlReader): to hold the two readers
    // against each other.
    static bool FromTextByDocument(QoDtDictionary& dict, const std::string& text, std::string& error);

private:
    // Reads the text into the dictionary: the one-pass reader first, else
    // pugixml, which parses in place (the text is changed). On a failure
    // `error` holds the cause and `offset` where it lies, or -1.
    static bool Parse(QoDtDictionary& dict, char* text, size_t size, bool onePass, std::string& error,
                      ptrdiff_t& offset);
    static bool ReadText(QoDtDictionary& dict, const std::string& text, bool onePass, std::string& error);
    // "line L, column C: " for a byte offset into the text; empty for -1.
    static std::string Position(const std::string& text, ptrdiff_t offset);
};
