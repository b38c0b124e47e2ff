#pragma once
#include "zefra/ZefraExport.h"
// Gives an entity its system, its layer and its line properties, by the
// entity's class and sub-kind. Ducts and pipes also get separate property
// values for the parts they draw themselves (outline, flange, end lines,
// axis). The overloads without a kind are of duct drawings.

#include "zefra/layers/EQoDbHvacSystemType.h"
#include "zefra/platform/mfc/CString.h"

ZEFRA_API_BEGIN

class QoDbHvacCoilPipe;
class QoDbHvacDuct;
class QoDbHvacDuctFitting;
class QoDbHvacDuctValve;
class QoDbHvacEquipment;
class QoDbHvacFitting;
class QoDbHvacLabel;
class QoDbHvacPipe;
class QoDbHvacPipeEquipment;
class QoDbHvacPipeLabel;
class QoDbHvacTelescopeCase;
class QoDbHvacTerminal;
class QoDbHvacValve;

namespace HVAC {

void SetHvacEntLayer(QoDbHvacDuct* duct, const CString& system, bool plan);
void SetHvacEntLayer(QoDbHvacDuctFitting* fitting, const CString& system, bool plan);
void SetHvacEntLayer(QoDbHvacEquipment* equipment, const CString& system, bool plan);
void SetHvacEntLayer(QoDbHvacDuctValve* valve, const CString& system, bool plan);
void SetHvacEntLayer(QoDbHvacLabel* label, const CString& system, bool plan);
void SetHvacEntLayer(QoDbHvacTerminal* terminal, const CString& system, bool plan);
void SetHvacEntLayer(QoDbHvacPipe* pipe, const CString& system, bool plan, EQoDbHvacSystemType kind);
void SetHvacEntLayer(QoDbHvacFitting* fitting, const CString& system, bool plan, EQoDbHvacSystemType kind);
void SetHvacEntLayer(QoDbHvacPipeLabel* label, const CString& system, bool plan, EQoDbHvacSystemType kind);
void SetHvacEntLayer(QoDbHvacPipeEquipment* equipment, const CString& system, int location, bool plan,
                     EQoDbHvacSystemType kind);
void SetHvacEntLayer(QoDbHvacValve* valve, const CString& system, int location, bool plan,
                     EQoDbHvacSystemType kind);
// The floor-heating coil: supply on the entity, return as its back pipe.
void SetHvacEntLayer(QoDbHvacCoilPipe* coil);
void SetHvacEntLayer(QoDbHvacTelescopeCase* telescopeCase);

}  // namespace HVAC

ZEFRA_API_END
