// The pad's document: at most one file, plain text. No operation asks about unsaved changes; each tells a failure in a
// message of its own and then leaves everything as it was, the file on the disk included.
#pragma once

#include <QString>

class QAction;
class QLabel;
class QMainWindow;
class QMimeData;
class QPlainTextEdit;
class UndoHistory;

class Documents {
public:
    /// Serves the window, its pad, its status label and its undo history, all of which must outlive it.
    ///
    /// @param saveAction  enabled exactly while there is a document
    Documents(QMainWindow& mainWindow, QPlainTextEdit& padEditor, QLabel& statusLabel, QAction& saveAction,
              UndoHistory& undoHistory)
        : window(mainWindow), pad(padEditor), label(statusLabel), save(saveAction), undo(undoHistory)
    {
    }

    /// The document's file as it was named; empty for an unnamed pad.
    const QString& Path() const { return documentPath; }

    void NewDocument();
    void OpenDocument();
    void InsertDocument();
    void SaveDocument();
    void SaveDocumentAs();

    /// Replaces the pad's text and makes the file the document. A file that would keep the pad busy is
    /// read only if the user says so.
    bool OpenDocumentFromPath(const QString& path);

    /// Inserts the file's text at the cursor, over a selection; the document stays what it was.
    bool InsertDocumentFromPath(const QString& path);

    /// Sets the window's title and whether there is something to save to.
    void UpdateDocumentWindowTitle();

    /// Asks what to do with a dropped file, and does it.
    void TakeDroppedFile(const QString& path);

    /// The first local file among dropped URLs; empty where there is none.
    static QString DroppedFile(const QMimeData* data);

private:
    bool ReadDocumentFile(const QString& path, QString& text);
    bool ConfirmLargeFile(const QString& path);
    bool WriteDocumentFile(const QString& path);

    QMainWindow& window;
    QPlainTextEdit& pad;
    QLabel& label;
    QAction& save;
    UndoHistory& undo;
    QString documentPath; // empty: an unnamed pad
};
