// The system's text the dev server monitor reads: lsof's field output and /proc/net/tcp. Every port
// that comes out is a real port number.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "monitors/ListeningOutput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const auto& socket : vantrelle::parseLsofListing(text)) {
        if (socket.port < 0 || socket.port > 65535) std::abort();
    }
    for (const auto& listener : vantrelle::parseProcNetTcp(text)) {
        if (listener.port < 0 || listener.port > 65535) std::abort();
    }
    return 0;
}
