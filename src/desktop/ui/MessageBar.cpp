// SPDX-License-Identifier: MIT
#include "desktop/ui/MessageBar.h"

#include "desktop/ui/CloseButton.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

constexpr std::size_t mostRows = 4;
constexpr int progressWidth = 160; // pixels

QColor mixed(const QColor& ground, const QColor& tint, double share) {
  const auto mix = [share](double from, double to) { return static_cast<float>(from + (to - from) * share); };
  return QColor::fromRgbF(mix(ground.redF(), tint.redF()), mix(ground.greenF(), tint.greenF()),
                          mix(ground.blueF(), tint.blueF()));
}

QColor tintOf(MessageBar::Kind kind) {
  switch (kind) {
  case MessageBar::Kind::Information:
    return {61, 132, 219};
  case MessageBar::Kind::Warning:
    return {222, 154, 26};
  case MessageBar::Kind::Error:
    return {214, 60, 60};
  }
  return {};
}

QStyle::StandardPixmap iconOf(MessageBar::Kind kind) {
  switch (kind) {
  case MessageBar::Kind::Information:
    return QStyle::SP_MessageBoxInformation;
  case MessageBar::Kind::Warning:
    return QStyle::SP_MessageBoxWarning;
  case MessageBar::Kind::Error:
    return QStyle::SP_MessageBoxCritical;
  }
  return QStyle::SP_MessageBoxInformation;
}

} // namespace

// One message with its close button and, if it is a question, those of its answers, on a ground that is tinted by its
// kind.
class MessageBar::Row : public QWidget {
public:
  Row(Kind kind, const QString& text, int count, MessageBar* bar)
      : QWidget(bar), kind_(kind), text_(text), count_(count), label_(new QLabel(this)), buttons_(new QHBoxLayout) {
    auto* const icon = new QLabel(this);
    const int extent = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    icon->setPixmap(style()->standardIcon(iconOf(kind), nullptr, this).pixmap(extent, extent));
    label_->setTextFormat(Qt::PlainText);
    label_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label_->setWordWrap(true);
    auto* const close = new CloseButton(MessageBar::tr("Close this message"), this);
    close->setObjectName(QStringLiteral("CloseMessage"));
    connect(close, &CloseButton::clicked, bar, [bar, this] {
      const std::function<void()> closed = std::exchange(closed_, {});
      bar->removeRow(this);
      if (closed)
        closed();
    });

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 4, 4);
    layout->setSpacing(8);
    layout->addWidget(icon, 0, Qt::AlignTop);
    layout->addWidget(label_, 1);
    layout->addLayout(buttons_);
    layout->addWidget(close, 0, Qt::AlignTop);
    close_ = close;
    showText();
  }

  // Closing the row would not say whether what it tells of goes on, so it has no button for that.
  void addProgress(const QString& name) {
    auto* const bar = new QProgressBar(this);
    bar->setRange(0, 100);
    bar->setFixedWidth(progressWidth);
    bar->setAccessibleName(name);
    buttons_->addWidget(bar, 0, Qt::AlignVCenter);
    close_->hide();
  }

  void addAnswer(const Answer& answer, MessageBar* bar) {
    auto* const button = new QPushButton(answer.text, this);
    buttons_->addWidget(button, 0, Qt::AlignTop);
    connect(button, &QPushButton::clicked, bar, [bar, this, run = answer.run] {
      bar->removeRow(this);
      run();
    });
  }
  void setClosed(std::function<void()> closed) { closed_ = std::move(closed); }

  bool isQuestion() const { return buttons_->count() > 0; }
  bool holds(Kind kind, const QString& text) const { return !isQuestion() && kind_ == kind && text_ == text; }
  void add(int count) {
    count_ += count;
    showText();
  }
  QString shown() const { return label_->text(); }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), mixed(palette().color(QPalette::Window), tintOf(kind_), 0.18));
    painter.fillRect(0, height() - 1, width(), 1, mixed(palette().color(QPalette::Window), tintOf(kind_), 0.6));
  }

private:
  void showText() { label_->setText(count_ == 1 ? text_ : MessageBar::tr("%1 (%2 times)").arg(text_).arg(count_)); }

  Kind kind_;
  QString text_;
  int count_;
  QLabel* label_;
  QHBoxLayout* buttons_;
  QWidget* close_ = nullptr;
  std::function<void()> closed_;
};

MessageBar::MessageBar(QWidget* parent) : QWidget(parent), layout_(new QVBoxLayout(this)) {
  setObjectName(QStringLiteral("MessageBar"));
  layout_->setContentsMargins(0, 0, 0, 0);
  layout_->setSpacing(0);
  hide();
}

MessageBar::~MessageBar() = default;

void MessageBar::addMessage(Kind kind, const QString& text, int count) {
  const auto known =
      std::find_if(rows_.begin(), rows_.end(), [kind, &text](const Row* row) { return row->holds(kind, text); });
  if (known != rows_.end()) {
    (*known)->add(count);
    return;
  }
  addRow(new Row(kind, text, count, this));
}

QWidget* MessageBar::ask(Kind kind, const QString& text, const std::vector<Answer>& answers,
                         std::function<void()> closed) {
  auto* const row = new Row(kind, text, 1, this);
  for (const Answer& answer : answers)
    row->addAnswer(answer, this);
  row->setClosed(std::move(closed));
  addRow(row);
  return row;
}

QWidget* MessageBar::showProgress(const QString& text, std::function<void()> stop) {
  auto* const row = new Row(Kind::Information, text, 1, this);
  row->addProgress(text);
  row->addAnswer({tr("St&op"), std::move(stop)}, this);
  addRow(row);
  return row;
}

void MessageBar::setProgress(const QWidget& row, int percent) {
  if (auto* const bar = row.findChild<QProgressBar*>())
    bar->setValue(percent);
}

void MessageBar::withdraw(const QWidget* question) {
  const auto row = std::find(rows_.begin(), rows_.end(), question);
  if (row != rows_.end())
    removeRow(*row);
}

void MessageBar::addRow(Row* row) {
  const auto oldest = std::find_if(rows_.begin(), rows_.end(), [](const Row* each) { return !each->isQuestion(); });
  if (rows_.size() >= mostRows && oldest != rows_.end())
    removeRow(*oldest);
  rows_.push_back(row);
  layout_->addWidget(row);
  show();
}

void MessageBar::removeRow(Row* row) {
  rows_.erase(std::remove(rows_.begin(), rows_.end(), row), rows_.end());
  row->hide();
  row->deleteLater();
  setVisible(!rows_.empty());
}

void MessageBar::clear() {
  while (!rows_.empty())
    removeRow(rows_.front());
}

QStringList MessageBar::messages() const {
  QStringList texts;
  for (const Row* row : rows_)
    texts.append(row->shown());
  return texts;
}

} // namespace desktop
