#pragma once
#include "zefra/ZefraExport.h"
// Settings of duct labels, and the label lines worked out from them.
//
// The settings: what links the two numbers of a size, the prefixes of
// elevations, the end mark of lead labels, text heights and style, and five
// lists of label lines. Lists 0 to 3 are the lines of the lead labels,
// list 4 those of automatic labels; each holds nine lines once read.
// They live in "ZEFRA\LABELSET" of g_dictCfg. The instance is built at the
// first GetInstance() and reads the store then; SaveToDict writes the tree
// in memory, not the file.
//
// The lines: GetLabelData makes one line of a list from a duct, or from the
// line's stored content when there is no duct; GetLeadLabelData and
// GetAutoLabelData make all the selected lines of a label.

#include "zefra/containers/QoArray.h"
#include "zefra/labels/QoHvacCStringOption.h"
#include "zefra/labels/QoHvacDuctLabelData.h"
#include "zefra/labels/QoHvacDuctLabelItem.h"
#include "zefra/module/QoModuleSingleton.h"
#include "zefra/platform/entities/QoDbHvacDuct.h"
#include "zefra/platform/entities/QoDbHvacLabel.h"
#include "zefra/platform/host/AcDbObjectId.h"
#include "zefra/platform/mfc/CString.h"

class QoDtDictionary;

class ZEFRA_API QoHvacDuctLabelManager {
public:
    // Indexes into the choices of "AUTOPOS"; the store defines the texts.
    enum EAutoLabelPos : int { EAutoLabelAbove = 0, EAutoLabelOn = 1, EAutoLabelBelow = 2 };
    enum ELengthUnit : int { ELengthMillimetre = 0, ELengthMetre = 1 };
    // Which height of a duct an elevation label gives.
    enum EEleLabelStandard : int {
        EEleByAlignment = 0,  // the height at which the duct is aligned
        EEleTop = 1,
        EEleCentre = 2,
        EEleBottom = 3,
    };

    static constexpr int kLabelListCount = 5;
    // The list of automatic labels; the lists before it serve lead labels.
    static constexpr int kAutoLabelList = 4;
    static constexpr int kItemsPerList = 9;

    static QoHvacDuctLabelManager* GetInstance();

    QoHvacDuctLabelManager(const QoHvacDuctLabelManager&) = default;
    QoHvacDuctLabelManager& operator=(const QoHvacDuctLabelManager&) = default;
    ~QoHvacDuctLabelManager() = default;

    // Finds the store's dictionary again, then reads it.
    void Init();
    // Reads the lists afresh and every other setting that has a key; without
    // "ZEFRA\LABELSET" nothing changes.
    void ReadFromDict();
    // Writes the settings and the lines into the store's existing item rows;
    // without "ZEFRA\LABELSET" nothing is written.
    void SaveToDict();

    ELengthUnit GetLengthUnit() const { return static_cast<ELengthUnit>(m_lengthUnit.GetCurSelIndex()); }
    // "m" or "mm".
    CString GetLengthUnitString() const;
    // The selection among the store's choices of end marks.
    QoDbHvacLabel::ELeadLabelPtType GetArrowType() const {
        return static_cast<QoDbHvacLabel::ELeadLabelPtType>(m_arrowType.GetCurSelIndex());
    }
    double GetArrowSize() const { return m_arrowSize; }
    EAutoLabelPos GetAutoLabelPos() const { return static_cast<EAutoLabelPos>(m_autoPos.GetCurSelIndex()); }
    double GetAutoLabelSpace() const { return m_autoLabelSpace; }
    EEleLabelStandard GetEleLabelStarnard() const { return m_eleLabelStandard; }
    CString GetTopHPrefix() const { return m_topHPrefix; }
    CString GetMidHPrefix() const { return m_midHPrefix; }
    CString GetBotHPrefix() const { return m_botHPrefix; }
    // Top for 0, middle for 1, bottom for anything else.
    CString GetElevationLabelPrefix(QoDbHvacDuct::EVertAlignment alignment) const;
    // The working drawing's current style when use CAD text is set,
    // otherwise the style of the stored name.
    AcDbObjectId GetLabelTextStyle() const;

    // For a settings dialog.
    QoHvacCStringOption& GetLengthUnitOption() { return m_lengthUnit; }
    QoHvacCStringOption& GetArrowTypeOption() { return m_arrowType; }
    QoHvacCStringOption& GetAutoPosOption() { return m_autoPos; }
    void SetArrowSize(double size) { m_arrowSize = size; }
    void SetAutoLabelSpace(double space) { m_autoLabelSpace = space; }
    void SetEleLabelStandard(EEleLabelStandard standard) { m_eleLabelStandard = standard; }
    void SetTopHPrefix(const CString& prefix) { m_topHPrefix = prefix; }
    void SetMidHPrefix(const CString& prefix) { m_midHPrefix = prefix; }
    void SetBotHPrefix(const CString& prefix) { m_botHPrefix = prefix; }

    // The line of the first item with that label name, its value worked out
    // from the duct (which may be null); an empty line when no item has the
    // name.
    QoHvacDuctLabelData GetLabelData(const QoArray<QoHvacDuctLabelItem>& items, const CString& name,
                                     QoDbHvacDuct* duct) const;
    // The selected lines of lead label list 0 to 3; any other index gives
    // no lines. A duct shows only the size line of its section shape.
    QoArray<QoHvacDuctLabelData> GetLeadLabelData(QoDbHvacDuct* duct, int index) const;
    // An id that doesn't open a duct gives the lines of the stored contents.
    QoArray<QoHvacDuctLabelData> GetLeadLabelData(int index, const AcDbObjectId& ductId) const;
    QoArray<QoHvacDuctLabelData> GetAutoLabelData(QoDbHvacDuct* duct) const;
    QoArray<QoHvacDuctLabelData> GetAutoLabelData(const AcDbObjectId& ductId) const;

    // Text between width and height of a size.
    CString m_linkFlag;
    // The label lists: 0 to 3 lead labels, 4 automatic labels.
    QoArray<QoHvacDuctLabelItem> m_labelItems[kLabelListCount];
    // Whether labels are made automatically (0 or not).
    int m_isAutoLabel;
    // "ZEFRA\LABELSET", borrowed from the tree; null until a read finds it.
    QoDtDictionary* m_labelDict;
    bool m_drawFrame;
    // A display switch for other modules.
    bool m_showView;
    double m_chTextHeight;
    double m_enTextHeight;
    // Take the drawing's current text style instead of m_textStyle.
    bool m_useCadText;
    CString m_textStyle;

private:
    friend class QoModuleSingleton<QoHvacDuctLabelManager>;
    QoHvacDuctLabelManager();

    // Refreshes m_labelDict; false when there is none.
    bool FindLabelDict();
    void ReadLabelLists(QoDtDictionary& labelItems);
    void SaveLabelLists(QoDtDictionary& labelItems) const;
    QoArray<QoHvacDuctLabelData> CollectLabelData(int list, QoDbHvacDuct* duct) const;

    QoHvacCStringOption m_autoPos;
    QoHvacCStringOption m_arrowType;
    QoHvacCStringOption m_lengthUnit;
    double m_arrowSize;
    CString m_topHPrefix;
    CString m_midHPrefix;
    CString m_botHPrefix;
    EEleLabelStandard m_eleLabelStandard;
    double m_autoLabelSpace;
};
