#include "window/workspace/SearchDialog.h"

#include "window/pad/PadActivity.h"

#include "ui_SearchDialog.h"

#include <QKeyEvent>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The document's text, each unit at its position. A break within a line is shown as one and read as a blank.
QString SearchedText(const QTextDocument& document)
{
    QString text = document.toRawText();
    for (QChar& character : text) {
        if (character == QChar::ParagraphSeparator)
            character = u'\n';
        else if (character == QChar::LineSeparator || character == QChar::Nbsp)
            character = u' ';
    }
    return text;
}

constexpr QStringView helpText =
    u"Friendly Search\n\n"
    "word\n    Finds text anywhere in the calculator pad.\n\n"
    "\"exact phrase\"\n    Keeps spaces together as one search term.\n\n"
    "word1 word2\n    AND search. Every positive term must occur in the pad; Find Next walks their occurrences in "
    "document order.\n\n"
    "-word\n    Excludes the search when that term occurs anywhere in the pad.\n\n"
    "Wildcards\n\n"
    "*       Zero or more characters\n"
    "?       Exactly one character\n"
    "#       Exactly one numeric digit\n"
    "[abc]   One character from the set\n"
    "[a-z]   One character from the range\n"
    "[!abc]  One character not in the set\n\n"
    "Regular Expression\n\n"
    "When Regular Expression is checked, the friendly parser and wildcard language are bypassed. The entire Find What "
    "field is used as a raw regular expression. Case Sensitive still applies.";

} // namespace

SearchDialog::SearchDialog(QPlainTextEdit* targetEditor, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::SearchDialog>()), target(targetEditor)
{
    ui->setupUi(this);
    ConnectControls();
}

SearchDialog::~SearchDialog() = default;

void SearchDialog::ConnectControls()
{
    connect(ui->ButtonFindNext, &QPushButton::clicked, this, &SearchDialog::FindNext);
    connect(ui->ButtonFindPrevious, &QPushButton::clicked, this, &SearchDialog::FindPrevious);
    connect(ui->ButtonSearchHelp, &QPushButton::clicked, this, &SearchDialog::ShowSearchHelp);
    connect(ui->ButtonClose, &QPushButton::clicked, this, &QWidget::close);
    connect(ui->TextSearch, &QLineEdit::textChanged, this, &SearchDialog::SearchCriteriaChanged);
    for (QAbstractButton* button :
         {static_cast<QAbstractButton*>(ui->CheckCaseSensitive),
          static_cast<QAbstractButton*>(ui->CheckRegularExpression), static_cast<QAbstractButton*>(ui->CheckWrapAround),
          static_cast<QAbstractButton*>(ui->RadioStartCursor)})
        connect(button, &QAbstractButton::toggled, this, &SearchDialog::SearchCriteriaChanged);
}

void SearchDialog::OpenSearch()
{
    if (target && target->textCursor().hasSelection()) {
        QString selected = target->textCursor().selectedText();
        selected.replace(QChar(QChar::ParagraphSeparator), u' ').replace(QChar(QChar::LineSeparator), u' ');
        ui->TextSearch->setText(selected.replace(QChar(QChar::Nbsp), u' '));
    }
    ShowAndRaise();
    ui->TextSearch->setFocus();
    ui->TextSearch->selectAll();
}

// At first where it hides nothing of the window, if the screen has room for that; then where the user has put it.
void SearchDialog::PlaceBesideWindow()
{
    if (!parentWidget() || testAttribute(Qt::WA_Moved))
        return;
    const QRect window = parentWidget()->window()->frameGeometry();
    const QSize size = QWidget::size() + window.size() - parentWidget()->window()->size(); // with a frame of its own
    for (const QPoint corner :
         {QPoint(window.right() + 1, window.top()), QPoint(window.left() - size.width(), window.top()),
          QPoint(window.left(), window.bottom() + 1), QPoint(window.left(), window.top() - size.height())}) {
        if (!parentWidget()->screen()->availableGeometry().contains(QRect(corner, size)))
            continue;
        move(corner);
        return;
    }
}

void SearchDialog::ShowAndRaise()
{
    PlaceBesideWindow();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void SearchDialog::FindNext()
{
    Find(Direction::Forward);
}

void SearchDialog::FindPrevious()
{
    Find(Direction::Backward);
}

void SearchDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_F3) {
        QDialog::keyPressEvent(event);
        return;
    }
    Find(event->modifiers() & Qt::ShiftModifier ? Direction::Backward : Direction::Forward);
    event->accept();
}

void SearchDialog::SearchCriteriaChanged()
{
    criteriaChanged = true;
    lastSignature.clear();
    ui->LabelSearchStatus->setText(u"Ready"_s);
}

