// SPDX-License-Identifier: MIT
// What the tests of loading, applying and saving start from.
#pragma once

#include "RecordingRegistry.h"

#include "settings/model/QVOptions.h"
#include "settings/model/QVOptionsStore.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quorvane {

// A registry without the key, controls as designed and globals as designed, before and after each test.
class OptionsFixture : public testing::Test {
protected:
  OptionsFixture() { ResetOptions(); }
  ~OptionsFixture() override { ResetOptions(); }

  void Load() {
    LoadOptions(Registry, Controls, [this](std::string_view line) { Reports.emplace_back(line); });
  }
  // What a start of the editor does to the options.
  void Start() {
    Controls = TQVOptionValues();
    Load();
    ApplyOptions(Controls);
  }
  void Save() {
    SaveOptions(Controls, Registry, [this](std::string_view line) { Reports.emplace_back(line); });
  }
  // What its end does.
  void Stop() { Save(); }

  fakes::RecordingRegistry Registry;
  TQVOptionValues Controls;
  std::vector<std::string> Reports;
};

} // namespace quorvane
