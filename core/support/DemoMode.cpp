#include "support/DemoMode.h"

namespace vantrelle {

bool DemoMode::isOn() {
    static const bool on = resolve(ProcessEnvironment::shared());
    return on;
}

}  // namespace vantrelle
