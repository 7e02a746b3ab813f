#include "core/release/ReleaseProduct.h"

#include "ReleaseConfiguration.h"

using namespace Qt::StringLiterals;

namespace ReleaseDesk {

namespace {

struct Product {
    QString id;
    QString name;
    QString version;
};

Product& RunningProduct()
{
    static Product product;
    return product;
}

} // namespace

QString BuiltVersion()
{
    return QString::fromLatin1(builtVersion);
}

void Initialize(const QString& productId, const QString& productName, const QString& applicationVersion)
{
    RunningProduct() = {productId, productName, applicationVersion};
}

bool IsInitialized()
{
    return !ProductId().isEmpty();
}

QString ApplicationVersion()
{
    return RunningProduct().version;
}

QString ProductId()
{
    return RunningProduct().id;
}

QString ProductName()
{
    return RunningProduct().name;
}

QUrl ReleaseUrl()
{
    const QString host = QString::fromLatin1(releaseHost);
    return host.isEmpty() ? QUrl()
                          : QUrl(u"https://"_s + host + u"/QuellbrookDesktop/release.json"_s, QUrl::StrictMode);
}

bool IsWebUrl(const QUrl& url)
{
    return url.isValid() && (url.scheme() == "https"_L1 || url.scheme() == "http"_L1);
}

} // namespace ReleaseDesk
