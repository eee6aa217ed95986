// SPDX-License-Identifier: MIT
#include "desktop/ui/CheckThread.h"

#include "analysis/QVUnitParse.h"

#include <exception>
#include <utility>

namespace desktop {

CheckThread::CheckThread(std::shared_ptr<const std::string> text, QObject* parent)
    : QThread(parent), text_(std::move(text)) {
  setObjectName(QStringLiteral("CheckThread"));
  setStackSize(static_cast<uint>(quorvane::ParseStackSize));
}

CheckThread::~CheckThread() {
  stop();
  wait();
}

void CheckThread::run() try {
  findings_ = quorvane::FindingsIn(*text_, stop_.get_token());
} catch (const std::bad_alloc&) {
  trouble_ = tr("Out of memory");
} catch (const std::exception& error) {
  trouble_ = QString::fromUtf8(error.what());
}

} // namespace desktop
