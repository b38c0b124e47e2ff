#pragma once
#include "zefra/ZefraExport.h"
// Drawing defaults of one group of water or heating systems: risers and
// their labels, text, scale, bend bridges, branch joints (FQG) of
// multi-split networks, and the radiator label suffix.

#include "zefra/platform/mfc/CString.h"

struct ZEFRA_API SHvacDrawSetData {
    double m_riserDia = 1.5;
    bool m_autoFillUp = true;
    int m_gsRiserType = 1;
    int m_hsRiserType = 0;
    int m_rlType = 0;
    double m_rlCircleDia = 8.0;
    double m_rlTextHeight = 3.0;
    bool m_rlDrawLeadLine = false;
    int m_buckleType = 100;
    double m_buckleDia = 1.0;
    double m_drawScale = 1.0;
    double m_chTextHeight = 3.0;
    double m_enTextHeight = 3.0;
    bool m_useCadText = false;
    CString m_textStyle;
    bool m_userScalePan = true;
    bool m_addBendBridge = false;
    double m_bridgeDia = 3.0;
    double m_radiusOfCur = 1.0;  // shared by all kinds, stored with the water kinds
    double m_pipeZjEle = 0.1;
    bool m_fqgFillUp = false;
    double m_fqgLength = 2.0;
    double m_fqgZgLength = 1.0;
    int m_fqgStyle = 0;
    double m_fqgMinDist = 500.0;
    int m_lmRiserType = 0;
    int m_lnsRiserType = 0;
    CString m_radiatorLabelSuffix = L"层";

    // Calls visit(key, field) for every stored field but the bend radius,
    // in the order of writing.
    template <typename Self, typename Visit>
    static void ForEachStoredField(Self& data, Visit visit) {
        visit(L"RISERDIA", data.m_riserDia);
        visit(L"AUTOFILLUP", data.m_autoFillUp);
        visit(L"GSRISERTYPE", data.m_gsRiserType);
        visit(L"HSRISERTYPE", data.m_hsRiserType);
        visit(L"RLTYPE", data.m_rlType);
        visit(L"RLCIRCLEDIA", data.m_rlCircleDia);
        visit(L"RLTEXTHEIGHT", data.m_rlTextHeight);
        visit(L"RLDRAWLEADLINE", data.m_rlDrawLeadLine);
        visit(L"BUCKLETYPE", data.m_buckleType);
        visit(L"BUCKLEDIA", data.m_buckleDia);
        visit(L"DRAWSCALE", data.m_drawScale);
        visit(L"CHTEXTHEIGHT", data.m_chTextHeight);
        visit(L"ENTEXTHEIGHT", data.m_enTextHeight);
        visit(L"USECADTEXT", data.m_useCadText);
        visit(L"USERSCALEPAN", data.m_userScalePan);
        visit(L"ADDBENDBRIDGE", data.m_addBendBridge);
        visit(L"BRIDGEDIA", data.m_bridgeDia);
        visit(L"FQGFILLUP", data.m_fqgFillUp);
        visit(L"FQGLENGTH", data.m_fqgLength);
        visit(L"FQGZGLENGTH", data.m_fqgZgLength);
        visit(L"FQGSTYLE", data.m_fqgStyle);
        visit(L"FQGMINDIST", data.m_fqgMinDist);
        visit(L"LMRISERTYPE", data.m_lmRiserType);
        visit(L"LNSRISERTYPE", data.m_lnsRiserType);
        visit(L"TEXTSTYLE", data.m_textStyle);
        visit(L"RadiatorLabelSuffix", data.m_radiatorLabelSuffix);
        visit(L"PIPEZJELE", data.m_pipeZjEle);
    }
};
