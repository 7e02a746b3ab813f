// Files dropped onto a window by hand.
#pragma once

#include "window/MainWindow.h"
#include "window/MessageBoxes.h"

#include <QDropEvent>
#include <QMimeData>

#include <optional>

/// Drops files onto the window and clicks the buttons in what comes up.
///
/// @return what the boxes said, nothing if the drop was not taken
inline std::optional<QStringList> Drop(MainWindow& window, const QStringList& paths, const QStringList& buttons,
                                       const std::function<void()>& onFirst = {})
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls.append(path.contains("://") ? QUrl(path) : QUrl::fromLocalFile(path));
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    const MessageBoxes boxes(buttons, onFirst);
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    drop.setAccepted(false);
    QApplication::sendEvent(&window, &drop);
    return enter.isAccepted() && drop.isAccepted() ? std::optional(boxes.texts) : std::nullopt;
}
