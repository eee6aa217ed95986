// SPDX-License-Identifier: MIT
// The real host with proxies and the marker stack.
#pragma once

#include "together/TogetherFixture.h"

#include "editor/QVMarkerStack.h"

#include <array>
#include <vector>

namespace together {

class MarkerFixture : public TogetherFixture {
protected:
  MarkerFixture() { quorvane::StartQVMarkerStack(); }
  ~MarkerFixture() override {
    quorvane::TQVEditorProxy::RemoveExistingProxies();
    quorvane::StopQVMarkerStack();
  }

  static quorvane::IQVMarkerStack& stack() { return *quorvane::QVMarkerStackManager; }
  quorvane::TQVEditorProxy& proxy() const { return *quorvane::TQVEditorProxy::GetProxy(*window()); }

  // Row and column of the caret of the top view, both from 1.
  std::array<int, 2> caret() const {
    const auto position = services->GetTopView()->GetPosition();
    return {position->GetRow(), position->GetColumn()};
  }

  void drop(int row, int column) {
    putCaret(row, column);
    proxy().DropMarker();
  }
  std::array<int, 2> pickUp() {
    proxy().PickupMarker();
    return caret();
  }

  using Rows = std::vector<int>;
  // The rows of the markers of a file, from the bottom of the stack.
  static Rows rowsOf(const QString& fileName) {
    Rows rows;
    stack().Enumerate(fileName, 1, 1'000'000, [&](int row, int, int) { rows.push_back(row); });
    return rows;
  }
};

} // namespace together
