#include "window/workspace/LogViewer.h"

#include "window/workspace/LogPreview.h"

#include "ui_LogViewer.h"

#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestLog = 1 << 30; // bytes

// Milliseconds.
constexpr int firstSlice = 250; // nearly all searches end in it, and then the list follows the key at once
constexpr int slice = 30;
constexpr int longestSearch = 10000;

QString RowText(const QDate& date)
{
    return date.toString(u"dddd, MMMM d, yyyy"_s);
}

} // namespace

LogViewer::LogViewer(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::LogViewer>())
{
    ui->setupUi(this);
    ui->SplitterLog->setStretchFactor(1, 1);
    Connect();
}

LogViewer::~LogViewer() = default;

void LogViewer::Connect()
{
    const auto rebuild = [this] { RebuildDayList(true); };
    connect(ui->TextSearch, &QLineEdit::textChanged, this, rebuild);
    for (QCheckBox* box : {ui->CheckCaseSensitive, ui->CheckRegularExpression, ui->CheckReverseSearch})
        connect(box, &QCheckBox::toggled, this, rebuild);
    connect(&searchSlices, &QTimer::timeout, this, [this] { ContinueSearch(slice); });
    connect(ui->ListLogDays, &QListWidget::currentRowChanged, this, &LogViewer::LoadSelectedDay);
    connect(ui->ButtonClearSearch, &QPushButton::clicked, ui->TextSearch, &QLineEdit::clear);
    connect(ui->ButtonFindNext, &QPushButton::clicked, this, [this] { MoveToMatchingDay(1); });
    connect(ui->ButtonFindPrevious, &QPushButton::clicked, this, [this] { MoveToMatchingDay(-1); });
    connect(ui->ButtonCopyPreview, &QPushButton::clicked, this, &LogViewer::CopyPreview);
    connect(ui->ButtonSearchHelp, &QPushButton::clicked, this, &LogViewer::ShowSearchHelp);
    connect(ui->ButtonClose, &QPushButton::clicked, this, &QWidget::close);
}

