// SPDX-License-Identifier: MIT
// What one paint pass costs, with and without the add-in, and how many of them a key press causes. Off-screen, on the
// real editor window; the picture has the size of the window, so only the add-in's share depends on the text's length.
#include "PascalTexts.h"

#include "desktop/edit/EditControl.h"
#include "desktop/ide/IdeServices.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/Workspace.h"
#include "editor/QVEditorProxy.h"
#include "platform/ota/Services.h"
#include "support/HostPaints.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <memory>
#include <string>

namespace {

enum class AddIn { Off, On };

// An editor window over a generated unit, its caret at the bracket in the middle, shown and painted.
class Editor {
public:
  Editor(std::int64_t lines, AddIn addIn) {
    const QString name = folder_.filePath(QStringLiteral("unit.pas"));
    QFile file(name);
    const std::string text = bench::GeneratedUnit(static_cast<int>(lines));
    if (!file.open(QIODevice::WriteOnly) || file.write(text.data(), static_cast<qint64>(text.size())) < 0)
      qFatal("the unit could not be written");
    file.close();
    platform::SetBorlandIDEServices(std::make_shared<desktop::IdeServices>(workspace_));
    workspace_.openFile(name);
    workspace_.frameOf(workspace_.topWindow())->show();
    control().setCaret(static_cast<int>(lines / 2), 1);
    control().showCaret();
    control().setFocus();
    paints_ = std::make_unique<support::HostPaints>(control());
    if (addIn == AddIn::On)
      quorvane::TQVEditorProxy::InjectExistingProxies();
    QCoreApplication::processEvents();
  }
  ~Editor() {
    quorvane::TQVEditorProxy::RemoveExistingProxies();
    paints_.reset();
    platform::SetBorlandIDEServices(nullptr);
  }
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  desktop::TEditControl& control() const { return *workspace_.topWindow()->editor(); }
  int paints() const { return paints_->count; }

  void press(int key, const QString& text) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier, text);
      QCoreApplication::sendEvent(&control(), &event);
      QCoreApplication::processEvents();
    }
  }

private:
  QTemporaryDir folder_;
  desktop::Workspace workspace_;
  std::unique_ptr<support::HostPaints> paints_;
};

template <AddIn addIn> void PaintPass(benchmark::State& state) {
  const Editor editor(state.range(0), addIn);
  for (auto _ : state)
    editor.control().Repaint();
}

// A typed letter and its removal: the served text changes with each of them.
template <AddIn addIn> void KeyPress(benchmark::State& state) {
  Editor editor(state.range(0), addIn);
  const int before = editor.paints();
  std::int64_t keys = 0;
  for (auto _ : state) {
    editor.press(Qt::Key_A, QStringLiteral("a"));
    editor.press(Qt::Key_Backspace, {});
    keys += 2;
  }
  state.counters["passes_per_key"] = static_cast<double>(editor.paints() - before) / static_cast<double>(keys);
}

void Lengths(benchmark::internal::Benchmark* benchmark) {
  for (const int lines : {1000, 10000, 100000})
    benchmark->Arg(lines);
  benchmark->ArgName("lines")->Unit(benchmark::kMillisecond);
}

BENCHMARK_TEMPLATE(PaintPass, AddIn::Off)->Name("Host")->Apply(Lengths);
BENCHMARK_TEMPLATE(PaintPass, AddIn::On)->Name("HostAndAddIn")->Apply(Lengths);
BENCHMARK_TEMPLATE(KeyPress, AddIn::Off)->Name("KeyHost")->Apply(Lengths);
BENCHMARK_TEMPLATE(KeyPress, AddIn::On)->Name("KeyHostAndAddIn")->Apply(Lengths);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
