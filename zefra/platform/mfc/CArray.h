#pragma once
#include "zefra/ZefraExport.h"
// MFC's CArray: a growable array with bounds-checked access. A bad index or a
// negative size throws CInvalidArgException, as MFC's does.

#include "zefra/platform/mfc/CArchive.h"
#include "zefra/platform/mfc/CObject.h"
#include "zefra/platform/mfc/CString.h"
#include "zefra/platform/mfc/Exceptions.h"

#include <algorithm>
#include <memory>
#include <type_traits>

// How the elements of an array reach an archive. Plain data goes as raw
// bytes (as MFC does by default), strings through their own encoding; other
// element types provide an overload of their own.
template <typename TYPE>
void SerializeElements(CArchive& ar, TYPE* elements, int count) {
    static_assert(std::is_trivially_copyable<TYPE>::value,
                  "element type needs a SerializeElements overload of its own");
    if (count <= 0) return;
    if (ar.IsStoring())
        ar.Write(elements, sizeof(TYPE) * static_cast<size_t>(count));
    else
        ar.Read(elements, sizeof(TYPE) * static_cast<size_t>(count));
}

inline void SerializeElements(CArchive& ar, CString* elements, int count) {
    for (int i = 0; i < count; ++i) {
        if (ar.IsStoring())
            ar << elements[i];
        else
            ar >> elements[i];
    }
}

template <typename TYPE, typename ARG_TYPE = const TYPE&>
class ZEFRA_API CArray : public CObject {
public:
    CArray() = default;
    CArray(const CArray& other) : CObject(other) { Copy(other); }
    CArray& operator=(const CArray& other) {
        if (this != &other) Copy(other);
        return *this;
    }
    ~CArray() override = default;

    int GetSize() const { return m_nSize; }
    int GetCount() const { return m_nSize; }
    bool IsEmpty() const { return m_nSize == 0; }
    int GetUpperBound() const { return m_nSize - 1; }

    void SetSize(int newSize, int growBy = -1) {
        if (newSize < 0) throw CInvalidArgException("CArray size is negative");
        if (growBy >= 0) m_nGrowBy = growBy;
        if (newSize == 0) {
            m_pData.reset();
            m_nSize = m_nMaxSize = 0;
            return;
        }
        if (newSize > m_nMaxSize) {
            int grow = m_nGrowBy;
            if (grow <= 0) grow = std::min(1024, std::max(4, m_nSize / 8));
            Reallocate(std::max(newSize, m_nMaxSize + grow));
        }
        // Slots beyond the old size start from a default value, as MFC's do.
        for (int i = m_nSize; i < newSize; ++i) m_pData[i] = TYPE();
        for (int i = newSize; i < m_nSize; ++i) m_pData[i] = TYPE();
        m_nSize = newSize;
    }

    void FreeExtra() {
        if (m_nSize != m_nMaxSize) Reallocate(m_nSize);
    }
    void RemoveAll() { SetSize(0); }

    const TYPE& GetAt(int index) const { Check(index); return m_pData[index]; }
    TYPE& GetAt(int index) { Check(index); return m_pData[index]; }
    void SetAt(int index, ARG_TYPE element) { Check(index); m_pData[index] = element; }
    const TYPE& ElementAt(int index) const { Check(index); return m_pData[index]; }
    TYPE& ElementAt(int index) { Check(index); return m_pData[index]; }
    const TYPE& operator[](int index) const { return GetAt(index); }
    TYPE& operator[](int index) { return ElementAt(index); }

    const TYPE* GetData() const { return m_pData.get(); }
    TYPE* GetData() { return m_pData.get(); }

    void SetAtGrow(int index, ARG_TYPE element) {
        if (index < 0) throw CInvalidArgException("CArray index is negative");
        if (index < m_nMaxSize) {
            // No reallocation, so an argument living in this array stays put:
            // assign it straight into its slot.
            for (int i = m_nSize; i < index; ++i) m_pData[i] = TYPE();
            m_pData[index] = element;
            if (index >= m_nSize) m_nSize = index + 1;
            return;
        }
        TYPE copy(element);  // the argument may live in this array
        if (index >= m_nSize) SetSize(index + 1);
        m_pData[index] = std::move(copy);
    }

