// SPDX-License-Identifier: MIT
#include "tools/Stack.h"

#include "analysis/QVUnitParse.h"

#include <pthread.h>
#include <thread>

namespace quorvane {
namespace {

void SetThreadStacks() {
  pthread_attr_t attributes{};
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, ParseStackSize);
  pthread_setattr_default_np(&attributes);
  pthread_attr_destroy(&attributes);
}

} // namespace

void RunOnDeepStack(const std::function<void()>& work) {
  SetThreadStacks();
  std::thread(work).join();
}

} // namespace quorvane
