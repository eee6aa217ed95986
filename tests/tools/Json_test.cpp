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
