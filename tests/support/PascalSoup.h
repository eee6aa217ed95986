// SPDX-License-Identifier: MIT
// Random text that looks enough like Pascal to reach every corner of the lexer and the parsers.
#pragma once

#include <string>
#include <vector>

#include <rapidcheck.h>

#include "lexer/zkPasLexTables.h"

namespace support {

// Pieces of text: every keyword, the characters that open, close and end things, and now and then any byte but NUL.
inline rc::Gen<std::string> AnyPiece() {
  std::vector<std::string> words;
  words.reserve(quorvane::Keywords.size());
  for (const quorvane::TKeyword& keyword : quorvane::Keywords)
    words.emplace_back(keyword.Word);
  const std::vector<std::string> marks = {
      "{",   "}", "(*", "*)",    "(",      ")",       "'",   "''",   "//",   "\n",  "\r\n", "\r", " ", "   ",
      "\t",  ".", "..", ".)",    "(.",     ":",       ":=",  "<",    ">",    "=",   "@",    "#",  "$", "{$",
      "(*$", "}", "*)", "{$R+}", "{$I a}", "{$IFDEF", "1.5", "1..2", "#$0D", "$FF", "a",    "Zz", "_", "x1",
      ";",   ",", "+",  "-",     "*",      "/",       "[",   "]",    "^",    "|",   "&",    "E",  "9", "\x80"};
  const auto anyByte =
      rc::gen::map(rc::gen::inRange(1, 256), [](int byte) { return std::string(1, static_cast<char>(byte)); });
  return rc::gen::weightedOneOf<std::string>(
      {{3, rc::gen::elementOf(words)}, {6, rc::gen::elementOf(marks)}, {1, anyByte}});
}

// What blocks are made of, mostly.
inline rc::Gen<std::string> BlockPiece() {
  const std::vector<std::string> pieces = {
      "begin ",  "begin",   "end",  "end ",     "end;",      "case ",     " of ",    "if ",    " then ", " else ", ";",
      "repeat ", " until ", "try ", " except ", " finally ", "(",         ")",       "()",     "((",     "))",     " ",
      "\n",      "\r\n",    "x",    "'begin'",  "{ begin }", "(* end *)", "// if\n", "BEGIN ", "End ",   "'"};
  return rc::gen::elementOf(pieces);
}

inline rc::Gen<std::string> SoupOf(const rc::Gen<std::string>& piece) {
  const auto join = [](const std::vector<std::string>& pieces) {
    std::string text;
    for (const std::string& each : pieces)
      text += each;
    return text;
  };
  return rc::gen::map(rc::gen::container<std::vector<std::string>>(piece), join);
}

inline rc::Gen<std::string> AnySoup() {
  return SoupOf(AnyPiece());
}

inline rc::Gen<std::string> BlockSoup() {
  return rc::gen::scale(4.0, SoupOf(rc::gen::weightedOneOf<std::string>({{9, BlockPiece()}, {1, AnyPiece()}})));
}

} // namespace support
