// SPDX-License-Identifier: MIT
#include "analysis/QVPasParser.h"

#include <string_view>
#include <typeinfo>
#include <utility>

#include "settings/model/QVOptions.h"

namespace quorvane {
namespace {

// How long the caret must have stood still before an error is underlined: for more than a hundred parses.
constexpr std::int32_t StillBeforePaint = 1000;

// The lengths of the words and one blank. A routine so starts right before its heading. Intended.
constexpr std::int32_t ProcedureLength = 10;
constexpr std::int32_t FunctionLength = 9;

// Appends the names with a dot between each two. Grows the path once at most.
void AppendPath(std::string& path, const std::vector<std::string>& names) {
  std::size_t length = path.size() + names.size();
  for (const std::string& name : names)
    length += name.size();
  path.reserve(length);
  for (const std::string& name : names) {
    if (&name != &names.front())
      path += '.';
    path += name;
  }
}

std::string Path(const std::vector<std::string>& names) {
  std::string path;
  AppendPath(path, names);
  return path;
}

} // namespace

TQVPasParser::TQVPasParser() {
  SetOnMessage(
      [this](TzkSimplePasPar&, const std::string&, std::int32_t x, std::int32_t y) { OnMessageHandler(x, y); });
}

// The text of the message is not used: the place is all that an editor shows.
void TQVPasParser::OnMessageHandler(std::int32_t x, std::int32_t y) {
  if (OptSyntaxCheck) {
    FErrorCol = x - 1;
    FErrorLine = y + 1;
    if (FThread != nullptr && FThread->StillCount() > StillBeforePaint)
      FThread->Synchronize([this] { PaintErr(); });
  }
  Lexer().NextID(ptSemiColon);
}

void TQVPasParser::PaintErr() {
  if (FThread != nullptr)
    FThread->UnderlineErr(FErrorCol, FErrorLine, Lexer().GetTokenLen() + 2);
}

void TQVPasParser::Msg() {
  if (FThread != nullptr)
    FThread->ShowMessage("Message!");
}

bool TQVPasParser::IsJunkPlain() const {
  return typeid(*this) == typeid(TQVPasParser);
}

// Asked rarely, since there is a token every few nanoseconds; often enough to be soon.
void TQVPasParser::LeaveIfThreadEnds() {
  constexpr std::uint32_t between = 1024;
  if (++FTokenCount % between == 0 && FThread != nullptr && FThread->IsEnding())
    throw ESyntaxError("The thread of the parse is to end", Lexer().GetPosXY());
}

void TQVPasParser::NextToken() {
  LeaveIfThreadEnds();
  do {
    Lexer().Next();
    SwallowHints();
    if (!WalksPlainly()) {
      SkipJunk();
      return;
    }
  } while (Lexer().GetIsJunk());
}

// A hint is swallowed with its semicolon, whatever it stands for. One after the other, so that a long row of them takes
// no stack.
void TQVPasParser::SwallowHints() {
  while (IsIdentifier("deprecated")) {
    Lexer().Next();
    if (TokenID() != ptSemiColon) {
      Expected(ptSemiColon);
      return;
    }
    Lexer().Next();
  }
}

void TQVPasParser::InterfaceSection() {
  if (FPasInfo)
    FPasInfo->SetInterfaceLine(Lexer().LineNumber());
  TzkSimplePasPar::InterfaceSection();
}

void TQVPasParser::ImplementationSection() {
  if (FPasInfo)
    FPasInfo->SetImplementationLine(Lexer().LineNumber());
  TzkSimplePasPar::ImplementationSection();
}

void TQVPasParser::InitializationSection() {
  if (FPasInfo)
    TzkSimplePasPar::InitializationSection();
}

void TQVPasParser::UsesClause() {
  if (FPasInfo) {
    if (FPasInfo->GetImplementationLine() >= 0)
      FPasInfo->SetImplementationUsesLine(Lexer().LineNumber());
    else
      FPasInfo->SetInterfaceUsesLine(Lexer().LineNumber());
  }
  TzkSimplePasPar::UsesClause();
}

void TQVPasParser::UsedUnitName() {
  if (FPasInfo) {
    if (FPasInfo->GetImplementationUsesLine() >= 0)
      FPasInfo->AddImplementationUses(TokenText());
    else
      FPasInfo->AddInterfaceUses(TokenText());
  }
  TzkSimplePasPar::UsedUnitName();
}

void TQVPasParser::TypeName() {
  if (FPasInfo) {
    FCurrentObjectName = TokenText();
    FPasInfo->AddClass(FCurrentObjectName, Lexer().LineNumber());
  }
  TzkSimplePasPar::TypeName();
}

void TQVPasParser::ObjectNameOfMethod() {
  FCurrentObjectName = TokenText();
  FObjectStack.push_back(FCurrentObjectName);
  TzkSimplePasPar::ObjectNameOfMethod();
}

void TQVPasParser::FunctionProcedureName() {
  FCurrentRoutineName = TokenText();
  TzkSimplePasPar::FunctionProcedureName();
}

// The headings of constructors and destructors do not move the start. Intended.
void TQVPasParser::ProcedureMethodDeclaration() {
  if (TokenID() == ptProcedure)
    FRoutineStart = Lexer().RunPos() - ProcedureLength;
  TzkSimplePasPar::ProcedureMethodDeclaration();
  LeaveMethod();
}

void TQVPasParser::FunctionMethodDeclaration() {
  if (TokenID() == ptFunction)
    FRoutineStart = Lexer().RunPos() - FunctionLength;
  TzkSimplePasPar::FunctionMethodDeclaration();
  LeaveMethod();
}

// A class is left with every routine, so with a nested one of its method too. Intended.
void TQVPasParser::LeaveMethod() {
  if (!FObjectStack.empty())
    FObjectStack.pop_back();
  FCurrentObjectName = FObjectStack.empty() ? std::string() : FObjectStack.back();
}

void TQVPasParser::Block() {
  TzkSimplePasPar::Block();
  FBlockEnd = Lexer().RunPos();
}

// Both ends are those of the last heading and the last block read, so a routine with nested ones holds the caret only
// behind the heading of the last of them. Where both match, the outer routine stays, since it comes last. Intended.
bool TQVPasParser::IsCaretInRoutine() const {
  if (FThread == nullptr)
    return false;
  const std::int32_t caret = FThread->CaretPos();
  return caret > FRoutineStart && caret < FBlockEnd;
}

// The class and the routines that are open, with dots between them.
std::string TQVPasParser::MethodName() const {
  std::string name;
  if (!FObjectStack.empty()) {
    name.reserve(FCurrentObjectName.size() + FRoutineStack.back().size() + 2);
    name += FCurrentObjectName;
    name += '.';
  }
  AppendPath(name, FRoutineStack);
  return name;
}

void TQVPasParser::CountPath(std::size_t length) {
  FPathLength += static_cast<std::int64_t>(length);
  if (FPathLength > FreePathLength + 2 * std::int64_t{Lexer().RunPos()})
    throw ESyntaxError("The names of nested routines take more room than the text", Lexer().GetPosXY());
}

void TQVPasParser::FunctionProcedureBlock() {
  const std::int32_t line = Lexer().LineNumber();
  FInRoutineBlock = true;
  FRoutineStack.push_back(std::move(FCurrentRoutineName));
  const std::string classPath = Path(FObjectStack);
  const std::string methodName = MethodName();
  CountPath(classPath.size() + methodName.size());

  TzkSimplePasPar::FunctionProcedureBlock();

  FInRoutineBlock = false;
  FInProcAtCaret = IsCaretInRoutine();
  if (FPasInfo) {
    FPasInfo->AddMethod(methodName, line);
    if (FInProcAtCaret) {
      FPasInfo->SetCurrentClass(classPath);
      FPasInfo->SetCurrentProc(Path(FRoutineStack));
    }
  }
  FRoutineStack.pop_back();
  FCurrentRoutineName.clear();
}

void TQVPasParser::HandlePtElseDirect(TzkBasePasLex& lex) {
  if (!FTakeBranch) {
    FTakeBranch = true;
    lex.Next();
  } else if (FIsSkipping) {
    // An else right behind the one that ended a skip begins the next one; SkipBranch goes on with it, so that a long
    // row of them takes no stack.
    FTakeBranch = false;
    ++FOpenSkips;
  } else {
    SkipBranch(lex);
    lex.Next();
  }
}

// The branch that the else opens is skipped, until an end-if, or an else inside of it, says that the skip is over. The
// flag is shared by both scanners, so a skip must not outlast its scanner's text. Each skip passes its own else at its
// end; the first one's is left to the caller.
void TQVPasParser::SkipBranch(TzkBasePasLex& lex) {
  FIsSkipping = true;
  FTakeBranch = false;
  FOpenSkips = 1;
  for (;;) {
    while (!FTakeBranch && lex.TokenID() != ptNull)
      NextIn(lex);
    FTakeBranch = true;
    if (--FOpenSkips == 0)
      break;
    NextIn(lex);
  }
  FIsSkipping = false;
}

void TQVPasParser::HandlePtEndIfDirect(TzkBasePasLex& lex) {
  if (FTakeBranch)
    lex.Next();
  else
    FTakeBranch = true;
}

void TQVPasParser::HandlePtCompDirect(TzkBasePasLex& lex) {
  lex.Next();
}

void TQVPasParser::HandlePtDefineDirect(TzkBasePasLex& lex) {
  lex.Next();
}

void TQVPasParser::HandlePtIfDefDirect(TzkBasePasLex& lex) {
  lex.Next();
}

void TQVPasParser::HandlePtIfNDefDirect(TzkBasePasLex& lex) {
  lex.Next();
}

void TQVPasParser::HandlePtIfOptDirect(TzkBasePasLex& lex) {
  lex.Next();
}

void TQVPasParser::HandlePtIncludeDirect(TzkBasePasLex& lex) {
  lex.Next();
}

void TQVPasParser::HandlePtResourceDirect(TzkBasePasLex& lex) {
  lex.Next();
}

void TQVPasParser::HandlePtUndefDirect(TzkBasePasLex& lex) {
  lex.Next();
}

} // namespace quorvane
