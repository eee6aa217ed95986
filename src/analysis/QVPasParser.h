// SPDX-License-Identifier: MIT
// The parser that fills an outline, and finds the errors that an editor underlines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "analysis/QVPasInfo.h"
#include "parser/zkSimplePasPar.h"

namespace quorvane {

// What the outline parser needs of the thread that it runs in.
class IQVParseThread {
public:
  virtual ~IQVParseThread() = default;

  // The caret as an index (from 0) into the text that is being parsed; read in the thread.
  virtual std::int32_t CaretPos() const = 0;

  // For how long the caret has stood still: 10 for every parse since it moved. Read in the thread.
  virtual std::int32_t StillCount() const = 0;

  // Whether the thread is to end, so that nobody waits for the outline any more. Read in the thread.
  virtual bool IsEnding() const = 0;

  // Runs a call in the main thread and waits for it; what it throws comes back to the caller.
  virtual void Synchronize(const std::function<void()>& call) = 0;

  // Main thread: underlines a place in the editor if it still shows this text. The column is from 0 and the line from
  // 1, as the parser makes them; the length is in characters.
  virtual void UnderlineErr(std::int32_t col, std::int32_t line, std::int32_t length) = 0;

  // Main thread: shows a message box.
  virtual void ShowMessage(const std::string& text) = 0;
};

// Walks over a source file and writes down what an outline holds. Of every conditional the first branch is taken,
// whatever is defined; the other is skipped up to the next end-if directive, nested or not. Intended.
//
// Create it, set the outline and, where there is one, the thread, call InitDefines, then Run; it lives for one parse.
// What Run throws leaves the outline with what has been read so far, which is still of use. A thread that is to end
// ends the parse soon, as a fatal error does.
//
// Its own handler of messages underlines the error if the user pauses, then moves on to the next semicolon. Whoever
// wants to hear of the errors sets another OnMessage that calls this one.
class TQVPasParser : public TzkSimplePasPar {
public:
  // Every nested routine is named with all that is around it, so long names around many routines would take memory in
  // proportion to the square of the text. Beyond this many characters, and twice the text that has been read, such
  // names end the parse as a fatal error does.
  static constexpr std::int64_t FreePathLength = std::int64_t{1} << 20U;

  TQVPasParser();

  // The outline to fill. Without one nothing is collected, and the initialization section is not parsed at all.
  void SetPasInfo(std::shared_ptr<IQVPasInfo> pasInfo) { FPasInfo = std::move(pasInfo); }

  // The thread, which stays the caller's and must outlive the parse. Without one nothing is underlined and no routine
  // holds the caret.
  void SetThread(IQVParseThread* thread) { FThread = thread; }

  // Where symbols would be defined. None are.
  void InitDefines() {}

  // Main thread: underlines the last reported error.
  void PaintErr();

  // Main thread: shows that this parser is there; for debugging.
  void Msg();

protected:
  void HandlePtCompDirect(TzkBasePasLex& lex) override;
  void HandlePtDefineDirect(TzkBasePasLex& lex) override;
  void HandlePtElseDirect(TzkBasePasLex& lex) override;
  void HandlePtEndIfDirect(TzkBasePasLex& lex) override;
  void HandlePtIfDefDirect(TzkBasePasLex& lex) override;
  void HandlePtIfNDefDirect(TzkBasePasLex& lex) override;
  void HandlePtIfOptDirect(TzkBasePasLex& lex) override;
  void HandlePtIncludeDirect(TzkBasePasLex& lex) override;
  void HandlePtResourceDirect(TzkBasePasLex& lex) override;
  void HandlePtUndefDirect(TzkBasePasLex& lex) override;

  bool IsJunkPlain() const override;
  void NextToken() override;

  void Block() override;
  void FunctionMethodDeclaration() override;
  void FunctionProcedureBlock() override;
  void FunctionProcedureName() override;
  void ImplementationSection() override;
  void InitializationSection() override;
  void InterfaceSection() override;
  void ObjectNameOfMethod() override;
  void ProcedureMethodDeclaration() override;
  void TypeName() override;
  void UsedUnitName() override;
  void UsesClause() override;

private:
  void LeaveIfThreadEnds();
  void SwallowHints();
  void OnMessageHandler(std::int32_t x, std::int32_t y);
  void LeaveMethod();
  std::string MethodName() const;
  void CountPath(std::size_t length);
  void SkipBranch(TzkBasePasLex& lex);
  bool IsCaretInRoutine() const;

  bool FInProcAtCaret = false; // the routine just finished holds the caret
  std::string FCurrentRoutineName;
  std::string FCurrentObjectName; // the class part of the method being read; also set by every type name
  std::int32_t FRoutineStart = 0; // run position of the start of the last heading
  std::int32_t FBlockEnd = 0;     // run position at the end of the last block
  bool FInRoutineBlock = false;
  IQVParseThread* FThread = nullptr;
  std::shared_ptr<IQVPasInfo> FPasInfo;
  std::int32_t FErrorCol = 0; // of the last reported error, as the editor counts
  std::int32_t FErrorLine = 0;
  bool FTakeBranch = true;     // false while the branch of a conditional is skipped
  bool FIsSkipping = false;    // SkipBranch is at work
  std::int32_t FOpenSkips = 0; // skips that have begun in it and whose else is not passed yet
  std::uint32_t FTokenCount = 0;
  std::int64_t FPathLength = 0; // of the names of all routines together
  std::vector<std::string> FRoutineStack;
  std::vector<std::string> FObjectStack;
};

} // namespace quorvane
