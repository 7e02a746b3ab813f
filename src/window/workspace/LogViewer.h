// The calculation log by day: a list of days, the selected day's text, a search over whole days. It only reads the log.
//
// The log's format and the search stand in core/workspace; a search that takes long goes on in slices while the window
// takes keys, and the next change ends it.
#pragma once

#include "core/workspace/LogSearch.h"

#include <QDialog>
#include <QTimer>

#include <memory>
#include <optional>

namespace Ui {
class LogViewer;
}

class LogViewer : public QDialog {
    Q_OBJECT

public:
    explicit LogViewer(QWidget* parent = nullptr);
    ~LogViewer() override;

    /// Reads the log and shows the window. The log is not watched: the days are those of now.
    void OpenLogFile(const QString& path);

private:
    void Connect();
    void ReadLogFile();
    void RebuildDayList(bool keepSelection);
    bool BuildSearchTerms(QString& error);
    void ContinueSearch(int milliseconds);
    void ShowMatchingDays();
    void ShowSearchError(const QString& error);
    void ShowRows(const QStringList& rows, int current);
    void LoadSelectedDay();
    void HighlightSearchMatches();
    void MoveToMatchingDay(int step);
    void UpdateStatus();
    QString Status() const;
    void CopyPreview();
    void ShowSearchHelp();
    const LogDay* SelectedDay() const;
    QString BuildDateKey(const QDate& date) const;

    std::unique_ptr<Ui::LogViewer> ui;
    QString logPath;
    bool isUnreadable = false;
    QList<LogDay> days;            // the newest first
    QList<qsizetype> matchingDays; // the days of the rows
    QString shownDay;              // key of the day in the preview; empty: none

    QList<SearchTerm> terms; // empty where all days match
    std::optional<LogSearch> search;
    QTimer searchSlices; // runs while the search does
    QDeadlineTimer searchEnd;
    QString wantedDay; // key of the day that is to stay selected; empty: the first row's
};
