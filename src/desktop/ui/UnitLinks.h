// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/edit/HotLink.h"
#include "desktop/edit/UsedUnits.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <optional>
#include <vector>

namespace desktop {

class SourceDocument;
class TEditWindow;
class Workspace;

// The units that the uses clauses of one window's text name, as links that open their files.
//
// A file is found as add-ins find it. The one that stands behind "in" counts first, from the folder of the text, in any
// case and with either slash. What is not found is told in the window's message bar.
class UnitLinks : public QObject {
  Q_OBJECT

public:
  // Makes the names links in the control of `window`, which owns this object.
  UnitLinks(TEditWindow* window, Workspace& workspace);
  ~UnitLinks() override;

  // Opens the unit whose name the caret stands in or at an end of, or says that there is none.
  void openAtCaret();

private:
  void refresh();
  const UsedUnit* unitAt(const QTextBlock& line, int unit);
  std::optional<UnitSpan> linkAt(const QTextBlock& line, int unit);
  void openAt(int position);
  void open(const UsedUnit& unit);
  QString statedFile(const UsedUnit& unit) const;

  TEditWindow* window_;
  Workspace& workspace_;
  // Whose units are known, and as of which revision; null when none are.
  QPointer<const SourceDocument> document_;
  int revision_ = 0;
  std::vector<UsedUnit> units_;
};

} // namespace desktop
