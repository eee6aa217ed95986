// SPDX-License-Identifier: MIT
#include "text/LineEnds.h"

namespace quorvane {

std::u16string_view LineEndText(TLineEnd end) {
  switch (end) {
  case TLineEnd::CrLf:
    return u"\r\n";
  case TLineEnd::Lf:
    return u"\n";
  case TLineEnd::Cr:
    return u"\r";
  case TLineEnd::None:
    break;
  }
  return {};
}

void TLines::TIterator::Advance() {
  std::size_t length = 0;
  while (length < FRest.size() && FRest[length] != u'\n' && FRest[length] != u'\r')
    ++length;
  FLine.Text = FRest.substr(0, length);
  FRest.remove_prefix(length);
  if (FRest.empty())
    FLine.End = TLineEnd::None;
  else if (FRest.front() == u'\n')
    FLine.End = TLineEnd::Lf;
  else if (FRest.starts_with(u"\r\n"))
    FLine.End = TLineEnd::CrLf;
  else
    FLine.End = TLineEnd::Cr;
  FRest.remove_prefix(LineEndText(FLine.End).size());
}

} // namespace quorvane
