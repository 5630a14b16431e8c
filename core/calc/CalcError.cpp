#include "calc/CalcError.h"

namespace vantrelle {

namespace {

std::string messageFor(CalcError::Case which, const std::string& a, const std::string& b) {
    switch (which) {
        case CalcError::Case::unexpected:
            return "Unexpected '" + a + "'";
        case CalcError::Case::unknownIdentifier:
            return "Unknown '" + a + "'";
        case CalcError::Case::unknownUnit:
            return "Unknown unit '" + a + "'";
        case CalcError::Case::incompatibleUnits:
            return "Can't convert " + a + " to " + b;
        case CalcError::Case::unbalancedParentheses:
            return "Unbalanced parentheses";
        case CalcError::Case::divisionByZero:
            return "Division by zero";
        case CalcError::Case::notANumber:
            return "Not a number";
    }
    return CalcError::genericMessage;
}

}  // namespace

CalcError::CalcError(Case which, const std::string& a, const std::string& b)
    : m_case(which), m_message(messageFor(which, a, b)) {}

}  // namespace vantrelle
