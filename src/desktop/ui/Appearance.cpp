// SPDX-License-Identifier: MIT
#include "desktop/ui/Appearance.h"

#include "desktop/edit/EditControl.h"

#include <QApplication>
#include <QFontDatabase>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

constexpr int rightMargin = 80; // columns, as wide as sources have long been written

int inLimits(int points) {
  return std::clamp(points, environmentLimits.fontPoints.first, environmentLimits.fontPoints.last);
}

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

// The ground of menus, lists and fields is brighter than that of dark text, over which they open, and of the windows:
// their frames, which styles make a little darker than the windows, cannot be seen there.
QPalette darkPalette() {
  return makePalette(QColor(0x31, 0x34, 0x39), QColor(0x40, 0x44, 0x4b), QColor(0x42, 0x46, 0x4c),
                     QColor(0xdf, 0xe1, 0xe5), QColor(0x9a, 0x9e, 0xa5), QColor(0x2f, 0x65, 0xa8));
}

} // namespace

Appearance::Appearance(EnvironmentSettings& settings, QObject* parent) : QObject(parent), settings_(settings) {
  connect(&settings_, &EnvironmentSettings::changed, this, &Appearance::follow);
  applyPalette();
}

Appearance::~Appearance() {
  if (ownPalette_)
    QApplication::setPalette(QPalette());
}

Colours Appearance::colours() const {
  return settings_.values().colours;
}

void Appearance::setColours(Colours colours) {
  settings_.set(&EnvironmentValues::colours, colours);
}

bool Appearance::isDarkWith(Colours colours) const {
  return colours == Colours::Desktop ? desktopIsDark_ : colours == Colours::Dark;
}

void Appearance::follow() {
  if (colours() != applied_)
    applyPalette();
  Q_EMIT changed();
}

// Widgets report each palette on the way, so the desktop's own is not taken for a change of it.
void Appearance::applyPalette() {
  const QScopedValueRollback applying(applying_, true);
  applied_ = colours();
  // A palette that sets nothing is the desktop's.
  if (std::exchange(ownPalette_, false))
    QApplication::setPalette(QPalette());
  desktopIsDark_ = isDarkPalette(QApplication::palette());
  dark_ = isDarkWith(applied_);
  if (dark_ == desktopIsDark_)
    return;
  ownPalette_ = true;
  QApplication::setPalette(dark_ ? darkPalette() : lightPalette());
}

// While there is an own palette that of the desktop cannot be seen, and does not show either.
void Appearance::followDesktop() {
  if (applying_ || ownPalette_ || isDarkPalette(QApplication::palette()) == desktopIsDark_)
    return;
  applyPalette();
  Q_EMIT changed();
}

// The monospaced font that this editor is drawn with where there is one, else the desktop's.
QString Appearance::usualFamily() {
  const QString preferred = QStringLiteral("DejaVu Sans Mono");
  return QFontDatabase::hasFamily(preferred) ? preferred : QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

QString Appearance::fontFamily() const {
  const QString& chosen = settings_.values().fontFamily;
  return !chosen.isEmpty() && QFontDatabase::hasFamily(chosen) ? chosen : usualFamily();
}

int Appearance::fontPoints() const {
  const EnvironmentValues& values = settings_.values();
  return inLimits(values.fontPoints + values.zoomPoints);
}

void Appearance::setFontPoints(int points) {
  settings_.set(&EnvironmentValues::zoomPoints, inLimits(points) - settings_.values().fontPoints);
}

void Appearance::resetFontPoints() {
  settings_.set(&EnvironmentValues::zoomPoints, 0);
}

bool Appearance::showsBlanks() const {
  return settings_.values().showBlanks;
}

void Appearance::setShowsBlanks(bool show) {
  settings_.set(&EnvironmentValues::showBlanks, show);
}

bool Appearance::showsRightMargin() const {
  return settings_.values().showRightMargin;
}

void Appearance::setShowsRightMargin(bool show) {
  settings_.set(&EnvironmentValues::showRightMargin, show);
}

void Appearance::applyTo(TEditControl& editor) const {
  // Both take the time of a look at the whole text, and most changes of the settings are not about them.
  const ColorScheme& scheme = isDark() ? darkScheme() : lightScheme();
  if (editor.colorScheme() != scheme)
    editor.setColorScheme(scheme);
  if (editor.editorFontFamily() != fontFamily() || editor.editorFontPoints() != fontPoints())
    editor.setEditorFont(fontFamily(), fontPoints());
  editor.setTabWidth(settings_.values().tabWidth);
  editor.setTypesPairs(settings_.values().bracketPairs);
  editor.setShowsBlanks(showsBlanks());
  editor.setRightMargin(showsRightMargin() ? rightMargin : 0);
}

} // namespace desktop
