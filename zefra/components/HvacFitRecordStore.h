#pragma once
// The stored form of the default fitting records: one dictionary a record,
// its keys in a fixed order. Every family begins with "默认类型", "名称",
// "A宽度", "A高度", "B宽度", "B高度" and goes on with its own keys. A read
// leaves a field alone when its key is missing, and takes "默认类型" only
// when it reads as an integer.

#include "zefra/platform/entities/SHvacDuctCrossData.h"
#include "zefra/platform/entities/SHvacDuctElbowData.h"
#include "zefra/platform/entities/SHvacDuctOffsetData.h"
#include "zefra/platform/entities/SHvacDuctTeeData.h"
#include "zefra/platform/entities/SHvacDuctTransData.h"

class QoDtDictionary;

namespace HvacFitRecordStore {

void Read(const QoDtDictionary& dict, SHvacDuctElbowData& record);
void Read(const QoDtDictionary& dict, SHvacDuctTransData& record);
void Read(const QoDtDictionary& dict, SHvacDuctOffsetData& record);
void Read(const QoDtDictionary& dict, SHvacDuctTeeData& record);
void Read(const QoDtDictionary& dict, SHvacDuctCrossData& record);

void Write(QoDtDictionary& dict, const SHvacDuctElbowData& record);
void Write(QoDtDictionary& dict, const SHvacDuctTransData& record);
void Write(QoDtDictionary& dict, const SHvacDuctOffsetData& record);
void Write(QoDtDictionary& dict, const SHvacDuctTeeData& record);
void Write(QoDtDictionary& dict, const SHvacDuctCrossData& record);

}  // namespace HvacFitRecordStore
