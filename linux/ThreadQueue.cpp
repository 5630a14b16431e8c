#include "ThreadQueue.h"

#include <pthread.h>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace vantrelle {

namespace {

class ThreadQueue final : public SerialQueue {
public:
    explicit ThreadQueue(std::string_view name) : m_label(queueLabel(name)), m_thread([this] { run(); }) {
        // Thread names are cut to 15 bytes; the short name is what shows in top and gdb.
        const std::string shortName = std::string("v.").append(name).substr(0, 15);
        pthread_setname_np(m_thread.native_handle(), shortName.c_str());
    }

    ~ThreadQueue() override {
        {
            std::lock_guard lock(m_mutex);
            m_stopping = true;
        }
        m_wake.notify_one();
        m_thread.join();  // pending work finishes first
    }

    void async(std::function<void()> work) override {
        {
            std::lock_guard lock(m_mutex);
            m_work.push_back(std::move(work));
        }
        m_wake.notify_one();
    }

    [[nodiscard]] const std::string& label() const override { return m_label; }

private:
    void run() {
        for (;;) {
            std::function<void()> work;
            {
                std::unique_lock lock(m_mutex);
                m_wake.wait(lock, [this] { return m_stopping || !m_work.empty(); });
                if (m_work.empty()) return;
                work = std::move(m_work.front());
                m_work.pop_front();
            }
            work();
        }
    }

    std::string m_label;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<std::function<void()>> m_work;
    bool m_stopping = false;
    std::thread m_thread;  // last: starts after the fields it reads exist
};

}  // namespace

std::unique_ptr<SerialQueue> ThreadQueueFactory::make(std::string_view name) {
    return std::make_unique<ThreadQueue>(name);
}

}  // namespace vantrelle
