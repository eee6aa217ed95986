// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace support {

// Gives an environment variable another value, or none, while it lives.
class EnvironmentVariable {
public:
  EnvironmentVariable(const char* name, const std::optional<QByteArray>& value) : name_(name) {
    if (qEnvironmentVariableIsSet(name))
      before_ = qgetenv(name);
    set(value);
  }
  ~EnvironmentVariable() { set(before_); }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
  void set(const std::optional<QByteArray>& value) const {
    if (value)
      qputenv(name_, *value);
    else
      qunsetenv(name_);
  }

  const char* name_;
  std::optional<QByteArray> before_;
};

} // namespace support