    int Add(ARG_TYPE element) {
        const int index = m_nSize;
        SetAtGrow(index, element);
        return index;
    }

    int Append(const CArray& src) {
        const int old = m_nSize;
        if (&src == this) {
            CArray copy(src);
            return Append(copy);
        }
        SetSize(m_nSize + src.m_nSize);
        for (int i = 0; i < src.m_nSize; ++i) m_pData[old + i] = src.m_pData[i];
        return old;
    }

    void Copy(const CArray& src) {
        if (&src == this) return;
        SetSize(src.m_nSize);
        for (int i = 0; i < src.m_nSize; ++i) m_pData[i] = src.m_pData[i];
    }

    void InsertAt(int index, ARG_TYPE element, int count = 1) {
        if (index < 0 || count < 0) throw CInvalidArgException("CArray insert position is negative");
        TYPE copy(element);
        const int old = m_nSize;
        if (index >= old) {
            SetSize(index + count);
        } else {
            SetSize(old + count);
            for (int i = old - 1; i >= index; --i) m_pData[i + count] = std::move(m_pData[i]);
        }
        for (int i = 0; i < count; ++i) m_pData[index + i] = copy;
    }

    void InsertAt(int startIndex, const CArray* newArray) {
        if (!newArray) throw CInvalidArgException("CArray insert of a null array");
        if (startIndex < 0) throw CInvalidArgException("CArray insert position is negative");
        CArray copy(*newArray);
        if (copy.GetSize() == 0) return;
        InsertAt(startIndex, copy.GetAt(0), copy.GetSize());
        for (int i = 0; i < copy.GetSize(); ++i) SetAt(startIndex + i, copy.GetAt(i));
    }

    void RemoveAt(int index, int count = 1) {
        if (index < 0 || count < 0 || index + count > m_nSize)
            throw CInvalidArgException("CArray remove out of range");
        for (int i = index; i + count < m_nSize; ++i) m_pData[i] = std::move(m_pData[i + count]);
        for (int i = m_nSize - count; i < m_nSize; ++i) m_pData[i] = TYPE();
        m_nSize -= count;
    }

    void Serialize(CArchive& ar) override {
        CObject::Serialize(ar);
        if (ar.IsStoring()) {
            ar.WriteCount(static_cast<uint64_t>(m_nSize));
        } else {
            const uint64_t n = ar.ReadCount();
            if (n > 0x7FFFFFFF) throw CArchiveException("array count in archive is implausible");
            SetSize(static_cast<int>(n), -1);
        }
        SerializeElements(ar, m_pData.get(), m_nSize);
    }

private:
    void Check(int index) const {
        if (index < 0 || index >= m_nSize) throw CInvalidArgException("CArray index out of range");
    }

    // Fresh slots. Every slot gets its value by assignment before it counts
    // as an element, so a class type is built by its constructor alone rather
    // than zeroed first; plain data is zeroed as one block.
    static TYPE* Allocate(size_t count) {
        if constexpr (std::is_trivially_default_constructible<TYPE>::value)
            return new TYPE[count]();
        else
            return new TYPE[count];
    }

    void Reallocate(int capacity) {
        std::unique_ptr<TYPE[]> fresh(capacity > 0 ? Allocate(static_cast<size_t>(capacity)) : nullptr);
        const int keep = std::min(m_nSize, capacity);
        for (int i = 0; i < keep; ++i) fresh[i] = std::move(m_pData[i]);
        m_pData = std::move(fresh);
        m_nMaxSize = capacity;
        m_nSize = keep;
    }

    std::unique_ptr<TYPE[]> m_pData;
    int m_nSize = 0;
    int m_nMaxSize = 0;
    int m_nGrowBy = 0;
};

class CStringArray : public CArray<CString, const CString&> {};
