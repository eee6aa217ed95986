// SPDX-License-Identifier: MIT
#include "desktop/ui/Appearance.h"

#include "desktop/edit/EditControl.h"

#include <QApplication>
#include <QFontDatabase>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

constexpr int rightMargin = 80; // columns, as wide as sources have long been written

bool isDarkPalette(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

// A palette from the few colours that the others follow from.
QPalette makePalette(const QColor& window, const QColor& base, const QColor& button, const QColor& text,
                     const QColor& faint, const QColor& highlight) {
  QPalette palette(button, window);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(role, text);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::ToolTipBase, base);
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::PlaceholderText, faint);
  palette.setColor(QPalette::Highlight, highlight);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, highlight.lighter(120));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, faint);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, faint);
  palette.setColor(QPalette::Disabled, QPalette::Light, window); // or disabled text gets a bright shadow
  palette.setColor(QPalette::Mid, window.lightness() < 128 ? window.lighter(150) : window.darker(125));
  return palette;
}

QPalette lightPalette() {
  return makePalette(QColor(0xef, 0xf0, 0xf1), Qt::white, QColor(0xf5, 0xf5, 0xf6), QColor(0x22, 0x24, 0x26),
                     QColor(0x93, 0x96, 0x99), QColor(0x30, 0x7f, 0xd6));
}

// The ground of menus and lists is brighter than that of dark text, over which they open: their frames, which styles
// make a little darker than the windows, cannot be seen there.
QPalette darkPalette() {
  return makePalette(QColor(0x31, 0x34, 0x39), QColor(0x2a, 0x2d, 0x32), QColor(0x42, 0x46, 0x4c),
                     QColor(0xdf, 0xe1, 0xe5), QColor(0x86, 0x8a, 0x91), QColor(0x2f, 0x65, 0xa8));
}

// The monospaced font that this editor is drawn with where there is one, else the desktop's.
QString usualFamily() {
  const QString preferred = QStringLiteral("DejaVu Sans Mono");
  return QFontDatabase::hasFamily(preferred) ? preferred : QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

} // namespace

Appearance::Appearance(QObject* parent)
    : QObject(parent), fontFamily_(usualFamily()), usualPoints_(10), fontPoints_(usualPoints_) {
  applyPalette();
}

Appearance::~Appearance() {
  if (ownPalette_)
    QApplication::setPalette(QPalette());
}

void Appearance::setColours(Colours colours) {
  if (colours == colours_)
    return;
  colours_ = colours;
  applyPalette();
  Q_EMIT changed();
}

void Appearance::applyPalette() {
  // A palette that sets nothing is the desktop's.
  if (std::exchange(ownPalette_, false))
    QApplication::setPalette(QPalette());
  const bool desktopIsDark = isDarkPalette(QApplication::palette());
  dark_ = colours_ == Colours::Desktop ? desktopIsDark : colours_ == Colours::Dark;
  if (dark_ == desktopIsDark)
    return;
  ownPalette_ = true;
  QApplication::setPalette(dark_ ? darkPalette() : lightPalette());
}

void Appearance::followDesktop() {
  if (colours_ != Colours::Desktop || isDarkPalette(QApplication::palette()) == dark_)
    return;
  applyPalette();
  Q_EMIT changed();
}

void Appearance::setFontPoints(int points) {
  const int kept = std::clamp(points, 6, 72);
  if (kept == fontPoints_)
    return;
  fontPoints_ = kept;
  Q_EMIT changed();
}

void Appearance::resetFontPoints() {
  setFontPoints(usualPoints_);
}

void Appearance::setShowsBlanks(bool show) {
  if (std::exchange(showsBlanks_, show) != show)
    Q_EMIT changed();
}

void Appearance::setShowsRightMargin(bool show) {
  if (std::exchange(showsRightMargin_, show) != show)
    Q_EMIT changed();
}

void Appearance::applyTo(TEditControl& editor) const {
  editor.setColorScheme(isDark() ? darkScheme() : lightScheme());
  editor.setEditorFont(fontFamily_, fontPoints_);
  editor.setShowsBlanks(showsBlanks_);
  editor.setRightMargin(showsRightMargin_ ? rightMargin : 0);
}

} // namespace desktop
