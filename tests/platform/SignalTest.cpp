#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

#include "support/Signal.h"

namespace vantrelle {
namespace {

TEST(Signal, DeliversToConnectedSlotsUntilTheirConnectionEndsOrIsReplaced) {
    Signal<int> signal;
    std::vector<int> a, b, old;
    auto first = signal.connect([&](int v) { a.push_back(v); });
    Connection replaced = signal.connect([&](int v) { old.push_back(v); });
    replaced = signal.connect([&](int v) { b.push_back(v); });
    signal.emit(1);
    Connection moved = std::move(replaced);
    replaced.disconnect();  // moved from: ends nothing
    signal.emit(2);
    moved.disconnect();
    signal.emit(3);
    EXPECT_EQ(a, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(b, (std::vector<int>{1, 2}));
    EXPECT_TRUE(old.empty());
    first.disconnect();
    EXPECT_FALSE(signal.hasSlots());
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
    }
    EXPECT_TRUE(watch.expired()) << "the slot went with its signal, though the connection lives on";
    connection.disconnect();  // must not reach into the signal that is gone
}

}  // namespace
}  // namespace vantrelle
