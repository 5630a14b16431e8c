#pragma once

namespace vantrelle {

// Starting the program when the user logs in.
class LoginItem {
public:
    virtual ~LoginItem() = default;
    [[nodiscard]] virtual bool isEnabled() const = 0;
    // Returns false when the change could not be made; isEnabled() then tells the true state.
    virtual bool setEnabled(bool enabled) = 0;
};

}  // namespace vantrelle
