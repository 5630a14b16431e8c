#pragma once

#include <stdexcept>
#include <string>

namespace vantrelle {

// A failure the calculator explains to the user. Thrown inside the engine, caught by
// CalcEngine::evaluate and shown as an error result with message() as its text.
class CalcError final : public std::exception {
public:
    enum class Case {
        unexpected,         // the offending text
        unknownIdentifier,  // the name
        unknownUnit,        // the name
        incompatibleUnits,  // the two unit names
        unbalancedParentheses,
        divisionByZero,
        notANumber,
    };

    static CalcError unexpected(const std::string& text) { return CalcError(Case::unexpected, text); }
    static CalcError unknownIdentifier(const std::string& name) {
        return CalcError(Case::unknownIdentifier, name);
    }
    static CalcError unknownUnit(const std::string& name) { return CalcError(Case::unknownUnit, name); }
    static CalcError incompatibleUnits(const std::string& a, const std::string& b) {
        return CalcError(Case::incompatibleUnits, a, b);
    }
    static CalcError unbalancedParentheses() { return CalcError(Case::unbalancedParentheses); }
    static CalcError divisionByZero() { return CalcError(Case::divisionByZero); }
    static CalcError notANumber() { return CalcError(Case::notANumber); }

    [[nodiscard]] Case errorCase() const { return m_case; }
    [[nodiscard]] const std::string& message() const { return m_message; }
    [[nodiscard]] const char* what() const noexcept override { return m_message.c_str(); }

    // Shown for any failure that isn't one of the cases above.
    static constexpr const char* genericMessage = "Couldn't work that out";

private:
    explicit CalcError(Case which, const std::string& a = {}, const std::string& b = {});

    Case m_case;
    std::string m_message;
};

}  // namespace vantrelle
