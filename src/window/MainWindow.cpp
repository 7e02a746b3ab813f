#include "window/MainWindow.h"

#include "core/LineAnswers.h"
#include "core/release/ReleaseProduct.h"
#include "window/Rooms.h"
#include "window/workspace/CalculationLog.h"
#include "window/workspace/DataDirectory.h"
#include "window/workspace/RecoveryCopy.h"
#include "window/workspace/Settings.h"

#include "ui_MainWindow.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFontDialog>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double fontStep = 4.0;     // points
constexpr double smallestFont = 1.0; // points

bool BringsLineFeed(const QKeyEvent& key)
{
    return key.matches(QKeySequence::InsertParagraphSeparator);
}

// An input method that has nothing to say, as when the focus leaves the pad: the editor would tell of a change of the
// text all the same.
bool SaysNothing(const QInputMethodEvent& event, const QTextCursor& cursor)
{
    return event.commitString().isEmpty() && event.preeditString().isEmpty() && event.replacementLength() == 0 &&
           event.attributes().isEmpty() && cursor.block().layout()->preeditAreaText().isEmpty();
}

} // namespace

// A static library's resources are linked only where somebody asks for them, from outside any namespace.
static void LinkResources()
{
    Q_INIT_RESOURCE(Quellbrook);
}

MainWindow::MainWindow(QWidget* parent) : MainWindow(ReleaseDesk::ReleaseUrl(), parent) {}

MainWindow::MainWindow(const QUrl& releaseUrl, QWidget* parent)
    : QMainWindow(parent), ui(std::make_unique<Ui::MainWindow>())
{
    uptimeClock.start();
    LinkResources();
    ui->setupUi(this);
    ui->Text1->installEventFilter(this);
    ui->Text1->viewport()->installEventFilter(this);
    rooms = std::make_unique<Rooms>(*this, *ui, uptimeClock); // whose filters come before the window's
    setAcceptDrops(true);
    ui->Text1->setAcceptDrops(false);
    ui->Text1->viewport()->setAcceptDrops(false);
    PrepareDataDirectory();
    LogAbandonedPads();
    LoadSettings();
    rooms->menus.InitializeMenus(); // after the settings, so that their check marks run nothing
    ReleaseDesk::Initialize(ReleaseDesk::quellbrookProductId.toString(), ReleaseDesk::quellbrookProductName.toString(),
                            ReleaseDesk::BuiltVersion());
    rooms->releaseNotice.StartCheck(releaseUrl);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &MainWindow::CommitPad);
    rooms->documents.UpdateDocumentWindowTitle();
}

MainWindow::~MainWindow() = default;

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ContextMenu &&
        rooms->menus.ShowContextMenu(watched, *static_cast<QContextMenuEvent*>(event)))
        return true;
    if (watched == ui->Text1 && event->type() == QEvent::InputMethod) {
        const auto& input = *static_cast<QInputMethodEvent*>(event);
        if (!input.commitString().isEmpty() || input.replacementLength() > 0)
            TakeUndoInsertion(rooms->undo);
        return SaysNothing(input, ui->Text1->textCursor());
    }
    if (watched == ui->Text1 && event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (TakeUndoKey(key, rooms->undo))
            return true;
        const bool enter = BringsLineFeed(key);
        enterPosition = enter ? ui->Text1->textCursor().selectionStart() + 1 : noEnter;
    }
    return QMainWindow::eventFilter(watched, event);
}

bool MainWindow::focusNextPrevChild(bool next)
{
    if (!ui->Text1->hasFocus() || !rooms->predictiveText.IsShown())
        return QMainWindow::focusNextPrevChild(next);
    rooms->predictiveText.AcceptCurrent();
    return true;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (committedRevision != ui->Text1->document()->revision())
        LogFinalPad();
    rooms->activity.equationSolveCancelRequested = true; // a search that runs must not outlive the window
    QMainWindow::closeEvent(event);
}

// The session is about to end. It may yet go on, or close the window with the same pad; that is one entry.
void MainWindow::CommitPad()
{
    LogFinalPad();
    committedRevision = ui->Text1->document()->revision();
}

