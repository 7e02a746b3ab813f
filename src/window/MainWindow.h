// The one window: the form, the calculator behind it, start and end, and the slots that its actions and the pad call.
//
// A slot translates and does not decide. What a line means stands in pad/LineSubmission and the core; documents, log
// and settings stand in workspace/.
#pragma once

#include <QElapsedTimer>
#include <QMainWindow>

#include <memory>

class QUrl;
struct Rooms;
namespace Ui {
class MainWindow;
}

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);

    /// @param releaseUrl  where the newest release is described, in place of the build's own address
    explicit MainWindow(const QUrl& releaseUrl, QWidget* parent = nullptr);
    ~MainWindow() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Presses Enter at a position of the pad: the line there is submitted.
    void EnterAt(int position);

    /// A change of the pad that is still to come is not the one of an Enter key.
    void ForgetEnter() { enterPosition = noEnter; }

protected:
    bool focusNextPrevChild(bool next) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

public slots:
    void on_actionExit_triggered();
    void on_Text1_textChanged();
    void on_Text1_cursorPositionChanged();
    void on_actionLarger_triggered();
    void on_actionSmaller_triggered();
    void on_actionSet_As_Top_Most_TopMost_triggered();
    void on_actionSet_As_Not_Top_Most_Not_TopMost_triggered();
    void on_actionMoney_0_00_triggered();
    void on_actionLarge_Numbers_0_triggered();
    void on_actionClear_triggered();
    void on_actionClear_Pad_triggered();
    void WriteLog();
    void ShowLog();
    void on_actionShow_Log_triggered();
    void on_actionLog_Viewer_triggered();
    void on_actionSave_Settings_triggered();
    void SaveSettings();
    void LoadSettings();
    void on_actionFont_triggered();
    void on_actionCopyWithoutFormatting_triggered();
    void on_actionNew_Document_triggered();
    void on_actionOpen_Document_triggered();
    void on_actionSave_Document_triggered();
    void on_actionSave_Document_As_triggered();
    void on_actionInsert_Document_At_Cursor_triggered();

private:
    void CommitPad();
    void LogFinalPad();
    void UpdatePreviewAt(int position);
    void SubmitEnteredLine();
    bool TakeEnter();
    bool ClearLabelOfEmptyPad();
    void ChangeFontSize(double points);
    void SetNumberFormat(const QString& pattern, const QString& status);

    std::unique_ptr<Ui::MainWindow> ui;
    std::unique_ptr<Rooms> rooms;
    QElapsedTimer uptimeClock;

    // An Enter key has been let through to the editor, and its line feed is awaited: where the cursor will stand then.
    // The editor tells of changes of its own before it, and those must not be taken for it.
    static constexpr int noEnter = -1;
    int enterPosition = noEnter;

    // Its line feed came during a search, which it stopped: the next change of the text goes the way of that Enter.
    bool enterDue = false;
    static constexpr int notCommitted = -1;
    int committedRevision = notCommitted; // of the pad's text that the end of the session has put into the log
};
