// SPDX-License-Identifier: MIT
#include "desktop/ui/PageReload.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/FileStore.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/LongTextNote.h"
#include "desktop/ui/Page.h"

#include <QCoreApplication>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

namespace desktop {

namespace {

// Positions of an EditState that move with the text.
class FollowedState {
public:
  FollowedState(SourceDocument& document, const EditState& state)
      : caret_(&document), anchor_(&document), top_(&document), leftCell_(state.leftCell) {
    const int last = document.characterCount() - 1;
    caret_.setPosition(std::clamp(state.caret, 0, last));
    anchor_.setPosition(std::clamp(state.anchor, 0, last));
    top_.setPosition(document.findBlockByNumber(std::clamp(state.topLine, 0, document.blockCount() - 1)).position());
  }

  EditState state() const { return {caret_.position(), anchor_.position(), top_.blockNumber(), leftCell_}; }

private:
  QTextCursor caret_;
  QTextCursor anchor_;
  QTextCursor top_;
  int leftCell_;
};

QString reloadNoted(const Page& page) {
  const LongTextNote note(page, QCoreApplication::translate("PageReload", "Reading %1 again\u2026").arg(page.title()));
  return reload(*page.document());
}

} // namespace

QString reloadPage(Page& page) {
  const FollowedState followed(*page.document(), page.state());
  const QString problem = reloadNoted(page);
  if (!problem.isEmpty())
    return problem;
  page.setState(followed.state());
  Q_EMIT page.changed(); // the file may have become read-only, or have other line ends
  return {};
}

} // namespace desktop
