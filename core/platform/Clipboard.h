#pragma once

#include <string>

namespace vantrelle {

// The desktop's clipboard, for text the user asked to copy.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual void setText(const std::string& text) = 0;
};

}  // namespace vantrelle
