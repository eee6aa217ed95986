// SPDX-License-Identifier: MIT
// How the options dialog looks: what stands on it, in which order, and that all of it can be seen.
#include "settings/OptionsFormFixture.h"

#include "host/QVImages.h"
#include "settings/model/QVOptionsStore.h"
#include "settings/QVOptionControls.h"
#include "settings/QVScrollPage.h"

#include <QAccessible>
#include <QGroupBox>
#include <QImage>
#include <QLayout>
#include <QPainter>
#include <QRadioButton>
#include <QScrollArea>
#include <QStyle>
#include <QStyleFactory>

#include <cstdlib>
#include <iterator>
#include <set>
#include <tuple>

namespace quorvane {
namespace {

// The dialog is started, but not shown.
class QVOptionsFormLayout : public OptionsFormTest {
protected:
  QVOptionsFormLayout() { StartQVOptions(); }
  ~QVOptionsFormLayout() override { QApplication::setFont(font_); }

  // Shows the dialog without waiting for its end.
  static void Show() {
    QVOptionsForm->show();
    QVOptionsForm->activateWindow();
    ASSERT_TRUE(support::waitUntil([] { return QVOptionsForm->isActiveWindow(); }));
    support::settle();
  }
  // The captions of groups, buttons and labels on a page, in reading order.
  static QStringList Captions(int page) {
    QStringList captions;
    AddCaptions(*static_cast<TQVScrollPage*>(Pages().widget(page))->Contents().layout(), captions);
    return captions;
  }
  // Gives all texts a size that does not depend on the screen, and shows the dialog.
  static void ShowWithPixels(int size) {
    QFont font = QApplication::font();
    font.setPixelSize(size);
    QApplication::setFont(font);
    Show();
  }
  // Whether the screen has room for all of the dialog.
  static bool HasRoom() {
    const QSize wanted = QVOptionsForm->layout()->totalSizeHint();
    return wanted.width() <= QVOptionsForm->width() && wanted.height() <= QVOptionsForm->height();
  }

private:
  // Layouts hold their items from the top and from the left.
  static void AddCaptions(const QLayout& layout, QStringList& captions) {
    for (int index = 0; index < layout.count(); ++index) {
      QLayoutItem* const item = layout.itemAt(index);
      const QString caption = item->widget() ? CaptionOf(*item->widget()) : QString();
      if (!caption.isEmpty())
        captions.append(caption);
      if (const QLayout* inner = item->widget() ? item->widget()->layout() : item->layout())
        AddCaptions(*inner, captions);
    }
  }
  static QString CaptionOf(const QWidget& widget) {
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
      return group->title();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
      return button->text();
    const auto* label = qobject_cast<const QLabel*>(&widget);
    return label ? label->text() : QString();
  }

