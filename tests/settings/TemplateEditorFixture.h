// SPDX-License-Identifier: MIT
// What the tests of the template editor share: a place of its own for templates and settings, the real dialog, and
// hands that use it and answer its questions as a user does.
#pragma once

#include "addin/AddinFixture.h"

#include "platform/Registry.h"
#include "settings/QVTemplateEditor.h"
#include "settings/QVTemplateEditorList.h"
#include "support/EnvironmentVariable.h"
#include "support/ModalAnswer.h"
#include "support/PrintQt.h"
#include "support/Wait.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace quorvane {

// An empty registry and an empty program directory while it lives.
class TemplateFolder {
public:
  TemplateFolder() { platform::Application().SetProgramDirectory(Path(QStringLiteral("data/"))); }
  ~TemplateFolder() {
    if (QVTemplateEditorForm)
      StopQVTemplateEditor();
    platform::Application().SetProgramDirectory({});
  }

  QString Path(const QString& name) const { return folder_.filePath(name); }
  QString FileName() const { return Path(QStringLiteral("data/templates.ini")); }

  // The bytes of a file; empty if there is none.
  static QByteArray Read(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  QByteArray Read() const { return Read(FileName()); }
  static void Write(const QString& name, const QByteArray& bytes) {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(name).path()));
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
  }
  void Write(const QByteArray& bytes) const { Write(FileName(), bytes); }

  // Sets the directory for templates in the registry.
  static void SetStorageDir(const QString& directory) {
    platform::TRegistry registry;
    registry.OpenKey("Software\\Vantrel\\QVIDE", true);
    registry.WriteString("StorageDir", directory.toStdString());
    registry.CloseKey();
  }

private:
  QTemporaryDir folder_;
  support::EnvironmentVariable configHome_{"XDG_CONFIG_HOME", folder_.filePath(QStringLiteral("config")).toLocal8Bit()};
};

// While it lives, answers message boxes and input boxes in the order in which they come up, and notes what they asked.
// A question without an answer fails the test, as does an answer without a question.
class Questions {
public:
  // Each answer is the text of a message box's button, or what is typed into an input box before OK; nullopt cancels.
  using Answers = std::vector<std::optional<QString>>;

  explicit Questions(Answers answers) : answers_(std::move(answers)) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(1);
  }
  ~Questions() { EXPECT_EQ(asked_.size(), answers_.size()); }
  Questions(const Questions&) = delete;
  Questions& operator=(const Questions&) = delete;

  // The texts of message boxes, and "TITLE, PROMPT [PRESET]" of input boxes.
  const Lines& Asked() const { return asked_; }

private:
  void Look() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    auto* const box = qobject_cast<QMessageBox*>(dialog);
    auto* const input = qobject_cast<QInputDialog*>(dialog);
    if ((!box && !input) || dialog == answered_)
      return;
    answered_ = dialog;
    asked_.push_back(
        (box ? box->text()
             : QStringLiteral("%1, %2 [%3]").arg(input->windowTitle(), input->labelText(), input->textValue()))
            .toStdString());
    if (asked_.size() > answers_.size()) {
      ADD_FAILURE() << "unexpected question: " << asked_.back();
      dialog->reject();
      return;
    }
    const std::optional<QString> answer = answers_[asked_.size() - 1];
    if (!answer) {
      dialog->reject();
    } else if (box) {
      support::clickButton(*box, *answer);
    } else {
      input->findChild<QLineEdit*>()->setText(*answer);
      support::clickButton(*input, QStringLiteral("OK"));
    }
  }

  Answers answers_;
  Lines asked_;
  QPointer<QDialog> answered_; // may still be up
  QTimer timer_;
};

// The unit not yet started, and no templates.
class TemplateEditorTest : public AddinTest {
protected:
  using Answers = Questions::Answers;
  static inline const QString Yes = QStringLiteral("Yes");
  static inline const QString No = QStringLiteral("No");
  static inline const QString Ok = QStringLiteral("OK");

  // Starts the unit with this file; with none if it is empty.
  void Start(const QByteArray& file = {}) {
    if (!file.isEmpty())
      Templates.Write(file);
    StartQVTemplateEditor();
  }

  // Shows the dialog; `act` uses it. Then it is closed by the button `close`, unless it is closed already.
  static TQVTemplateEditorForm::TModalResult Show(const std::function<void()>& act, const char* close = "CancelBtn") {
    const support::ModalAnswer<TQVTemplateEditorForm> shown([&](TQVTemplateEditorForm& form) {
      act();
      if (form.isVisible())
        Click(close);
    });
    return QVTemplateEditorForm->ShowModal();
  }

  // What is asked during `act`.
  static Lines Asked(const std::function<void()>& act, const Answers& answers) {
    const Questions questions(answers);
    act();
    return questions.Asked();
  }

  template <class TControl> static TControl& Control(const char* name) {
    auto* const control = QVTemplateEditorForm->findChild<TControl*>(QLatin1StringView(name));
    if (control == nullptr)
      throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  static TQVTemplateList& List() { return Control<TQVTemplateList>("TemplateList"); }
  static QPlainTextEdit& Memo() { return Control<QPlainTextEdit>("TemplateMemo"); }
  static QAbstractButton& Button(const char* name) { return Control<QAbstractButton>(name); }
  static std::string MemoText() { return Memo().toPlainText().toStdString(); }
  static Lines Names() {
    Lines names;
    for (int row = 0; row < List().count(); ++row)
      names.push_back(List().item(row)->text().toStdString());
    return names;
  }

  // Hands.
  static void Click(const char* button) { QTest::mouseClick(&Button(button), Qt::LeftButton); }
  static void Choose(int row, Qt::KeyboardModifiers modifiers = {}) {
    List().scrollToItem(List().item(row));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, modifiers, List().visualItemRect(List().item(row)).center());
  }
  // Types at the end of the memo.
  static void Type(const QString& text) {
    ASSERT_TRUE(Memo().isEnabled());
    Memo().moveCursor(QTextCursor::End);
    for (const QChar character : text) {
      const bool isBreak = character == u'\n';
      QKeyEvent press(QEvent::KeyPress, isBreak ? Qt::Key_Return : 0, {}, isBreak ? QStringLiteral("\r") : character);
      QCoreApplication::sendEvent(&Memo(), &press);
    }
  }

  TemplateFolder Templates;
};

} // namespace quorvane
