// SPDX-License-Identifier: MIT
// What the tests of the add-in's units share: a host in memory, the options at their defaults, and a log that keeps its
// lines.
#pragma once

#include "editor/QVEditorProxy.h"
#include "host/QVLog.h"
#include "platform/Application.h"
#include "platform/Errors.h"
#include "settings/model/QVOptions.h"
#include "support/fakes/DebugRecorder.h"
#include "support/fakes/FakeEditWindow.h"
#include "support/fakes/FakeServices.h"
#include "support/fakes/FakeSource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quorvane {

using Lines = std::vector<std::string>;

// A log form that keeps what is logged. It is the log form of the process while it lives.
class LogRecorder : public TQVLogForm {
public:
  LogRecorder() { QVLogForm = this; }
  void Log(const QString& text) override { lines_.push_back(text.toStdString()); }
  // The lines since the start or the last call.
  Lines Take() { return std::exchange(lines_, {}); }

private:
  Lines lines_;
};

// A host without an editor window. What add-ins leave to the application's exception handling fails the test, unless
// the test takes it.
class AddinTest : public testing::Test {
protected:
  AddinTest() {
    ResetOptions();
    platform::Application().SetReporter(
        [this](const QString& message, int) { reported_.push_back(message.toStdString()); });
  }
  ~AddinTest() override {
    EXPECT_EQ(TakeReported(), Lines{});
    platform::Application().SetReporter(nullptr);
  }

  // The messages of the exceptions since the start or the last call.
  Lines TakeReported() {
    platform::Application().ReportPending();
    return std::exchange(reported_, {});
  }

  fakes::DebugRecorder Debug;
  LogRecorder LogForm;
  std::shared_ptr<fakes::FakeServices> Services = std::make_shared<fakes::FakeServices>();
  fakes::InstalledServices Installed{Services};

private:
  Lines reported_;
};

// A host with one editor window that holds the top view, of the empty file "unit1.pas", and a proxy on that window.
class ProxyTest : public AddinTest {
protected:
  ProxyTest() {
    Services->TopView = View;
    Debug.Take();
  }
  ~ProxyTest() override {
    if (!Window || !Window->HasEditor())
      return;
    // What a test hung into the control may speak of things that have gone by now.
    Editor().OnMessage = nullptr;
    Editor().OnBeginDrawing = nullptr;
  }

  fakes::FakeEditControl& Editor() { return Window->Editor(); }

  // Shows `text` in a text area of whole cells right of a gutter; the control's own procedure paints it, black on
  // white.
  void Show(std::string text, int columns, int lines, int gutterWidth, qreal ratio = 1) {
    Buffer->Text = std::move(text);
    Buffer->LeftGutterWidth = gutterWidth;
    View->ViewSize = {columns, lines};
    Editor().SetUp(columns, lines, gutterWidth, ratio);
    Editor().LineCount = static_cast<int>(std::ranges::count(Buffer->Text, '\n')) + 1;
    Editor().OnMessage = [this](platform::TMessage& message) {
      if (message.Msg == platform::WM_PAINT)
        PaintText();
    };
  }

  // Puts the caret into a cell, both from 1.
  void PutCaret(int column, int line) {
    Editor().CaretX = column;
    Editor().CaretY = line;
    View->Cursor = {static_cast<std::int16_t>(column), line};
  }

  // The picture after a paint, with the pass or without.
  QImage PictureAfterPaint() {
    Editor().Send(platform::WM_PAINT);
    return Editor().Picture().copy();
  }
  QImage PictureOfTheHost() {
    const QString name = std::exchange(Buffer->FileName, QStringLiteral("plain.txt"));
    QImage picture = PictureAfterPaint();
    Buffer->FileName = name;
    return picture;
  }

  // How many passes have read the buffer so far; each reads a text of fewer than 32767 bytes in one request.
  std::size_t Passes() const { return Buffer->Requests.size(); }

  void PressHotKey() { Window->Actions().Actions().constFirst()->trigger(); }

  std::unique_ptr<fakes::TEditWindow> Window = std::make_unique<fakes::TEditWindow>();
  std::shared_ptr<fakes::FakeBuffer> Buffer = std::make_shared<fakes::FakeBuffer>(QStringLiteral("/home/me/unit1.pas"));
  std::shared_ptr<fakes::FakeView> View = std::make_shared<fakes::FakeView>(Buffer, Window.get());
  platform::TWndMethod HostProc = Window->Editor().WindowProc();
  QPointer<TQVEditorProxy> Proxy = new TQVEditorProxy(Window.get());

private:
  void PaintText() {
    // A canvas of its own: the paint may come while the proxy is using the control's.
    platform::TCanvas canvas(Editor().Canvas().Surface());
    canvas.FillRect({0, 0, Editor().Width, Editor().PublishedClientHeight});
    const QSize cell = Editor().CellSize();
    for (int row = 0; row < View->ViewSize.height(); ++row) {
      const std::string_view line = Buffer->Line(Editor().TopLine + row);
      for (std::size_t index = 0; index < line.size(); ++index) {
        platform::TOTAEditPos at;
        platform::TOTACharPos character{static_cast<std::int16_t>(index), Editor().TopLine + row};
        View->ConvertPos(false, at, character);
        if (line[index] != '\t')
          canvas.TextOut(Buffer->LeftGutterWidth + (at.Col - View->TopPos.Col) * cell.width(), row * cell.height(),
                         QString(QLatin1Char(line[index])));
      }
    }
  }
};

// An outline of which only the identity counts.
inline std::shared_ptr<IQVPasInfo> SomePasInfo() {
  const auto owner = std::make_shared<int>(0);
  return {owner, reinterpret_cast<IQVPasInfo*>(owner.get())};
}

// Runs `call` and returns the assertion it raised, with an empty text if it raised none.
template <class TCall> platform::EAssertionFailed AssertionOf(TCall&& call) {
  try {
    std::forward<TCall>(call)();
  } catch (const platform::EAssertionFailed& assertion) {
    return assertion;
  }
  return platform::EAssertionFailed({}, {}, 0);
}

} // namespace quorvane
