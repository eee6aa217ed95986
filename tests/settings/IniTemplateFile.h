// SPDX-License-Identifier: MIT
// The templates' file in memory.
#pragma once

#include "platform/ini/IniDocument.h"
#include "settings/model/QVTemplateStore.h"

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// A real INI text without a disk under it.
class IniTemplateFile : public IQVTemplateFile {
public:
  explicit IniTemplateFile(std::string_view bytes = {}) : Document(bytes) {}

  std::vector<std::string> ReadSections() override { return Document.Sections(); }
  std::string ReadString(std::string_view section, std::string_view key, std::string_view defaultValue) override {
    return Document.Value(section, key).value_or(std::string(defaultValue));
  }
  void WriteString(std::string_view section, std::string_view key, std::string_view value) override {
    Document.Write(section, key, value);
  }
  void EraseSection(std::string_view section) override { Document.Erase(section); }

  platform::TIniDocument Document;
};

} // namespace quorvane
