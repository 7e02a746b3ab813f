#include "PatternReference.h"

#include "core/units/UnitTable.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr auto anyCase = QRegularExpression::CaseInsensitiveOption;

struct Spelling {
    const UnitDefinition* unit;
    QRegularExpression source;
    QRegularExpression target;
};

struct Match {
    const UnitDefinition* unit;
    qsizetype start, length;
};

struct Pair {
    Match source, target;
    qsizetype End() const { return target.start + target.length; }
};

QString AliasPattern(const QString& alias)
{
    QStringList words;
    for (const QString& word : alias.simplified().split(u' '))
        words.append(QRegularExpression::escape(word));
    return words.join(u"\\s+"_s);
}

const QList<Spelling>& Spellings()
{
    static const QList<Spelling> spellings = [] {
        QList<Spelling> list;
        for (const UnitDefinition& unit : UnitDefinitions()) {
            for (const QString& alias : unit.aliases) {
                const QString name = u'(' + AliasPattern(alias) + u')';
                list.append({&unit, QRegularExpression(u"(?:^|\\s)"_s + name + u"\\s*$"_s, anyCase),
                             QRegularExpression(u"^\\s*"_s + name + u"(?=\\s|$|[=<>+\\-*/^),}])"_s, anyCase)});
            }
        }
        return list;
    }();
    return spellings;
}

QList<Match> Matches(const QString& text, QRegularExpression Spelling::*pattern, qsizetype shift)
{
    QList<Match> matches;
    for (const Spelling& spelling : Spellings()) {
        const QRegularExpressionMatch match = (spelling.*pattern).match(text);
        if (match.hasMatch())
            matches.append({spelling.unit, match.capturedStart(1) + shift, match.capturedLength(1)});
    }
    return matches;
}

std::optional<Pair> BestPair(const QString& text, const QRegularExpressionMatch& to)
{
    std::optional<Pair> best;
    qsizetype bestScore = 0;
    const QList<Match> targets = Matches(text.sliced(to.capturedEnd()), &Spelling::target, to.capturedEnd());
    for (const Match& source : Matches(text.first(to.capturedStart()), &Spelling::source, 0)) {
        for (const Match& target : targets) {
            if (source.unit->family != target.unit->family || source.length + target.length <= bestScore)
                continue;
            bestScore = source.length + target.length;
            best = Pair{source, target};
        }
    }
    return best;
}

bool IsBinarySign(const QString& left)
{
    static const QRegularExpression exponent(u"(?:\\d+(?:\\.\\d*)?|\\.\\d+)[eE]$"_s);
    static const QRegularExpression operand(u"[\\w!%).]\\s*$"_s, QRegularExpression::UseUnicodePropertiesOption);
    return !exponent.match(left).hasMatch() && operand.match(left).hasMatch();
}

qsizetype ValueStart(const QString& left)
{
    static const QRegularExpression command(u"^\\s*SIMPLIFY\\b\\s*"_s, anyCase);
    int depth = 0;
    for (qsizetype i = left.size() - 1; i >= 0; --i) {
        const QChar c = left[i];
        if (c == u')')
            ++depth;
        else if (c == u'(' && depth > 0)
            --depth;
        else if (c == u'(' || (depth == 0 && u"{}<=>,"_s.contains(c)))
            return i + 1;
        else if (depth == 0 && (c == u'+' || c == u'-') && IsBinarySign(left.first(i)))
            return i + 1;
    }
    return std::max(qsizetype(0), command.match(left).capturedEnd());
}

QString Number(double value)
{
    return QString::number(value, 'g', 17);
}

QString Converted(const UnitDefinition& from, const UnitDefinition& to, const QString& value)
{
    QString base = u"(("_s + value + u") * "_s + Number(from.factor);
    base += from.offset != 0 ? QString(u" + "_s + Number(from.offset) + u')') : u")"_s;
    if (from.transformKind == UnitTransformKind::Reciprocal)
        base = u"("_s + Number(from.factor) + u" / ("_s + value + u"))"_s;
    if (to.transformKind == UnitTransformKind::Reciprocal)
        return u"("_s + Number(to.factor) + u" / ("_s + base + u"))"_s;
    QString numerator = u"("_s + base + u')';
    if (to.offset != 0)
        numerator = u"(("_s + base + u") - "_s + Number(to.offset) + u')';
    return u"("_s + numerator + u" / "_s + Number(to.factor) + u')';
}

const QRegularExpression& To()
{
    static const QRegularExpression pattern(u"\\bTO\\b"_s, anyCase);
    return pattern;
}

bool ExpandOnce(QString& text)
{
    for (const QRegularExpressionMatch& to : To().globalMatch(text)) {
        const std::optional<Pair> pair = BestPair(text, to);
        if (!pair)
            continue;
        const qsizetype start = ValueStart(text.first(pair->source.start));
        const QString value = text.sliced(start, pair->source.start - start).trimmed();
        if (value.isEmpty())
            continue;
        text.replace(start, pair->End() - start, Converted(*pair->source.unit, *pair->target.unit, value));
        return true;
    }
    return false;
}

} // namespace

QString ExpandByPatterns(QString text)
{
    static const QRegularExpression again(u"^\\s+TO\\b"_s, anyCase);
    for (const QRegularExpressionMatch& to : To().globalMatch(text)) {
        const std::optional<Pair> pair = BestPair(text, to);
        if (pair && again.match(text.sliced(pair->End())).hasMatch())
            return u"()"_s;
    }
    while (ExpandOnce(text)) {
    }
    return text;
}
