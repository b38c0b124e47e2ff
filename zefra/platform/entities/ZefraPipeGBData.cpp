#include "zefra/platform/entities/ZefraPipeGBData.h"

ZefraPipeGBData& ZefraPipeGBData::Shared() {
    static ZefraPipeGBData data;
    return data;
}

void ZefraPipeGBData::Clear(EDataType type) {
    if (type == EFlangeExtrude) m_flangeExtrude.Reset();
}

void ZefraPipeGBData::AddData(const SFlangeExtrudeData& row, EDataType type) {
    if (type == EFlangeExtrude) m_flangeExtrude.Append(row);
}

QoList<SFlangeExtrudeData> ZefraPipeGBData::GetData(EDataType type) const {
    return type == EFlangeExtrude ? m_flangeExtrude : QoList<SFlangeExtrudeData>();
}
