// SPDX-License-Identifier: MIT
// One working session of the whole program, off-screen: the steps of the script beside it, which needs a display. Keys
// and clicks are Qt's; what they lead to is read from widgets and files.
#include "desktop/CommandLine.h"
#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/Program.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/Page.h"
#include "platform/Application.h"
#include "platform/Component.h"
#include "platform/Debug.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <functional>

namespace {

using namespace desktop;

constexpr int routines = 500;    // of ten lines each
constexpr int statement = 2'526; // the line of "  if ..." in one of them
constexpr int redEnough = 5;     // pixels of a zigzag

QString thenLine() {
  return QStringLiteral("  if (State > 0) and (Line < 100) then");
}

QStringList unitLines() {
  QStringList lines =
      QStringLiteral("unit views;\n\ninterface\n\nuses\n  Objects, Drivers;\n\ntype\n  TThing = class\n"
                     "    procedure Draw;\n  end;\n  TOther = class\n  end;\n\nimplementation\n\nuses\n  Video;\n\n")
          .split(u'\n');
  for (int i = 0; i < routines; ++i) {
    lines << QStringLiteral("procedure Routine%1(State: Integer);").arg(i, 3, 10, QLatin1Char('0'))
          << QStringLiteral("var") << QStringLiteral("  Line: Integer;") << QStringLiteral("begin")
          << QStringLiteral("  Line := State;") << thenLine() << QStringLiteral("    Line := 0;")
          << QStringLiteral("end;") << QString() << QString();
  }
  return lines << QStringLiteral("end.") << QString();
}

class DrivenSession : public testing::Test {
protected:
  DrivenSession() {
    platform::SetDebugSink([](std::string_view) {});
    write(path(QStringLiteral("views.pas")), lines_.join(u'\n').toUtf8());
    write(path(QStringLiteral("Drivers.pas")), "unit Drivers;\ninterface\nimplementation\nend.\n");
  }
  ~DrivenSession() override { platform::SetDebugSink({}); }

  QString path(const QString& name) const { return folder_.filePath(name); }

  static void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
  }
  static QByteArray read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
  }

  // Runs the program with `files`, and `work` in its event loop with its window.
  void edit(const QStringList& files, const std::function<void()>& work) {
    CommandLine line;
    line.files = files;
    line.packages = {QStringLiteral(ADD_IN_FILE)};
    line.showSplash = false;
    Program program(line);
    platform::Application().SetReporter(
        [](const QString& message, int) { ADD_FAILURE() << "reported: " << message.toStdString(); });
    bool worked = false;
    QTimer::singleShot(0, qApp, [&] {
      for (QWidget* form : platform::Screen().Forms())
        if (auto* const window = qobject_cast<TEditWindow*>(form))
          window_ = window;
      work();
      worked = true;
      // What a failure has left unsaved must not be asked about.
      for (const Page* page : window_->pages()) {
        EXPECT_FALSE(page->document()->isModified()) << page->title().toStdString();
        page->document()->setModified(false);
      }
      action(QStringLiteral("FileExitCommand"))->trigger();
    });
    EXPECT_EQ(program.edit(), 0);
    EXPECT_TRUE(worked);
  }

  QAction* action(const QString& name) const {
    return qobject_cast<QAction*>(platform::FindComponent(*window_->window(), name));
  }
  TEditControl* editor() const { return window_->editor(); }
  template <class TWidget> TWidget* inToolbar(const char* name) const {
    const QObject* const bar = platform::FindComponent(*window_, QStringLiteral("TQVEditorToolbar"));
    return bar != nullptr ? bar->findChild<TWidget*>(QLatin1StringView(name)) : nullptr;
  }

  // There is no window manager that makes the window active again when a menu or a dialog has closed.
  void goBackToText() const {
    editor()->activateWindow();
    editor()->setFocus();
    ASSERT_TRUE(support::waitUntil([&] { return editor()->hasFocus() && editor()->isActiveWindow(); }, 20));
  }
  void type(const QString& text) const { QTest::keyClicks(editor(), text); }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    goBackToText();
    QTest::keyClick(editor(), key, modifiers);
  }
  // Lets `answer` work on the next dialog with this object name, or on the next message box for an empty one.
  static void whenModal(const QString& name, const std::function<void(QDialog&)>& answer) {
    auto* const timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr || dialog->objectName() != name)
        return;
      timer->stop();
      timer->deleteLater();
      answer(*dialog);
    });
    timer->start(1);
  }
  static void whenPopup(const std::function<void(QWidget&)>& answer) {
    auto* const timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
      QWidget* const popup = QApplication::activePopupWidget();
      if (popup == nullptr)
        return;
      timer->stop();
      timer->deleteLater();
      answer(*popup);
    });
    timer->start(1);
  }

  // Tools > Virelle Options...
  void chooseOptions() const {
    auto* const tools = qobject_cast<QMenu*>(platform::FindComponent(*window_->window(), QStringLiteral("ToolsMenu")));
    for (QAction* item : tools->actions()) {
      if (item->text() == QStringLiteral("Virelle Options..."))
        item->trigger();
    }
  }

  void goToLine(int line) const {
    editor()->setCaret(line, 1);
    editor()->showCaret();
    editor()->setFocus();
  }
  bool comesToLine(int line) const {
    return support::waitUntil([&] { return editor()->caretRow() == line; });
  }
  int redPixels() const {
    const QImage& image = editor()->picture();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        count += image.pixelColor(x, y) == Qt::red;
    return count;
  }
  // The line, from 1, of a text.
  int lineOf(const QString& text) const { return static_cast<int>(lines_.indexOf(text)) + 1; }

  void navigate() const;
  void breakAndMend() const;
  void addTemplate() const;
  void expandTemplate();
  void useMarkers();
  void changeOptions() const;
  void checkWhatIsLeft() const;

  const QTemporaryDir folder_;
  QStringList lines_ = unitLines();
  TEditWindow* window_ = nullptr;
};

