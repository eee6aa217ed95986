// SPDX-License-Identifier: MIT
// What holds for every text, the comparison with the reference above all.
#include "analysis/QVLiteParse.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/LitePasReference.h"
#include "support/PascalSoup.h"

namespace quorvane {
namespace {

using support::Announced;

RC_GTEST_PROP(AnyBlocks, AreAnnouncedLikeByTheReference, ()) {
  const std::string text = *support::BlockSoup();
  TQVLitePasParser parser;
  support::TLitePasReference reference;
  RC_ASSERT(Announced(parser, text) == reference.Parse(text));
}

RC_GTEST_PROP(AnyBlocks, InsideABeginAreAnnouncedLikeByTheReference, ()) {
  const std::string text = "begin " + *support::BlockSoup() + *support::BlockSoup();
  TQVLitePasParser parser;
  support::TLitePasReference reference;
  RC_ASSERT(Announced(parser, text) == reference.Parse(text));
}

RC_GTEST_PROP(AnyBlocks, AmongAllOtherTextAreAnnouncedLikeByTheReference, ()) {
  const std::string text = "begin " + *support::AnySoup();
  TQVLitePasParser parser;
  support::TLitePasReference reference;
  RC_ASSERT(Announced(parser, text) == reference.Parse(text));
}

RC_GTEST_PROP(AnyBlocks, AreAnnouncedAlikeWhateverWasParsedBefore, ()) {
  const std::string earlier = *support::BlockSoup();
  const std::string text = *support::BlockSoup();
  TQVLitePasParser used;
  TQVLitePasParser fresh;
  Announced(used, earlier);
  RC_ASSERT(Announced(used, text) == Announced(fresh, text));
}

} // namespace
} // namespace quorvane
