#pragma once

#include <functional>
#include <string>

namespace vantrelle {

struct HttpResponse {
    int status = 0;  // 0 when no response came (network error, timeout)
    std::string body;
    std::string error;  // empty on success

    [[nodiscard]] bool ok() const { return error.empty() && status >= 200 && status < 300; }
};

// Asynchronous HTTP. The completion runs on the main thread, exactly once.
class HttpClient {
public:
    virtual ~HttpClient() = default;
    virtual void get(const std::string& url, double timeoutSeconds,
                     std::function<void(HttpResponse)> completion) = 0;
};

}  // namespace vantrelle
