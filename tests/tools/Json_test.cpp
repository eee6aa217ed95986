// SPDX-License-Identifier: MIT
#include "tools/Json.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>
#include <string>

namespace quorvane {
namespace {

TEST(Json, EveryByteComesBackAsTheCharacterOfItsCode) {
  for (int byte = 0; byte < 256; ++byte) {
    std::string out;
    AppendJsonString(std::string{'<', static_cast<char>(byte), '>'}, out);
    const std::string text = nlohmann::json::parse(out);
    std::string expected = "<";
    if (byte < 0x80) {
      expected += static_cast<char>(byte);
    } else {
      expected += static_cast<char>(0xC0 | byte >> 6);
      expected += static_cast<char>(0x80 | (byte & 0x3F));
    }
    EXPECT_EQ(text, expected + ">") << byte;
  }
}

TEST(Json, EscapesTheControlCharactersBeyondAscii) {
  std::string out;
  AppendJsonString("~\x7F\x80\x9F\xA0", out);
  EXPECT_EQ(out, "\"~\\u007f\\u0080\\u009f\xC2\xA0\"");
}

TEST(Json, EscapesWhatEndsALineOrTurnsTheDirectionOfWriting) {
  std::string out;
  AppendJsonUtf8("a\xC2\x85\xE2\x80\xA8\xE2\x80\xA9\xE2\x80\xAE\n\"\xC3\xA9\xF0\x9F\x98\x80", out);
  EXPECT_EQ(out, "\"a\\u0085\\u2028\\u2029\\u202e\\n\\\"\xC3\xA9\xF0\x9F\x98\x80\"");
}

TEST(Json, ReplacesWhatIsNotUtf8) {
  std::string out;
  AppendJsonUtf8("a\xC3", out);
  EXPECT_EQ(out, "\"a\xEF\xBF\xBD\"");
}

TEST(Json, AnObjectKeepsTheOrderOfItsKeys) {
  std::string out;
  {
    TJsonObject object(out);
    object.Add("pos", std::numeric_limits<std::int32_t>::min());
    object.Add("kind", "ptBegin");
    object.Add("len", std::numeric_limits<std::int32_t>::max());
  }
  EXPECT_EQ(out, R"({"pos":-2147483648,"kind":"ptBegin","len":2147483647})");
}

TEST(Json, AnObjectWithoutKeysIsEmpty) {
  std::string out;
  { const TJsonObject object(out); }
  EXPECT_EQ(out, "{}");
}

} // namespace
} // namespace quorvane
