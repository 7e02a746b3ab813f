// The dialog that finds text in the pad. What a search finds is the core's knowledge (PadSearch); which match comes
// next and what is said of it is told here. It shows no message boxes but its help.
#pragma once

#include "core/workspace/PadSearch.h"

#include <QDialog>
#include <QPointer>

#include <functional>
#include <memory>

class QPlainTextEdit;

namespace Ui {
class SearchDialog;
}

class SearchDialog : public QDialog {
    Q_OBJECT

public:
    SearchDialog(QPlainTextEdit* targetEditor, QWidget* parent);
    ~SearchDialog() override;

    /// Shows the dialog, with the text that is selected in the target if there is any.
    void OpenSearch();

    /// Selects the next or the previous match in the target. A dialog that is hidden stays so where a match is found,
    /// and comes up to say why none is.
    void FindNext();
    void FindPrevious();

    /// Whether something runs in the target whose answer comes where the cursor stands: no search moves it then.
    std::function<bool()> isTargetBusy = [] { return false; };

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Direction { Forward, Backward };

    void ConnectControls();
    void SearchCriteriaChanged();
    void Find(Direction direction);
    void ShowMatch(const QList<SearchMatch>& matches, int index, Direction direction);
    int IndexToShow(const QList<SearchMatch>& matches, Direction direction) const;
    int FindCurrentMatchIndex(const QList<SearchMatch>& matches) const;
    QList<SearchMatch> BuildSearchMatches(bool& ok, QString& error) const;
    QString BuildSearchSignature() const;
    QString SearchDescription() const;
    void SetFoundStatus(int index, int count, const QString& extra);
    void TellWhyNothingIsFound(const QString& status);
    void SelectMatch(const SearchMatch& match);
    void PlaceBesideWindow();
    void ShowAndRaise();
    void ShowSearchHelp();

    std::unique_ptr<Ui::SearchDialog> ui;
    QPointer<QPlainTextEdit> target;
    QString lastSignature; // of the search that the selection came from
    qsizetype lastCount = 0;
    bool criteriaChanged = true; // since that search
};
