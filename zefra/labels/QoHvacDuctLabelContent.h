#pragma once
#include "zefra/ZefraExport.h"
// A list of label contents with a switch that says whether they are shown.
// In the configuration store it owns a whole dictionary: a Boolean "CHECK"
// first, then one string item for each content.

#include "zefra/containers/QoArray.h"
#include "zefra/platform/mfc/CString.h"

class QoDtDictionary;

class ZEFRA_API QoHvacDuctLabelContent {
public:
    // Not shown, no contents.
    QoHvacDuctLabelContent() = default;

    // Rewrites the dictionary from scratch. False for a null dictionary.
    bool SaveToDict(QoDtDictionary* dict) const;
    // Takes the contents from the string children, in order, and the switch
    // from the last Boolean child; other children are skipped.
    bool ReadFromDict(QoDtDictionary* dict);

    int check = 0;
    QoArray<CString> strings;
};
