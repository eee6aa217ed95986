// SPDX-License-Identifier: MIT
#include "tools/Stack.h"

#include <cstddef>
#include <pthread.h>
#include <thread>

namespace quorvane {
namespace {

void SetThreadStacks() {
  // Four times what the deepest parse takes. Only what is used becomes memory.
  constexpr std::size_t StackSize = std::size_t{32} * 1024 * 1024;
  pthread_attr_t attributes{};
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, StackSize);
  pthread_setattr_default_np(&attributes);
  pthread_attr_destroy(&attributes);
}

} // namespace

void RunOnDeepStack(const std::function<void()>& work) {
  SetThreadStacks();
  std::thread(work).join();
}

} // namespace quorvane
