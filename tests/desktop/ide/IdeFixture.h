// SPDX-License-Identifier: MIT
// A workspace with the services that it offers to add-ins.
#pragma once

#include "desktop/ui/UiFixture.h"

#include "desktop/ide/IdeServices.h"

#include <memory>
#include <ostream>

namespace platform {

// Let gtest print positions.
inline void PrintTo(const TOTAEditPos& position, std::ostream* out) {
  *out << "column " << position.Col << " of line " << position.Line;
}
inline void PrintTo(const TOTACharPos& position, std::ostream* out) {
  *out << "character " << position.CharIndex << " of line " << position.Line;
}

} // namespace platform

namespace desktop {

class IdeFixture : public UiFixture {
protected:
  // The view of a new file with these contents, in a window that can be seen.
  std::shared_ptr<platform::IOTAEditView> open(const QByteArray& bytes, const char* name = "unit.pas") {
    EXPECT_NE(openText(QString::fromLatin1(name), bytes), nullptr);
    activate(window());
    return services->GetTopView();
  }

  std::shared_ptr<IdeServices> services = std::make_shared<IdeServices>(workspace);
};

// All that a buffer serves, read in pieces of `step` bytes.
inline std::string textOf(platform::IOTAEditBuffer& buffer, int step = 7) {
  const auto reader = buffer.CreateReader();
  std::string text;
  std::string piece(static_cast<std::size_t>(step), '\0');
  for (;;) {
    const int count = reader->GetText(static_cast<int>(text.size()), piece.data(), step);
    text.append(piece, 0, static_cast<std::size_t>(count));
    if (count < step)
      return text;
  }
}

} // namespace desktop
