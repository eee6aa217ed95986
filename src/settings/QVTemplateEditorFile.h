// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IniFile.h"
#include "settings/model/QVTemplateStore.h"

namespace quorvane {

// An INI file of the platform as the template store sees it. Throws as platform::TIniFile says.
class TQVTemplateIniFile final : public IQVTemplateFile {
public:
  explicit TQVTemplateIniFile(std::string_view fileName) : file_(fileName) {}

  std::vector<std::string> ReadSections() override { return file_.ReadSections(); }
  std::string ReadString(std::string_view section, std::string_view key, std::string_view defaultValue) override {
    return file_.ReadString(section, key, defaultValue);
  }
  void WriteString(std::string_view section, std::string_view key, std::string_view value) override {
    file_.WriteString(section, key, value);
  }
  void EraseSection(std::string_view section) override { file_.EraseSection(section); }

private:
  platform::TIniFile file_;
};

} // namespace quorvane
