#pragma once
#include "zefra/ZefraExport.h"
// A list of texts with one of them selected: the choices that a settings
// dialog offers for one setting. The choices come from the configuration
// store; what goes back to the store is only the selected index.
//
// The selection is a plain index that nothing keeps inside the list: a new
// or empty option has selection 0.

#include "zefra/containers/QoList.h"
#include "zefra/platform/mfc/CString.h"

class QoDtDictOptionItem;

class ZEFRA_API QoHvacCStringOption : public QoList<CString> {
public:
    QoHvacCStringOption() = default;
    QoHvacCStringOption(const QoHvacCStringOption& other) = default;
    QoHvacCStringOption& operator=(const QoHvacCStringOption& other) = default;
    ~QoHvacCStringOption() override;

    // Appends the text, even if it is there already, and selects it.
    void AddOption(const CString& text);
    // Selects the first choice equal to the text. A text not in the list is
    // appended and selected when `add` is true; otherwise the selection stays
    // and the result is false.
    bool SetCurSel(const CString& text, bool add);
    void SetCurSelIndex(int index) { m_curSel = index; }
    int GetCurSelIndex() const { return m_curSel; }
    // The selected choice; an empty text when the selection lies outside the
    // list.
    CString GetCurSelString() const;

    // Writes the selection into the item; its list of choices stays.
    bool SaveToDict(QoDtDictOptionItem* item) const;
    // Replaces the choices and the selection by the item's.
    bool ReadFromDict(QoDtDictOptionItem* item);

private:
    int m_curSel = 0;
};
