#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "ThreadQueue.h"

namespace vantrelle {
namespace {

TEST(ThreadQueue, RunsWorkInOrderOffTheCallingThreadAndFinishesItOnDestruction) {
    ThreadQueueFactory factory;
    std::vector<int> ran;
    std::thread::id worker;
    {
        auto queue = factory.make("aiusage");
        for (int i = 0; i < 3; ++i)
            queue->async([&, i] {
                ran.push_back(i);
                worker = std::this_thread::get_id();
            });
    }
    EXPECT_EQ(ran, (std::vector<int>{0, 1, 2}));
    EXPECT_NE(worker, std::this_thread::get_id());
}

}  // namespace
}  // namespace vantrelle
