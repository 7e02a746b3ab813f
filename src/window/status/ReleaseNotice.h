// The line above the pad that tells of a newer release, its dismissal, and the window that tells more.
//
// There is one check for each start. What fails in it fails in silence.
#pragma once

#include "core/release/ReleaseMetadata.h"
#include "core/release/ReleaseVersion.h"

class QUrl;
class QWidget;
class UpdateWindow;

namespace Ui {
class MainWindow;
}

class ReleaseNotice {
public:
    /// @param mainWindow  owns the update window, and ends the check when it is destroyed
    ReleaseNotice(QWidget& mainWindow, const Ui::MainWindow& mainForm);

    /// Asks for the newest release at an address; see CheckForReleaseAsync.
    void StartCheck(const QUrl& url);

    /// Shows the notice of a release unless the user has dismissed this one.
    void ApplyAvailableRelease(const ReleaseDesk::ReleaseMetadata& metadata, ReleaseDesk::ReleaseComparison comparison);

    /// Whether the settings file remembers that the notice of the known release was dismissed.
    bool IsCurrentReleaseNoticeDismissed() const;

    /// Hides the notice, for this release in later starts too.
    void DismissCurrentReleaseNotice();

    /// Brings the update window to the front with what is known.
    void ShowUpdateWindow();

private:
    QWidget& window;
    const Ui::MainWindow& form;
    UpdateWindow* updateWindow = nullptr; // closing only hides it
    bool releaseAvailable = false;
    ReleaseDesk::ReleaseMetadata availableRelease;
    ReleaseDesk::ReleaseComparison availableComparison = ReleaseDesk::ReleaseComparison::Unknown;
};
