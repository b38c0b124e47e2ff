#pragma once
// The one way from a layer key to a layer of a drawing.

#include "zefra/platform/host/AcDbObjectId.h"

class AcDbDatabase;

// The id of the layer that stands for `key` in `database` (the working
// drawing when null), made there if it is missing. A key with a definition
// gets the layer of its definition's name, colour, line type and weight; a
// key without one gets a layer named after the key itself, white and
// continuous, so that what is undefined stays apart and visible. A layer
// that exists already is used as it stands. Null only without a drawing.
AcDbObjectId QoDtInitLayer(const wchar_t* key, AcDbDatabase* database);
