// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QObject>

namespace desktop {

class TEditControl;

// How all windows look: light, dark or as the desktop, and the font of the text.
//
// The scheme colours the frames as well as the text, so that a dark text does not stand in a bright window: the
// desktop's own palette is kept where it is of the wanted kind.
class Appearance : public QObject {
  Q_OBJECT

public:
  enum class Colours { Light, Dark, Desktop };

  explicit Appearance(QObject* parent = nullptr);
  // Gives the application its own colours back.
  ~Appearance() override;

  Colours colours() const { return colours_; }
  void setColours(Colours colours);
  // Whether text is light on dark at present.
  bool isDark() const { return dark_; }
  // To be called when the desktop may have changed its colours.
  void followDesktop();

  // The monospaced font of the text and its size.
  const QString& fontFamily() const { return fontFamily_; }
  int fontPoints() const { return fontPoints_; }
  // Kept between 6 and 72.
  void setFontPoints(int points);
  void resetFontPoints();

  // Whether blanks and tabs are drawn, and a line behind the column that a line of source should not go beyond.
  bool showsBlanks() const { return showsBlanks_; }
  void setShowsBlanks(bool show);
  bool showsRightMargin() const { return showsRightMargin_; }
  void setShowsRightMargin(bool show);

  // Gives `editor` the scheme, the font and what is shown at the moment.
  void applyTo(TEditControl& editor) const;

Q_SIGNALS:
  void changed();

private:
  void applyPalette();

  Colours colours_ = Colours::Light;
  bool ownPalette_ = false; // the application's palette is one of this class's
  bool dark_ = false;
  QString fontFamily_;
  int usualPoints_;
  int fontPoints_;
  bool showsBlanks_ = false;
  bool showsRightMargin_ = false;
};

} // namespace desktop
