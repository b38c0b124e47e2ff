#pragma once
#include "zefra/ZefraExport.h"
// A binary archive over a standard stream: little-endian fixed-width numbers,
// MFC's short/long count encoding, and strings as a count of UTF-8 bytes
// followed by the bytes. Reading past the end throws CArchiveException.

#include "zefra/platform/mfc/CString.h"
#include "zefra/platform/mfc/Exceptions.h"

#include <cstdint>
#include <iosfwd>

class ZEFRA_API CArchive {
public:
    enum Mode { store = 0, load = 1 };

    CArchive(std::iostream& stream, Mode mode) : m_stream(stream), m_mode(mode) {}
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    bool IsStoring() const { return m_mode == store; }
    bool IsLoading() const { return m_mode == load; }

    void Write(const void* data, size_t bytes);
    void Read(void* data, size_t bytes);

    void WriteCount(uint64_t count);
    uint64_t ReadCount();

    void WriteString(const CString& text);
    CString ReadString();

    template <typename T>
    void WriteValue(T v) { Write(&v, sizeof v); }
    template <typename T>
    T ReadValue() { T v{}; Read(&v, sizeof v); return v; }

    CArchive& operator<<(bool v) { WriteValue<uint8_t>(v ? 1 : 0); return *this; }
    CArchive& operator<<(char v) { WriteValue(v); return *this; }
    CArchive& operator<<(unsigned char v) { WriteValue(v); return *this; }
    CArchive& operator<<(short v) { WriteValue(v); return *this; }
    CArchive& operator<<(unsigned short v) { WriteValue(v); return *this; }
    CArchive& operator<<(int v) { WriteValue<int32_t>(v); return *this; }
    CArchive& operator<<(unsigned int v) { WriteValue<uint32_t>(v); return *this; }
    CArchive& operator<<(long long v) { WriteValue<int64_t>(v); return *this; }
    CArchive& operator<<(unsigned long long v) { WriteValue<uint64_t>(v); return *this; }
    CArchive& operator<<(float v) { WriteValue(v); return *this; }
    CArchive& operator<<(double v) { WriteValue(v); return *this; }
    CArchive& operator<<(wchar_t v) { WriteValue<uint32_t>(static_cast<uint32_t>(v)); return *this; }
    CArchive& operator<<(const CString& v) { WriteString(v); return *this; }

    CArchive& operator>>(bool& v) { v = ReadValue<uint8_t>() != 0; return *this; }
    CArchive& operator>>(char& v) { v = ReadValue<char>(); return *this; }
    CArchive& operator>>(unsigned char& v) { v = ReadValue<unsigned char>(); return *this; }
    CArchive& operator>>(short& v) { v = ReadValue<short>(); return *this; }
    CArchive& operator>>(unsigned short& v) { v = ReadValue<unsigned short>(); return *this; }
    CArchive& operator>>(int& v) { v = ReadValue<int32_t>(); return *this; }
    CArchive& operator>>(unsigned int& v) { v = ReadValue<uint32_t>(); return *this; }
    CArchive& operator>>(long long& v) { v = ReadValue<int64_t>(); return *this; }
    CArchive& operator>>(unsigned long long& v) { v = ReadValue<uint64_t>(); return *this; }
    CArchive& operator>>(float& v) { v = ReadValue<float>(); return *this; }
    CArchive& operator>>(double& v) { v = ReadValue<double>(); return *this; }
    CArchive& operator>>(wchar_t& v) { v = static_cast<wchar_t>(ReadValue<uint32_t>()); return *this; }
    CArchive& operator>>(CString& v) { v = ReadString(); return *this; }

private:
    std::iostream& m_stream;
    Mode m_mode;
};
