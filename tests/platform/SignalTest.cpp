#include <gtest/gtest.h>

#include <memory>
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

TEST(Signal, AConnectionThatOutlivesTheSignalHoldsNoneOfItsSlots) {
    auto captured = std::make_shared<int>(0);
    const std::weak_ptr<int> watch = captured;
    Connection connection;
    {
        Signal<> signal;
        connection = signal.connect([held = std::move(captured)] { ++*held; });
        signal.emit();
        EXPECT_EQ(*watch.lock(), 1);
    }
    EXPECT_TRUE(watch.expired()) << "the slot went with its signal, though the connection lives on";
    connection.disconnect();
    connection.disconnect();
}

TEST(Signal, AssigningOverAConnectionEndsTheOldSubscriptionOnly) {
    Signal<int> signal;
    std::vector<int> old, current;
    Connection connection = signal.connect([&](int v) { old.push_back(v); });
    connection = signal.connect([&](int v) { current.push_back(v); });
    signal.emit(1);
    Connection moved = std::move(connection);
    connection.disconnect();  // moved from: ends nothing
    signal.emit(2);
    EXPECT_TRUE(old.empty());
    EXPECT_EQ(current, (std::vector<int>{1, 2}));
    moved.disconnect();
    EXPECT_FALSE(signal.hasSlots());
}

}  // namespace
}  // namespace vantrelle
