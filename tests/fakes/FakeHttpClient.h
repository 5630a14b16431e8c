#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/HttpClient.h"
#include "platform/Scheduler.h"

namespace vantrelle::testing {

// An HttpClient whose answers the test gives. Requests wait until reply() or fail(), which deliver the
// completion of the oldest waiting request on the main queue, after an optional virtual delay.
class FakeHttpClient final : public HttpClient {
public:
    struct Request {
        std::string url;
        double timeoutSeconds = 0;
    };

    explicit FakeHttpClient(Scheduler& main) : m_main(main) {}

    void get(const std::string& url, double timeoutSeconds,
             std::function<void(HttpResponse)> completion) override {
        m_requests.push_back({url, timeoutSeconds});
        m_waiting.push_back(std::move(completion));
    }

    void reply(int status, std::string body, double delay = 0) {
        finish(HttpResponse{status, std::move(body), {}}, delay);
    }
    void fail(std::string error = "timed out", double delay = 0) {
        finish(HttpResponse{0, {}, std::move(error)}, delay);
    }

    [[nodiscard]] const std::vector<Request>& requests() const { return m_requests; }

private:
    void finish(HttpResponse response, double delay) {
        if (m_waiting.empty()) return;
        auto completion = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_main.after(delay, [completion = std::move(completion), response = std::move(response)] {
            completion(response);
        });
    }

    Scheduler& m_main;
    std::vector<Request> m_requests;
    std::deque<std::function<void(HttpResponse)>> m_waiting;
};

}  // namespace vantrelle::testing
