#pragma once
// The text styles of one drawing. Names are unique without regard to case;
// the style "Standard" is always there and is current until another is
// made current.
//
// The drawing stand-in keeps no style table of its own, so the tables
// stand beside the drawings, one per database address, made at the first
// request for that database.

#include "zefra/platform/host/AcDbObjectId.h"
#include "zefra/platform/mfc/CString.h"

#include <utility>
#include <vector>

class AcDbDatabase;

class AcDbTextStyleTable {
public:
    AcDbTextStyleTable();

    // False when the drawing has no style of that name.
    bool getAt(const wchar_t* name, AcDbObjectId& id) const;
    // Gives the id of the style, made if missing; false for an empty name.
    bool add(const wchar_t* name, AcDbObjectId& id);
    AcDbObjectId currentStyle() const { return m_current; }
    // False, with nothing changed, for an id that names no style here.
    bool setCurrentStyle(const AcDbObjectId& id);

private:
    std::vector<std::pair<AcDbObjectId, CString>> m_styles;
    AcDbObjectId m_current;
};

// The styles of the drawing; null means the working drawing.
AcDbTextStyleTable& acdbTextStyleTable(AcDbDatabase* database);

// The id of the named style in the drawing (null: the working drawing);
// the null id when there is no such style.
AcDbObjectId GetTextStyleId(const wchar_t* name, AcDbDatabase* database);
