// A line to search in. Some desktops give a colour for text and none for a placeholder, which then cannot be read on a
// dark ground: this one's placeholder has the colour of its text, faded.
#pragma once

#include <QEvent>
#include <QLineEdit>

class SearchEdit : public QLineEdit {
public:
    explicit SearchEdit(QWidget* parent = nullptr) : QLineEdit(parent) { FadePlaceholder(); }

protected:
    void changeEvent(QEvent* event) override
    {
        QLineEdit::changeEvent(event);
        if (event->type() == QEvent::PaletteChange)
            FadePlaceholder();
    }

private:
    void FadePlaceholder()
    {
        QColor faded = palette().color(QPalette::Text);
        faded.setAlphaF(0.6F);
        QPalette ours; // all other colours stay the desktop's
        ours.setColor(QPalette::PlaceholderText, faded);
        setPalette(ours); // changes nothing the second time
    }
};
