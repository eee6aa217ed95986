// SPDX-License-Identifier: MIT
// What one paint pass costs, with and without the add-in, and how many of them a key press causes. Off-screen, on the
// real editor window; the picture has the size of the window, so only the add-in's share depends on the text's length.
#include "OpenUnit.h"

#include "editor/QVEditorProxy.h"
#include "support/HostPaints.h"

#include <benchmark/benchmark.h>

#include <QApplication>

namespace {

enum class AddIn { Off, On };

// An editor with or without the add-in's proxies, painted.
class Editor {
public:
  Editor(std::int64_t lines, AddIn addIn) : unit_(static_cast<int>(lines)), paints_(unit_.control()) {
    if (addIn == AddIn::On)
      quorvane::TQVEditorProxy::InjectExistingProxies();
    QCoreApplication::processEvents();
    // The first pass also has the whole text served for the first time, which is part of opening a file.
    unit_.control().Repaint();
  }
  ~Editor() { quorvane::TQVEditorProxy::RemoveExistingProxies(); }
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  const bench::OpenUnit& unit() const { return unit_; }
  int paints() const { return paints_.count; }

private:
  bench::OpenUnit unit_;
  support::HostPaints paints_;
};

template <AddIn addIn> void PaintPass(benchmark::State& state) {
  const Editor editor(state.range(0), addIn);
  for (auto _ : state)
    editor.unit().control().Repaint();
}

// A typed letter and its removal: the served text changes with each of them.
template <AddIn addIn> void KeyPress(benchmark::State& state) {
  const Editor editor(state.range(0), addIn);
  const int before = editor.paints();
  std::int64_t keys = 0;
  for (auto _ : state) {
    editor.unit().press(Qt::Key_A, QStringLiteral("a"));
    editor.unit().press(Qt::Key_Backspace);
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
