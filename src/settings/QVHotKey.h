// SPDX-License-Identifier: MIT
// The field in which a shortcut is shown and pressed.
#pragma once

#include "platform/Actions.h"

#include <QLineEdit>

#include <vector>

namespace quorvane {

// Shows a shortcut as text, "None" for 0, and takes over each one that is pressed while it has the focus. Nothing can
// be typed into it.
//
// Combinations can be refused: then the key is taken with the preset modifiers added. Without Ctrl and Alt some keys
// are no shortcuts: Backspace, Delete and Space clear the field, Enter and Escape are the dialog's. Tab always is, so
// that the keyboard gets out again, and so are keys that have no name. While modifiers are held, they are shown.
//
// Which key was pressed is what VirtualKeyOf says.
class THotKey final : public QLineEdit {
  Q_OBJECT
  Q_PROPERTY(int HotKey READ HotKey WRITE SetHotKey)
public:
  explicit THotKey(QWidget* parent = nullptr);
  ~THotKey() override;

  // The shortcut. One that is set is taken as it stands; what is refused is refused to the keyboard only.
  platform::TShortCut HotKey() const { return hotKey_; }
  void SetHotKey(int hotKey);
  // The combinations of modifiers that are refused; 0 stands for no modifier. None at first.
  const std::vector<platform::TShortCut>& InvalidKeys() const { return invalidKeys_; }
  void SetInvalidKeys(std::vector<platform::TShortCut> combinations) { invalidKeys_ = std::move(combinations); }
  // The preset modifiers. None at first.
  platform::TShortCut Modifiers() const { return modifiers_; }
  void SetModifiers(platform::TShortCut modifiers) { modifiers_ = modifiers; }

  QSize sizeHint() const override;

protected:
  bool event(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;

private:
  platform::TShortCut Accepted(std::uint8_t key, platform::TShortCut modifiers) const;

  platform::TShortCut hotKey_ = 0;
  std::vector<platform::TShortCut> invalidKeys_;
  platform::TShortCut modifiers_ = 0;
};

} // namespace quorvane
