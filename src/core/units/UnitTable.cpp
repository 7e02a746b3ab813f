#include "core/units/UnitTable.h"

#include "core/units/UnitRows.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

QString NumberText(double value)
{
    return QString::number(value, 'g', 17);
}

// The spellings of a row stand behind one another, separated by commas.
QList<QString> SpellingList(QStringView spellings)
{
    QList<QString> list;
    for (const QStringView spelling : spellings.split(u','))
        list.append(spelling.toString());
    return list;
}

} // namespace

void AddUnit(QList<UnitDefinition>& list, const QString& family, const QString& canonicalName, double factor,
             double offset, const QList<QString>& aliases)
{
    UnitDefinition unit{family, canonicalName, UnitTransformKind::Linear, factor, offset, {}, {}, {}};
    for (const QString& alias : aliases)
        unit.aliases.append(alias.simplified().toUpper());
    if (!unit.aliases.contains(canonicalName.toUpper()))
        unit.aliases.prepend(canonicalName.toUpper());
    unit.factorText = NumberText(factor);
    unit.offsetText = NumberText(offset);
    list.append(unit);
}

QList<UnitDefinition> BuildUnitDefinitions()
{
    QList<UnitDefinition> list;
    for (const UnitFamilyRows& family : UnitFamilies()) {
        for (const UnitRow& row : family.units) {
            AddUnit(list, family.name.toString(), row.canonicalName.toString(), row.factor, row.offset,
                    SpellingList(row.spellings));
            list.last().transformKind = row.transformKind;
        }
    }
    return list;
}

const QList<UnitDefinition>& UnitDefinitions()
{
    static const QList<UnitDefinition> definitions = BuildUnitDefinitions();
    return definitions;
}

const QStringList& GetUnitConversionVocabulary()
{
    static const QStringList vocabulary = [] {
        QSet<QString> words{u"TO"_s};
        for (const UnitDefinition& from : UnitDefinitions()) {
            words.unite(QSet<QString>(from.aliases.cbegin(), from.aliases.cend()));
            for (const UnitDefinition& to : UnitDefinitions()) {
                if (from.family == to.family && from.canonicalName != to.canonicalName)
                    words.insert(from.canonicalName + " TO "_L1 + to.canonicalName);
            }
        }
        QStringList sorted(words.cbegin(), words.cend());
        sorted.sort(Qt::CaseInsensitive);
        return sorted;
    }();
    return vocabulary;
}
