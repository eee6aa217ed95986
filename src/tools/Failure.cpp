// SPDX-License-Identifier: MIT
#include "tools/Failure.h"

#include <exception>
#include <new>
#include <system_error>

namespace quorvane {
namespace {

std::string ReasonInWords() {
  try {
    throw;
  } catch (const std::system_error& error) {
    return error.code().message();
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    return error.what();
  }
}

} // namespace

std::string FailureReason() noexcept {
  try {
    return ReasonInWords();
  } catch (const std::bad_alloc&) {
    return "Out of memory"; // short enough to need none
  } catch (...) {
    return "Unknown";
  }
}

} // namespace quorvane
