#include "window/status/ReleaseNotice.h"

#include "window/status/ReleaseCheck.h"
#include "window/status/UpdateWindow.h"
#include "window/workspace/SettingsFile.h"

#include "ui_MainWindow.h"

#include <QSettings>

using namespace ReleaseDesk;
using namespace Qt::StringLiterals;

namespace {

constexpr int checkTimeout = 8000; // milliseconds

QString DismissedReleaseKey()
{
    return u"Updates/DismissedRelease"_s;
}

QString NoticeText(const ReleaseMetadata& metadata, ReleaseComparison comparison)
{
    QString message = metadata.message.trimmed();
    if (!message.isEmpty())
        return message;
    const QString words = comparison == ReleaseComparison::NewerMajorRelease
                              ? u"Quellbrook %1 is available as a new major release."_s
                              : u"Quellbrook %1 is available."_s;
    return words.arg(metadata.currentVersion);
}

} // namespace

ReleaseNotice::ReleaseNotice(QWidget& mainWindow, const Ui::MainWindow& mainForm) : window(mainWindow), form(mainForm)
{
    form.updateNoticeLabel->setTextFormat(Qt::RichText);
    form.updateNoticeLabel->setTextInteractionFlags(Qt::LinksAccessibleByMouse);
    form.updateNoticeLabel->setOpenExternalLinks(false);
    // The frame is light in every theme, and the sign on it must be dark.
    QPalette palette = form.updateNoticeCloseButton->palette();
    palette.setColor(QPalette::ButtonText, QColor(u"#202020"_s));
    form.updateNoticeCloseButton->setPalette(palette);
    QObject::connect(form.updateNoticeCloseButton, &QToolButton::clicked, &window,
                     [this] { DismissCurrentReleaseNotice(); });
    QObject::connect(form.updateNoticeLabel, &QLabel::linkActivated, &window, [this] { ShowUpdateWindow(); });
}

void ReleaseNotice::StartCheck(const QUrl& url)
{
    const auto callback = [this](ReleaseCheckResult result, const ReleaseMetadata& metadata,
                                 ReleaseComparison comparison) {
        if (result == ReleaseCheckResult::ReleaseAvailable)
            return ApplyAvailableRelease(metadata, comparison);
        releaseAvailable = false;
        form.updateNoticeFrame->hide();
    };
    CheckForReleaseAsync(&window, url, callback, checkTimeout);
}

void ReleaseNotice::ApplyAvailableRelease(const ReleaseMetadata& metadata, ReleaseComparison comparison)
{
    availableRelease = metadata;
    availableComparison = comparison;
    releaseAvailable = true;
    form.updateNoticeLabel->setText(uR"(<a href="update" style="color:#202020; text-decoration:none;">%1</a>)"_s.arg(
        NoticeText(metadata, comparison).toHtmlEscaped()));
    form.updateNoticeLabel->setToolTip(u"Click to open Update / Upgrade."_s);
    form.updateNoticeFrame->setVisible(!IsCurrentReleaseNoticeDismissed());
    if (updateWindow)
        updateWindow->SetReleaseState(true, metadata, comparison);
}

bool ReleaseNotice::IsCurrentReleaseNoticeDismissed() const
{
    if (!releaseAvailable || availableRelease.currentVersion.trimmed().isEmpty())
        return false;
    const QString dismissed = ReadSettingsFile()->value(DismissedReleaseKey()).toString();
    return dismissed.trimmed() == DismissalValue(availableRelease);
}

void ReleaseNotice::DismissCurrentReleaseNotice()
{
    if (releaseAvailable) {
        ChangeSettingsFile([this](QSettings& settings) {
            settings.setValue(DismissedReleaseKey(), DismissalValue(availableRelease));
        });
    }
    form.updateNoticeFrame->hide();
}

void ReleaseNotice::ShowUpdateWindow()
{
    if (!updateWindow)
        updateWindow = new UpdateWindow(&window);
    updateWindow->SetReleaseState(releaseAvailable, availableRelease, availableComparison);
    updateWindow->show();
    updateWindow->raise();
    updateWindow->activateWindow();
}
