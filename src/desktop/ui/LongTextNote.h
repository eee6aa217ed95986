// SPDX-License-Identifier: MIT
#pragma once

class QString;

namespace desktop {

class Page;
class TEditWindow;

// While one of these lives, the status bar of a page's window shows `note` and the mouse pointer that of waiting, if
// the page's text is so long that the work on it can be noticed: the window can say so, though it can do nothing else.
// The page's window has to outlive it. Main thread only.
class LongTextNote {
public:
  LongTextNote(const Page& page, const QString& note);
  ~LongTextNote();
  LongTextNote(const LongTextNote&) = delete;
  LongTextNote& operator=(const LongTextNote&) = delete;

private:
  TEditWindow* window_;
  bool isShown_;
};

} // namespace desktop
