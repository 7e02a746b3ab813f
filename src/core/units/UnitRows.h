// The unit table as data. To add a unit, add a row to its family in UnitRows.cpp.
#pragma once

#include "core/units/UnitTable.h"

#include <span>

/// All that is to be said about one unit.
struct UnitRow {
    QStringView canonicalName;
    double factor;         // to the family's base
    QStringView spellings; // beside the canonical name; separated by commas
    double offset = 0;
    UnitTransformKind transformKind = UnitTransformKind::Linear;
};

struct UnitFamilyRows {
    QStringView name;
    std::span<const UnitRow> units;
};

/// The families in table order. Within a family no spelling stands twice, in any case.
std::span<const UnitFamilyRows> UnitFamilies();
