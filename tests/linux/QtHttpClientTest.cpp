// The real HTTP client and the rates service against a small HTTP server on the loopback interface.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>

#include "LoopbackServer.h"
#include "QtHttpClient.h"
#include "TestApplication.h"
#include "calc/RatesService.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

QCoreApplication& application() {
    return testing::testApplication();
}

constexpr const char* kRates =
    R"({"amount":1.0,"base":"USD","date":"2025-01-03","rates":{"EUR":0.9,"GBP":0.8}})";

class QtHttpClientTest : public ::testing::Test {
protected:
    std::optional<HttpResponse> fetch(const std::string& url, double timeout = 8) {
        std::optional<HttpResponse> response;
        client.get(url, timeout, [&](HttpResponse r) {
            EXPECT_EQ(QThread::currentThread(), application().thread());
            response = std::move(r);
        });
        EXPECT_TRUE(testing::spinUntil([&] { return response.has_value(); }));
        return response;
    }
    static std::optional<RateQuote> ask(RatesService& rates, std::string_view from, std::string_view to) {
        std::optional<std::optional<RateQuote>> answer;
        rates.rate(from, to, [&](std::optional<RateQuote> quote) { answer = quote; });
        EXPECT_TRUE(testing::spinUntil([&] { return answer.has_value(); }));
        return answer.value_or(std::nullopt);
    }

    QCoreApplication& app = application();  // first: the Qt objects below need it
    testing::LoopbackServer server;
    QtHttpClient client;
    MemoryDefaultsStore defaults;
    MapEnvironment environment{{{"VANTRELLE_RATES_URL", server.base()}}};
};

TEST_F(QtHttpClientTest, RatesServiceFetchesThroughTheRealClient) {
    server.respond(200, kRates);
    RatesService rates(client, defaults, SystemClock::shared(), environment);
    const auto quote = ask(rates, "GBP", "EUR");
    ASSERT_TRUE(quote);
    EXPECT_DOUBLE_EQ(quote->rate, 0.9 / 0.8);
    EXPECT_EQ(server.requestLines(), QList<QByteArray>{"GET /latest?from=USD HTTP/1.1"});
    EXPECT_EQ(defaults.string(RatesService::cacheKey), kRates);
}

TEST_F(QtHttpClientTest, StatusAndBodyComeBack) {
    server.respond(404, "missing");
    auto response = fetch(server.base() + "/nothing");
    ASSERT_TRUE(response);
    EXPECT_EQ(response->status, 404);
    EXPECT_EQ(response->body, "missing");
    EXPECT_FALSE(response->ok());
}

TEST_F(QtHttpClientTest, ARequestPastItsDeadlineIsAborted) {
    server.stayQuiet();
    // A deadline of zero has passed by the next turn of the loop: no waiting on the clock.
    auto response = fetch(server.base() + "/latest?from=USD", 0);
    ASSERT_TRUE(response);
    EXPECT_EQ(response->status, 0);
    EXPECT_EQ(response->error, "timed out");
    EXPECT_FALSE(response->ok());
}

TEST_F(QtHttpClientTest, RefusedConnectionReportsAnError) {
    quint16 port = 0;
    {
        QTcpServer closed;
        ASSERT_TRUE(closed.listen(QHostAddress::LocalHost, 0));
        port = closed.serverPort();
    }
    auto response = fetch("http://127.0.0.1:" + std::to_string(port) + "/latest?from=USD");
    ASSERT_TRUE(response);
    EXPECT_EQ(response->status, 0);
    EXPECT_FALSE(response->error.empty());
}

TEST_F(QtHttpClientTest, DestroyedClientNeverCallsBack) {
    server.stayQuiet();
    bool called = false;
    {
        QtHttpClient shortLived;
        shortLived.get(server.base() + "/", 8, [&](HttpResponse) { called = true; });
        QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(called);
}

}  // namespace
}  // namespace vantrelle
