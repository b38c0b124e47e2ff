#include "zefra/platform/mfc/CArchive.h"

#include <istream>
#include <ostream>
#include <limits>

void CArchive::Write(const void* data, size_t bytes) {
    if (!IsStoring()) throw CArchiveException("archive opened for loading was written to");
    m_stream.write(static_cast<const char*>(data), static_cast<std::streamsize>(bytes));
    if (!m_stream) throw CArchiveException("archive write failed");
}

void CArchive::Read(void* data, size_t bytes) {
    if (!IsLoading()) throw CArchiveException("archive opened for storing was read from");
    m_stream.read(static_cast<char*>(data), static_cast<std::streamsize>(bytes));
    if (static_cast<size_t>(m_stream.gcount()) != bytes) throw CArchiveException("unexpected end of archive");
}

// MFC's count encoding: a 16-bit count below 0xFFFF, else 0xFFFF and a
// 32-bit count, else 0xFFFFFFFF too and a 64-bit count.
void CArchive::WriteCount(uint64_t count) {
    if (count < 0xFFFF) {
        WriteValue<uint16_t>(static_cast<uint16_t>(count));
        return;
    }
    WriteValue<uint16_t>(0xFFFF);
    if (count < 0xFFFFFFFFull) {
        WriteValue<uint32_t>(static_cast<uint32_t>(count));
        return;
    }
    WriteValue<uint32_t>(0xFFFFFFFFu);
    WriteValue<uint64_t>(count);
}

uint64_t CArchive::ReadCount() {
    uint16_t w = ReadValue<uint16_t>();
    if (w != 0xFFFF) return w;
    uint32_t d = ReadValue<uint32_t>();
    if (d != 0xFFFFFFFFu) return d;
    return ReadValue<uint64_t>();
}

void CArchive::WriteString(const CString& text) {
    const std::string utf8 = text.ToUtf8();
    WriteCount(utf8.size());
    if (!utf8.empty()) Write(utf8.data(), utf8.size());
}

CString CArchive::ReadString() {
    const uint64_t n = ReadCount();
    if (n > (1ull << 30)) throw CArchiveException("string length in archive is implausible");
    std::string utf8(static_cast<size_t>(n), '\0');
    if (n) Read(&utf8[0], static_cast<size_t>(n));
    return CString::FromUtf8(utf8);
}
