// SPDX-License-Identifier: MIT
#include "platform/Errors.h"

#include <utility>

namespace platform {

Exception::Exception(std::string message) : message_(std::move(message)) {}
Exception::~Exception() = default;

EAssertionFailed::EAssertionFailed(const std::string& text, const std::string& unit, unsigned line)
    : Exception(text + " (" + unit + ", line " + std::to_string(line) + ")"), text_(text), unit_(unit), line_(line) {}
EAssertionFailed::~EAssertionFailed() = default;

EDivByZero::EDivByZero() : Exception("Division by zero") {}
EDivByZero::~EDivByZero() = default;

EInvalidCast::EInvalidCast() : Exception("Invalid class typecast") {}
EInvalidCast::~EInvalidCast() = default;

EViewClosed::EViewClosed() : Exception("The page of this view has been closed") {}
EViewClosed::~EViewClosed() = default;

EPackageError::EPackageError(const std::string& unit, const std::string& reason)
    : Exception(unit.empty() ? reason : "Unit " + unit + ": " + reason), unit_(unit) {}
EPackageError::EPackageError(const std::string& file, const EPackageError& cause)
    : Exception(file + ": " + cause.what()), unit_(cause.unit_) {}
EPackageError::~EPackageError() = default;

void Require(bool condition, const char* unit, std::string_view text, unsigned line) {
  if (!condition)
    throw EAssertionFailed(std::string(text), unit, line);
}

int Divide(int dividend, int divisor) {
  if (divisor == 0)
    throw EDivByZero();
  return dividend / divisor;
}

} // namespace platform
