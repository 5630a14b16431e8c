#include "agents/Fatal.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace vantrelle {

namespace {
std::atomic<FatalHandler> s_handler{nullptr};
}

void agentsFatal(const char* what) {
    if (auto handler = s_handler.load()) handler(what);
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

void setAgentsFatalHandler(FatalHandler handler) {
    s_handler.store(handler);
}

}  // namespace vantrelle