void DrivenSession::navigate() const {
  auto* const methods = inToolbar<QComboBox>("Methods");
  auto* const classes = inToolbar<QComboBox>("Classes");
  ASSERT_TRUE(support::waitUntil([&] { return methods->count() == routines && classes->count() == 2; }));
  methods->setFocus();
  whenPopup([](QWidget& popup) {
    auto* const list = popup.findChild<QAbstractItemView*>();
    QTest::keyClick(list, Qt::Key_Home);
    for (int i = 0; i < 5; ++i)
      QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
  });
  methods->showPopup();
  EXPECT_TRUE(comesToLine(lineOf(QStringLiteral("procedure Routine005(State: Integer);"))));

  classes->setFocus();
  classes->lineEdit()->selectAll();
  QTest::keyClicks(classes, QStringLiteral("TOther"));
  EXPECT_TRUE(comesToLine(lineOf(QStringLiteral("  TOther = class"))));

  whenPopup([](QWidget& popup) {
    auto& menu = dynamic_cast<QMenu&>(popup);
    const QPoint place = menu.actionGeometry(menu.actions().at(3)).center();
    QTest::mouseMove(&menu, place);
    QTest::mouseClick(&menu, Qt::LeftButton, {}, place);
  });
  QTest::mouseClick(inToolbar<QToolButton>("Sections"), Qt::LeftButton);
  EXPECT_TRUE(comesToLine(lineOf(QStringLiteral("implementation"))));

  whenPopup([](QWidget& menu) {
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
  });
  QTest::mouseClick(inToolbar<QToolButton>("UsedUnits"), Qt::LeftButton);
  EXPECT_TRUE(support::waitUntil([&] { return window_->currentPage()->title() == QStringLiteral("Drivers.pas"); }));
  press(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(window_->currentPage()->title(), QStringLiteral("views.pas"));
}

void DrivenSession::breakAndMend() const {
  goToLine(statement + 8); // what is marked stands below the statement and has to be in sight
  goToLine(statement);
  press(Qt::Key_End);
  EXPECT_EQ(redPixels(), 0);
  for (int i = 0; i < 4; ++i)
    press(Qt::Key_Backspace);
  EXPECT_TRUE(support::waitUntil([&] { return redPixels() > redEnough; }));
  type(QStringLiteral("then"));
  EXPECT_TRUE(support::waitUntil([&] { return redPixels() == 0; }));
}

void DrivenSession::addTemplate() const {
  whenModal(QStringLiteral("QVOptionsForm"), [](QDialog& options) {
    whenModal(QStringLiteral("QVTemplateEditorForm"), [](QDialog& editor) {
      whenModal(QString(), [](QDialog& question) {
        QTest::keyClicks(question.focusWidget(), QStringLiteral("zig"));
        QTest::keyClick(&question, Qt::Key_Return);
      });
      QTest::mouseClick(editor.findChild<QToolButton*>(QStringLiteral("AddTemplateBtn")), Qt::LeftButton);
      auto* const memo = editor.findChild<QPlainTextEdit*>(QStringLiteral("TemplateMemo"));
      memo->setFocus();
      QTest::keyClicks(memo, QStringLiteral("begin"));
      QTest::keyClick(memo, Qt::Key_Return);
      QTest::keyClicks(memo, QStringLiteral("  Work(|);"));
      QTest::keyClick(memo, Qt::Key_Return);
      QTest::keyClicks(memo, QStringLiteral("~~end;|"));
      whenModal(QString(), [](QDialog& question) {
        QTest::mouseClick(dynamic_cast<QMessageBox&>(question).button(QMessageBox::Yes), Qt::LeftButton);
      });
      QTest::mouseClick(editor.findChild<QPushButton*>(QStringLiteral("OKBtn")), Qt::LeftButton);
    });
    QTest::mouseClick(options.findChild<QPushButton*>(QStringLiteral("EditTemplatesBtn")), Qt::LeftButton);
    QTest::keyClick(&options, Qt::Key_Escape);
  });
  chooseOptions();
  const QString file = qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/virelle/templates.ini");
  EXPECT_EQ(read(file), "[zig]\ncode=begin\\  Work(|);\\~~end;|\n");
}

void DrivenSession::expandTemplate() {
  goToLine(statement);
  press(Qt::Key_Return);
  press(Qt::Key_Up);
  type(QStringLiteral("zig 1"));
  press(Qt::Key_Delete, Qt::ShiftModifier | Qt::AltModifier);
  type(QStringLiteral("{ done }"));
  lines_.insert(statement - 1, QStringLiteral("end;{ done }"));
  lines_.insert(statement - 1, QStringLiteral("  Work(1);"));
  lines_.insert(statement - 1, QStringLiteral("begin"));
}

void DrivenSession::useMarkers() {
  constexpr int first = statement - 10;
  constexpr int second = statement + 20;
  for (const int line : {first, second}) {
    goToLine(line);
    press(Qt::Key_Insert, Qt::ShiftModifier | Qt::AltModifier);
  }
  goToLine(1);
  press(Qt::Key_Return);
  lines_.prepend(QString());
  for (const int line : {second, first}) {
    press(Qt::Key_Delete, Qt::ShiftModifier | Qt::AltModifier);
    type(QStringLiteral("{here}"));
    lines_[line].prepend(QStringLiteral("{here}")); // all lines have moved down by one
  }
}

void DrivenSession::changeOptions() const {
  whenModal(QStringLiteral("QVOptionsForm"), [](QDialog& options) {
    for (const char* const name : {"GutterSeparatorCheck", "LineNumbersLeftCheck"})
      QTest::keyClick(options.findChild<QCheckBox*>(QLatin1StringView(name)), Qt::Key_Space);
    options.findChild<QTabWidget*>()->setCurrentIndex(2);
    auto* const delay = options.findChild<QSpinBox*>(QStringLiteral("FlyDelaySpin"));
    delay->selectAll();
    QTest::keyClicks(delay, QStringLiteral("1234"));
    QTest::keyClick(delay, Qt::Key_Return);
  });
  chooseOptions();
}

void DrivenSession::checkWhatIsLeft() const {
  EXPECT_EQ(read(path(QStringLiteral("views.pas"))), lines_.join(u'\n').toUtf8());
  const QByteArray options = read(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/virelle/registry.reg"));
  for (const char* const row : {"\"GutterSeparator\"=dword:00000000\n", "\"LineNumbersLeft\"=dword:00000000\n",
                                "\"FlyoutDelay\"=dword:000004d2\n", "\"LineNumbers\"=dword:00000001\n"})
    EXPECT_TRUE(QByteArray(options).replace("\r\n", "\n").contains(row)) << row;
}

TEST_F(DrivenSession, IsAsItWasLeftAfterARestart) {
  edit({path(QStringLiteral("views.pas"))}, [this] {
    navigate();
    breakAndMend();
    addTemplate();
    expandTemplate();
    useMarkers();
    press(Qt::Key_S, Qt::ControlModifier);
    changeOptions();
    goToLine(statement);
  });
  checkWhatIsLeft();
  edit({}, [this] {
    ASSERT_EQ(window_->pages().size(), 2);
    EXPECT_EQ(window_->pages()[0]->title(), QStringLiteral("views.pas"));
    EXPECT_EQ(window_->pages()[1]->title(), QStringLiteral("Drivers.pas"));
    EXPECT_TRUE(window_->pages()[0]->isCurrent());
    EXPECT_EQ(editor()->caretRow(), statement);
    EXPECT_EQ(editor()->toPlainText(), lines_.join(u'\n'));
    const auto* const gutter =
        qobject_cast<QWidget*>(platform::FindComponent(*window_, QStringLiteral("TQVLineNumbers")));
    EXPECT_GT(gutter->x(), editor()->x()) << "the gutter was put on the right";
  });
  checkWhatIsLeft();
}

} // namespace
