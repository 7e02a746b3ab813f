// Search terms, and the same text as a regular expression. In both dialects a term without wildcards finds itself; a
// text that is searched in pieces has the matches of the whole.
#include "core/workspace/FriendlySearch.h"
#include "core/workspace/LogSearch.h"
#include "fuzz/Harness.h"

namespace {

void FindItself(const QString& text, SearchDialect dialect)
{
    static const QRegularExpression wildcard("[*?#[]");
    for (const FriendlySearchTerm& term : ParseFriendlySearchTerms(text, dialect)) {
        Require(!term.text.isEmpty() && text.contains(term.text), "a term stands in the search", text);
        const QRegularExpression expression(WildcardTermToRegularExpression(term.text, dialect));
        if (term.text.contains(wildcard))
            continue;
        Require(expression.isValid(), "a plain term is a valid expression", term.text);
        Require(expression.match(text).hasMatch(), "a plain term finds itself", term.text);
    }
}

void SearchInPieces(const QString& text)
{
    const QRegularExpression expression = SearchExpression(text, Qt::CaseInsensitive);
    const QString searched = QString(20'000, 'a') + '\n' + text + QString(2'000, '\n');
    const QRegularExpressionMatch whole = expression.match(searched);
    if (!whole.isValid())
        return;
    const SearchResult pieces = PatternSearch(expression, searched).Continue(QDeadlineTimer(QDeadlineTimer::Forever));
    Require(pieces == SearchResult::Failed || (pieces == SearchResult::Found) == whole.hasMatch(),
            "pieces have the matches of the whole", text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    const QString text = TextOf(data, size);
    if (!text.isValidUtf16()) // no pad and no log holds such a text
        return 0;
    FindItself(text, SearchDialect::Pad);
    FindItself(text, SearchDialect::Log);
    SearchInPieces(text);
    QList<SearchTerm> terms;
    QString error;
    if (BuildFriendlySearchTerms(text, Qt::CaseSensitive, terms, error))
        LogSearch({{QDate(2026, 11, 15), text}}, terms).Continue(QDeadlineTimer(QDeadlineTimer::Forever));
    return 0;
}
