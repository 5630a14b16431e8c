#include "platform/Clock.h"

#include <chrono>

namespace vantrelle {

Date SystemClock::now() const {
    using namespace std::chrono;
    return Date{duration<double>(system_clock::now().time_since_epoch()).count()};
}

SystemClock& SystemClock::shared() {
    static SystemClock clock;
    return clock;
}

}  // namespace vantrelle
