#include <gtest/gtest.h>

#include "monitors/DevServerRules.h"
#include "monitors/ListeningOutput.h"

namespace vantrelle {
namespace {

struct KindRow {
    const char* name;
    const char* command;
    const char* args;
    std::optional<std::string> kind;
};

class DevServerKind : public ::testing::TestWithParam<KindRow> {};

TEST_P(DevServerKind, FirstMatchingRowWins) {
    const KindRow& row = GetParam();
    EXPECT_EQ(detectDevServerKind(row.command, row.args), row.kind) << row.name;
}

INSTANTIATE_TEST_SUITE_P(
    Table, DevServerKind,
    ::testing::Values(
        KindRow{"next_dev_before_node", "node", "node /app/node_modules/.bin/next dev", "Next.js"},
        KindRow{"docker_proxy", "docker-proxy", "/usr/bin/docker-proxy -host-port 8080", "Docker"},
        KindRow{"http_server", "python3", "python3 -m http.server 8000", "Python"},
        KindRow{"django", "python3", "python3 manage.py runserver", "Django"},
        KindRow{"php_builtin", "php", "php -S localhost:8000", "PHP"},
        KindRow{"case_folded", "NODE", "SERVER.JS", "Node"},
        KindRow{"unknown", "myserver", "./myserver --port 9000", std::nullopt}),
    [](const auto& row) { return std::string(row.param.name); });

struct FilterRow {
    const char* name;
    const char* command;
    const char* args;
    const char* path;
    std::int64_t port;
    bool accepted;
};

class DevServerFilter : public ::testing::TestWithParam<FilterRow> {};

TEST_P(DevServerFilter, DecidesLikeADeveloperWould) {
    const FilterRow& row = GetParam();
    const auto kind = detectDevServerKind(row.command, row.args);
    EXPECT_EQ(isDevProcess(row.command, row.args, row.path, kind, row.port, "/home/ada"), row.accepted)
        << row.name;
}

INSTANTIATE_TEST_SUITE_P(
    Table, DevServerFilter,
    ::testing::Values(
        FilterRow{"tool_server", "node", "node /x/mcp-server-files/index.js", "/usr/bin/node", 3000, false},
        FilterRow{"docker_even_ephemeral", "docker-proxy", "docker-proxy", "/usr/sbin/docker-proxy", 52000,
                  true},
        FilterRow{"node_high_bare", "node", "node /tmp/app.js", "/usr/bin/node", 52000, false},
        FilterRow{"vite_high", "node", "node vite", "/usr/bin/node", 52000, true},
        FilterRow{"unknown_high", "myserver", "./myserver", "/home/ada/bin/myserver", 52000, false},
        FilterRow{"unknown_low", "myserver", "./myserver", "/home/ada/bin/myserver", 9000, true},
        FilterRow{"edge_of_range", "node", "node a.js", "/usr/bin/node", 49151, true},
        FilterRow{"agent_or_editor", "claude", "claude", "/home/ada/.local/bin/claude", 3000, false},
        FilterRow{"system_daemon", "cupsd", "/usr/sbin/cupsd -l", "/usr/sbin/cupsd", 631, false},
        FilterRow{"bundled_app", "slack", "slack", "/opt/Slack/slack", 8000, false},
        FilterRow{"home_app_refused", "tool", "tool", "/home/ada/Applications/Tool/tool", 8000, false},
        FilterRow{"runtime_in_opt_kept", "node", "node srv.js", "/opt/node/bin/node", 8000, true}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(LsofListing, TakesPidAndCommandLastSeenForEachPortedNameAndSkipsGarbage) {
    const std::string text =
        "p101\ncnode\nf23\nn127.0.0.1:5173\nf24\nn[::1]:5173\np202\ncpython3\nn*:8000\n"
        "nno-port-here\nn*:http\np\ncbroken\nn*:9000\n";
    const std::vector<ListeningSocket> expected{
        {101, "node", 5173}, {101, "node", 5173}, {202, "python3", 8000}, {0, "broken", 9000}};
    EXPECT_EQ(parseLsofListing(text), expected);
    EXPECT_TRUE(parseLsofListing("").empty());
    EXPECT_TRUE(parseLsofListing("\n\n\xff\x01zz\nn:\nn:99999999\n").empty());
}

TEST(ProcNetTcp, KeepsListeningRowsWithPortAndInode) {
    const std::string text =
        "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout inode\n"
        "   0: 0100007F:1F40 00000000:0000 0A 00000000:00000000 00:00000000 00000000  1000        0 4242 1 "
        "0\n"
        "   1: 0100007F:D584 507100CB:0050 01 00000000:00000000 03:00000824 00000000  1000        0 999 3 0\n"
        "   2: 00000000000000000000000001000000:1435 00000000000000000000000000000000:0000 0A "
        "00000000:00000000 "
        "00:00000000 00000000  1000        0 77 1 0\n"
        "   3: truncated\n";
    const std::vector<KernelListener> expected{{8000, 4242}, {5173, 77}};
    EXPECT_EQ(parseProcNetTcp(text), expected);
}

}  // namespace
}  // namespace vantrelle
