// SPDX-License-Identifier: MIT
#include "host/QVVirelleSplash.h"

#include "platform/Application.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>
#include <QVBoxLayout>
#include <QWindow>

#include <chrono>
#include <memory>

// The resource is part of a static library, so it has to be asked for by name, from outside of any namespace.
static void InitSplashResource() {
  Q_INIT_RESOURCE(QVVirelleSplash);
}

namespace quorvane {

namespace {

constexpr std::chrono::milliseconds kShown{5000};
constexpr int kBevelWidth = 3;

// Draws the picture from its vectors, so it is sharp on every screen.
class TSplashImage : public QWidget {
public:
  TSplashImage() {
    InitSplashResource();
    picture_.load(QStringLiteral(":/quorvane/QVVirelleSplash.svg"));
    setObjectName(QStringLiteral("Image1"));
    setFixedSize(picture_.defaultSize());
    setAttribute(Qt::WA_OpaquePaintEvent);
  }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    picture_.render(&painter, rect());
  }

private:
  QSvgRenderer picture_;
};

} // namespace

TVirelleSplashForm* VirelleSplashForm = nullptr;

// A tool tip is the one kind of window to which no window system gives the focus, and which does not keep a program
// alive whose other windows have closed.
TVirelleSplashForm::TVirelleSplashForm()
    : QFrame(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus),
      timer_(new QTimer(this)) {
  setObjectName(QStringLiteral("VirelleSplashForm"));
  setAccessibleName(QStringLiteral("Virelle"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFrameStyle(QFrame::Panel | QFrame::Raised);
  setLineWidth(kBevelWidth);

  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(new TSplashImage);

  timer_->setObjectName(QStringLiteral("Timer1"));
  timer_->setInterval(kShown);
  timer_->setTimerType(Qt::PreciseTimer);
  timer_->setSingleShot(true);
  connect(timer_, &QTimer::timeout, this, &TVirelleSplashForm::Timer1Timer);
}

TVirelleSplashForm::~TVirelleSplashForm() {
  if (VirelleSplashForm == this)
    VirelleSplashForm = nullptr;
}

void TVirelleSplashForm::ShowForAWhile() {
  const QWidget* const host = platform::Application().MainForm();
  const QScreen* const screen = host != nullptr ? host->screen() : QGuiApplication::primaryScreen();
  adjustSize();
  QRect place(QPoint(), size());
  place.moveCenter(screen->geometry().center());
  move(place.topLeft());
  // Window systems that place such a window themselves do so by the window that it belongs to.
  winId();
  if (host != nullptr)
    windowHandle()->setTransientParent(host->windowHandle());
  show();
  repaint();
  timer_->start();
}

void TVirelleSplashForm::Timer1Timer() {
  if (VirelleSplashForm == this)
    VirelleSplashForm = nullptr;
  deleteLater(); // the timer's event is still being served
}

void StartQVVirelleSplash() {
  if (!platform::Application().ShowSplash())
    return;
  auto form = std::make_unique<TVirelleSplashForm>();
  form->ShowForAWhile();
  VirelleSplashForm = form.release();
}

} // namespace quorvane
