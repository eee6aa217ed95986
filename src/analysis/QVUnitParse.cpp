// SPDX-License-Identifier: MIT
#include "analysis/QVUnitParse.h"

namespace quorvane {
namespace {

// Hears of every report before the parser's own handler, which still decides where the parse goes on.
void ListenTo(TQVPasParser& parser, const TOnSyntaxReport& onReport) {
  parser.SetOnMessage([own = parser.OnMessage(), &onReport](TzkSimplePasPar& sender, const std::string& msg,
                                                            std::int32_t x, std::int32_t y) {
    onReport({msg, x, y, sender.Lexer().GetTokenLen()});
    own(sender, msg, x, y);
  });
}

} // namespace

void ParseUnit(std::string& text, const std::shared_ptr<IQVPasInfo>& outline, IQVParseThread* thread,
               const TOnSyntaxReport& onReport) {
  TQVPasParser parser;
  parser.SetPasInfo(outline);
  parser.SetThread(thread);
  parser.InitDefines();
  ListenTo(parser, onReport);
  try {
    parser.Run({}, &text);
  } catch (const ESyntaxError& error) {
    const TzkPoint place = error.PosXY();
    onReport({error.what(), place.X, place.Y, parser.Lexer().GetTokenLen(), true});
  }
}

} // namespace quorvane
