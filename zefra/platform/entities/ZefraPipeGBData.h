#pragma once
// Pipe data after the national standard that the pipe entities look up at
// draw time. The water flange settings fill the flange steps; they hold the
// rows of whichever table was saved last. The one object is
// g_HvacPipeGBData, built at its first use.

#include "zefra/containers/QoList.h"
#include "zefra/platform/entities/SFlangeExtrudeData.h"

class ZefraPipeGBData {
public:
    enum EDataType : int {
        EFlangeExtrude = 0,
    };

    static ZefraPipeGBData& Shared();

    // An unknown kind is ignored.
    void Clear(EDataType type);
    void AddData(const SFlangeExtrudeData& row, EDataType type);
    // A copy of the rows, in the order they were added.
    QoList<SFlangeExtrudeData> GetData(EDataType type) const;

private:
    QoList<SFlangeExtrudeData> m_flangeExtrude;
};

#define g_HvacPipeGBData (ZefraPipeGBData::Shared())
