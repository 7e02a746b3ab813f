#include "window/MainWindow.h"

#include "core/Calculator.h"
#include "core/LineAnswers.h"
#include "window/pad/LineSubmission.h"
#include "window/pad/Pad.h"
#include "window/pad/PadActivity.h"
#include "window/pad/PadCommands.h"
#include "window/workspace/CalculationLog.h"
#include "window/workspace/DataDirectory.h"
#include "window/workspace/Documents.h"
#include "window/workspace/Settings.h"
#include "window/workspace/WorkspaceSnapshot.h"

#include "ui_MainWindow.h"

#include <QActionGroup>
#include <QClipboard>
#include <QDropEvent>
#include <QFontDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMimeData>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double fontStep = 4.0;     // points
constexpr double smallestFont = 1.0; // points

CalculatorOptions CheckedOptions(const Ui::MainWindow& form)
{
    CalculatorOptions options;
    options.useWordOperators = form.actionUse_Word_Oporators->isChecked();
    options.ignoreText = form.actionIgnore_Text_When_Cannot_Solve->isChecked();
    if (form.actionOutputBaseBinary->isChecked())
        options.outputBase = 2;
    else if (form.actionOutputBaseOctal->isChecked())
        options.outputBase = 8;
    else if (form.actionOutputBaseHexadecimal->isChecked())
        options.outputBase = 16;
    return options;
}

bool BringsLineFeed(const QKeyEvent& key)
{
    return key.matches(QKeySequence::InsertParagraphSeparator);
}

} // namespace

// The calculator and the rooms of the window, in the order in which they need each other.
struct MainWindow::Rooms {
    Rooms(MainWindow& window, Ui::MainWindow& form)
        : calculator({[&form] { return CheckedOptions(form); }}), pad(form.Text1),
          commands(window, form, calculator, pad), submission(calculator, pad, *form.Label1, commands),
          snapshot(form, calculator, &window), undo(UndoSurroundingsOf(window, form)),
          documents(window, *form.Text1, *form.Label1, *form.actionSave_Document, undo)
    {
    }

    UndoSurroundings UndoSurroundingsOf(MainWindow& window, Ui::MainWindow& form)
    {
        return {[this] { return snapshot.CaptureUndoState(); },
                [this, &window](const UndoState& state) {
                    snapshot.RestoreUndoState(state);
                    window.enterPosition = noEnter;
                },
                [this] { return activity.IsBusy(); },
                [this, &form] {
                    form.actionUndo->setEnabled(undo.CanUndo());
                    form.actionRedo->setEnabled(undo.CanRedo());
                }};
    }

    PadActivity activity;
    Calculator calculator;
    Pad pad;
    PadCommands commands;
    LineSubmission submission;
    WorkspaceSnapshot snapshot;
    UndoHistory undo;
    Documents documents;
};

// A static library's resources are linked only where somebody asks for them, from outside any namespace.
static void LinkResources()
{
    Q_INIT_RESOURCE(Quellbrook);
}

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), ui(std::make_unique<Ui::MainWindow>())
{
    uptimeClock.start();
    LinkResources();
    ui->setupUi(this);
    rooms = std::make_unique<Rooms>(*this, *ui);
    setAcceptDrops(true);
    ui->Text1->setAcceptDrops(false);
    ui->Text1->viewport()->setAcceptDrops(false);
    setWindowIcon(QIcon(u":/Quellbrook.ico"_s));
    ui->Text1->installEventFilter(this);
    ui->Text1->viewport()->installEventFilter(this);
    PrepareDataDirectory();
    LoadSettings();
    InitializeMenus();
    rooms->documents.UpdateDocumentWindowTitle();
}

MainWindow::~MainWindow() = default;

