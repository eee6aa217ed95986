// SPDX-License-Identifier: MIT
#include "platform/IniFile.h"

#include "platform/Application.h"
#include "platform/Debug.h"
#include "platform/ini/IniDocument.h"
#include "platform/ini/IniText.h"
#include "platform/SafeFile.h"

#include <QDir>
#include <QFileInfo>

#include <optional>
#include <utility>

namespace platform {
namespace {

// Raises EIniFileException if there is an error in what `subject` names.
void Check(std::string_view subject, const std::optional<std::string_view>& error) {
  if (error)
    throw EIniFileException(std::string(subject) + " " + std::string(*error));
}

} // namespace

EIniFileException::~EIniFileException() = default;

struct TIniFile::TState {
  explicit TState(std::string_view fileName)
      : Name(fileName), File(QString::fromUtf8(fileName.data(), static_cast<qsizetype>(fileName.size()))) {}

  void Read();
  const TIniDocument& Contents();
  // Makes the folder if it is the program's own. Raises EFileError if it is another one and missing.
  void NeedFolder() const;
  // Calls `change` with the file's text and keeps what becomes of it. Raises EIniFileException.
  template <class TChange> void Change(TChange change);

  std::string Name;
  TSafeFile File;
  std::optional<TIniDocument> Document; // as it was when it was last read
};

void TIniFile::TState::Read() {
  Document.emplace();
  try {
    Document = TIniDocument(File.Read());
  } catch (const EFileError& error) {
    OutputDebugString("The file " + Name + " cannot be read: " + error.what());
  }
}

const TIniDocument& TIniFile::TState::Contents() {
  if (!Document)
    Read();
  return *Document;
}

void TIniFile::TState::NeedFolder() const {
  if (File.Path().isEmpty())
    throw EFileError("it has no name");
  const QString folder = File.Folder();
  if (folder == QDir::cleanPath(Application().ProgramDirectory()))
    File.MakeFolder();
  else if (!QFileInfo(folder).isDir())
    throw EFileError("there is no folder " + folder.toStdString());
}

template <class TChange> void TIniFile::TState::Change(TChange change) {
  TIniDocument changed;
  try {
    NeedFolder();
    File.Change([&changed, &change](std::string_view bytes) {
      changed = TIniDocument(bytes);
      if (changed.Damaged())
        throw EFileError("it is marked as UTF-16 and is none");
      change(changed);
      return changed.Bytes();
    });
  } catch (const EFileError& error) {
    throw EIniFileException("The file " + Name + " cannot be written: " + error.what());
  }
  Document = std::move(changed);
}

TIniFile::TIniFile(std::string_view fileName) : state_(std::make_unique<TState>(fileName)) {}
TIniFile::~TIniFile() = default;

const std::string& TIniFile::FileName() const {
  return state_->Name;
}

std::vector<std::string> TIniFile::ReadSections() {
  state_->Read();
  return state_->Contents().Sections();
}

std::string TIniFile::ReadString(std::string_view section, std::string_view key, std::string_view defaultValue) {
  return state_->Contents().Value(section, key).value_or(std::string(defaultValue));
}

void TIniFile::WriteString(std::string_view section, std::string_view key, std::string_view value) {
  Check("The name of a section", SectionNameError(section));
  Check("The name of a key", KeyNameError(key));
  Check("A value", ValueError(value));
  state_->Change([section, key, value](TIniDocument& document) { document.Write(section, key, value); });
}

void TIniFile::EraseSection(std::string_view section) {
  state_->Change([section](TIniDocument& document) { document.Erase(section); });
}

} // namespace platform
