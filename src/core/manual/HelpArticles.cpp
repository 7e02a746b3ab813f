#include "core/manual/HelpArticles.h"

#include <QFile>
#include <QHash>

#include <array>

using namespace Qt::StringLiterals;

// Outside any namespace, as the macro demands.
static void InitializeManualResource()
{
    Q_INIT_RESOURCE(manual);
}

namespace {

constexpr std::array<QStringView, 6> sectionHeadings = {u"Description", u"Syntax",  u"Arguments",
                                                        u"Examples",    u"Purpose", u"How It Works"};

// Where the next line of `text` begins that starts with `# `, its end where there is none.
qsizetype NextArticle(QStringView text, qsizetype from)
{
    const auto found = text.indexOf(u"\n# ", from);
    return found < 0 ? text.size() : found + 1;
}

// Joins each line that begins with a blank to the line above.
QStringList JoinContinuedLines(QStringView text)
{
    QStringList lines;
    for (const QStringView line : text.split(u'\n')) {
        if (line.startsWith(u' ') && !lines.isEmpty())
            lines.last() += u' ' + line.trimmed();
        else
            lines.append(line.trimmed().toString());
    }
    return lines;
}

// Without empty lines in front and white space behind; the first line keeps its indent.
QStringView WithoutBlankEnds(QStringView text)
{
    while (text.startsWith(u'\n'))
        text = text.sliced(1);
    while (!text.isEmpty() && text.back().isSpace())
        text.chop(1);
    return text;
}

QHash<QString, QString> ReadHead(QStringView text)
{
    QHash<QString, QString> head;
    for (const QString& line : JoinContinuedLines(text)) {
        const auto colon = line.indexOf(u':');
        if (colon > 0)
            head.insert(line.first(colon), line.sliced(colon + 1).trimmed());
    }
    return head;
}

QStringList SplitAliases(const QString& text)
{
    QStringList aliases;
    for (const QString& alias : text.split(u',', Qt::SkipEmptyParts))
        aliases.append(alias.trimmed());
    return aliases;
}

std::array<QString, sectionHeadings.size()> ReadSections(QStringView body)
{
    std::array<QStringList, sectionHeadings.size()> sections;
    size_t current = 0;
    for (const QString& line : JoinContinuedLines(body)) {
        const auto heading = std::find_if(sectionHeadings.begin(), sectionHeadings.end(), [&](QStringView name) {
            return line.size() == name.size() + 1 && line.startsWith(name) && line.endsWith(u':');
        });
        if (heading != sectionHeadings.end())
            current = static_cast<size_t>(heading - sectionHeadings.begin());
        else
            sections[current].append(line);
    }
    std::array<QString, sectionHeadings.size()> texts;
    std::transform(sections.begin(), sections.end(), texts.begin(),
                   [](const QStringList& lines) { return lines.join(u'\n').trimmed(); });
    return texts;
}

void ReadArticle(QStringView text, QList<HelpEntry>& entries)
{
    const auto titleEnd = text.indexOf(u'\n');
    const auto headEnd = text.indexOf(u"\n\n");
    if (titleEnd < 0 || headEnd < titleEnd)
        return;
    const QString title = text.sliced(2, titleEnd - 2).trimmed().toString();
    const QHash<QString, QString> head = ReadHead(text.sliced(titleEnd, headEnd - titleEnd));
    const QStringList aliases = SplitAliases(head.value(u"aliases"_s));
    const QString category = head.value(u"category"_s);
    const QString body = WithoutBlankEnds(text.sliced(headEnd)).toString();
    if (body.startsWith(u"Description:\n")) {
        const auto [description, syntax, arguments, examples, purpose, howItWorks] = ReadSections(body);
        AddStandardFunctionHelpEntry(entries, title, aliases, category, description, syntax, arguments, examples,
                                     purpose, howItWorks);
    } else {
        AddHelpEntry(entries, title, aliases, category, head.value(u"summary"_s), title + u"\n\n"_s + body);
    }
}

QList<HelpEntry> ReadManual()
{
    QList<HelpEntry> entries;
    for (const QString& name : ManualFile(u"contents.txt"_s).split(u'\n', Qt::SkipEmptyParts))
        ReadHelpArticles(ManualFile(name.trimmed()), entries);
    return entries;
}

} // namespace

void AddHelpEntry(QList<HelpEntry>& entries, const QString& title, const QStringList& aliases, const QString& category,
                  const QString& summary, const QString& details)
{
    entries.append({title, aliases, category, summary, details});
}

void AddStandardFunctionHelpEntry(QList<HelpEntry>& entries, const QString& title, const QStringList& aliases,
                                  const QString& category, const QString& description, const QString& syntax,
                                  const QString& arguments, const QString& examples, const QString& purpose,
                                  const QString& howItWorks)
{
    const std::array sections = {&description, &syntax, &arguments, &examples, &purpose, &howItWorks};
    QString details = title;
    for (size_t i = 0; i < sections.size(); ++i)
        details += u"\n\n"_s + sectionHeadings[i] + u":\n"_s + *sections[i];
    AddHelpEntry(entries, title, aliases, category, description, details);
}

void ReadHelpArticles(const QString& text, QList<HelpEntry>& entries)
{
    const QStringView view(text);
    for (qsizetype start = view.startsWith(u"# ") ? 0 : NextArticle(view, 0); start < view.size();) {
        const qsizetype end = NextArticle(view, start);
        ReadArticle(view.sliced(start, end - start), entries);
        start = end;
    }
}

void BuildGeneralHelpEntries(QList<HelpEntry>& entries)
{
    static const QList<HelpEntry> manual = ReadManual();
    entries.append(manual);
}

QString ManualFile(const QString& name)
{
    InitializeManualResource();
    QFile file(u":/manual/"_s + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}
