#pragma once
// An air terminal: diffuser, grille or louvre.

#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacTerminal : public AcDbEntity {
public:
    QoDbHvacTerminal();
};
