// SPDX-License-Identifier: MIT
#include "tools/JsonMessage.h"

#include "tools/Json.h"

namespace quorvane {

void WriteJsonMessage(std::string_view msg, std::int32_t x, std::int32_t y, bool isFatal, TOutput& output) {
  {
    TJsonObject object(output.Line());
    object.Add("msg", msg);
    object.Add("x", x);
    object.Add("y", y);
    if (isFatal)
      object.AddBool("fatal", true);
  }
  output.EndLine();
}

} // namespace quorvane
