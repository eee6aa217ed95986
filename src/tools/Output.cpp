// SPDX-License-Identifier: MIT
#include "tools/Output.h"

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace quorvane {

void TOutput::EndLine() {
  constexpr std::size_t PieceSize = std::size_t{64} * 1024;
  FBuffer += '\n';
  FLineStart = FBuffer.size();
  if (FBuffer.size() >= PieceSize)
    Flush();
}

void TOutput::Flush() {
  std::string_view rest = FBuffer;
  FLineStart = 0;
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
    throw EOutputError(std::generic_category().message(reason));
  }
  FBuffer.clear();
}

} // namespace quorvane