// Wired after the settings are read, so that reading them sets the check marks and runs nothing.
void MainWindow::InitializeMenus()
{
    auto* bases = new QActionGroup(this);
    for (QAction* base : {ui->actionOutputBaseDecimal, ui->actionOutputBaseBinary, ui->actionOutputBaseOctal,
                          ui->actionOutputBaseHexadecimal})
        bases->addAction(base);
    connect(bases, &QActionGroup::triggered, this,
            [this](const QAction* base) { ui->Label1->setText(u"Output Base = "_s + base->text()); });
    ui->actionUndo->setShortcuts(QKeySequence::Undo);
    ui->actionRedo->setShortcuts(QKeySequence::Redo);
    connect(ui->actionUndo, &QAction::triggered, this, [this] { rooms->undo.UndoPadState(); });
    connect(ui->actionRedo, &QAction::triggered, this, [this] { rooms->undo.RedoPadState(); });
    connect(ui->actionUse_Word_Oporators, &QAction::triggered, this,
            [this](bool on) { rooms->undo.UpdateUndoHistoryWordOperators(on); });
    connect(ui->actionIgnore_Text_When_Cannot_Solve, &QAction::triggered, this,
            [this](bool on) { rooms->undo.UpdateUndoHistoryIgnoreText(on); });
    connect(ui->actionAlwaysOnTop, &QAction::triggered, this, [this](bool on) {
        on ? on_actionSet_As_Top_Most_TopMost_triggered() : on_actionSet_As_Not_Top_Most_Not_TopMost_triggered();
    });
    connect(ui->menuOptions, &QMenu::aboutToShow, this,
            [this] { ui->actionAlwaysOnTop->setChecked(windowFlags().testFlag(Qt::WindowStaysOnTopHint)); });
    connect(ui->menuEdit, &QMenu::aboutToShow, this,
            [this] { ui->actionCopyWithoutFormatting->setEnabled(ui->Text1->textCursor().hasSelection()); });
    connect(ui->actionAbout, &QAction::triggered, this, [this] {
        QMessageBox::about(this, u"About Quellbrook"_s,
                           u"Quellbrook\n\nA calculator pad with variables, equation solving, symbolic tools, and "
                           "typed commands."_s);
    });
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui->Text1 && event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (TakeUndoKey(key, rooms->undo))
            return true;
        const bool enter = BringsLineFeed(key);
        enterPosition = enter ? ui->Text1->textCursor().selectionStart() + 1 : noEnter;
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    WriteLog();
    QMainWindow::closeEvent(event);
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
    if (ClearLabelOfEmptyPad())
        return;
    const bool entered = TakeEnter();
    const int position = rooms->pad.CursorPosition();
    if (rooms->submission.HandleEquationBlockState(position) || rooms->pad.ContinuePreviousAnswer(position))
        return;
    if (entered)
        rooms->submission.SubmitEnteredLine();
    else
        UpdatePreviewAt(position);
}

// A cursor that an edit has moved is left to the text change that follows: it knows whether an operator jumps or Enter
// was pressed.
void MainWindow::on_Text1_cursorPositionChanged()
{
    if (rooms->pad.IsChanging() || ClearLabelOfEmptyPad())
        return;
    const int position = rooms->pad.CursorPosition();
    if (!rooms->submission.HandleEquationBlockState(position))
        UpdatePreviewAt(position);
}

bool MainWindow::ClearLabelOfEmptyPad()
{
    if (!rooms->pad.Text().IsEmpty())
        return false;
    ui->Label1->clear();
    return true;
}

// Whether this change of the text is the one that an Enter key has brought.
bool MainWindow::TakeEnter()
{
    const int position = rooms->pad.CursorPosition();
    if (enterPosition != position || rooms->pad.Text().CharacterAt(position - 1) != u'\n')
        return false;
    enterPosition = noEnter;
    return true;
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
    ui->Text1->setCurrentCharFormat(QTextCharFormat()); // the empty pad takes on the weight at the cursor
    ui->Text1->clear();
    ui->Label1->clear();
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
    ShowLog();
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
