#include "window/workspace/Documents.h"

#include "core/workspace/DocumentText.h"
#include "core/workspace/FileReplacement.h"
#include "core/workspace/UndoHistory.h"
#include "window/pad/Pad.h"

#include <QAction>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

// Up to these sizes a text is in the pad within about a second, as measured; beyond one of them the user is asked. The
// editor lays a line out as a whole.
constexpr qint64 largeFile = 10'000'000; // bytes
constexpr qsizetype manyLines = 300'000;
constexpr qsizetype longLine = 500'000; // characters

// Positions in the pad are of this type, and no byte of a file is more than one character.
constexpr qint64 largestFile = std::numeric_limits<int>::max() / 2; // bytes

QString FileName(const QString& path)
{
    return QFileInfo(path).fileName();
}

QString FileFilter()
{
    return u"Text Files (*.txt);;All Files (*)"_s;
}

// A warning that shows a path as it is, whatever characters stand in it.
void Warn(QWidget& parent, const QString& title, const QString& text)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, &parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool TakesLongToShow(QStringView text)
{
    qsizetype lines = 0;
    qsizetype start = 0;
    for (qsizetype end = 0; end >= 0; start = end + 1) {
        end = text.indexOf(u'\n', start);
        if ((end < 0 ? text.size() : end) - start > longLine || ++lines > manyLines)
            return true;
    }
    return false;
}

void ReplaceText(QPlainTextEdit& pad, const QString& text)
{
    MoveToStartInNormalWeight(pad);
    pad.setPlainText(text);
    pad.moveCursor(QTextCursor::Start);
}

} // namespace

void Documents::NewDocument()
{
    documentPath.clear();
    undo.ForgetUndoHistory();
    ReplaceText(pad, QString());
    UpdateDocumentWindowTitle();
    label.setText(u"New Document"_s);
}

void Documents::OpenDocument()
{
    const QString path = QFileDialog::getOpenFileName(&window, u"Open Document"_s, QString(), FileFilter());
    if (!path.isEmpty())
        OpenDocumentFromPath(path);
}

void Documents::InsertDocument()
{
    const QString path = QFileDialog::getOpenFileName(&window, u"Insert Document at Cursor"_s, QString(), FileFilter());
    if (!path.isEmpty())
        InsertDocumentFromPath(path);
}

void Documents::SaveDocument()
{
    if (!documentPath.isEmpty() && WriteDocumentFile(documentPath))
        label.setText(u"Saved "_s + FileName(documentPath));
}

void Documents::SaveDocumentAs()
{
    const QString path = QFileDialog::getSaveFileName(&window, u"Save Document As"_s, documentPath, FileFilter());
    if (path.isEmpty() || !WriteDocumentFile(path))
        return;
    documentPath = path;
    UpdateDocumentWindowTitle();
    label.setText(u"Saved "_s + FileName(path));
}

bool Documents::OpenDocumentFromPath(const QString& path)
{
    QString text;
    if (!ReadDocumentFile(path, text))
        return false;
    undo.ForgetUndoHistory();
    ReplaceText(pad, text);
    documentPath = path;
    UpdateDocumentWindowTitle();
    label.setText(u"Opened "_s + FileName(path));
    return true;
}

bool Documents::InsertDocumentFromPath(const QString& path)
{
    QString text;
    if (!ReadDocumentFile(path, text))
        return false;
    undo.BeginFinalUndoEdit();
    QTextCursor cursor = pad.textCursor();
    cursor.insertText(text, QTextCharFormat());
    pad.setTextCursor(cursor);
    label.setText(u"Inserted "_s + FileName(path));
    return true;
}

void Documents::UpdateDocumentWindowTitle()
{
    QString title = u"Quellbrook"_s;
    if (!documentPath.isEmpty())
        title +=
            u" - "_s + FileName(documentPath).replace(u"[*]"_s, u"[*][*]"_s); // a single one marks a modified window
    window.setWindowTitle(title);
    save.setEnabled(!documentPath.isEmpty());
}

void Documents::TakeDroppedFile(const QString& path)
{
    QMessageBox box(QMessageBox::Question, u"Dropped Document"_s,
                    u"What would you like to do with:\n\n"_s + FileName(path), QMessageBox::NoButton, &window);
    box.setTextFormat(Qt::PlainText);
    const QPushButton* open = box.addButton(u"Open"_s, QMessageBox::AcceptRole);
    const QPushButton* insert = box.addButton(u"Insert at Cursor"_s, QMessageBox::ActionRole);
    box.setDefaultButton(box.addButton(u"Don't Open"_s, QMessageBox::RejectRole));
    box.exec();
    if (box.clickedButton() == open)
        OpenDocumentFromPath(path);
    else if (box.clickedButton() == insert)
        InsertDocumentFromPath(path);
}

QString Documents::DroppedFile(const QMimeData* data)
{
    if (!data || !data->hasUrls())
        return QString();
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile())
            return url.toLocalFile();
    }
    return QString();
}

// Only a file is read: a pipe or a device may have no end.
bool Documents::ReadDocumentFile(const QString& path, QString& text)
{
    QFile file(path);
    const bool readable = QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) && file.size() <= largestFile;
    const bool large = readable && file.size() > largeFile;
    if (large && !ConfirmLargeFile(path))
        return false;
    const QByteArray bytes = readable ? file.readAll() : QByteArray();
    if (!readable || file.error() != QFileDevice::NoError) {
        Warn(window, u"Cannot Open File"_s, u"Quellbrook could not open:\n\n"_s + path);
        return false;
    }
    const QString decoded = DecodeDocument(bytes);
    if (!large && TakesLongToShow(decoded) && !ConfirmLargeFile(path))
        return false;
    text = decoded;
    return true;
}

bool Documents::ConfirmLargeFile(const QString& path)
{
    QMessageBox box(QMessageBox::Question, u"Large Document"_s,
                    u"This file is so large that it may keep the pad busy for a while:\n\n"_s + path,
                    QMessageBox::Open | QMessageBox::Cancel, &window);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Cancel);
    return box.exec() == QMessageBox::Open;
}

bool Documents::WriteDocumentFile(const QString& path)
{
    const FileReplacement outcome = ReplaceFileContents(path, pad.toPlainText().toUtf8());
    if (outcome == FileReplacement::CannotOpen)
        Warn(window, u"Cannot Save File"_s, u"Quellbrook could not save:\n\n"_s + path);
    else if (outcome == FileReplacement::Incomplete)
        Warn(window, u"Cannot Save File"_s, u"Quellbrook could not completely save:\n\n"_s + path);
    return outcome == FileReplacement::Complete;
}