void SearchDialog::Find(Direction direction)
{
    if (isTargetBusy())
        return TellWhyNothingIsFound(busyMessage.toString());
    bool ok = false;
    QString error;
    const QList<SearchMatch> matches = BuildSearchMatches(ok, error);
    if (!ok)
        return TellWhyNothingIsFound(error);
    if (matches.isEmpty())
        return TellWhyNothingIsFound(u"No matches found for "_s + SearchDescription());
    ShowMatch(matches, IndexToShow(matches, direction), direction);
    lastSignature = BuildSearchSignature();
    lastCount = matches.size();
    criteriaChanged = false;
}

// An index past either end wraps or stops there.
void SearchDialog::ShowMatch(const QList<SearchMatch>& matches, int index, Direction direction)
{
    const int count = static_cast<int>(matches.size());
    const bool isPast = index < 0 || index >= count;
    const bool forward = direction == Direction::Forward;
    const bool wraps = isPast && ui->CheckWrapAround->isChecked();
    if (isPast)
        index = forward == wraps ? 0 : count - 1;
    SelectMatch(matches[index]);
    if (!isPast)
        return SetFoundStatus(index, count, QString());
    if (wraps)
        return SetFoundStatus(index, count, forward ? u"Wrapped to beginning"_s : u"Wrapped to end"_s);
    const QString end = forward ? u"Reached end of document"_s : u"Reached beginning of document"_s;
    ui->LabelSearchStatus->setText(u"%1 — result %2 of %3"_s.arg(end).arg(index + 1).arg(count));
}

// One past either end where there is no match in the direction.
int SearchDialog::IndexToShow(const QList<SearchMatch>& matches, Direction direction) const
{
    const bool forward = direction == Direction::Forward;
    if (BuildSearchSignature() == lastSignature && matches.size() == lastCount) {
        if (const int current = FindCurrentMatchIndex(matches); current >= 0)
            return forward ? current + 1 : current - 1;
    }
    if (ui->RadioStartTop->isChecked() && criteriaChanged)
        return forward ? 0 : -1;
    const QTextCursor cursor = target->textCursor();
    const int from = forward ? cursor.selectionEnd() : cursor.selectionStart();
    const auto behind = std::lower_bound(matches.begin(), matches.end(), from,
                                         [](const SearchMatch& match, int place) { return match.position < place; });
    const int index = static_cast<int>(behind - matches.begin());
    return forward ? index : index - 1;
}

int SearchDialog::FindCurrentMatchIndex(const QList<SearchMatch>& matches) const
{
    const QTextCursor cursor = target->textCursor();
    const SearchMatch selected{cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
    const auto found = std::lower_bound(matches.begin(), matches.end(), selected);
    return found != matches.end() && *found == selected ? static_cast<int>(found - matches.begin()) : -1;
}

QList<SearchMatch> SearchDialog::BuildSearchMatches(bool& ok, QString& error) const
{
    if (!target) {
        ok = false;
        error = u"Search target is unavailable"_s;
        return {};
    }
    const SearchCriteria criteria{ui->TextSearch->text(), ui->CheckCaseSensitive->isChecked(),
                                  ui->CheckRegularExpression->isChecked()};
    return ::BuildSearchMatches(SearchedText(*target->document()), criteria, ok, error);
}

QString SearchDialog::BuildSearchSignature() const
{
    return ui->TextSearch->text() + u"\nCASE="_s + QString::number(ui->CheckCaseSensitive->isChecked()) +
           u"\nREGEX="_s + QString::number(ui->CheckRegularExpression->isChecked());
}

QString SearchDialog::SearchDescription() const
{
    const bool isRegular = ui->CheckRegularExpression->isChecked();
    return u'"' + ui->TextSearch->text() + u"\" "_s + (isRegular ? u"(regular expression)"_s : u"(friendly search)"_s);
}

void SearchDialog::SetFoundStatus(int index, int count, const QString& extra)
{
    QString status = u"Found "_s + QString::number(count) + (count == 1 ? u" result for "_s : u" results for "_s) +
                     SearchDescription();
    if (count != 1)
        status += u" — showing result "_s + QString::number(index + 1) + u" of "_s + QString::number(count);
    if (!extra.isEmpty())
        status += u" — "_s + extra;
    ui->LabelSearchStatus->setText(status);
}

void SearchDialog::TellWhyNothingIsFound(const QString& status)
{
    ui->LabelSearchStatus->setText(status);
    if (!isVisible())
        ShowAndRaise();
}

void SearchDialog::SelectMatch(const SearchMatch& match)
{
    QTextCursor cursor = target->textCursor();
    cursor.setPosition(match.position);
    cursor.setPosition(match.position + match.length, QTextCursor::KeepAnchor);
    target->setTextCursor(cursor);
    target->ensureCursorVisible();
    if (!isVisible())
        return;
    raise();
    activateWindow();
}

void SearchDialog::ShowSearchHelp()
{
    QMessageBox box(QMessageBox::Information, u"Quellbrook Search Help"_s, helpText.toString(), QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}
