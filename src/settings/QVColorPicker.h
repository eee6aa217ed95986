// SPDX-License-Identifier: MIT
// The colour picker: a button that shows a colour and drops a palette to choose another from.
//
// Its parts stand in files of their own: the colours, the drawings, one cell, the panel of cells, and the palette's
// window.
#pragma once

#include "platform/Color.h"
#include "settings/QVColorPickerDrawing.h"

#include <QAbstractButton>
#include <QBasicTimer>
#include <QIcon>
#include <QPointer>

#include <functional>

namespace quorvane {

class TColPickDlg;

// A button with a swatch of its colour, a glyph that tells what the colour is for, and an arrow. A click anywhere on it
// opens the palette, as do Space, Down and Alt+Down; a press of the mouse while it is open closes it.
//
// The hint and the accessible description are the colour, kept up to date; whoever uses the button gives it its
// accessible name.
class TColorBtn final : public QAbstractButton {
  Q_OBJECT
  Q_PROPERTY(int ActiveColor READ ActiveColor WRITE SetActiveColor)
  Q_PROPERTY(int TargetColor READ TargetColor WRITE SetTargetColor)
  Q_PROPERTY(bool Flat READ Flat WRITE SetFlat)
  Q_PROPERTY(bool DropDownFlat READ DropDownFlat WRITE SetDropDownFlat)
  Q_PROPERTY(int AutomaticColor READ AutomaticColor WRITE SetAutomaticColor)
  Q_PROPERTY(bool IsAutomatic READ IsAutomatic WRITE SetIsAutomatic)
  Q_PROPERTY(quorvane::TGlyphType GlyphType READ GlyphType WRITE SetGlyphType)
  Q_PROPERTY(QIcon Glyph READ Glyph WRITE SetGlyph)
  Q_PROPERTY(QString AutoBtnCaption READ AutoBtnCaption WRITE SetAutoBtnCaption)
  Q_PROPERTY(QString OtherBtnCaption READ OtherBtnCaption WRITE SetOtherBtnCaption)
  Q_PROPERTY(QString RegKey READ RegKey WRITE SetRegKey)
  Q_PROPERTY(quint8 DDArrowWidth READ DDArrowWidth WRITE SetDDArrowWidth)
public:
  explicit TColorBtn(QWidget* parent = nullptr);
  ~TColorBtn() override;

  // Called before the palette opens, with the user's colours already read; and after a colour was picked. What they
  // throw goes to the application's exception handling. Both may destroy the button.
  std::function<void()> BeforeDropDown;
  std::function<void()> OnClick;

  // The colour shown and chosen.
  platform::TColor ActiveColor() const { return activeColor_; }
  void SetActiveColor(platform::TColor color);
  // The colour picked last.
  platform::TColor TargetColor() const { return targetColor_; }
  void SetTargetColor(platform::TColor color) { targetColor_ = color; }
  // Whether the button has no edge until the mouse is over it, and the cells of its palette likewise.
  bool Flat() const { return flat_; }
  void SetFlat(bool flat);
  bool DropDownFlat() const { return dropDownFlat_; }
  void SetDropDownFlat(bool flat) { dropDownFlat_ = flat; }
  // The colour that the palette's "Automatic" stands for.
  platform::TColor AutomaticColor() const { return automaticColor_; }
  void SetAutomaticColor(platform::TColor color) { automaticColor_ = color; }
  // Whether the last pick was "Automatic".
  bool IsAutomatic() const { return isAutomatic_; }
  void SetIsAutomatic(bool automatic) { isAutomatic_ = automatic; }
  TGlyphType GlyphType() const { return glyphType_; }
  void SetGlyphType(TGlyphType type);
  // The picture for gtCustom; with a null one the swatch takes all the room.
  QIcon Glyph() const { return glyph_; }
  void SetGlyph(const QIcon& glyph);
  // The captions of the palette's two wide buttons.
  QString AutoBtnCaption() const { return autoBtnCaption_; }
  void SetAutoBtnCaption(const QString& caption) { autoBtnCaption_ = caption; }
  QString OtherBtnCaption() const { return otherBtnCaption_; }
  void SetOtherBtnCaption(const QString& caption) { otherBtnCaption_ = caption; }
  // The key of the user's colours below "SoftWare".
  QString RegKey() const { return regKey_; }
  void SetRegKey(const QString& key) { regKey_ = key; }
  // The width of the arrow part in logical pixels.
  quint8 DDArrowWidth() const { return arrowWidth_; }
  void SetDDArrowWidth(quint8 width);

  // What kind of window the palette opens as, TColPickDlg::UsualType() at first.
  void SetPaletteType(Qt::WindowType type) { paletteType_ = type; }

  // Opens the palette, as a click does; closes it if it is open.
  void DropDown();
  // The palette while it is open, be it hidden beneath the system's colour dialog; else null.
  TColPickDlg* Palette() const;

  // Read and write the colours of the user, which all buttons share, below RegKey.
  void ReadReg() const;
  void WriteReg() const;

  // For the palette: takes over the colour that was picked in it, writes the user's colours and tells OnClick.
  void Accept(platform::TColor color, bool automatic);
  // For the palette: it is about to close because something else is active now. If that comes from a press on this
  // button, which arrives within a moment, the press is not to open the palette again.
  void PaletteLostFocus();
  // Whether such a press may still arrive.
  bool AwaitsDismissal() const { return dismissal_.isActive(); }
  // For the palette: it is closed, so the button is drawn raised again. If the palette had the focus until now, the
  // button's window gets it back.
  void PaletteClosed(bool hadFocus);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  void changeEvent(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

private:
  void Describe();
  void PaintPanel(QPainter& painter);
  void PaintColor(QPainter& painter, const QRect& area);
  bool HasGlyph() const { return glyphType_ != gtCustom || !glyph_.isNull(); }

  platform::TColor activeColor_ = platform::clBlack;
  platform::TColor targetColor_ = platform::clBlack;
  platform::TColor automaticColor_ = platform::clBlack;
  QString autoBtnCaption_;
  QString otherBtnCaption_;
  QString regKey_;
  QIcon glyph_;
  TGlyphType glyphType_ = gtForeground;
  quint8 arrowWidth_ = 12;
  bool flat_ = false;
  bool dropDownFlat_ = true;
  bool isAutomatic_ = false;
  Qt::WindowType paletteType_;
  QBasicTimer dismissal_; // runs while the press that took the focus from the palette may still arrive
  QPointer<TColPickDlg> palette_;
};

// Called by the host once the package is loaded. It does nothing: there is no designer here that the button could be
// offered to.
inline void RegisterColorPicker() {}

} // namespace quorvane
