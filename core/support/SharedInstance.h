#pragma once

#include <cassert>

namespace vantrelle {

// The app's one instance of a model, installed by the composition root at start-up. Models are built
// with injected dependencies; `shared()` only finds the instance the running app made.
template <typename T>
class SharedInstance {
public:
    [[nodiscard]] static T& get() {
        assert(s_instance && "shared instance used before the app installed it");
        return *s_instance;
    }
    [[nodiscard]] static bool isInstalled() { return s_instance != nullptr; }
    static void install(T* instance) { s_instance = instance; }

private:
    static inline T* s_instance = nullptr;
};

}  // namespace vantrelle
