#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "support/Signal.h"

namespace vantrelle {
namespace {

TEST(Signal, DeliversToConnectedSlotsUntilTheirConnectionEnds) {
    Signal<int> signal;
    std::vector<int> a, b;
    auto first = signal.connect([&](int v) { a.push_back(v); });
    {
        auto second = signal.connect([&](int v) { b.push_back(v); });
        signal.emit(1);
    }
    signal.emit(2);
    EXPECT_EQ(a, (std::vector<int>{1, 2}));
    EXPECT_EQ(b, (std::vector<int>{1}));
}

TEST(Signal, ASlotMayDisconnectItselfDuringEmission) {
    Signal<> signal;
    int calls = 0;
    std::optional<Connection> self;
    self = signal.connect([&] {
        ++calls;
        self.reset();
    });
    signal.emit();
    signal.emit();
    EXPECT_EQ(calls, 1);
}

TEST(Signal, ConnectionMayOutliveTheSignal) {
    Connection connection;
    {
        Signal<> signal;
        connection = signal.connect([] {});
    }
    connection.disconnect();  // must not touch the destroyed signal
    SUCCEED();
}

}  // namespace
}  // namespace vantrelle
