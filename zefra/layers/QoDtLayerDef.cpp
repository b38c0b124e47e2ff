#include "zefra/layers/QoDtLayerDef.h"

QoDtLayerDef::QoDtLayerDef(const CString& key) : key(key) {}
