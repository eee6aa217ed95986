// SPDX-License-Identifier: MIT
#include "text/LineEnds.h"

namespace quorvane {

std::u16string_view LineEndText(TLineEnd End) {
  switch (End) {
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
  std::size_t Length = 0;
  while (Length < FRest.size() && FRest[Length] != u'\n' && FRest[Length] != u'\r')
    ++Length;
  FLine.Text = FRest.substr(0, Length);
  FRest.remove_prefix(Length);
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
