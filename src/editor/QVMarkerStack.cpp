// SPDX-License-Identifier: MIT
#include "editor/QVMarkerStack.h"

#include "host/QVIDEHackUtils.h"
#include "host/QVLog.h"
#include "host/QVOTAServices.h"
#include "platform/Application.h"
#include "platform/Debug.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace quorvane {

std::shared_ptr<IQVMarkerStack> QVMarkerStackManager;

namespace {

constexpr const char* kUnit = "QVMarkerStack";

// The number by which the check of the top marker is known, whatever the lines of this file.
constexpr unsigned kTopCheck = 237;

// Tracked lines may carry a value; markers need none.
constexpr int kNoData = 0;

// Brings the place of a marker to the front. False if its file cannot be shown.
bool Show(const IQVMarker& marker) {
  if (const auto view = marker.GetEditView()) {
    view->GetBuffer()->Show();
    return true;
  }
  const auto actions = OTAActionServices();
  return actions && actions->OpenFile(marker.GetFileName());
}

void Tell(const QString& message, const IQVMarker& marker) {
  if (const auto messages = OTAMessageServices())
    messages->AddTitleMessage(message.arg(marker.GetFileName()));
}

void GoTo(const IQVMarker& marker) {
  if (!Show(marker)) // why, the host has said
    Tell(QStringLiteral("The marker in %1 is gone, since the file cannot be shown"), marker);
  else if (const auto view = GetTopView())
    view->GetPosition()->Move(marker.GetRow(), marker.GetCol());
  else
    Tell(QStringLiteral("The marker in %1 is gone, since the file is shown as plain text"), marker);
}

// Empty for a file that is not there.
QString CanonicalName(const QString& fileName) {
  return QFileInfo(fileName).canonicalFilePath();
}

} // namespace

IQVMarker::~IQVMarker() = default;

TQVMarker::TQVMarker(platform::IOTAEditView& view) {
  const auto caret = view.GetPosition();
  Row = caret->GetRow();
  Col = caret->GetColumn();
  Log(QStringLiteral("Marker Dropped at Row %1 Col %2").arg(Row).arg(Col));
}

TQVMarker::~TQVMarker() {
  Log(QStringLiteral("Destroying tracker for line %1").arg(Row));
}

std::shared_ptr<TQVMarker> TQVMarker::Create(const std::shared_ptr<platform::IOTAEditView>& view) {
  std::shared_ptr<TQVMarker> marker(new TQVMarker(*view));
  marker->Attach(view);
  return marker;
}

void TQVMarker::Attach(const std::shared_ptr<platform::IOTAEditView>& view) {
  Buffer = view->GetBuffer();
  const auto tracker = Buffer->GetEditLineTracker();
  tracker->AddLine(Row, kNoData);
  NotifierIndex = tracker->AddNotifier(shared_from_this());
  View = view;
}

QString TQVMarker::GetFileName() const {
  return Buffer ? Buffer->GetFileName() : FileName;
}

// A view outlives its page and answers with an error then.
std::shared_ptr<platform::IOTAEditView> TQVMarker::GetEditView() const {
  auto view = View.lock();
  try {
    if (view)
      (void)view->GetBuffer();
  } catch (const platform::EViewClosed&) {
    view = nullptr;
    View.reset();
  }
  return view;
}

void TQVMarker::Detach() {
  const bool isOpen = GetEditView() != nullptr;
  View.reset();
  const auto buffer = std::exchange(Buffer, nullptr);
  if (!buffer)
    return;
  FileName = buffer->GetFileName();
  if (!isOpen)
    return;
  const auto tracker = buffer->GetEditLineTracker();
  tracker->RemoveNotifier(NotifierIndex);
  const int index = tracker->IndexOfLine(Row);
  if (index > -1)
    tracker->Delete(index);
}

void TQVMarker::LineChanged(int oldLine, int newLine, int) {
  if (oldLine != Row)
    return;
  Row = newLine;
  Log(QStringLiteral("Marker: Line %1 has become %2").arg(oldLine).arg(newLine));
}

IQVMarkerStack::~IQVMarkerStack() = default;

TQVMarkerStack::TQVMarkerStack() = default;

TQVMarkerStack::~TQVMarkerStack() {
  for (const auto& marker : Markers)
    marker->Detach();
}

void TQVMarkerStack::Push(const std::shared_ptr<platform::IOTAEditView>& view) {
  platform::Require(view != nullptr, kUnit);
  Markers.push_back(TQVMarker::Create(view));
  Log(QStringLiteral("Marker Stack Count: %1").arg(Count()));
}

void TQVMarkerStack::Pop() {
  if (Markers.empty())
    return;
  const auto marker = Markers.back();
  platform::Require(marker != nullptr, kUnit, "Assertion failure", kTopCheck);
  Log(QStringLiteral("Marker Picked Up Row %1 Col %2)").arg(marker->GetRow()).arg(marker->GetCol()));
  {
    // Also when the host fails: else the marker would stay on top, and none below it could be reached.
    const auto drop = qScopeGuard([&] {
      platform::Guarded([&marker] { marker->Detach(); });
      std::erase(Markers, marker); // by identity: while a file is opened the stack may have changed
    });
    GoTo(*marker);
  }
  if (const auto top = GetTopView())
    top->Paint();
}

void TQVMarkerStack::Enumerate(const QString& fileName, std::int32_t firstLine, std::int32_t lastLine,
                               const TQVMarkerStackCallback& callback) const {
  for (std::size_t index = 0; index < Markers.size(); ++index) {
    const auto& marker = Markers[index];
    platform::Require(marker != nullptr, kUnit);
    const std::int32_t row = marker->GetRow();
    if (row >= firstLine && row <= lastLine && marker->GetFileName() == fileName)
      callback(row, marker->GetCol(), static_cast<std::int32_t>(index + 1));
  }
}

std::int32_t TQVMarkerStack::Count() const {
  return static_cast<std::int32_t>(Markers.size());
}

void TQVMarkerStack::ReverseTop(std::int32_t count) {
  const auto top = std::clamp<std::ptrdiff_t>(count, 0, std::ssize(Markers));
  std::reverse(Markers.end() - top, Markers.end());
}

void TQVMarkerStack::Resume(const std::shared_ptr<platform::IOTAEditView>& view) {
  if (Markers.empty())
    return;
  const QString fileName = view->GetBuffer()->GetFileName();
  if (Resumed.lock() == view && ResumedName == fileName)
    return;
  Resumed = view;
  ResumedName = fileName;
  const QString canonical = CanonicalName(fileName);
  for (const auto& marker : Markers) {
    if (marker->GetEditView())
      continue;
    const QString name = marker->GetFileName();
    if (name == fileName || (!canonical.isEmpty() && CanonicalName(name) == canonical))
      marker->Attach(view);
  }
}

void StartQVMarkerStack() {
  QVMarkerStackManager = std::make_shared<TQVMarkerStack>();
}

void StopQVMarkerStack() {
  QVMarkerStackManager = nullptr;
  platform::OutputDebugString("QVMarkerStack Finalized");
}

} // namespace quorvane
