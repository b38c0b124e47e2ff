#include "zefra/config/QoDtTextEncoding.h"

#include <iconv.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

std::string Upper(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

std::string HexBytes(const char* bytes, size_t count) {
    std::string text;
    char cell[8];
    for (size_t i = 0; i < count; ++i) {
        std::snprintf(cell, sizeof cell, "%s0x%02X", i == 0 ? "" : " ", static_cast<unsigned char>(bytes[i]));
        text += cell;
    }
    return text;
}

// "line L, column C" of the end of UTF-8 text, counting characters.
std::string PositionAtEnd(const char* text, size_t size) {
    size_t line = 1;
    size_t column = 1;
    for (size_t i = 0; i < size; ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c == '\n') {
            ++line;
            column = 1;
        } else if ((c & 0xC0) != 0x80) {
            ++column;
        }
    }
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

std::string InvalidBytes(const std::string& encoding, const char* before, size_t beforeSize, const char* bad,
                         size_t badSize) {
    return "invalid bytes for " + encoding + " at " + PositionAtEnd(before, beforeSize) + ": " +
           HexBytes(bad, badSize);
}

// The encoding named by the XML declaration at the start of ASCII-compatible
// bytes; empty when there is none.
std::string DeclaredEncoding(const char* text, size_t size) {
    const std::string head(text, std::min<size_t>(size, 512));
    if (head.compare(0, 5, "<?xml") != 0) return std::string();
    const size_t end = head.find("?>");
    if (end == std::string::npos) return std::string();
    const std::string declaration = head.substr(0, end);
    size_t at = declaration.find("encoding");
    if (at == std::string::npos) return std::string();
    at += 8;
    while (at < declaration.size() && std::isspace(static_cast<unsigned char>(declaration[at]))) ++at;
    if (at >= declaration.size() || declaration[at] != '=') return std::string();
    ++at;
    while (at < declaration.size() && std::isspace(static_cast<unsigned char>(declaration[at]))) ++at;
    if (at >= declaration.size() || (declaration[at] != '"' && declaration[at] != '\'')) return std::string();
    const size_t close = declaration.find(declaration[at], at + 1);
    if (close == std::string::npos) return std::string();
    return declaration.substr(at + 1, close - at - 1);
}

bool Convert(const char* from, const std::string& shownName, std::vector<char>& bytes, size_t skip,
             std::string& error) {
    iconv_t cd = ::iconv_open("UTF-8", from);
    if (cd == reinterpret_cast<iconv_t>(-1)) {
        error = std::string("this system can't convert from ") + shownName;
        return false;
    }
    std::vector<char> out(std::max<size_t>(64, (bytes.size() - skip) * 2 + 16));
    char* in = bytes.data() + skip;
    size_t inLeft = bytes.size() - skip;
    size_t filled = 0;
    bool ok = true;
    while (inLeft > 0) {
        char* dst = out.data() + filled;
        size_t outLeft = out.size() - filled;
        const size_t result = ::iconv(cd, &in, &inLeft, &dst, &outLeft);
        filled = static_cast<size_t>(dst - out.data());
        if (result != static_cast<size_t>(-1)) continue;
        if (errno == E2BIG) {
            out.resize(out.size() * 2);
            continue;
        }
        const size_t shown = std::min<size_t>(inLeft, errno == EINVAL ? inLeft : (shownName.compare(0, 6, "UTF-16") == 0 ? 4 : 2));
        error = InvalidBytes(shownName, out.data(), filled, in, std::max<size_t>(shown, 1)) +
                (errno == EINVAL ? " (cut off at the end of the file)" : "");
        ok = false;
        break;
    }
    ::iconv_close(cd);
    if (!ok) return false;
    out.resize(filled);
    bytes.swap(out);
    return true;
}

}  // namespace

