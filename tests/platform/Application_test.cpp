// SPDX-License-Identifier: MIT
#include "platform/Application.h"
#include "platform/Debug.h"
#include "platform/Errors.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QPointer>

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace platform;

namespace {

using TReports = std::vector<std::pair<QString, int>>;

TApplication::TReporter Record(TReports& reports) {
  return [&reports](const QString& message, int count) { reports.emplace_back(message, count); };
}

std::exception_ptr Error(const char* message) {
  return std::make_exception_ptr(Exception(message));
}

} // namespace

TEST(Application, ShowsNothingInsideHandleException) {
  TApplication application;
  TReports reports;
  application.SetReporter(Record(reports));
  application.HandleException(Error("broken"));
  EXPECT_TRUE(reports.empty());
  QCoreApplication::processEvents();
  EXPECT_EQ(reports, (TReports{{QStringLiteral("broken"), 1}}));
}

TEST(Application, EqualMessagesAreReportedOnceWithTheirCount) {
  TApplication application;
  TReports reports;
  application.SetReporter(Record(reports));
  application.HandleException(Error("one"));
  application.HandleException(Error("two"));
  application.HandleException(Error("one"));
  QCoreApplication::processEvents();
  EXPECT_EQ(reports, (TReports{{QStringLiteral("one"), 2}, {QStringLiteral("two"), 1}}));
}

TEST(Application, HandlesExceptionsOfAnyThreadAndKind) {
  TApplication application;
  TReports reports;
  application.SetReporter(Record(reports));
  std::thread([&] {
    application.HandleException(std::make_exception_ptr(std::runtime_error("from a thread")));
    application.HandleException(std::make_exception_ptr(42));
  }).join();
  QCoreApplication::processEvents();
  EXPECT_EQ(reports, (TReports{{QStringLiteral("from a thread"), 1}, {QStringLiteral("Unknown exception"), 1}}));
}

TEST(Application, WithoutAReporterMessagesGoToTheDebuggerOutput) {
  std::vector<std::string> lines;
  const TDebugSink before = SetDebugSink([&](std::string_view line) { lines.emplace_back(line); });
  TApplication application;
  application.SetReporter({});
  application.HandleException(Error("broken"));
  application.HandleException(Error("broken"));
  application.ReportPending();
  SetDebugSink(before);
  EXPECT_EQ(lines, std::vector<std::string>{"broken (2 times)"});
}

TEST(Application, AReporterThatThrowsKeepsNoMessageBack) {
  std::vector<std::string> lines;
  const TDebugSink before = SetDebugSink([&](std::string_view line) { lines.emplace_back(line); });
  TApplication application;
  application.SetReporter([](const QString&, int) { throw Exception("reporter"); });
  application.HandleException(Error("one"));
  application.HandleException(Error("two"));
  EXPECT_NO_THROW(application.ReportPending());
  SetDebugSink(before);
  EXPECT_EQ(lines, (std::vector<std::string>{"one", "two"}));
}

TEST(Application, FreesTheComponentsThatStillLive) {
  QPointer<QObject> kept = new QObject;
  auto* gone = new QObject;
  {
    TApplication application;
    application.InsertComponent(kept);
    application.InsertComponent(gone);
    delete gone;
    EXPECT_FALSE(kept.isNull());
  }
  EXPECT_TRUE(kept.isNull());
}

TEST(Application, GuardedReportsWhatACallThrows) {
  TReports reports;
  Application().SetReporter(Record(reports));
  EXPECT_TRUE(Guarded([] {}));
  EXPECT_FALSE(Guarded([] { throw EDivByZero(); }));
  Application().ReportPending();
  EXPECT_EQ(reports, (TReports{{QStringLiteral("Division by zero"), 1}}));
  QCoreApplication::processEvents();
  Application().SetReporter({});
}

TEST(Screen, ListsFormsInTheOrderOfCreation) {
  TScreen screen;
  QWidget first;
  auto* second = new QWidget;
  QWidget third;
  screen.AddForm(&first);
  screen.AddForm(second);
  screen.AddForm(&third);
  EXPECT_EQ(screen.Forms(), (std::vector<QWidget*>{&first, second, &third}));
  delete second;
  EXPECT_EQ(screen.Forms(), (std::vector<QWidget*>{&first, &third}));
}
