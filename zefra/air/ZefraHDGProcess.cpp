#include "zefra/air/ZefraHDGProcess.h"

IMPLEMENT_DYNAMIC(ZefraHDGProcess, CNTObject)

bool ZefraHDGProcess::SaveXml(QoDtDictionary* dict) {
    (void)dict;
    return false;
}

bool ZefraHDGProcess::ReadXml(QoDtDictionary* dict) {
    (void)dict;
    return false;
}
