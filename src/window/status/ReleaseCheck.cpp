#include "window/status/ReleaseCheck.h"

#include "core/release/ReleaseProduct.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ReleaseDesk {

namespace {

constexpr int shortestTimeout = 1000; // milliseconds
constexpr int mostRedirections = 3;

QNetworkRequest RequestFor(const QUrl& url)
{
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      u"Ostrellworks/%1 (%2)"_s.arg(ApplicationVersion(), ProductId()));
    // Compressed, a few bytes could become any number of them.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("Accept-Language", "*"); // not the user's
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, url.scheme() == "https"_L1
                                                                       ? QNetworkRequest::NoLessSafeRedirectPolicy
                                                                       : QNetworkRequest::SameOriginRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirections);
    return request;
}

void RefuseLongBodies(QNetworkReply& reply)
{
    reply.setReadBufferSize(longestReleaseJson + 1);
    QObject::connect(&reply, &QIODevice::readyRead, &reply, [&reply] {
        if (reply.bytesAvailable() > longestReleaseJson)
            reply.abort();
    });
}

// The timer goes with the reply, and one that fires late finds it finished.
void AbortAfter(QNetworkReply& reply, int timeoutMs)
{
    auto* timer = new QTimer(&reply);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, &reply, &QNetworkReply::abort);
    timer->start(std::max(timeoutMs, shortestTimeout));
}

void Report(QNetworkReply& reply, const ReleaseCallback& callback)
{
    ReleaseMetadata metadata;
    if (reply.error() != QNetworkReply::NoError ||
        ParseReleaseMetadata(reply.readAll(), metadata) != ReleaseMetadataResult::Success)
        return callback(ReleaseCheckResult::CheckFailed, {}, ReleaseComparison::Unknown);
    const ReleaseComparison comparison = CompareReleaseVersion(metadata);
    const bool isNewer =
        comparison == ReleaseComparison::NewerMinorRelease || comparison == ReleaseComparison::NewerMajorRelease;
    callback(isNewer ? ReleaseCheckResult::ReleaseAvailable : ReleaseCheckResult::NoNewerRelease, metadata, comparison);
}

void Fetch(QNetworkAccessManager& network, const QUrl& url, const ReleaseCallback& callback, int timeoutMs)
{
    QNetworkReply* reply = network.get(RequestFor(url)); // goes with the network
    RefuseLongBodies(*reply);
    AbortAfter(*reply, timeoutMs);
    QObject::connect(reply, &QNetworkReply::finished, network.parent(), [&network, reply, callback] {
        network.deleteLater();
        Report(*reply, callback);
    });
}

} // namespace

void CheckForReleaseAsync(QObject* parent, const QUrl& url, const ReleaseCallback& callback, int timeoutMs)
{
    if (!parent || !callback || !IsInitialized())
        return;
    if (!IsWebUrl(url))
        return callback(ReleaseCheckResult::CheckFailed, {}, ReleaseComparison::Unknown);
    auto* network = new QNetworkAccessManager(parent);
    // The first request loads what encrypts it. That takes its time, and a window that asks is to show first.
    QTimer::singleShot(0, network, [network, url, callback, timeoutMs] { Fetch(*network, url, callback, timeoutMs); });
}

} // namespace ReleaseDesk
