// SPDX-License-Identifier: MIT
// Outlines in tests: a parse whose reports are kept, a thread that answers as told, and the lists of an outline as
// text.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "analysis/QVPasInfo.h"
#include "analysis/QVPasParser.h"
#include "settings/model/QVOptions.h"

namespace support {

// A thread whose caret and pause are set from outside, and that writes down what it is asked for. Its main thread is
// the caller's own.
class TFakeParseThread : public quorvane::IQVParseThread {
public:
  struct TUnderline {
    std::int32_t Col;
    std::int32_t Line;
    std::int32_t Length;
    bool IsInMainThread; // asked for from within Synchronize

    bool operator==(const TUnderline&) const = default;
  };

  std::int32_t CaretPos() const override { return Caret; }
  std::int32_t StillCount() const override { return Still; }
  bool IsEnding() const override { return Ending; }
  void Synchronize(const std::function<void()>& call) override {
    IsSynchronizing = true;
    call();
    IsSynchronizing = false;
  }
  void UnderlineErr(std::int32_t col, std::int32_t line, std::int32_t length) override {
    Underlines.push_back({col, line, length, IsSynchronizing});
  }
  void ShowMessage(const std::string& text) override { Messages.push_back(text); }

  std::int32_t Caret = std::numeric_limits<std::int32_t>::min();
  std::int32_t Still = 0;
  bool Ending = false;
  bool IsSynchronizing = false;
  std::vector<TUnderline> Underlines;
  std::vector<std::string> Messages;
};

inline std::ostream& operator<<(std::ostream& out, const TFakeParseThread::TUnderline& underline) {
  return out << "col " << underline.Col << " line " << underline.Line << " length " << underline.Length
             << (underline.IsInMainThread ? " in" : " outside") << " the main thread";
}

// What a parse left behind.
struct TOutlined {
  std::shared_ptr<quorvane::TQVPasInfo> Info = std::make_shared<quorvane::TQVPasInfo>();
  std::vector<std::string> Reports; // "3:7 Expected 'Then' found 'x'": line and column from 0
  std::string Fatal;                // what ended the parse before the end of the text; empty if nothing did
};

// An outline parser whose reports are written down before its own handler hears of them.
class TListeningParser : public quorvane::TQVPasParser {
public:
  explicit TListeningParser(std::vector<std::string>& reports) {
    SetOnMessage([&reports, own = OnMessage()](quorvane::TzkSimplePasPar& sender, const std::string& msg,
                                               std::int32_t x, std::int32_t y) {
      reports.push_back(std::to_string(y) + ":" + std::to_string(x) + " " + msg);
      own(sender, msg, x, y);
    });
  }
};

inline TOutlined Outlined(std::string text, quorvane::IQVParseThread* thread = nullptr) {
  TOutlined outlined;
  TListeningParser parser(outlined.Reports);
  parser.SetPasInfo(outlined.Info);
  parser.SetThread(thread);
  parser.InitDefines();
  try {
    parser.Run("", &text);
  } catch (const quorvane::ESyntaxError& error) {
    outlined.Fatal = error.what();
  }
  return outlined;
}

// "Bar@3 Foo@1"
inline std::string Listed(const quorvane::TQVNameList& names) {
  std::string result;
  for (const auto& [name, line] : names)
    result += (result.empty() ? "" : " ") + std::string(name) + "@" + std::to_string(line);
  return result;
}

inline std::string Listed(const std::vector<std::string>& names) {
  std::string result;
  for (const std::string& name : names)
    result += (result.empty() ? "" : " ") + name;
  return result;
}

// Sets the option of the syntax check for as long as it lives.
class TSyntaxCheck {
public:
  explicit TSyntaxCheck(bool isOn) : FBefore(quorvane::OptSyntaxCheck.exchange(isOn)) {}
  ~TSyntaxCheck() { quorvane::OptSyntaxCheck = FBefore; }
  TSyntaxCheck(const TSyntaxCheck&) = delete;
  TSyntaxCheck& operator=(const TSyntaxCheck&) = delete;

private:
  bool FBefore;
};

} // namespace support
