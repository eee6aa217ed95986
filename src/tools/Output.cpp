// SPDX-License-Identifier: MIT
#include "tools/Output.h"

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <unistd.h>

namespace quorvane {

void TOutput::EndLine() {
  constexpr std::size_t PieceSize = std::size_t{64} * 1024;
  FBuffer += '\n';
  if (FBuffer.size() >= PieceSize)
    Flush();
}

void TOutput::Flush() {
  std::string_view rest = FBuffer;
  while (!rest.empty()) {
    const ssize_t written = write(STDOUT_FILENO, rest.data(), rest.size());
    if (written >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(written));
      continue;
    }
    const int reason = errno;
    if (reason == EINTR)
      continue;
    FBuffer.clear();
    if (reason == EPIPE)
      throw EOutputClosed();
    throw std::system_error(reason, std::generic_category());
  }
  FBuffer.clear();
}

} // namespace quorvane
