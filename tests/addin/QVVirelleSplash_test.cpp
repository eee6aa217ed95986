// SPDX-License-Identifier: MIT
#include "host/QVVirelleSplash.h"

#include "platform/Application.h"
#include "platform/Component.h"
#include "support/fakes/FakeMainForm.h"
#include "support/PrintQt.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>
#include <QSet>
#include <QTimerEvent>
#include <QWindow>

namespace quorvane {
namespace {

QTimer* TimerOf(const TVirelleSplashForm& form) {
  return qobject_cast<QTimer*>(platform::FindComponent(form, QStringLiteral("Timer1")));
}

QWidget* ImageOf(const TVirelleSplashForm& form) {
  return form.findChild<QWidget*>(QStringLiteral("Image1"));
}

// What happens when the time of the form's timer is over.
void LetTimeGo(const TVirelleSplashForm& form) {
  QTimer* const timer = TimerOf(form);
  ASSERT_TRUE(timer->isActive());
  QTimerEvent event(timer->timerId());
  QCoreApplication::sendEvent(timer, &event);
}

// Counts the times that the picture is painted, wherever it is.
class PaintCount : public QObject {
public:
  PaintCount() { qApp->installEventFilter(this); }
  int Count = 0;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    Count += event->type() == QEvent::Paint && watched->objectName() == QStringLiteral("Image1");
    return false;
  }
};

class QVVirelleSplash : public testing::Test {
protected:
  ~QVVirelleSplash() override {
    delete VirelleSplashForm;
    platform::Application().SetShowSplash(true);
    QApplication::setPalette(QPalette());
  }
};

TEST_F(QVVirelleSplash, FormIsAPictureWithAnEdgeAroundIt) {
  TVirelleSplashForm form;
  form.ShowForAWhile();
  EXPECT_EQ(form.size(), QSize(406, 256));
  EXPECT_EQ(form.frameShadow(), QFrame::Raised);
  EXPECT_EQ(form.lineWidth(), 3);
  ASSERT_NE(ImageOf(form), nullptr);
  EXPECT_EQ(ImageOf(form)->geometry(), QRect(3, 3, 400, 250));
  EXPECT_EQ(platform::ClassName(form), QStringLiteral("TVirelleSplashForm"));
}

TEST_F(QVVirelleSplash, FormIsBorderlessAndStaysOnTop) {
  const TVirelleSplashForm form;
  EXPECT_TRUE(form.windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_TRUE(form.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(QVVirelleSplash, TimerOfAFormThatIsNotShownIsOff) {
  const TVirelleSplashForm form;
  ASSERT_NE(TimerOf(form), nullptr);
  EXPECT_EQ(TimerOf(form)->interval(), 5000);
  EXPECT_FALSE(TimerOf(form)->isActive());
}

TEST_F(QVVirelleSplash, StartShowsAFormWithoutOwnerForFiveSeconds) {
  StartQVVirelleSplash();
  ASSERT_NE(VirelleSplashForm, nullptr);
  EXPECT_EQ(VirelleSplashForm->parent(), nullptr);
  EXPECT_TRUE(VirelleSplashForm->isVisible());
  EXPECT_TRUE(TimerOf(*VirelleSplashForm)->isActive());
  EXPECT_EQ(TimerOf(*VirelleSplashForm)->interval(), 5000);
}

TEST_F(QVVirelleSplash, StandsInTheMiddleOfTheScreen) {
  StartQVVirelleSplash();
  EXPECT_EQ(VirelleSplashForm->geometry().center(), QApplication::primaryScreen()->geometry().center());
}

TEST_F(QVVirelleSplash, IsPaintedAsSoonAsTheWindowSystemShowsIt) {
  const PaintCount paints;
  StartQVVirelleSplash();
  QGuiApplication::sync();
  EXPECT_GE(paints.Count, 1);
}

TEST_F(QVVirelleSplash, BelongsToTheWindowOfTheHostsMainForm) {
  fakes::FakeMainForm host;
  host.show();
  StartQVVirelleSplash();
  EXPECT_EQ(VirelleSplashForm->windowHandle()->transientParent(), host.windowHandle());
}

TEST_F(QVVirelleSplash, OutlivesTheWindowThatItBelongsTo) {
  auto host = std::make_unique<fakes::FakeMainForm>();
  host->show();
  StartQVVirelleSplash();
  host.reset();
  support::settle();
  ASSERT_NE(VirelleSplashForm, nullptr);
  EXPECT_TRUE(VirelleSplashForm->isVisible());
}

TEST_F(QVVirelleSplash, ClearsItsVariableAndReleasesItselfWhenItsTimeIsOver) {
  StartQVVirelleSplash();
  const QPointer<TVirelleSplashForm> form = VirelleSplashForm;
  LetTimeGo(*form);
  EXPECT_EQ(VirelleSplashForm, nullptr);
  EXPECT_FALSE(form.isNull()) << "it is freed only when the event has been served";
  support::settle();
  EXPECT_TRUE(form.isNull());
}

TEST_F(QVVirelleSplash, ItsEndLeavesALaterOneInItsVariable) {
  StartQVVirelleSplash();
  const QPointer<TVirelleSplashForm> first = VirelleSplashForm;
  StartQVVirelleSplash();
  TVirelleSplashForm* const second = VirelleSplashForm;
  ASSERT_NE(first, second);
  LetTimeGo(*first);
  support::settle();
  EXPECT_TRUE(first.isNull());
  EXPECT_EQ(VirelleSplashForm, second);
  EXPECT_TRUE(second->isVisible());
}

TEST_F(QVVirelleSplash, AClickNeitherClosesItNorTakesTheFocus) {
  QLineEdit editor;
  editor.show();
  editor.activateWindow();
  editor.setFocus();
  ASSERT_TRUE(support::waitUntil([&] { return editor.hasFocus(); }));
  StartQVVirelleSplash();
  support::settle();
  EXPECT_TRUE(editor.hasFocus());
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    const QPointF place(100, 100);
    QMouseEvent event(type, place, ImageOf(*VirelleSplashForm)->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(ImageOf(*VirelleSplashForm), &event);
  }
  support::settle();
  ASSERT_NE(VirelleSplashForm, nullptr);
  EXPECT_TRUE(VirelleSplashForm->isVisible());
  EXPECT_TRUE(editor.hasFocus());
  EXPECT_EQ(QApplication::activeWindow(), &editor);
}

TEST_F(QVVirelleSplash, DoesNotKeepAProgramWhoseWindowsHaveClosed) {
  QWidget window;
  window.show();
  StartQVVirelleSplash();
  QApplication::setQuitOnLastWindowClosed(true);
  bool closedInTime = false;
  QTimer::singleShot(0, &window, [&] {
    closedInTime = window.close();
    // Only reached while the program goes on.
    QTimer::singleShot(3000, VirelleSplashForm, [] { QCoreApplication::exit(1); });
  });
  EXPECT_EQ(QCoreApplication::exec(), 0);
  QApplication::setQuitOnLastWindowClosed(false);
  EXPECT_TRUE(closedInTime);
  EXPECT_NE(VirelleSplashForm, nullptr);
}

TEST_F(QVVirelleSplash, IsLeftOutWhenTheHostWantsNone) {
  platform::Application().SetShowSplash(false);
  StartQVVirelleSplash();
  EXPECT_EQ(VirelleSplashForm, nullptr);
}

QSet<QRgb> ColoursOf(const QImage& picture) {
  QSet<QRgb> colours;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      colours.insert(picture.pixel(x, y));
  return colours;
}

TEST_F(QVVirelleSplash, ShowsThePictureInEveryDevicePixel) {
  StartQVVirelleSplash();
  const QImage picture = ImageOf(*VirelleSplashForm)->grab().toImage();
  EXPECT_EQ(picture.size(), QSize(400, 250) * picture.devicePixelRatio());
  EXPECT_GT(ColoursOf(picture).size(), 100);
  EXPECT_TRUE(ColoursOf(picture).contains(QColor(0xF4, 0xF1, 0xE8).rgb())) << "the colour of the name";
}

TEST_F(QVVirelleSplash, EdgeIsTheDesktopsAndThePictureItsOwn) {
  StartQVVirelleSplash();
  const QImage light = VirelleSplashForm->grab().toImage();
  QApplication::setPalette(QPalette(QColor(45, 49, 54)));
  support::settle();
  const QImage dark = VirelleSplashForm->grab().toImage();
  const QRect inside = QRect(QPoint(), dark.size()).adjusted(10, 10, -10, -10);
  EXPECT_EQ(dark.copy(inside), light.copy(inside));
  EXPECT_NE(dark.pixel(1, 100), light.pixel(1, 100));
}

} // namespace
} // namespace quorvane
