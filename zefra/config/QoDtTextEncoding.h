#pragma once
// The encodings a configuration file may come in. Files are written in
// UTF-8; a file is read in the encoding its byte order mark names, else the
// one its XML declaration names, else UTF-8:
//
//   UTF-8          with or without a byte order mark
//   UTF-16         little or big endian, with a byte order mark
//   GB2312, GBK,   read as GB18030, which holds both (as Windows' code page
//   GB18030        936 does): a file saved as "ANSI" by a Chinese editor
//                  reads right whichever of the three names it declares
//
// Bytes that are not valid in the encoding refuse the file, with the line,
// the column and the bytes: nothing is ever read as a replacement character.

#include <cstddef>
#include <string>
#include <vector>

class QoDtTextEncoding {
public:
    static constexpr const char* kUtf8 = "UTF-8";

    // Turns the file's bytes into UTF-8 text without a byte order mark.
    // `encoding` names what the file was in ("UTF-8", "UTF-16LE",
    // "UTF-16BE", "GB2312", "GBK", "GB18030"). False, with the cause, for
    // invalid bytes or an encoding that isn't read.
    static bool ToUtf8(std::vector<char>& bytes, std::string& encoding, std::string& error);

    // True if the text is well-formed UTF-8 (no overlong forms, surrogates
    // or code points beyond U+10FFFF). False gives where the first bad
    // sequence starts and how many of its bytes belong to it.
    static bool IsValidUtf8(const char* text, size_t size, size_t& badOffset, size_t& badLength);

    // The encoding name in a file name: "gbk" for "GBK", "utf-16" for both
    // UTF-16 forms.
    static std::string FileSuffix(const std::string& encoding);
};
