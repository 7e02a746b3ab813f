#include "core/workspace/FriendlySearch.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

qsizetype BehindSpace(const QString& text, qsizetype at)
{
    while (at < text.size() && text[at].isSpace())
        ++at;
    return at;
}

QList<FriendlySearchTerm> PadTerms(const QString& text)
{
    QList<FriendlySearchTerm> terms;
    for (qsizetype at = BehindSpace(text, 0); at < text.size(); at = BehindSpace(text, at)) {
        FriendlySearchTerm term;
        if (text[at] == u'-') {
            term.excluded = true;
            at = BehindSpace(text, at + 1);
        }
        const bool phrase = at < text.size() && text[at] == u'"';
        const qsizetype first = phrase ? at + 1 : at;
        const auto ends = [phrase](QChar character) { return phrase ? character == u'"' : character.isSpace(); };
        const auto last = std::find_if(text.cbegin() + first, text.cend(), ends);
        const qsizetype end = last - text.cbegin();
        term.text = text.sliced(first, end - first);
        at = phrase && end < text.size() ? end + 1 : end;
        if (!term.text.isEmpty())
            terms.append(std::move(term));
    }
    return terms;
}

QList<FriendlySearchTerm> LogTerms(const QString& text)
{
    static const QRegularExpression termPattern(u"(-)?(?:\"([^\"]*)\"|(\\S+))"_s);
    QList<FriendlySearchTerm> terms;
    for (const QRegularExpressionMatch& match : termPattern.globalMatch(text)) {
        const FriendlySearchTerm term{match.captured(match.hasCaptured(2) ? 2 : 3), match.hasCaptured(1)};
        if (!term.text.isEmpty())
            terms.append(term);
    }
    return terms;
}

// Whether a "[" before `next` begins the name of a class of characters.
bool BeginsClassName(QChar next)
{
    return next == u':' || next == u'.' || next == u'=';
}

// The set whose content stands between a "[" and its "]".
QString SetPattern(QStringView content)
{
    const bool others = content.startsWith(u'!');
    QString pattern = others ? u"[^"_s : u"["_s;
    for (qsizetype at = others ? 1 : 0; at < content.size(); ++at) {
        const QChar character = content[at];
        const bool names = character == u'[' && at + 1 < content.size() && BeginsClassName(content[at + 1]);
        if (character == u'\\' || character == u']' || character == u'^' || names)
            pattern += u'\\';
        pattern += character;
    }
    return pattern + u']';
}

} // namespace

QList<FriendlySearchTerm> ParseFriendlySearchTerms(const QString& text, SearchDialect dialect)
{
    return dialect == SearchDialect::Pad ? PadTerms(text) : LogTerms(text);
}

QString WildcardTermToRegularExpression(const QString& term, SearchDialect dialect)
{
    QString pattern;
    for (qsizetype at = 0; at < term.size(); ++at) {
        const QChar character = term[at];
        const qsizetype setEnd = character == u'[' ? term.indexOf(u']', at + 1) : -1;
        if (setEnd == at + 2 && term[at + 1] == u'!')
            return pattern + u"[^]"_s; // all but nothing: a "]" further on must not close it
        if (setEnd > at + 1) {
            pattern += SetPattern(QStringView(term).sliced(at + 1, setEnd - at - 1));
            at = setEnd;
        } else if (character == u'*') {
            pattern += dialect == SearchDialect::Pad ? u".*?"_s : u".*"_s;
        } else if (character == u'?') {
            pattern += u'.';
        } else if (character == u'#') {
            pattern += u"\\d"_s;
        } else if (character.isNull()) { // escaped, it would take a digit behind it for its own
            pattern += u"\\x{0}"_s;
        } else if (character.isHighSurrogate() && at + 1 < term.size()) { // half a character is not to be escaped
            pattern += QRegularExpression::escape(term.sliced(at++, 2));
        } else {
            pattern += QRegularExpression::escape(QString(character));
        }
    }
    return pattern;
}
