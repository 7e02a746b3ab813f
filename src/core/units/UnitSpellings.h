// Unit names in running text: which spellings stand directly before or behind a place in a line.
//
// A spelling matches in any case, and with any run of ASCII white space where it has a blank. Spellings are found by
// a hash, so the cost is a look-up for each word near the place and does not depend on how many units there are.
#pragma once

#include "core/units/UnitTable.h"

#include <QStringView>
#include <QVarLengthArray>

/// A unit's name as it stands in a text.
struct UnitMatch {
    const UnitDefinition* unit; ///< an element of UnitDefinitions()
    qsizetype start;            ///< position in the text
    qsizetype length;           ///< in characters, as typed
};

using UnitMatches = QVarLengthArray<UnitMatch, 8>;

/// White space as it separates words here: ASCII alone.
constexpr bool IsUnitBlank(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

/// Every reading of the text that ends at `position`, blanks before it aside, as a unit. The name stands at the
/// text's start or behind a blank. Short names come before long ones; one name can mean units of several families.
UnitMatches FindSourceUnitMatches(QStringView text, qsizetype position);

/// Every reading of the text that begins at `position`, blanks aside, as a unit. Behind the name stands a blank, one
/// of = < > + - * / ^ ) , } or nothing. In the same order.
UnitMatches FindTargetUnitMatches(QStringView text, qsizetype position);