// Only a pad that the full disk has kept out of the log stays in its copy; where there is no log, none is wanted.
void MainWindow::LogFinalPad()
{
    if (AppendToCalculationLog(ui->Text1->toPlainText()).outcome == LogAppend::Incomplete)
        rooms->recovery.Complete();
    else
        rooms->recovery.Discard();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (Documents::DroppedFile(event->mimeData()).isEmpty())
        event->ignore();
    else
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const QString path = Documents::DroppedFile(event->mimeData());
    if (path.isEmpty()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    rooms->documents.TakeDroppedFile(path);
}

void MainWindow::on_Text1_textChanged()
{
    if (rooms->activity.equationSolveActive) {
        rooms->activity.equationSolveCancelRequested = true;
        enterDue = enterDue || TakeEnter();
        return;
    }
    const bool entered = TakeEnter();
    if (ClearLabelOfEmptyPad())
        return;
    const int position = rooms->pad.CursorPosition();
    if (!rooms->submission.HandleEquationBlockState(position) && !rooms->pad.ContinuePreviousAnswer(position)) {
        if (entered)
            SubmitEnteredLine();
        else
            UpdatePreviewAt(position);
    }
    rooms->UpdatePredictiveText();
}

// A submission may search for long, and what was said of the line would stand there all the while.
void MainWindow::SubmitEnteredLine()
{
    rooms->HidePredictiveText();
    rooms->submission.SubmitEnteredLine();
}

// A cursor that an edit has moved is left to the text change that follows: it knows whether an operator jumps or Enter
// was pressed.
void MainWindow::on_Text1_cursorPositionChanged()
{
    if (rooms->activity.equationSolveActive || rooms->pad.IsChanging() || ClearLabelOfEmptyPad())
        return;
    const int position = rooms->pad.CursorPosition();
    if (!rooms->submission.HandleEquationBlockState(position))
        UpdatePreviewAt(position);
    rooms->UpdatePredictiveText();
}

bool MainWindow::ClearLabelOfEmptyPad()
{
    if (!rooms->pad.Text().IsEmpty())
        return false;
    ui->Label1->clear();
    rooms->HidePredictiveText();
    return true;
}

// Whether this change of the text is the one that an Enter key has brought.
bool MainWindow::TakeEnter()
{
    if (std::exchange(enterDue, false))
        return true;
    const int position = rooms->pad.CursorPosition();
    if (enterPosition != position || rooms->pad.Text().CharacterAt(position - 1) != u'\n')
        return false;
    enterPosition = noEnter;
    return true;
}

void MainWindow::EnterAt(int position)
{
    QTextCursor cursor = ui->Text1->textCursor();
    cursor.setPosition(position);
    ui->Text1->setTextCursor(cursor);
    enterPosition = position + 1;
    ui->Text1->insertPlainText(u"\n"_s);
}

void MainWindow::UpdatePreviewAt(int position)
{
    ui->Label1->setText(PreviewText(rooms->calculator, rooms->pad.Text().LineAt(position)));
}

void MainWindow::on_actionExit_triggered()
{
    close();
}

void MainWindow::ChangeFontSize(double points)
{
    QFont font = ui->Text1->font();
    font.setPointSizeF(std::max(smallestFont, font.pointSizeF() + points));
    ui->Text1->setFont(font);
}

void MainWindow::on_actionLarger_triggered()
{
    ChangeFontSize(fontStep);
}

void MainWindow::on_actionSmaller_triggered()
{
    ChangeFontSize(-fontStep);
}

void MainWindow::on_actionSet_As_Top_Most_TopMost_triggered()
{
    ApplyTopMostState(*this, true);
    ui->Label1->setText(u"Topmost set"_s);
}

void MainWindow::on_actionSet_As_Not_Top_Most_Not_TopMost_triggered()
{
    ApplyTopMostState(*this, false);
    ui->Label1->setText(u"Topmost cleared"_s);
}

void MainWindow::SetNumberFormat(const QString& pattern, const QString& status)
{
    rooms->calculator.values.formatPattern = pattern;
    rooms->undo.UpdateUndoHistoryValueFormat(pattern);
    ui->Label1->setText(status);
}

void MainWindow::on_actionMoney_0_00_triggered()
{
    SetNumberFormat(u"$#,###,##0.00"_s, u"Format set to '$#,###,##0.00'"_s);
}

void MainWindow::on_actionLarge_Numbers_0_triggered()
{
    SetNumberFormat(u"#,###,##0."_s, u"Format set to '#,###,##0.'"_s);
}

void MainWindow::on_actionClear_triggered()
{
    SetNumberFormat(QString(), u"Format Cleared"_s);
}

void MainWindow::on_actionClear_Pad_triggered()
{
    rooms->undo.SaveUndoState();
    rooms->undo.CloseUndoEditTransaction();
    if (ui->actionSave_Log_On_Clear->isChecked())
        WriteLog();
    rooms->calculator.values.variables.clear();
    MoveToStartInNormalWeight(*ui->Text1);
    ui->Text1->clear();
    ui->Label1->clear();
    rooms->menus.RefreshMenus();
}

void MainWindow::WriteLog()
{
    AppendToCalculationLog(ui->Text1->toPlainText());
}

void MainWindow::ShowLog()
{
    OpenCalculationLog();
}

void MainWindow::on_actionShow_Log_triggered()
{
    ShowLog();
}

void MainWindow::on_actionLog_Viewer_triggered()
{
    rooms->menus.ShowLogViewer();
}

void MainWindow::on_actionSave_Settings_triggered()
{
    SaveSettings();
}

void MainWindow::SaveSettings()
{
    SaveWorkspaceSettings(*this, *ui, rooms->calculator);
    ui->Label1->setText(u"Settings Saved"_s);
}

void MainWindow::LoadSettings()
{
    LoadWorkspaceSettings(*this, *ui, rooms->calculator);
}

void MainWindow::on_actionFont_triggered()
{
    bool ok = false;
    const QFont font = QFontDialog::getFont(&ok, ui->Text1->font(), this, u"Quellbrook Font"_s);
    if (!ok)
        return;
    ui->Text1->setFont(font);
    ui->Label1->setText(u"Font changed"_s);
}

void MainWindow::on_actionCopyWithoutFormatting_triggered()
{
    const QTextCursor cursor = ui->Text1->textCursor();
    if (!cursor.hasSelection())
        return;
    QString text = cursor.selectedText();
    text.replace(QChar(QChar::ParagraphSeparator), u'\n').replace(QChar(QChar::LineSeparator), u'\n');
    QGuiApplication::clipboard()->setText(text);
}

void MainWindow::on_actionNew_Document_triggered()
{
    rooms->documents.NewDocument();
}

void MainWindow::on_actionOpen_Document_triggered()
{
    rooms->documents.OpenDocument();
}

void MainWindow::on_actionSave_Document_triggered()
{
    rooms->documents.SaveDocument();
}

void MainWindow::on_actionSave_Document_As_triggered()
{
    rooms->documents.SaveDocumentAs();
}

void MainWindow::on_actionInsert_Document_At_Cursor_triggered()
{
    rooms->documents.InsertDocument();
}
