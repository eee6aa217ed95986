// SPDX-License-Identifier: MIT
#include "desktop/files/FileArgument.h"

#include "desktop/files/FileFixture.h"
#include "support/PrintQt.h"

namespace desktop {
namespace {

struct Row {
  const char* argument;
  const char* path;
  std::optional<CaretPlace> caret;
};

class FileArgumentTest : public FileTest {};

TEST_F(FileArgumentTest, NumbersBehindTheNameOfAFileAreAPlace) {
  write("", "a.pas");
  write("", "b:2");
  write("", "c.pas:7");
  write("", "c.pas");
  const Row rows[] = {
      {"a.pas", "a.pas", {}},
      {"a.pas:12", "a.pas", CaretPlace{12, 1}},
      {"a.pas:12:", "a.pas", CaretPlace{12, 1}},
      {"a.pas:12:3", "a.pas", CaretPlace{12, 3}},
      {"a.pas:12:3:", "a.pas", CaretPlace{12, 3}},
      {"a.pas:0", "a.pas:0", {}},
      {"a.pas:1:0", "a.pas:1:0", {}},
      {"a.pas:", "a.pas:", {}},
      {"a.pas:x", "a.pas:x", {}},
      {"a.pas:99999999999", "a.pas:99999999999", {}},
      {"missing.pas:12", "missing.pas:12", {}},
      {"b:2", "b:2", {}},
      {"b:2:5", "b:2", CaretPlace{5, 1}},
      {"c.pas:7", "c.pas:7", {}},
      {"c.pas:8", "c.pas", CaretPlace{8, 1}},
  };
  for (const Row& row : rows) {
    const FileArgument read = readFileArgument(path(row.argument));
    EXPECT_EQ(read.path, path(row.path)) << row.argument;
    EXPECT_EQ(read.caret, row.caret) << row.argument;
  }
}

} // namespace
} // namespace desktop
