// SPDX-License-Identifier: MIT
// A host with one editor window, a proxy on it, and a marker stack.
#pragma once

#include "AddinFixture.h"
#include "editor/QVMarkerStack.h"

#include <array>

namespace quorvane {

// The unit QVMarkerStack is started, over the file "unit1.pas", which is shown on top.
class MarkerTest : public ProxyTest {
protected:
  MarkerTest() {
    StartQVMarkerStack();
    Show("unit unit1;\r\n", 40, 20, 0);
  }
  ~MarkerTest() override {
    QVMarkerStackManager = nullptr;
    Services->TopView = nullptr;
  }

  static IQVMarkerStack& Stack() { return *QVMarkerStackManager; }
  fakes::FakeLineTracker& Tracker() const { return *Buffer->Tracker; }

  // Drops a marker in a cell, both from 1.
  void Push(int column, int line) {
    PutCaret(column, line);
    Stack().Push(View);
  }
  // Picks a marker up from somewhere else and returns where the caret is then.
  platform::TOTAEditPos Pop() {
    View->Cursor = {1, 1000};
    Stack().Pop();
    return View->Cursor;
  }

  using Rows = std::vector<std::array<int, 3>>;
  // Row, column and number of the markers of a file between two lines.
  static Rows Markers(const QString& fileName, int first = 1, int last = 1000) {
    Rows rows;
    Stack().Enumerate(fileName, first, last, [&](int row, int col, int count) { rows.push_back({row, col, count}); });
    return rows;
  }
  Rows Markers() const { return Markers(Buffer->FileName); }

  // A further file, not on top.
  struct TFile {
    std::shared_ptr<fakes::FakeBuffer> Buffer;
    std::shared_ptr<fakes::FakeView> View;
  };
  TFile OpenAnother(const QString& fileName) {
    const auto buffer = std::make_shared<fakes::FakeBuffer>(fileName);
    return {buffer, std::make_shared<fakes::FakeView>(buffer, Window.get())};
  }
  // The page of the file goes, and its view with it.
  void CloseFile() {
    Services->TopView = nullptr;
    View = nullptr;
  }
  // The file is there again, with a buffer and a view of its own.
  void OpenFileAgain() {
    Buffer = std::make_shared<fakes::FakeBuffer>(Buffer->FileName, Buffer->Text);
    View = std::make_shared<fakes::FakeView>(Buffer, Window.get());
    Services->TopView = View;
  }
};

} // namespace quorvane
