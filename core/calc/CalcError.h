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

    static CalcError unexpected(std::string text) { return CalcError(Case::unexpected, std::move(text)); }
    static CalcError unknownIdentifier(std::string name) {
        return CalcError(Case::unknownIdentifier, std::move(name));
    }
    static CalcError unknownUnit(std::string name) { return CalcError(Case::unknownUnit, std::move(name)); }
    static CalcError incompatibleUnits(std::string a, std::string b) {
        return CalcError(Case::incompatibleUnits, std::move(a), std::move(b));
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
