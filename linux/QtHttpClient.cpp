#include "QtHttpClient.h"

#include <QMetaObject>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <cmath>
#include <memory>

namespace vantrelle {

QtHttpClient::QtHttpClient() = default;

QtHttpClient::~QtHttpClient() {
    // Replies are children of the manager; make sure none calls back into a client that is gone.
    for (auto* reply : m_manager.findChildren<QNetworkReply*>()) {
        reply->disconnect();
        reply->abort();
    }
}

void QtHttpClient::get(const std::string& url, double timeoutSeconds,
                       std::function<void(HttpResponse)> completion) {
    if (QThread::currentThread() == m_context.thread()) {
        start(url, timeoutSeconds, std::move(completion));
        return;
    }
    QMetaObject::invokeMethod(
        &m_context,
        [this, url, timeoutSeconds, completion = std::move(completion)]() mutable {
            start(url, timeoutSeconds, std::move(completion));
        },
        Qt::QueuedConnection);
}

void QtHttpClient::start(const std::string& url, double timeoutSeconds,
                         std::function<void(HttpResponse)> completion) {
    QNetworkRequest request(QUrl(QString::fromStdString(url)));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    QNetworkReply* reply = m_manager.get(request);

    auto timedOut = std::make_shared<bool>(false);
    auto* deadline = new QTimer(reply);
    deadline->setSingleShot(true);
    QObject::connect(deadline, &QTimer::timeout, reply, [reply, timedOut] {
        *timedOut = true;
        reply->abort();
    });
    deadline->start(static_cast<int>(std::lround(std::max(0.0, timeoutSeconds) * 1000.0)));

    QObject::connect(reply, &QNetworkReply::finished, &m_context,
                     [reply, timedOut, completion = std::move(completion)] {
                         HttpResponse response;
                         const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
                         response.status = status.isValid() && !*timedOut ? status.toInt() : 0;
                         if (*timedOut) {
                             response.error = "timed out";
                         } else if (response.status == 0) {
                             response.error = reply->errorString().toStdString();
                             if (response.error.empty()) response.error = "no response";
                         }
                         if (response.status != 0) response.body = reply->readAll().toStdString();
                         reply->deleteLater();
                         completion(std::move(response));
                     });
}

}  // namespace vantrelle
