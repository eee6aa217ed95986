// SPDX-License-Identifier: MIT
#include "settings/model/QVTemplateExamples.h"

#include <array>

namespace quorvane {
namespace {

// None of the names is a word of the language, which could not be typed any more.
constexpr std::array<TQVTemplateExample, 18> examples = {{
    {"beg", R"(begin\  |\~~end;)"},
    {"casb", R"(case | of\  |: |;\~~else\  |\~~end;)"},
    {"cls", R"(T| = class(TObject)\private\  |\~~public\  |\~~end;)"},
    {"crf", R"(| := T|.Create;\try\  |\~~finally\  |.Free;\~~end;)"},
    {"ctor", R"(constructor T|.Create;\begin\  inherited Create;\|\~~end;)"},
    {"dtor", R"(destructor T|.Destroy;\begin\  |\inherited Destroy;\~~end;)"},
    {"forb", R"(for | := | to | do\begin\  |\~~end;)"},
    {"func", R"(function |: |;\begin\  Result := |;\~~end;)"},
    {"ifb", R"(if | then\begin\  |\~~end;)"},
    {"ife", R"(if | then\begin\  |\~~end\else\begin\  |\~~end;)"},
    {"newunit", R"(unit |;\\interface\\|\\implementation\\|\\end.)"},
    {"proc", R"(procedure |;\begin\  |\~~end;)"},
    {"prop", R"(property |: | read F| write F|;)"},
    {"rept", R"(repeat\  |\~~until |;)"},
    {"tryf", R"(try\  |\~~finally\  |\~~end;)"},
    {"tryo", R"(try\  |\~~except\  on E: | do\  |\~~~~end;)"},
    {"tryx", R"(try\  |\~~except\  |\~~end;)"},
    {"whb", R"(while | do\begin\  |\~~end;)"},
}};

} // namespace

std::span<const TQVTemplateExample> TemplateExamples() {
  return examples;
}

} // namespace quorvane
