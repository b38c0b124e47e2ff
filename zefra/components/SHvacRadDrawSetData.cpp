#include "zefra/components/SHvacRadDrawSetData.h"

#include "zefra/platform/geometry/Zero.h"

bool SHvacRadDrawSetData::operator!=(const SHvacRadDrawSetData& other) const {
    return !IsInZeroBand(m_distToTop - other.m_distToTop) || !IsInZeroBand(m_distToBottom - other.m_distToBottom) ||
           m_singlePipeLeapJointType != other.m_singlePipeLeapJointType ||
           m_twoPipeJointType != other.m_twoPipeJointType || m_cocurrentJointType != other.m_cocurrentJointType ||
           m_leapJointType != other.m_leapJointType || m_jointType != other.m_jointType;
}
