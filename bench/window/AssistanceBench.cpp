// The windows beside the pad: help, the log viewer, the search.
#include "BenchWindow.h"
#include "Report.h"
#include "Rooms.h"

#include "core/workspace/LogBook.h"
#include "window/workspace/LogViewer.h"
#include "window/workspace/SearchDialog.h"

#include <QAbstractButton>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 15;
constexpr int days = 1000;
constexpr int dayLines = 1800;
constexpr qsizetype logSize = 50'000'000; // bytes, at least
constexpr int searchedLines = 100'000;

// The first HELP of a window reads the articles and makes the tree.
void MeasureHelp(Report& report)
{
    std::unique_ptr<PadWindow> pad;
    const auto enter = [&] {
        Press(pad->Editor(), Qt::Key_Return);
        Settle();
    };
    const Laps first = RunInTurn({{enter,
                                   [&] {
                                       pad = std::make_unique<PadWindow>();
                                       Type(pad->Editor(), u"HELP SQRT"_s);
                                       Settle();
                                   }}},
                                 rounds)[0];
    report.AddTime(u"help window, first opening"_s, first, 0.1);
    bool other = false;
    const Laps next = RunInTurn({{enter,
                                  [&] {
                                      Type(pad->Editor(), (other = !other) ? u"HELP PMT"_s : u"HELP SQRT"_s);
                                      Settle();
                                  }}},
                                rounds)[0];
    report.AddTime(u"  another article in it"_s, next, 0);
}

QByteArray LargeLog()
{
    QByteArray log;
    log.reserve(logSize + logSize / 10);
    for (int day = 0; day < days; ++day) {
        QString pad;
        for (int i = 0; i < dayLines; ++i)
            pad += u"%1*(3+4)-%2/8 + rent\n%3\n"_s.arg(i).arg(i + 3).arg(i * 7);
        log += LogEntry(QDateTime(QDate(2020, 1, 1).addDays(day), QTime(12, 0)), pad).toUtf8();
    }
    return log;
}

void MeasureLogViewer(Report& report)
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"large.log"_s);
    QFile file(path);
    const QByteArray log = LargeLog();
    if (log.size() < logSize || !file.open(QIODevice::WriteOnly) || file.write(log) != log.size())
        qFatal("no log of that size");
    file.close();
    std::unique_ptr<LogViewer> viewer;
    const Laps open = RunInTurn({{[&] {
                                      viewer->OpenLogFile(path);
                                      Settle();
                                  },
                                  [&] { viewer = std::make_unique<LogViewer>(); }}},
                                5)[0];
    if (viewer->findChild<QListWidget*>(u"ListLogDays"_s)->count() != days)
        qFatal("the log's days are not all there");
    report.AddTime(u"log viewer on 50 MB"_s, open, 2);
}

// A word that stands in every thousandth line.
void MeasureSearch(Report& report)
{
    PadWindow pad;
    QString text;
    for (int i = 0; i < searchedLines; ++i)
        text += u"%1*(3+4)-%2/8"_s.arg(i).arg(i + 3) + (i % 1000 == 999 ? u" + rent\n"_s : u"\n"_s);
    pad.Editor().setPlainText(text);
    SearchDialog dialog(&pad.Editor(), &pad.Window());
    dialog.OpenSearch();
    dialog.findChild<QLineEdit*>(u"TextSearch"_s)->setText(u"rent"_s);
    SettleLong();
    auto* next = dialog.findChild<QAbstractButton*>(u"ButtonFindNext"_s);
    const Laps laps = RunInTurn({{[&] {
                                    next->click();
                                    Settle();
                                }}},
                                rounds)[0];
    if (pad.Editor().textCursor().selectedText() != u"rent"_s)
        qFatal("the search finds nothing");
    report.AddTime(u"search for a word in 100,000 lines"_s, laps, 0.1);
}

} // namespace

void MeasureAssistance(Report& report)
{
    MeasureHelp(report);
    MeasureLogViewer(report);
    MeasureSearch(report);
}
