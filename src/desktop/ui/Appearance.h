// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/EnvironmentSettings.h"

#include <QObject>
#include <QString>

namespace desktop {

class TEditControl;

// How all windows look: light, dark or as the desktop, the font of the text, and what is shown besides the text. All of
// that is in the settings, which the windows follow through this class.
//
// The scheme colours the frames as well as the text, so that a dark text does not stand in a bright window: the
// desktop's own palette is kept where it is of the wanted kind.
class Appearance : public QObject {
  Q_OBJECT

public:
  using Colours = desktop::Colours;

  // `settings` must outlive it.
  explicit Appearance(EnvironmentSettings& settings, QObject* parent = nullptr);
  // Gives the application its own colours back.
  ~Appearance() override;

  Colours colours() const;
  void setColours(Colours colours);
  // Whether text is light on dark at present.
  bool isDark() const { return dark_; }
  // Whether it would be with these colours.
  bool isDarkWith(Colours colours) const;
  // To be called when the desktop may have changed its colours.
  void followDesktop();

  // The font of text when none is chosen, or when the one that was chosen is not installed any more.
  static QString usualFamily();
  // The font of the text and its size, zoomed.
  QString fontFamily() const;
  int fontPoints() const;
  // Zooms the text to this size, within the limits of its usual one.
  void setFontPoints(int points);
  // Takes the zoom away.
  void resetFontPoints();

  // Whether blanks and tabs are drawn, and a line behind the column that a line of source should not go beyond.
  bool showsBlanks() const;
  void setShowsBlanks(bool show);
  bool showsRightMargin() const;
  void setShowsRightMargin(bool show);

  // Gives `editor` the scheme, the font, the tab stops, what is shown at the moment and how brackets are typed.
  void applyTo(TEditControl& editor) const;

Q_SIGNALS:
  void changed();

private:
  void follow();
  void applyPalette();

  EnvironmentSettings& settings_;
  Colours applied_ = Colours::Light;
  bool applying_ = false;
  bool ownPalette_ = false; // the application's palette is one of this class's
  bool desktopIsDark_ = false;
  bool dark_ = false;
};

} // namespace desktop
