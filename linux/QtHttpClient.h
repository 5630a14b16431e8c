#pragma once

#include <QNetworkAccessManager>
#include <QObject>

#include "platform/HttpClient.h"

namespace vantrelle {

// HTTP GET on Qt Network. Create it on the main thread; get() may be called from any thread, and the
// completion runs on the main thread exactly once, unless the client is destroyed first, which drops
// the requests in flight without calling them back. A request that outlasts its timeout is aborted
// and completes with status 0 and the error "timed out".
class QtHttpClient final : public HttpClient {
public:
    QtHttpClient();
    ~QtHttpClient() override;
    QtHttpClient(const QtHttpClient&) = delete;
    QtHttpClient& operator=(const QtHttpClient&) = delete;

    void get(const std::string& url, double timeoutSeconds,
             std::function<void(HttpResponse)> completion) override;

private:
    void start(const std::string& url, double timeoutSeconds, std::function<void(HttpResponse)> completion);

    QObject m_context;  // lives on the main thread; replies and timers belong to it
    QNetworkAccessManager m_manager;
};

}  // namespace vantrelle
