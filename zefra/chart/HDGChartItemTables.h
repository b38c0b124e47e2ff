#pragma once
// The names by which the chart's six item tables are reached, and the values
// the tables hold when nothing is stored. Names match exactly, whole string
// against whole string, and the first matching row wins.

#include "zefra/platform/mfc/CNTArray.h"
#include "zefra/platform/mfc/CString.h"

class HDGChartItemTables {
public:
    static constexpr int kDisplayRows = 11;  // also the abbreviations
    static constexpr int kYcHfRows = 21;
    static constexpr int kEcHfRows = 25;
    static constexpr int kUnitRows = 8;      // also the precisions

    // Rows of the unit table that have a converter.
    static constexpr int kUnitRowH = 2;
    static constexpr int kUnitRowV = 4;
    static constexpr int kUnitRowQ = 5;
    static constexpr int kUnitRowMw = 6;
    static constexpr int kUnitRowDen = 7;

    // Row of the first name equal to `name`, or -1.
    static int DisplayRow(const CString& name);
    static int YcHfRow(const CString& name);
    static int EcHfRow(const CString& name);
    static int UnitRow(const CString& name);

    // The item name of a display row; empty outside the table.
    static const wchar_t* DisplayName(int row);
    // The item name of a unit row; empty outside the table.
    static const wchar_t* UnitName(int row);

    // Appends the built-in values of the rows from the table's current size
    // up to its full size; a full table is left as it is.
    static void TopUpDisplayItems(CNTArray<bool, bool>& table);
    static void TopUpYcHfItems(CNTArray<bool, bool>& table);
    static void TopUpEcHfItems(CNTArray<bool, bool>& table);
    static void TopUpAbbreviations(CStringArray& table);
    static void TopUpUnitsNames(CStringArray& table);
    static void TopUpPrecisions(CNTArray<int, int>& table);
};
