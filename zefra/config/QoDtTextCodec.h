#pragma once
// Text conversions of the configuration store: wide text to and from UTF-8,
// numbers to and from text without loss and independent of the C locale,
// and attribute names made safe for XML.

#include "zefra/platform/mfc/CString.h"

#include <string>
#include <string_view>

class QoDtTextCodec {
public:
    // Appends the UTF-8 form of `text` to `out`.
    static void AppendUtf8(std::string& out, const CString& text);
    static std::string ToUtf8(const CString& text);
    // Malformed UTF-8 becomes U+FFFD.
    static CString FromUtf8(const char* text, size_t length);
    static CString FromUtf8(std::string_view text) { return FromUtf8(text.data(), text.size()); }

    // Shortest text that reads back to the same double ("inf", "nan" included).
    static void AppendDouble(std::string& out, double value);
    static void AppendInt(std::string& out, int value);

    // Strict readers for stored values: the whole text, surrounding white
    // space aside, must be the number.
    static bool ParseDouble(std::string_view text, double& value);
    static bool ParseInt(std::string_view text, int& value);

    // Lenient readers for attribute texts, as the C library's atof and atoi
    // read: leading white space, then the longest number there is; 0 if none.
    static double LeadingDouble(const CString& text);
    static int LeadingInt(const CString& text);

    // Attribute names are free text; XML names are not. Characters that may
    // not stand in an XML name at their place, and a '_' that begins "_x",
    // are written as "_x<hex>_". The empty name is "_x_".
    static void AppendXmlName(std::string& out, const CString& name);
    static CString FromXmlName(std::string_view name);

    static std::string_view TrimSpace(std::string_view text);

private:
    static void AppendCodePoint(std::string& out, char32_t cp);
};
