// The units: what each is worth in its family's base, and every way to spell it.
//
// The rows themselves are data and stand in UnitRows.cpp, a row a unit. This header gives them as records. Reading a
// line for units is the job of UnitSpellings and UnitConversions.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

enum class UnitTransformKind {
    Linear = 0,     ///< base = value * factor + offset
    Reciprocal = 1, ///< base = factor / value
};

/// One unit. Each family has a base unit, whose factor is 1 and offset 0, or (where no unit of the table is the base)
/// a base of its own: dots per metre, the bare ratio.
struct UnitDefinition {
    QString family;        ///< upper case
    QString canonicalName; ///< the short name, upper case
    UnitTransformKind transformKind = UnitTransformKind::Linear;
    double factor = 1;
    double offset = 0;
    QList<QString> aliases; ///< every accepted spelling, the canonical name among them; upper case, single blanks
    QString factorText;     ///< the factor as arithmetic writes it: 17 significant digits
    QString offsetText;     ///< the offset likewise
};

/// Appends a linear unit. Spellings are put in upper case and their white space is simplified; the canonical name
/// goes to the front if they don't hold it in any case.
void AddUnit(QList<UnitDefinition>& list, const QString& family, const QString& canonicalName, double factor,
             double offset, const QList<QString>& aliases);

/// All units, family by family, in the order in which equally good readings of a line are preferred.
QList<UnitDefinition> BuildUnitDefinitions();

/// The same list, built once.
const QList<UnitDefinition>& UnitDefinitions();

/// What predictive text knows of units: TO, every spelling of every unit, and "A TO B" of the canonical names of any
/// two different units of one family. No entry twice; sorted ignoring case; built once.
const QStringList& GetUnitConversionVocabulary();
