// SPDX-License-Identifier: MIT
#include "desktop/edit/ColorScheme.h"

namespace desktop {

namespace {

ColorScheme makeLight() {
  ColorScheme scheme;
  scheme.name = QStringLiteral("Light");
  scheme.ground = QColor(0xFF, 0xFF, 0xFF);
  scheme.text = QColor(0x00, 0x00, 0x00);
  scheme.selectionGround = QColor(0xB5, 0xD5, 0xFF);
  scheme.selectionText = scheme.text;
  scheme.gutterGround = QColor(0xF3, 0xF3, 0xF3);
  scheme.gutterLine = QColor(0xD0, 0xD0, 0xD0);
  scheme.caret = QColor(0x00, 0x00, 0x00);
  scheme.matchFrame = QColor(0xB3, 0x5C, 0x00);
  scheme.styles = {{
      {scheme.text},                           // Blank
      {QColor(0x3B, 0x74, 0x3B), false, true}, // Comment
      {QColor(0x00, 0x00, 0x80), true},        // ReservedWord
      {scheme.text},                           // Identifier
      {scheme.text},                           // Symbol
      {QColor(0x0A, 0x5B, 0xC4)},              // String
      {QColor(0x9A, 0x2B, 0x8C)},              // Number
      {QColor(0x00, 0x75, 0x80), false, true}, // Directive
      {QColor(0xC0, 0x1C, 0x28)},              // Illegal
  }};
  return scheme;
}

ColorScheme makeDark() {
  ColorScheme scheme;
  scheme.name = QStringLiteral("Dark");
  scheme.ground = QColor(0x1F, 0x22, 0x27);
  scheme.text = QColor(0xDC, 0xDF, 0xE4);
  scheme.selectionGround = QColor(0x2F, 0x4F, 0x78);
  scheme.selectionText = scheme.text;
  scheme.gutterGround = QColor(0x26, 0x2A, 0x30);
  scheme.gutterLine = QColor(0x3A, 0x3F, 0x47);
  scheme.caret = QColor(0xF0, 0xF2, 0xF5);
  scheme.matchFrame = QColor(0xE5, 0xA5, 0x4B);
  scheme.styles = {{
      {scheme.text},                           // Blank
      {QColor(0x84, 0xA6, 0x84), false, true}, // Comment
      {QColor(0x8F, 0xB8, 0xF0), true},        // ReservedWord
      {scheme.text},                           // Identifier
      {scheme.text},                           // Symbol
      {QColor(0xE5, 0xB9, 0x7A)},              // String
      {QColor(0xD3, 0x9B, 0xD8)},              // Number
      {QColor(0x6F, 0xC3, 0xC9), false, true}, // Directive
      {QColor(0xF2, 0x77, 0x7A)},              // Illegal
  }};
  return scheme;
}

} // namespace

const ColorScheme& lightScheme() {
  static const ColorScheme scheme = makeLight();
  return scheme;
}

const ColorScheme& darkScheme() {
  static const ColorScheme scheme = makeDark();
  return scheme;
}

} // namespace desktop
