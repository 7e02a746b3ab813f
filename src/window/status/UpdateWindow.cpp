#include "window/status/UpdateWindow.h"

#include "core/release/ReleaseProduct.h"

#include "ui_UpdateWindow.h"

#include <QDesktopServices>
#include <QScreen>
#include <QUrl>

using namespace ReleaseDesk;
using namespace Qt::StringLiterals;

namespace {

// What the window says of a release of a kind.
struct Wording {
    QString heading;
    QString priceCaption; // empty: no price row
    QString price;
    QString button;
    QString message;
    QString availableVersion;
};

Wording WordingOf(bool available, const ReleaseMetadata& metadata, ReleaseComparison comparison)
{
    if (!available) {
        return {u"No Update Available"_s,
                {},
                {},
                u"View / Download Update"_s,
                u"You are currently running the newest release Quellbrook has detected."_s,
                u"No newer release detected"_s};
    }
    const QString heading = u"A newer version of Quellbrook is available."_s;
    if (comparison == ReleaseComparison::NewerMajorRelease) {
        return {heading,           u"Upgrade price:"_s, metadata.upgradePrice,
                u"View Upgrade"_s, metadata.message,    metadata.currentVersion};
    }
    return {
        heading,          u"Update:"_s,           u"Included with this major version"_s, u"View / Download Update"_s,
        metadata.message, metadata.currentVersion};
}

QString DestinationOf(const ReleaseMetadata& metadata, ReleaseComparison comparison)
{
    const bool isMajor = comparison == ReleaseComparison::NewerMajorRelease;
    const QString page = (isMajor ? metadata.upgradeUrl : metadata.downloadUrl).trimmed();
    return page.isEmpty() ? metadata.detailsUrl.trimmed() : page;
}

// Enough for a message of a few lines; a longer one is scrolled.
QSize UsualSize(const QWidget& window)
{
    const QFontMetrics metrics = window.fontMetrics();
    const QSize size(64 * metrics.averageCharWidth(), 22 * metrics.lineSpacing());
    return size.boundedTo(window.screen()->availableSize());
}

} // namespace

UpdateWindow::UpdateWindow(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::UpdateWindow>())
{
    ui->setupUi(this);
    resize(UsualSize(*this));
    setAttribute(Qt::WA_DeleteOnClose, false);
    ui->installedVersionValue->setText(ApplicationVersion());
    connect(ui->updateButton, &QPushButton::clicked, this, &UpdateWindow::OpenReleaseDestination);
    connect(ui->closeButton, &QPushButton::clicked, this, &QWidget::close);
}

UpdateWindow::~UpdateWindow() = default;

void UpdateWindow::SetReleaseState(bool available, const ReleaseMetadata& metadata, ReleaseComparison comparison)
{
    const Wording wording = WordingOf(available, metadata, comparison);
    ui->headingLabel->setText(wording.heading);
    ui->installedVersionValue->setText(ApplicationVersion());
    ui->availableVersionValue->setText(wording.availableVersion);
    ui->priceCaptionLabel->setText(wording.priceCaption);
    ui->priceValueLabel->setText(wording.price);
    ui->priceCaptionLabel->setVisible(available);
    ui->priceValueLabel->setVisible(available);
    ui->messageLabel->setText(wording.message);
    ui->updateButton->setText(wording.button);
    ui->updateButton->setEnabled(available);
    destination = available ? DestinationOf(metadata, comparison) : QString();
}

void UpdateWindow::OpenReleaseDestination()
{
    const QUrl url(destination, QUrl::TolerantMode);
    if (IsWebUrl(url))
        QDesktopServices::openUrl(url);
}

// Enter does what is at hand.
void UpdateWindow::showEvent(QShowEvent* event)
{
    (ui->updateButton->isEnabled() ? ui->updateButton : ui->closeButton)->setFocus();
    QDialog::showEvent(event);
}