void LogViewer::OpenLogFile(const QString& path)
{
    logPath = path;
    ReadLogFile();
    RebuildDayList(false);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void LogViewer::ReadLogFile()
{
    searchSlices.stop();
    search.reset();
    days.clear();
    matchingDays.clear();
    ShowRows({}, -1);
    LoadSelectedDay();
    const QFileInfo info(logPath);
    isUnreadable = info.exists() && (!info.isFile() || info.size() > largestLog); // a pipe would make us wait
    if (isUnreadable || !info.exists())
        return;
    QFile file(logPath);
    isUnreadable = !file.open(QIODevice::ReadOnly | QIODevice::Text);
    if (!isUnreadable)
        days = ReadLogDays(file.readAll());
}

void LogViewer::RebuildDayList(bool keepSelection)
{
    const LogDay* selected = SelectedDay();
    wantedDay =
        keepSelection && selected && ui->RadioStartCursor->isChecked() ? BuildDateKey(selected->date) : QString();
    searchSlices.stop();
    QString error;
    if (!BuildSearchTerms(error)) {
        ShowSearchError(error);
        return;
    }
    search.emplace(days, terms);
    searchEnd.setRemainingTime(longestSearch);
    ContinueSearch(firstSlice);
}

bool LogViewer::BuildSearchTerms(QString& error)
{
    const QString text = ui->TextSearch->text();
    const Qt::CaseSensitivity caseSensitivity =
        ui->CheckCaseSensitive->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
    if (text.isEmpty() || !ui->CheckRegularExpression->isChecked())
        return BuildFriendlySearchTerms(text, caseSensitivity, terms, error);
    const QRegularExpression expression = SearchExpression(text, caseSensitivity);
    terms = {{false, expression}};
    error = expression.errorString();
    return expression.isValid();
}

void LogViewer::ContinueSearch(int milliseconds)
{
    const SearchResult result = search->Continue(QDeadlineTimer(milliseconds));
    if (result == SearchResult::Unfinished && !searchEnd.hasExpired()) {
        searchSlices.start();
        UpdateStatus();
        return;
    }
    searchSlices.stop();
    if (result == SearchResult::Found || result == SearchResult::Absent)
        ShowMatchingDays();
    else
        ShowSearchError(u"the search is too complex"_s);
}

void LogViewer::ShowMatchingDays()
{
    matchingDays = search->MatchingDays();
    if (ui->CheckReverseSearch->isChecked())
        std::reverse(matchingDays.begin(), matchingDays.end());
    QStringList rows;
    int current = 0;
    for (const qsizetype index : matchingDays) {
        const QDate date = days[index].date;
        if (BuildDateKey(date) == wantedDay)
            current = static_cast<int>(rows.size());
        rows.append(RowText(date));
    }
    ShowRows(rows, current);
    LoadSelectedDay();
}

void LogViewer::ShowSearchError(const QString& error)
{
    terms.clear();
    matchingDays.clear();
    ShowRows({}, -1);
    LoadSelectedDay();
    const bool regular = ui->CheckRegularExpression->isChecked();
    ui->LabelLogStatus->setText((regular ? u"Regular expression error: "_s : u"Search error: "_s) + error);
}

void LogViewer::ShowRows(const QStringList& rows, int current)
{
    const QSignalBlocker blocker(ui->ListLogDays); // a row's text is loaded once, when all rows stand
    ui->ListLogDays->clear();
    ui->ListLogDays->addItems(rows);
    ui->ListLogDays->setCurrentRow(current);
}

void LogViewer::LoadSelectedDay()
{
    const LogDay* day = SelectedDay();
    const QString key = day ? BuildDateKey(day->date) : QString();
    if (key.isEmpty() || key != shownDay)
        ui->TextLogPreview->ShowText(day ? day->text : QString());
    shownDay = key;
    ui->ButtonCopyPreview->setEnabled(day);
    HighlightSearchMatches();
    UpdateStatus();
}

void LogViewer::HighlightSearchMatches()
{
    QList<QRegularExpression> expressions;
    for (const SearchTerm& term : terms) {
        if (!term.excluded)
            expressions.append(term.expression);
    }
    ui->TextLogPreview->Highlight(expressions);
}

void LogViewer::MoveToMatchingDay(int step)
{
    const int current = ui->ListLogDays->currentRow();
    const int row = current < 0 ? 0 : current + step;
    if (row >= 0 && row < ui->ListLogDays->count())
        ui->ListLogDays->setCurrentRow(row);
    else
        ui->LabelLogStatus->setText(step > 0 ? u"End of matching log days"_s : u"Beginning of matching log days"_s);
}

void LogViewer::UpdateStatus()
{
    ui->LabelLogStatus->setText(Status());
}

QString LogViewer::Status() const
{
    if (isUnreadable)
        return u"Could not open the calculator log"_s;
    if (days.isEmpty())
        return u"No saved calculator sessions were found"_s;
    if (searchSlices.isActive())
        return u"Searching…"_s;
    if (ui->TextSearch->text().isEmpty())
        return u"Ready"_s;
    if (matchingDays.isEmpty())
        return u"No log days match the search"_s;
    const QString count = QString::number(matchingDays.size());
    const LogDay* day = SelectedDay();
    if (!day)
        return count + u" log day(s) match"_s;
    return count + u" of "_s + QString::number(days.size()) + u" log day(s) match — "_s + RowText(day->date) +
           u" selected"_s;
}

void LogViewer::CopyPreview()
{
    QGuiApplication::clipboard()->setText(ui->TextLogPreview->Text());
    ui->LabelLogStatus->setText(u"Preview copied to the clipboard"_s);
}

void LogViewer::ShowSearchHelp()
{
    QMessageBox box(QMessageBox::Information, u"Log Viewer Search Help"_s,
                    u"Searches are evaluated against each complete day of saved calculator sessions.\n\n"
                    "Words are AND conditions:  MORTGAGE PAYMENT\n"
                    "Excluded words use a minus:  MORTGAGE -CAR\n"
                    "Quoted text keeps a phrase together:  \"MORTGAGE PAYMENT\"\n"
                    "Wildcards: * = any text, ? = one character, # = one digit.\n\n"
                    "Regular Expression uses the search text directly."_s,
                    QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

// Null where no row is selected.
const LogDay* LogViewer::SelectedDay() const
{
    const int row = ui->ListLogDays->currentRow();
    return row >= 0 && row < matchingDays.size() ? &days[matchingDays[row]] : nullptr;
}

QString LogViewer::BuildDateKey(const QDate& date) const
{
    return date.toString(Qt::ISODate);
}
