// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/edit/SyntaxAttribute.h"

#include <QColor>
#include <QString>

#include <array>

namespace desktop {

// How a kind of text looks.
struct TextStyle {
  QColor color;
  bool bold = false;
  bool italic = false;

  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

// The colours of an edit control. There is deliberately no ground behind single tokens or behind the caret's line:
// add-ins mark cells by replacing exactly the ground colour.
struct ColorScheme {
  QString name; // for menus
  QColor ground;
  QColor text;
  QColor selectionGround;
  QColor selectionText;
  QColor gutterGround;
  QColor gutterLine; // between gutter and text
  QColor caret;
  QColor matchFrame;                                  // round what a search has found
  std::array<TextStyle, syntaxAttributeCount> styles; // by SyntaxAttribute

  const TextStyle& style(SyntaxAttribute attribute) const { return styles[static_cast<std::size_t>(attribute)]; }
  friend bool operator==(const ColorScheme&, const ColorScheme&) = default;
};

// Black on white, with the classic colours of Pascal editors.
const ColorScheme& lightScheme();
const ColorScheme& darkScheme();

} // namespace desktop
