// SPDX-License-Identifier: MIT
// Qt's warnings in tests: one that no test expects fails the test that is running.
#pragma once

#include <QString>
#include <QStringList>

namespace support {

// From now on every warning, critical or fatal message of Qt fails the running test, wherever it comes from, and is
// written to standard error. Remarks that the off-screen platform makes about itself are let through.
void failTestsOnQtWarnings();

// While it lives, warnings that contain `text` are collected instead of failing the test. At its end the test fails if
// there was none. Guards may be nested; the innermost that matches collects.
class ExpectQtWarning {
public:
  explicit ExpectQtWarning(QString text);
  ~ExpectQtWarning();
  ExpectQtWarning(const ExpectQtWarning&) = delete;
  ExpectQtWarning& operator=(const ExpectQtWarning&) = delete;

  // The collected messages in the order of their arrival.
  QStringList messages() const;

  // Gives `message` to the innermost guard that expects it. False if there is none. Safe from any thread.
  static bool collect(const QString& message);

private:
  QString text_;
  QStringList messages_;
  ExpectQtWarning* outer_;
};

} // namespace support
