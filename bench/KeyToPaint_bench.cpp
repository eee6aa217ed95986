// SPDX-License-Identifier: MIT
// How long a typed key takes until the editor shows it, with the add-in and without, in a unit of 100,000 lines.
// Prints a Markdown table.
//
// The package is loaded and unloaded between blocks of keys, as its user would do it, so that both states meet the same
// machine. The keys come from a thread, as they come from outside: whatever the main thread is doing then, also for
// the add-in's parse thread, is part of the time that they take.
#include "OpenUnit.h"

#include "desktop/ide/PackageLoader.h"
#include "platform/Application.h"
#include "support/HostPaints.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>
#include <utility>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int Lines = 100'000;
constexpr int Rounds = 8;
constexpr int KeysOfBlock = 50;
constexpr int KeysToWarmUp = 10;
constexpr double FrameMs = 1000.0 / 60;

quint64 now() {
  return static_cast<quint64>(Clock::now().time_since_epoch() / std::chrono::nanoseconds(1));
}

// Notes for each key when the paint that shows it has ended, the copy to the window included.
class TypingApplication : public QApplication {
public:
  using QApplication::QApplication;

  // What is typed into `control` is measured from now on, until `paints` goes.
  void watch(const desktop::TEditControl* control, const support::HostPaints* paints) {
    control_ = control;
    paints_ = paints;
  }

  // The times so far, in milliseconds.
  std::vector<double> takeTimes() { return std::exchange(times_, {}); }

  bool notify(QObject* receiver, QEvent* event) override {
    if (receiver == control_ && event->type() == QEvent::KeyPress) {
      if (pending_.empty())
        paintsBefore_ = paints_->count;
      pending_.push_back(static_cast<QKeyEvent*>(event)->timestamp());
    }
    const QEvent::Type type = event->type();
    const bool result = QApplication::notify(receiver, event);
    if (type == QEvent::Paint && control_ != nullptr && receiver == control_->viewport())
      notePaint();
    return result;
  }

private:
  void notePaint() {
    if (pending_.empty() || paints_->count == paintsBefore_)
      return;
    for (const quint64 pressed : std::exchange(pending_, {}))
      times_.push_back(static_cast<double>(now() - pressed) / 1e6);
  }

  const desktop::TEditControl* control_ = nullptr;
  const support::HostPaints* paints_ = nullptr;
  int paintsBefore_ = 0;
  std::vector<quint64> pending_; // when the keys were pressed that no paint has shown yet
  std::vector<double> times_;
};

// Types as a quick typist does, a key every 90 to 150 ms, each held for 40 to 70 ms. Runs in a thread of its own.
void type(QObject* control, int keys, unsigned seed) {
  std::mt19937 random(seed);
  const auto rest = [&random](int least, int most) {
    std::this_thread::sleep_for(std::chrono::milliseconds(std::uniform_int_distribution(least, most)(random)));
  };
  for (int key = 0; key < keys; ++key) {
    rest(50, 80);
    const int letter = Qt::Key_A + std::uniform_int_distribution(0, 25)(random);
    const QString text(QChar(letter + ('a' - 'A')));
    auto* const press = new QKeyEvent(QEvent::KeyPress, letter, Qt::NoModifier, text);
    press->setTimestamp(now());
    QCoreApplication::postEvent(control, press);
    rest(40, 70);
    QCoreApplication::postEvent(control, new QKeyEvent(QEvent::KeyRelease, letter, Qt::NoModifier, text));
  }
  rest(50, 80);
  // Not quit, which would ask about the unsaved unit first.
  QMetaObject::invokeMethod(
      qApp, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
}

// Each key's time in milliseconds.
std::vector<double> timesOfTyping(TypingApplication& application, const bench::OpenUnit& unit, int keys,
                                  unsigned seed) {
  std::thread typist(type, &unit.control(), keys, seed);
  QCoreApplication::exec();
  typist.join();
  return application.takeTimes();
}

// A comment of its own in the middle of the unit: it keeps what is typed from being an error, which would end the
// background parse early.
void startComment(const bench::OpenUnit& unit) {
  unit.control().setCaret(Lines / 2, 1);
  unit.press(Qt::Key_Return, QStringLiteral("\r"));
  unit.control().setCaret(Lines / 2, 1);
  unit.press(Qt::Key_Slash, QStringLiteral("/"));
  unit.press(Qt::Key_Slash, QStringLiteral("/"));
}

struct Times {
  std::vector<double> Without;
  std::vector<double> With;
};

void measureBlock(TypingApplication& application, const bench::OpenUnit& unit, desktop::PackageLoader& loader,
                  bool withAddIn, unsigned seed, std::vector<double>& times) {
  const QString package = QStringLiteral(ADD_IN_FILE);
  const support::HostPaints paints(unit.control()); // below the add-in, so put in before it
  if (withAddIn)
    loader.load(package);
  startComment(unit);
  application.watch(&unit.control(), &paints);
  timesOfTyping(application, unit, KeysToWarmUp, seed);
  const std::vector<double> block = timesOfTyping(application, unit, KeysOfBlock, seed + 1);
  if (block.size() != KeysOfBlock)
    qFatal("a key was not shown");
  times.insert(times.end(), block.begin(), block.end());
  application.watch(nullptr, nullptr);
  if (withAddIn)
    loader.unload(package);
}

Times measure(TypingApplication& application) {
  const bench::OpenUnit unit(Lines);
  platform::Application().SetShowSplash(false); // one a round, each for seconds
  desktop::PackageLoader loader;
  Times times;
  for (unsigned round = 0; round < Rounds; ++round) {
    const bool withFirst = round % 2 != 0;
    for (const bool withAddIn : {withFirst, !withFirst})
      measureBlock(application, unit, loader, withAddIn, round, withAddIn ? times.With : times.Without);
  }
  return times;
}

void print(const Times& times) {
  std::printf("\nFrom key to paint at %d lines, in milliseconds, %zu keys each\n\n", Lines, times.With.size());
  std::printf("| | without add-in | with add-in | ratio | frames of 60 Hz more |\n|---|---|---|---|---|\n");
  const auto row = [&times](const char* name, double part) {
    const double without = bench::percentile(times.Without, part);
    const double with = bench::percentile(times.With, part);
    std::printf("| %s | %.1f | %.1f | %.1f | %.2f |\n", name, without, with, with / without,
                (with - without) / FrameMs);
  };
  row("median", 0.5);
  row("99th percentile", 0.99);
  row("longest", 1);
}

} // namespace

int main(int argc, char** argv) {
  const QTemporaryDir settings; // the options as designed; those of the user are left alone
  qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
  qputenv("QT_QPA_PLATFORM", "offscreen");
  TypingApplication application(argc, argv);
  print(measure(application));
  return EXIT_SUCCESS;
}
