// SPDX-License-Identifier: MIT
#include "platform/Application.h"

#include "platform/Debug.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

namespace platform {

namespace {

QString MessageOf(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const std::exception& exception) {
    return QString::fromUtf8(exception.what());
  } catch (...) {
    return QStringLiteral("Unknown exception");
  }
}

void ReportToDebugger(const QString& message, int count) {
  const QString times = count > 1 ? QStringLiteral(" (%1 times)").arg(count) : QString();
  OutputDebugString((message + times).toStdString());
}

} // namespace

TApplication::TApplication() = default;

TApplication::~TApplication() {
  reporter_ = {};
  ReportPending();
  for (auto component = components_.rbegin(); component != components_.rend(); ++component)
    delete component->data();
}

void TApplication::InsertComponent(QObject* component) {
  std::erase_if(components_, [](const QPointer<QObject>& known) { return known.isNull(); });
  components_.emplace_back(component);
}

void TApplication::HandleException(const std::exception_ptr& error) noexcept {
  try {
    const QString message = MessageOf(error);
    const std::lock_guard lock(mutex_);
    const auto known = std::ranges::find(pending_, message, &std::pair<QString, int>::first);
    if (known != pending_.end()) {
      ++known->second;
      return;
    }
    pending_.emplace_back(message, 1);
    if (!posted_) {
      QCoreApplication::postEvent(this, new QEvent(QEvent::User));
      posted_ = true;
    }
  } catch (...) {
    OutputDebugString("An exception could not be reported");
  }
}

void TApplication::Report(const QString& message, int count) {
  if (!reporter_)
    return ReportToDebugger(message, count);
  try {
    reporter_(message, count);
  } catch (...) {
    ReportToDebugger(message, count);
  }
}

void TApplication::customEvent(QEvent*) {
  ReportPending();
}

void TApplication::ReportPending() {
  std::vector<std::pair<QString, int>> messages;
  {
    const std::lock_guard lock(mutex_);
    messages.swap(pending_);
    posted_ = false;
  }
  for (const auto& [message, count] : messages)
    Report(message, count);
}

std::vector<QWidget*> TScreen::Forms() const {
  std::vector<QWidget*> forms;
  for (const QPointer<QWidget>& form : forms_) {
    if (form)
      forms.push_back(form);
  }
  return forms;
}

void TScreen::AddForm(QWidget* form) {
  std::erase_if(forms_, [](const QPointer<QWidget>& known) { return known.isNull(); });
  forms_.emplace_back(form);
}

TApplication& Application() {
  static TApplication application;
  return application;
}

TScreen& Screen() {
  static TScreen screen;
  return screen;
}

} // namespace platform
