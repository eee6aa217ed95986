// SPDX-License-Identifier: MIT
// The exceptions that may pass between host and package, and the checks that raise them.
//
// A contract that is broken (no edit control, no view, wrong owner) is an assertion failure; it is not caught near its
// cause but travels to the place where the host called the add-in, which hands it to TApplication::HandleException.
#pragma once

#include "platform/Export.h"

#include <exception>
#include <string>
#include <string_view>

namespace platform {

// The base of all exceptions of the contract: a message in UTF-8.
class VIRELLE_PLATFORM Exception : public std::exception {
public:
  explicit Exception(std::string message);
  ~Exception() override;

  // The message. It lives as long as the exception.
  const char* what() const noexcept override { return message_.c_str(); }

private:
  std::string message_;
};

// A broken contract. The message reads "TEXT (UNIT, line LINE)".
class VIRELLE_PLATFORM EAssertionFailed : public Exception {
public:
  EAssertionFailed(const std::string& text, const std::string& unit, unsigned line);
  ~EAssertionFailed() override;

  // What was violated; "Assertion failure" when nothing more is known.
  const std::string& Text() const { return text_; }
  // The unit that checked, which is not always the file's name.
  const std::string& Unit() const { return unit_; }
  // The line of the check in its source file, from 1.
  unsigned Line() const { return line_; }

private:
  std::string text_;
  std::string unit_;
  unsigned line_;
};

// An integer division by zero.
class VIRELLE_PLATFORM EDivByZero : public Exception {
public:
  EDivByZero();
  ~EDivByZero() override;
};

// An object is not of the class that it must be.
class VIRELLE_PLATFORM EInvalidCast : public Exception {
public:
  EInvalidCast();
  ~EInvalidCast() override;
};

// A view or buffer was asked for something after its page had been closed.
class VIRELLE_PLATFORM EViewClosed : public Exception {
public:
  EViewClosed();
  ~EViewClosed() override;
};

// A package could not be loaded, started or registered. Unit() is empty when no single unit is to blame.
class VIRELLE_PLATFORM EPackageError : public Exception {
public:
  EPackageError(const std::string& unit, const std::string& reason);
  // `cause`, with the name of the package's file in front of its message.
  EPackageError(const std::string& file, const EPackageError& cause);
  ~EPackageError() override;

  const std::string& Unit() const { return unit_; }

private:
  std::string unit_;
};

// Raises EAssertionFailed, naming `unit` and the caller's line, unless `condition` holds.
VIRELLE_PLATFORM void Require(bool condition, const char* unit, std::string_view text = "Assertion failure",
                              unsigned line = __builtin_LINE());

// Integer quotient, rounded toward zero. Raises EDivByZero for a zero divisor instead of the processor's signal.
VIRELLE_PLATFORM int Divide(int dividend, int divisor);

} // namespace platform
