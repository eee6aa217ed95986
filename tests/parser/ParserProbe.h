// SPDX-License-Identifier: MIT
// Parsers that remember what happened, so that a test can compare it with what should have: the reports in order, and
// for a walk over one production the productions that it called and the token that it stopped at.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "parser/zkSimplePasPar.h"

namespace quorvane {

// Messages as "Expected 'Then' found 'x' (3, 7)", the place as column and line from 0. One that ended the parse stands
// last, behind "fatal: ".
using TReports = std::vector<std::string>;

inline std::string ReportText(const std::string& msg, std::int32_t x, std::int32_t y) {
  return msg + " (" + std::to_string(x) + ", " + std::to_string(y) + ")";
}

// What is done about a report: nothing, not even a handler; a handler that lets the parser find its way; one that moves
// it to the next semicolon.
enum class TOnReport : unsigned char { NoHandler, Stay, ToSemicolon };

// Records the reports of a parse.
class TReporter : public TzkSimplePasPar {
public:
  explicit TReporter(TOnReport onReport = TOnReport::Stay) {
    if (onReport == TOnReport::NoHandler)
      return;
    SetOnMessage([this, onReport](TzkSimplePasPar& sender, const std::string& msg, std::int32_t x, std::int32_t y) {
      FReports.push_back(ReportText(msg, x, y));
      if (onReport == TOnReport::ToSemicolon)
        sender.Lexer().NextID(ptSemiColon);
    });
  }

  // Parses a whole text.
  const TReports& Parse(std::string text) {
    Catch([&] { Run("", &text); });
    return FReports;
  }

  const TReports& Reports() const { return FReports; }
  bool HasEndedEarly() const { return FHasEndedEarly; }

protected:
  template <class TCall> void Catch(TCall call) {
    try {
      call();
    } catch (const ESyntaxError& error) {
      FHasEndedEarly = true;
      FReports.push_back("fatal: " + ReportText(error.what(), error.PosXY().X, error.PosXY().Y));
    }
  }

private:
  TReports FReports;
  bool FHasEndedEarly = false;
};

// What a walk over one production did.
struct TWalked {
  std::string Calls; // the productions that it called itself, in order, with a blank between
  std::string Rest;  // the text of the token that it stopped at; empty at the end of the text
  TReports Reports;

  bool operator==(const TWalked&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const TWalked& walked) {
  out << "calls [" << walked.Calls << "] rest [" << walked.Rest << "] reports";
  for (const std::string& report : walked.Reports)
    out << " [" << report << ']';
  return out;
}

// Walks over single productions, and counts how often each is entered. Its operations are open to the tests.
class TProbe : public TReporter {
public:
  using TReporter::TReporter;
  using TzkSimplePasPar::ExID;
  using TzkSimplePasPar::Expected;
  using TzkSimplePasPar::ExpectedEx;
  using TzkSimplePasPar::ExpectedFatal;
  using TzkSimplePasPar::GenID;
  using TzkSimplePasPar::NextToken;
  using TzkSimplePasPar::SEMICOLON;
  using TzkSimplePasPar::SkipJunk;
  using TzkSimplePasPar::SynError;
  using TzkSimplePasPar::TokenID;

#define ZK_PRODUCTION(name)                                                                                            \
  void name() override {                                                                                               \
    const TEntered entered(*this, #name);                                                                              \
    TzkSimplePasPar::name();                                                                                           \
  }
#include "parser/Productions.def"

  // Puts the parser on the first token of a text, which must outlive what is done next.
  void Start(const std::string& text) {
    Lexer().SetOrigin(text.c_str());
    SkipJunk();
  }

  TWalked Walk(void (TProbe::*production)(), const std::string& text) {
    Start(text);
    FCalls.clear();
    Catch([&] { (this->*production)(); });
    return {FCalls, TokenID() == ptNull ? "" : Lexer().GetToken(), Reports()};
  }

  const std::map<std::string_view, int>& Entries() const {
    return FEntries;
  }

private:
  class TEntered {
  public:
    TEntered(TProbe& probe, std::string_view name) : FProbe(probe) {
      ++FProbe.FEntries[name];
      if (FProbe.FDepth++ != 1 || name.starts_with("Skip"))
        return;
      if (!FProbe.FCalls.empty())
        FProbe.FCalls += ' ';
      FProbe.FCalls += name;
    }
    ~TEntered() { --FProbe.FDepth; }
    TEntered(const TEntered&) = delete;
    TEntered& operator=(const TEntered&) = delete;

  private:
    TProbe& FProbe;
  };

  std::map<std::string_view, int> FEntries;
  std::string FCalls;
  int FDepth = 0;
};

// A row of a table: what a production is to do with a text. The name is a claim.
struct TWalk {
  const char* Name;
  void (TProbe::*Production)();
  const char* Text;
  TWalked Expected;
};

inline std::ostream& operator<<(std::ostream& out, const TWalk& walk) {
  return out << walk.Name;
}

inline std::string NameOfWalk(const testing::TestParamInfo<TWalk>& info) {
  return info.param.Name;
}

inline void ExpectWalk(const TWalk& walk) {
  TProbe probe;
  EXPECT_EQ(probe.Walk(walk.Production, walk.Text), walk.Expected) << walk.Text;
}

} // namespace quorvane
