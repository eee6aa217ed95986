// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <memory>

namespace desktop {

struct EditState;
class SourceDocument;
class TEditWindow;

// An open file, shown as one tab of one editor window.
//
// The page owns its document. While it is not in front it also keeps the caret, selection and scroll position with
// which it will come back; while it is in front these are the edit control's. Pages are made by TEditWindow::addPage
// and destroyed by TEditWindow::closePage or with their window. Main thread only.
class Page : public QObject {
  Q_OBJECT

public:
  Page(std::unique_ptr<SourceDocument> document, TEditWindow* window);
  ~Page() override;

  // Owned by the page, never null.
  SourceDocument* document() const { return document_.get(); }
  // The window that shows the page, never null.
  TEditWindow* window() const { return window_; }
  // Whether the page is in front in its window.
  bool isCurrent() const;

  // The file name without its folder.
  QString title() const;

  // Whether the text is shown as Pascal source: by the ending of the file's name, and if it is not too large for that.
  bool isPascal() const;

  // Caret, selection and scroll position. setState moves them at once when the page is in front.
  EditState state() const;
  void setState(const EditState& state);

Q_SIGNALS:
  // The title, the modified mark, the encoding or the read-only state may have changed.
  void changed();

private:
  TEditWindow* window_;
  std::unique_ptr<SourceDocument> document_;
  std::unique_ptr<EditState> state_;
};

} // namespace desktop