  QFont font_ = QApplication::font();
};

TEST_F(QVOptionsFormLayout, HasItsCaptionAndPages) {
  EXPECT_EQ(QVOptionsForm->windowTitle(), QStringLiteral("Virelle Options"));
  const char* const names[] = {"tsEditor", "tsSmartHiliter", "tsIDEWindows"};
  const char* const captions[] = {"Source Editor", "Smart Highlighter", "IDE Windows"};
  ASSERT_EQ(Pages().count(), 3);
  for (int page = 0; page < 3; ++page) {
    EXPECT_EQ(Pages().widget(page)->objectName(), QLatin1StringView(names[page]));
    EXPECT_EQ(Pages().tabText(page), QLatin1StringView(captions[page]));
  }
}

TEST_F(QVOptionsFormLayout, PagesHaveTheFirstThreeImages) {
  for (int page = 0; page < 3; ++page) {
    const auto picture = [](const QIcon& icon) { return icon.pixmap(16).toImage(); };
    EXPECT_EQ(picture(Pages().tabIcon(page)), picture(Images(page))) << page;
  }
}

TEST_F(QVOptionsFormLayout, SourceEditorPageHasItsControls) {
  EXPECT_EQ(Captions(0),
            (QStringList{QStringLiteral("Code Templates"),
                         QStringLiteral("Enable Code Templates (Does Not Disable Native Templates)"),
                         QStringLiteral("Edit..."), QStringLiteral("Template Key:"), QStringLiteral("Line Numbers"),
                         QStringLiteral("Show Line Numbers"), QStringLiteral("Show Line Numbers in Second Gutter"),
                         QStringLiteral("Show Separator Between Gutters (Second Gutter Only)"),
                         QStringLiteral("Second Gutter On Left (Second Gutter Only)"), QStringLiteral("Color:"),
                         QStringLiteral("Navigation Toolbar"), QStringLiteral("Show Navigation Toolbar"),
                         QStringLiteral("Live Syntax Check"), QStringLiteral("Enable Live Syntax Checking")}));
}

TEST_F(QVOptionsFormLayout, SmartHighlighterPageHasItsControls) {
  EXPECT_EQ(Captions(1), (QStringList{QStringLiteral("Block Highlighter"),
                                      QStringLiteral("Block Markers"),
                                      QStringLiteral("Mark Current Block(s)"),
                                      QStringLiteral("Mark All Blocks"),
                                      QStringLiteral("Do Not Mark Blocks"),
                                      QStringLiteral("Marker Shape"),
                                      QStringLiteral("Brackets"),
                                      QStringLiteral("Blocks"),
                                      QStringLiteral("Draw Connecting Lines For Uneven Blocks (Brackets Only)"),
                                      QStringLiteral("Color 1:"),
                                      QStringLiteral("Color 2:"),
                                      QStringLiteral("Color 3:"),
                                      QStringLiteral("Color 4:"),
                                      QStringLiteral("Line Width (Brackets Only):"),
                                      QStringLiteral("Marker Activation"),
                                      QStringLiteral("Activate Live (Always Active)"),
                                      QStringLiteral("Activate on Hotkey"),
                                      QStringLiteral("Hotkey:"),
                                      QStringLiteral("Parenthesis Matcher"),
                                      QStringLiteral("Mark Matching Parenthesis"),
                                      QStringLiteral("Color:")}));
}

TEST_F(QVOptionsFormLayout, IDEWindowsPageHasItsControls) {
  EXPECT_EQ(Captions(2), (QStringList{QStringLiteral("Flyout Bar"), QStringLiteral("Show Flyout Bar On Startup"),
                                      QStringLiteral("Flyout Delay (in milliseconds):")}));
}

TEST_F(QVOptionsFormLayout, ControlsHaveTheirNamesAndGroups) {
  const std::pair<const char*, QStringList> groups[] = {
      {"gbCodeTemplates",
       {QStringLiteral("EnableTemplatesCheck"), QStringLiteral("EditTemplatesBtn"), QStringLiteral("lblTemplateKey"),
        QStringLiteral("TemplateKeyEdit")}},
      {"LineNumbersBox",
       {QStringLiteral("ShowLineNumbersCheck"), QStringLiteral("SecondGutterCheck"),
        QStringLiteral("GutterSeparatorCheck"), QStringLiteral("LineNumbersLeftCheck"), QStringLiteral("ColorLabel"),
        QStringLiteral("LineNumberColorBox")}},
      {"NavToolbarBox", {QStringLiteral("ShowNavBarCheck")}},
      {"SyntaxCheckBox", {QStringLiteral("LiveSyntaxCheckCheck")}},
      {"BlocksBox",
       {QStringLiteral("BlockMarkerGroup"), QStringLiteral("BlockMarkerShapeGroup"),
        QStringLiteral("UnevenBracketsCheck"), QStringLiteral("BlockColorBox1"), QStringLiteral("BlockColorBox2"),
        QStringLiteral("BlockColorBox3"), QStringLiteral("BlockColorBox4"), QStringLiteral("LineWidthSpin"),
        QStringLiteral("MarkerActivationGroup"), QStringLiteral("MarkerActivateHotkey")}},
      {"ParensBox", {QStringLiteral("MarkParensCheck"), QStringLiteral("ParenColorBox")}},
      {"gbFlyoutBar", {QStringLiteral("ShowFlyoutBarCheck"), QStringLiteral("FlyDelaySpin")}},
      {"BottomPanel", {QStringLiteral("btnOK"), QStringLiteral("btnCancel")}},
  };
  for (const auto& [group, names] : groups) {
    for (const QString& name : names)
      EXPECT_NE(Control<QWidget>(group).findChild<QWidget*>(name), nullptr) << group << ' ' << name.toStdString();
  }
}

TEST_F(QVOptionsFormLayout, ControlsHoldEveryValueAsItIs) {
  TQVOptionValues values;
  for (const TQVOptionRow& row : QVOptionTable) {
    switch (row.Kind) {
    case TQVOptionKind::Item:
    case TQVOptionKind::Spin:
      for (const std::int32_t number : {row.Limits.First, row.Limits.Last}) {
        values.SetNumber(row.Option, number);
        ShowValues(values, *QVOptionsForm);
        EXPECT_EQ(TakeValues(*QVOptionsForm), values) << row.Control << ' ' << number;
      }
      break;
    case TQVOptionKind::Color:
      for (const std::int32_t color : {0x1FFFFFFF, static_cast<std::int32_t>(0x80000005), 0x123456}) {
        values.SetNumber(row.Option, color);
        ShowValues(values, *QVOptionsForm);
        EXPECT_EQ(TakeValues(*QVOptionsForm), values) << row.Control << ' ' << color;
      }
      break;
    case TQVOptionKind::Flag:
      values.SetFlag(row.Option, !values.Flag(row.Option));
      break;
    case TQVOptionKind::Character:
      values.SetText(row.Option, "\x01\xFF ab");
      break;
    case TQVOptionKind::HotKey:
      values.SetNumber(row.Option, 0xE0FF); // no key has this code
      break;
    case TQVOptionKind::Folder:
      break;
    }
    ShowValues(values, *QVOptionsForm);
    EXPECT_EQ(TakeValues(*QVOptionsForm), values) << row.Value;
  }
}

TEST_F(QVOptionsFormLayout, ControlsTakeNoMoreThanTheLimits) {
  for (const TQVOptionRow& row : QVOptionTable) {
    if (row.Kind == TQVOptionKind::Item) {
      const auto& group = *QVOptionsForm->findChild<TRadioGroup*>(ControlName(row.Option));
      EXPECT_EQ(group.ItemCount(), row.Limits.Last + 1) << row.Control;
    }
  }
  EXPECT_EQ(Control<QSpinBox>("LineWidthSpin").minimum(), 1);
  EXPECT_EQ(Control<QSpinBox>("LineWidthSpin").maximum(), 9);
  EXPECT_EQ(Control<QSpinBox>("FlyDelaySpin").minimum(), 0);
  EXPECT_EQ(Control<QSpinBox>("FlyDelaySpin").maximum(), 9999);
}

TEST_F(QVOptionsFormLayout, ColorButtonsOfferAutomaticAndOtherColors) {
  const QList<TColorBtn*> buttons = QVOptionsForm->findChildren<TColorBtn*>();
  EXPECT_EQ(buttons.size(), 6);
  for (const TColorBtn* button : buttons) {
    EXPECT_EQ(button->AutoBtnCaption(), QStringLiteral("Automatic"));
    EXPECT_EQ(button->OtherBtnCaption(), QStringLiteral("&Other colors..."));
    EXPECT_EQ(button->AutomaticColor(), platform::clBlack);
    EXPECT_EQ(button->DDArrowWidth(), 12);
    EXPECT_FALSE(button->Flat());
    EXPECT_TRUE(button->DropDownFlat());
  }
}

TEST_F(QVOptionsFormLayout, HotKeyIsRefusedWithoutModifiersAndWithShiftAlone) {
  const auto& field = Control<THotKey>("MarkerActivateHotkey");
  EXPECT_EQ(field.InvalidKeys(), (std::vector<platform::TShortCut>{0, platform::scShift}));
  EXPECT_EQ(field.Modifiers(), platform::scShift | platform::scAlt);
  EXPECT_EQ(field.text(), QStringLiteral("Shift+Alt+0"));
}

TEST_F(QVOptionsFormLayout, RadioButtonsHaveTheirIndexes) {
  const std::pair<const char*, QStringList> groups[] = {
      {"BlockMarkerGroup",
       {QStringLiteral("Mark Current Block(s)"), QStringLiteral("Mark All Blocks"),
        QStringLiteral("Do Not Mark Blocks")}},
      {"BlockMarkerShapeGroup", {QStringLiteral("Brackets"), QStringLiteral("Blocks")}},
      {"MarkerActivationGroup",
       {QStringLiteral("Activate Live (Always Active)"), QStringLiteral("Activate on Hotkey")}},
  };
  for (const auto& [name, texts] : groups) {
    auto& group = Control<TRadioGroup>(name);
    QStringList checked;
    for (int index = 0; index < group.ItemCount(); ++index) {
      group.SetItemIndex(index);
      for (const QRadioButton* button : group.findChildren<QRadioButton*>()) {
        if (button->isChecked())
          checked.append(button->text());
      }
    }
    EXPECT_EQ(checked, texts) << name;
  }
}

TEST_F(QVOptionsFormLayout, LabelsStandBesideTheControlsThatTheyName) {
  const std::tuple<const char*, const char*, const char*> labels[] = {
      {"Template Key:", "lblTemplateKey", "TemplateKeyEdit"},
      {"Color:", "ColorLabel", "LineNumberColorBox"},
      {"Color 1:", "Color1Label", "BlockColorBox1"},
      {"Color 2:", "Color2Label", "BlockColorBox2"},
      {"Color 3:", "Color3Label", "BlockColorBox3"},
      {"Color 4:", "Color4Label", "BlockColorBox4"},
      {"Line Width (Brackets Only):", "LineWidthLabel", "LineWidthSpin"},
      {"Hotkey:", "HotkeyLabel", "MarkerActivateHotkey"},
      {"Color:", "ParenColorLabel", "ParenColorBox"},
      {"Flyout Delay (in milliseconds):", "FlyDelayLabel", "FlyDelaySpin"},
  };
  EXPECT_EQ(Pages().findChildren<QLabel*>().size(), std::ssize(labels));
  Show();
  for (const auto& [text, labelName, controlName] : labels) {
    const auto& label = Control<QLabel>(labelName);
    auto& control = Control<QWidget>(controlName);
    Reach(control);
    support::settle();
    EXPECT_EQ(label.text(), QLatin1StringView(text)) << labelName;
    EXPECT_EQ(label.buddy(), &control) << labelName;
    ASSERT_EQ(label.parentWidget(), control.parentWidget()) << labelName;
    constexpr int spacing = 6;
    EXPECT_EQ(control.x(), label.geometry().right() + 1 + spacing) << labelName;
    EXPECT_LE(std::abs(control.geometry().center().y() - label.geometry().center().y()), 1) << labelName;
  }
}

TEST_F(QVOptionsFormLayout, EveryControlHasANameOfItsOwnForThoseWhoCannotSeeIt) {
  std::set<QString> names;
  for (const TQVOptionRow& row : QVOptionTable) {
    if (row.Control.empty())
      continue;
    auto* const control = QVOptionsForm->findChild<QWidget*>(ControlName(row.Option));
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(control);
    ASSERT_NE(accessible, nullptr);
    QString name = accessible->text(QAccessible::Name);
    const auto labels = accessible->relations(QAccessible::Label);
    if (name.isEmpty() && !labels.isEmpty())
      name = labels.constFirst().first->text(QAccessible::Name);
    EXPECT_FALSE(name.isEmpty()) << row.Control;
    EXPECT_TRUE(names.insert(name).second) << row.Control << ' ' << name.toStdString();
  }
}

TEST_F(QVOptionsFormLayout, HasItsDesignedSizeWithSmallFonts) {
  constexpr int eightPoints = 11; // at 96 dots per inch
  ShowWithPixels(eightPoints);
  EXPECT_EQ(QVOptionsForm->width(), 520);
  EXPECT_EQ(QVOptionsForm->height(), 416);
}

TEST_F(QVOptionsFormLayout, CannotBeResized) {
  Show();
  EXPECT_EQ(QVOptionsForm->minimumSize(), QVOptionsForm->maximumSize());
  EXPECT_EQ(QVOptionsForm->minimumSize(), QVOptionsForm->size());
}

// Whether all of `widget` is inside what shows it, and it is as large as its text needs.
testing::AssertionResult IsWhole(const QWidget& widget) {
  if (!widget.visibleRegion().boundingRect().contains(widget.rect()))
    return testing::AssertionFailure() << widget.objectName().toStdString() << " is cut off";
  const QSize needed = widget.minimumSizeHint();
  if (widget.width() < needed.width() || widget.height() < needed.height())
    return testing::AssertionFailure() << widget.objectName().toStdString() << " has no room for its text";
  return testing::AssertionSuccess();
}

void ExpectAllIsWhole(QTabWidget& pages) {
  for (int page = 0; page < pages.count(); ++page) {
    pages.setCurrentIndex(page);
    support::settle();
    for (const QWidget* widget : pages.widget(page)->findChildren<QWidget*>()) {
      if (widget->objectName().startsWith(QStringLiteral("qt_")))
        continue; // a part of a control that says itself what room it needs
      const bool shown = qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLabel*>(widget) ||
                         qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget) ||
                         qobject_cast<const QGroupBox*>(widget);
      if (shown) {
        EXPECT_TRUE(IsWhole(*widget)) << page;
      }
    }
  }
}

TEST_F(QVOptionsFormLayout, ClipsNothingWithUsualFonts) {
  for (const int size : {11, 12, 13, 14}) {
    ShowWithPixels(size);
    ASSERT_TRUE(HasRoom()) << size;
    ExpectAllIsWhole(Pages());
  }
}

TEST_F(QVOptionsFormLayout, GrowsWithLargerFontsAndClipsNothing) {
  ShowWithPixels(12);
  const QSize usual = QVOptionsForm->size();
  QFont larger = QApplication::font();
  larger.setPixelSize(14);
  QApplication::setFont(larger);
  ASSERT_TRUE(support::waitUntil([&] { return QVOptionsForm->height() > usual.height(); }, 20));
  ASSERT_TRUE(HasRoom());
  ExpectAllIsWhole(Pages());
}

TEST_F(QVOptionsFormLayout, ScrollsWhatTheScreenHasNoRoomFor) {
  ShowWithPixels(40);
  ASSERT_FALSE(HasRoom());
  Pages().setCurrentIndex(1);
  support::settle();
  auto& last = Control<TColorBtn>("ParenColorBox");
  static_cast<QScrollArea*>(Pages().widget(1))->ensureWidgetVisible(&last);
  EXPECT_TRUE(IsWhole(last));
  EXPECT_TRUE(IsWhole(Button("btnOK")));
}

TEST_F(QVOptionsFormLayout, StaysOnTheScreenWithItsTitleBar) {
  ShowWithPixels(40);
  ASSERT_FALSE(HasRoom());
  const QSize room = QVOptionsForm->screen()->availableSize();
  const int titleBar = QVOptionsForm->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, QVOptionsForm);
  ASSERT_GT(titleBar, 0);
  EXPECT_LE(QVOptionsForm->height() + titleBar, room.height());
  EXPECT_LE(QVOptionsForm->frameSize().width(), room.width());
  EXPECT_LE(QVOptionsForm->frameSize().height(), room.height());
}

} // namespace
} // namespace quorvane
