#include "window/workspace/Documents.h"

#include "core/workspace/DocumentText.h"
#include "core/workspace/UndoHistory.h"

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

using namespace Qt::StringLiterals;

namespace {

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

void MoveToStart(QPlainTextEdit& pad)
{
    QTextCursor cursor = pad.textCursor();
    cursor.movePosition(QTextCursor::Start);
    pad.setTextCursor(cursor);
}

// The pad's text without the format of the character that the cursor stood behind.
void ReplaceText(QPlainTextEdit& pad, const QString& text)
{
    pad.setCurrentCharFormat(QTextCharFormat());
    pad.setPlainText(text);
    MoveToStart(pad);
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
    cursor.insertText(text);
    pad.setTextCursor(cursor);
    label.setText(u"Inserted "_s + FileName(path));
    return true;
}

void Documents::UpdateDocumentWindowTitle()
{
    const QString title = u"Quellbrook"_s;
    window.setWindowTitle(documentPath.isEmpty() ? title : QString(title + u" - "_s + FileName(documentPath)));
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

bool Documents::ReadDocumentFile(const QString& path, QString& text)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Warn(window, u"Cannot Open File"_s, u"Quellbrook could not open:\n\n"_s + path);
        return false;
    }
    text = DecodeDocument(file.readAll());
    return true;
}

bool Documents::WriteDocumentFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        Warn(window, u"Cannot Save File"_s, u"Quellbrook could not save:\n\n"_s + path);
        return false;
    }
    const QByteArray bytes = pad.toPlainText().toUtf8();
    const bool complete = file.write(bytes) == bytes.size() && file.flush();
    if (!complete)
        Warn(window, u"Cannot Save File"_s, u"Quellbrook could not completely save:\n\n"_s + path);
    return complete;
}
