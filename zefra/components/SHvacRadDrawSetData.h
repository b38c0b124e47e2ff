#pragma once
#include "zefra/ZefraExport.h"
// How radiators are connected and how far they sit from the pipes, for
// all radiators of the heating kinds.

struct ZEFRA_API SHvacRadDrawSetData {
    double m_distToTop = 200.0;
    double m_distToBottom = 200.0;
    int m_singlePipeLeapJointType = 0;
    int m_twoPipeJointType = 0;
    int m_cocurrentJointType = 0;
    int m_leapJointType = 0;
    bool m_jointType = true;

    // The distances compare within g_fZero, the rest exactly.
    bool operator!=(const SHvacRadDrawSetData& other) const;
    bool operator==(const SHvacRadDrawSetData& other) const { return !(*this != other); }

    // Calls visit(key, field) for every field, in the order of writing.
    template <typename Self, typename Visit>
    static void ForEachStoredField(Self& data, Visit visit) {
        visit(L"DistToTop", data.m_distToTop);
        visit(L"DistToBottom", data.m_distToBottom);
        visit(L"SinglePipeLeapJointType", data.m_singlePipeLeapJointType);
        visit(L"TwoPipeJointType", data.m_twoPipeJointType);
        visit(L"CocurrentJointType", data.m_cocurrentJointType);
        visit(L"LeapJointType", data.m_leapJointType);
        visit(L"JointType", data.m_jointType);
    }
};
