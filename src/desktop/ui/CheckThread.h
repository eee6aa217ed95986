// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/QVUnitCheck.h"

#include <QThread>

#include <memory>
#include <stop_token>
#include <string>

namespace desktop {

// Checks one text in a thread of its own, with a stack for the deepest one. Main thread only.
class CheckThread : public QThread {
  Q_OBJECT

public:
  // For `text` as SourceDocument::servedText gives it.
  explicit CheckThread(std::shared_ptr<const std::string> text, QObject* parent = nullptr);
  // Ends the check and waits for that.
  ~CheckThread() override;

  // Asks the check to end soon; then nothing of it is of use.
  void stop() { stop_.request_stop(); }
  bool isStopped() const { return stop_.stop_requested(); }

  const std::shared_ptr<const std::string>& text() const { return text_; }

  // When the thread has finished: what was found, and why it could not be checked, which is empty if it was.
  const quorvane::TFindings& findings() const { return findings_; }
  const QString& trouble() const { return trouble_; }

protected:
  void run() override;

private:
  std::shared_ptr<const std::string> text_;
  std::stop_source stop_;
  quorvane::TFindings findings_;
  QString trouble_;
};

} // namespace desktop
