// SPDX-License-Identifier: MIT
// The real editor, off-screen, with a generated unit open.
#pragma once

#include "desktop/edit/EditControl.h"
#include "desktop/ui/Workspace.h"

#include <QString>
#include <QTemporaryDir>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace bench {

// An editor window over a generated unit, shown, its caret in the unit's middle, offered to add-ins as the host. There
// may be one at a time. An add-in has to be gone before it is.
class OpenUnit {
public:
  explicit OpenUnit(int lines);
  ~OpenUnit();
  OpenUnit(const OpenUnit&) = delete;
  OpenUnit& operator=(const OpenUnit&) = delete;

  desktop::TEditControl& control() const;
  // The text as the host serves it to add-ins. Holding it makes the next edit dearer.
  std::shared_ptr<const std::string> servedText() const;

  // Presses and releases a key, and lets the editor do all that follows.
  void press(int key, const QString& text = {}) const;

private:
  QTemporaryDir folder_;
  desktop::Workspace workspace_;
};

// The value below which `part` (0 to 1) of `values` lie. There must be some.
double percentile(std::vector<double> values, double part);

} // namespace bench
