// Answers the message boxes that come up while this lives, and remembers what they said.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QStringList>
#include <QTimer>

#include <functional>

class MessageBoxes {
public:
    /// @param buttonTexts  the button to click in each box, in the order in which they come
    /// @param onFirst      what happens while the first box is up
    explicit MessageBoxes(const QStringList& buttonTexts, const std::function<void()>& onFirst = {})
        : buttons(buttonTexts), whileFirstIsUp(onFirst)
    {
        QObject::connect(&timer, &QTimer::timeout, [this] { Answer(); });
        timer.start(1);
    }

    QStringList texts; ///< of each box, "title: text"

private:
    void Answer()
    {
        const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        if (whileFirstIsUp && texts.isEmpty())
            whileFirstIsUp();
        texts.append(box->windowTitle() + ": " + box->text());
        if (box->textFormat() != Qt::PlainText)
            texts.append("(not plain text)");
        const QString button = buttons.value(texts.size() - 1);
        for (QAbstractButton* candidate : box->buttons()) {
            if (QString(candidate->text()).remove('&') == button)
                return candidate->click();
        }
        qFatal("%s\nno button \"%s\"", qPrintable(texts.last()), qPrintable(button));
    }

    QStringList buttons;
    std::function<void()> whileFirstIsUp;
    QTimer timer;
};
