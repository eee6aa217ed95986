// SPDX-License-Identifier: MIT
#include "desktop/files/FindInFiles.h"

#include <QElapsedTimer>
#include <QMetaObject>

#include <exception>
#include <memory>
#include <utility>

namespace desktop {

// One search, in its thread. It hands over what it has in lots, so that the main thread is not kept busy by them.
class FindInFiles::Run {
public:
  Run(FindInFiles& owner, int number, FileSearch search, std::stop_token stop)
      : owner_(owner), number_(number), search_(std::move(search)), stop_(std::move(stop)) {}

  void operator()() {
    QString trouble;
    FileSearchOutcome outcome;
    sinceHandOver_.start();
    try {
      FileSearcher searcher(
          search_, stop_, [this](FileMatch&& match) { take(std::move(match)); },
          [this](const FileSearchOutcome& sofar) { report(sofar); });
      outcome = searcher.run();
    } catch (const std::exception& error) { // memory has run out
      trouble = QString::fromLocal8Bit(error.what());
    }
    handOver();
    post([outcome, trouble](FindInFiles& owner) { Q_EMIT owner.finished(outcome, trouble); });
  }

private:
  static constexpr int betweenHandOvers = 100; // milliseconds
  static constexpr std::size_t lot = 500;

  // Calls `function` in the main thread, if this is still the latest search then.
  template <class TFunction> void post(TFunction function) {
    QMetaObject::invokeMethod(
        &owner_,
        [owner = &owner_, number = number_, function = std::move(function)] {
          if (number == owner->latest_)
            function(*owner);
        },
        Qt::QueuedConnection);
  }

  void take(FileMatch&& match) {
    matches_.push_back(std::move(match));
    if (matches_.size() >= lot || sinceHandOver_.elapsed() > betweenHandOvers)
      handOver();
  }

  void handOver() {
    if (!matches_.empty())
      post([matches = std::exchange(matches_, {})](FindInFiles& owner) { Q_EMIT owner.found(matches); });
    sinceHandOver_.start();
  }

  void report(const FileSearchOutcome& sofar) {
    if (sinceHandOver_.elapsed() <= betweenHandOvers)
      return;
    handOver();
    post([sofar](FindInFiles& owner) { Q_EMIT owner.progressed(sofar); });
  }

  FindInFiles& owner_;
  int number_;
  FileSearch search_;
  std::stop_token stop_;
  std::vector<FileMatch> matches_;
  QElapsedTimer sinceHandOver_;
};

FindInFiles::FindInFiles(QObject* parent) : QObject(parent) {}

FindInFiles::~FindInFiles() {
  stop();
}

void FindInFiles::start(FileSearch search) {
  stop();
  stop_ = std::stop_source();
  queue_.add([run = std::make_shared<Run>(*this, ++latest_, std::move(search), stop_.get_token())] { (*run)(); });
}

} // namespace desktop
