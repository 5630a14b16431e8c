#pragma once

#include "platform/Clipboard.h"

namespace vantrelle {

// The clipboard of the Qt application's display; needs a QGuiApplication.
class QtClipboard final : public Clipboard {
public:
    void setText(const std::string& text) override;
};

}  // namespace vantrelle
