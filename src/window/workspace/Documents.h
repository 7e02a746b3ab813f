// The pad's document: at most one file, plain text. No operation asks about unsaved changes; each tells a failure in a
// message of its own and then leaves everything as it was.
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

    void NewDocument();
    void OpenDocument();
    void InsertDocument();
    void SaveDocument();
    void SaveDocumentAs();

    bool OpenDocumentFromPath(const QString& path);
    bool InsertDocumentFromPath(const QString& path);
    void UpdateDocumentWindowTitle();

    /// Asks what to do with a dropped file, and does it.
    void TakeDroppedFile(const QString& path);

    /// The first local file among dropped URLs; empty where there is none.
    static QString DroppedFile(const QMimeData* data);

private:
    bool ReadDocumentFile(const QString& path, QString& text);
    bool WriteDocumentFile(const QString& path);

    QMainWindow& window;
    QPlainTextEdit& pad;
    QLabel& label;
    QAction& save;
    UndoHistory& undo;
    QString documentPath; // empty: an unnamed pad
};
