// SPDX-License-Identifier: MIT
#include "support/QtWarnings.h"

#include <gtest/gtest.h>

#include <QLoggingCategory>

#include <cstdio>
#include <mutex>
#include <utility>

namespace support {

namespace {

std::mutex guardsMutex;
ExpectQtWarning* innermost = nullptr; // guarded by guardsMutex, as are the messages of all guards

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  const QByteArray line = qFormatLogMessage(type, context, message).toLocal8Bit();
  const bool harmless = type == QtDebugMsg || type == QtInfoMsg;
  const bool ownRemark = message.startsWith(QStringLiteral("This plugin does not support"));
  if (!harmless && !ownRemark && ExpectQtWarning::collect(message))
    return;
  std::fprintf(stderr, "%s\n", line.constData());
  if (!harmless && !ownRemark)
    ADD_FAILURE() << "unexpected warning of Qt: " << line.constData();
}

} // namespace

bool ExpectQtWarning::collect(const QString& message) {
  const std::scoped_lock lock(guardsMutex);
  for (ExpectQtWarning* guard = innermost; guard != nullptr; guard = guard->outer_) {
    if (message.contains(guard->text_)) {
      guard->messages_.append(message);
      return true;
    }
  }
  return false;
}

void failTestsOnQtWarnings() {
  qInstallMessageHandler(handleMessage);
}

ExpectQtWarning::ExpectQtWarning(QString text) : text_(std::move(text)) {
  const std::scoped_lock lock(guardsMutex);
  outer_ = std::exchange(innermost, this);
}

ExpectQtWarning::~ExpectQtWarning() {
  const std::scoped_lock lock(guardsMutex);
  innermost = outer_;
  EXPECT_FALSE(messages_.isEmpty()) << "no warning of Qt contained: " << text_.toStdString();
}

QStringList ExpectQtWarning::messages() const {
  const std::scoped_lock lock(guardsMutex);
  return messages_;
}

} // namespace support
