// The real HTTP client against a small HTTP server on the loopback interface.
#include <QThread>

#include "LoopbackServer.h"
#include "QtHttpClient.h"
#include "TestApplication.h"

namespace vantrelle {
namespace {

class QtHttpClientTest : public ::testing::Test {
protected:
    std::optional<HttpResponse> fetch(const std::string& url, double timeout = 8) {
        std::optional<HttpResponse> response;
        client.get(url, timeout, [&](HttpResponse r) {
            EXPECT_EQ(QThread::currentThread(), app.thread());
            response = std::move(r);
        });
        EXPECT_TRUE(testing::spinUntil([&] { return response.has_value(); }));
        return response;
    }

    QCoreApplication& app = testing::testApplication();  // first: the Qt objects below need it
    testing::LoopbackServer server;
    QtHttpClient client;
};

TEST_F(QtHttpClientTest, StatusAndBodyComeBack) {
    for (const int status : {200, 404}) {
        SCOPED_TRACE(status);
        server.respond(status, "body " + QByteArray::number(status));
        auto response = fetch(server.base() + "/latest?from=USD");
        ASSERT_TRUE(response);
        EXPECT_EQ(response->status, status);
        EXPECT_EQ(response->body, "body " + std::to_string(status));
        EXPECT_EQ(response->ok(), status == 200);
    }
    EXPECT_EQ(server.requestLines().constFirst(), "GET /latest?from=USD HTTP/1.1");
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
