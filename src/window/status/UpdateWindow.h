// What is known of the newest release, and the way to its page.
#pragma once

#include "core/release/ReleaseMetadata.h"
#include "core/release/ReleaseVersion.h"

#include <QDialog>

#include <memory>

namespace Ui {
class UpdateWindow;
}

class UpdateWindow : public QDialog {
    Q_OBJECT

public:
    /// Closing only hides it.
    explicit UpdateWindow(QWidget* parent);
    ~UpdateWindow() override;

    /// @param available   whether there is a newer release; the others say nothing if not
    /// @param comparison  what it is to the running program
    void SetReleaseState(bool available, const ReleaseDesk::ReleaseMetadata& metadata,
                         ReleaseDesk::ReleaseComparison comparison);

    /// Opens the release's page in the browser. Without a release, or with an address that leads nowhere, nothing
    /// happens.
    void OpenReleaseDestination();

protected:
    void showEvent(QShowEvent* event) override;

private:
    std::unique_ptr<Ui::UpdateWindow> ui;
    QString destination; // the release's page; empty without a release
};
