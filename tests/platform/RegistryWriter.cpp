// SPDX-License-Identifier: MIT
// A program that saves to the registry, for the tests of several processes and of killed ones.
//   registry_writer add PREFIX COUNT    adds the values PREFIX0, PREFIX1, ... each in a save of its own
//   registry_writer loop                saves for ever, each time the same number in all values of SavedNames.h; writes
//                                       a line after the first save
#include "platform/Registry.h"
#include "platform/SavedNames.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void Add(const std::string& prefix, int count) {
  for (int number = 0; number < count; ++number) {
    platform::TRegistry registry;
    registry.OpenKey(platform::savedKey, true);
    registry.WriteInteger(prefix + std::to_string(number), number);
    registry.CloseKey();
  }
}

[[noreturn]] void Loop() {
  for (int round = 0;; ++round) {
    platform::TRegistry registry;
    registry.OpenKey(platform::savedKey, true);
    for (const char* name : platform::savedNames)
      registry.WriteString(name, std::string(static_cast<std::size_t>(round % 50), 'x') + std::to_string(round));
    registry.CloseKey();
    if (round == 0) {
      std::puts("saved");
      std::fflush(stdout);
    }
  }
}

} // namespace

int main(int argc, char** argv) {
  if (argc == 4 && std::string_view(argv[1]) == "add")
    Add(argv[2], std::atoi(argv[3]));
  else if (argc == 2 && std::string_view(argv[1]) == "loop")
    Loop();
  else
    return 2;
  return 0;
}
