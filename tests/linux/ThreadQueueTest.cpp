#include <gtest/gtest.h>

#include <algorithm>
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
        for (int i = 0; i < 100; ++i)
            queue->async([&, i] {
                ran.push_back(i);
                worker = std::this_thread::get_id();
            });
    }
    ASSERT_EQ(ran.size(), 100u);
    EXPECT_TRUE(std::is_sorted(ran.begin(), ran.end()));
    EXPECT_NE(worker, std::this_thread::get_id());
}

}  // namespace
}  // namespace vantrelle
