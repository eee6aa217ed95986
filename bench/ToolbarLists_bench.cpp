// SPDX-License-Identifier: MIT
// What the lists of the toolbar cost the main thread: with an outline whose routines are all new, and with one that
// tells nothing new, as nearly all do. Prints a Markdown table.
#include "OpenUnit.h"

#include "analysis/QVPasInfo.h"
#include "toolbar/QVEditorToolbar.h"
#include "toolbar/QVLocalVars.h"

#include <QApplication>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr int Rounds = 50;
constexpr double Frame = 1000.0 / 60; // milliseconds

// As many methods with names of a usual length, the caret in one in the middle.
void fill(quorvane::TQVPasInfo& info, int routines, const std::string& className) {
  for (int index = 0; index < routines; ++index)
    info.AddMethod(className + ".ReadProperty" + std::to_string(index), index);
  info.AddClass(className, 1);
  info.SetCurrentClass(className);
  info.SetCurrentProc("ReadProperty" + std::to_string(routines / 2));
  info.GetMethods().Settle(); // as the parse thread does
}

// The time in milliseconds until an outline is shown, painted and all.
double timeToShow(quorvane::TQVEditorToolbar& toolbar, const quorvane::IQVPasInfo& info) {
  const auto start = std::chrono::steady_clock::now();
  toolbar.UpdateToolBar(info);
  QCoreApplication::processEvents();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void measureRoutines(quorvane::TQVEditorToolbar& toolbar, int routines) {
  quorvane::TQVPasInfo some;
  quorvane::TQVPasInfo other;
  fill(some, routines, "TReader");
  fill(other, routines, "TWriter");
  std::vector<double> changed;
  std::vector<double> same;
  for (int round = 0; round < Rounds; ++round) {
    for (const quorvane::TQVPasInfo* info : {&some, &other}) {
      changed.push_back(timeToShow(toolbar, *info));
      same.push_back(timeToShow(toolbar, *info));
    }
  }
  const double median = bench::percentile(changed, 0.5);
  const double perThousand = median / routines * 1000;
  std::printf("| %d | %.2f | %.2f | %.3f | %.3f |\n", routines, median, perThousand, perThousand / Frame,
              bench::percentile(same, 0.5));
}

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const bench::OpenUnit unit(1000);
  quorvane::RegisterEditorToolbar();
  std::printf("\nThe lists of the toolbar; medians in milliseconds\n\n");
  std::printf(
      "| routines | all new | a thousand of them | of a frame of 60 Hz | nothing new |\n|---|---|---|---|---|\n");
  for (const int routines : {1000, 5000, 20'000})
    measureRoutines(*quorvane::GetEditorToolbar(&unit.control()), routines);
  quorvane::StopEditorToolbar();
  return EXIT_SUCCESS;
}
