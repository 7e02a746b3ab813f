// Where the program's pages of help go: the help window, made when it is first needed.
#pragma once

struct HelpPage;
class HelpWindow;
class QWidget;

class Help {
public:
    /// @param window  owns the help window
    explicit Help(QWidget& window) : owner(window) {}

    /// Brings the help window to the front with the page.
    void Show(const HelpPage& page);

private:
    HelpWindow& EnsureHelpWindow();

    QWidget& owner;
    HelpWindow* helpWindow = nullptr; // closing only hides it
};