bool QoDtTextEncoding::IsValidUtf8(const char* text, size_t size, size_t& badOffset, size_t& badLength) {
    const auto* p = reinterpret_cast<const unsigned char*>(text);
    size_t i = 0;
    while (i < size) {
        // Runs of ASCII, eight bytes at a time.
        while (i + 8 <= size) {
            uint64_t word;
            std::memcpy(&word, p + i, 8);
            if ((word & 0x8080808080808080ull) != 0) break;
            i += 8;
        }
        if (i >= size) break;
        const unsigned char c = p[i];
        if (c < 0x80) {
            ++i;
            continue;
        }
        size_t need = 0;
        uint32_t min = 0;
        uint32_t cp = 0;
        if (c >= 0xC2 && c <= 0xDF) {
            need = 1, min = 0x80, cp = c & 0x1Fu;
        } else if (c >= 0xE0 && c <= 0xEF) {
            need = 2, min = 0x800, cp = c & 0x0Fu;
        } else if (c >= 0xF0 && c <= 0xF4) {
            need = 3, min = 0x10000, cp = c & 0x07u;
        } else {
            badOffset = i;
            badLength = 1;
            while (badLength < 4 && i + badLength < size && p[i + badLength] >= 0x80) ++badLength;
            return false;
        }
        size_t k = 1;
        for (; k <= need && i + k < size && (p[i + k] & 0xC0) == 0x80; ++k) cp = (cp << 6) | (p[i + k] & 0x3Fu);
        if (k <= need || cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
            // The bytes shown: the bad sequence and the non-ASCII bytes
            // that follow it, up to four.
            badOffset = i;
            badLength = 1;
            while (badLength < 4 && i + badLength < size && p[i + badLength] >= 0x80) ++badLength;
            return false;
        }
        i += need + 1;
    }
    return true;
}

bool QoDtTextEncoding::ToUtf8(std::vector<char>& bytes, std::string& encoding, std::string& error) {
    const auto* b = reinterpret_cast<const unsigned char*>(bytes.data());
    const size_t size = bytes.size();
    if (size >= 2 && b[0] == 0xFF && b[1] == 0xFE) {
        encoding = "UTF-16LE";
        return Convert("UTF-16LE", encoding, bytes, 2, error);
    }
    if (size >= 2 && b[0] == 0xFE && b[1] == 0xFF) {
        encoding = "UTF-16BE";
        return Convert("UTF-16BE", encoding, bytes, 2, error);
    }
    const bool bom = size >= 3 && b[0] == 0xEF && b[1] == 0xBB && b[2] == 0xBF;
    const size_t start = bom ? 3 : 0;
    const std::string declared = DeclaredEncoding(bytes.data() + start, size - start);
    const std::string name = Upper(declared);
    if (bom || name.empty() || name == "UTF-8" || name == "UTF8") {
        encoding = kUtf8;
        size_t badOffset = 0;
        size_t badLength = 0;
        if (!IsValidUtf8(bytes.data() + start, size - start, badOffset, badLength)) {
            error = InvalidBytes(kUtf8, bytes.data() + start, badOffset, bytes.data() + start + badOffset, badLength);
            return false;
        }
        if (bom) bytes.erase(bytes.begin(), bytes.begin() + 3);
        return true;
    }
    if (name == "GB2312" || name == "GBK" || name == "GB18030" || name == "CP936" || name == "X-GBK") {
        encoding = name == "CP936" || name == "X-GBK" ? "GBK" : name;
        return Convert("GB18030", encoding, bytes, 0, error);
    }
    if (name.compare(0, 6, "UTF-16") == 0) {
        error = "the file declares " + declared + " but has no byte order mark";
        return false;
    }
    error = "the encoding " + declared + " is not read; save the file as UTF-8 (or GBK, GB18030, UTF-16)";
    return false;
}

std::string QoDtTextEncoding::FileSuffix(const std::string& encoding) {
    if (encoding.compare(0, 6, "UTF-16") == 0) return "utf-16";
    std::string suffix = encoding;
    for (char& c : suffix) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return suffix;
}
