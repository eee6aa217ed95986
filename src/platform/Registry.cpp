// SPDX-License-Identifier: MIT
#include "platform/Registry.h"

#include "platform/Debug.h"
#include "platform/RegistryFile.h"
#include "platform/UserFiles.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <variant>

namespace platform {
namespace {

constexpr std::u16string_view root = u"HKEY_CURRENT_USER";

std::u16string Wide(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toStdU16String();
}

std::string Narrow(std::u16string_view text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

// The path from the root's name on that `key` means while `open` is the open key. Parts without a name do not count.
std::u16string PathOf(std::u16string_view open, std::u16string_view key) {
  std::u16string path(key.starts_with(u'\\') ? root : open);
  while (!key.empty()) {
    const std::u16string_view part = key.substr(0, key.find(u'\\'));
    if (!part.empty())
      path.append(u"\\").append(part);
    key.remove_prefix(std::min(part.size() + 1, key.size()));
  }
  return path;
}

void CheckName(std::u16string_view name) {
  if (HasControls(name))
    throw ERegistryException("A name in the registry has control characters: " + Narrow(name));
}

void CheckKey(std::u16string_view path) {
  CheckName(path);
  if (!IsKeyPath(path))
    throw ERegistryException("The end of a name in the registry looks like a comment: " + Narrow(path));
}

} // namespace

ERegistryException::~ERegistryException() = default;

struct TRegistry::TState {
  TRegistryFile File{ConfigFile(QStringLiteral("registry.reg"))};
  std::optional<TRegistryDocument> Document; // as it was when it was first needed
  std::u16string Key{root};                  // the open one
  std::vector<TRegistryKeyWrites> Writes;    // not saved yet, no key twice

  // The values of the open key with what was written since; none until they are needed.
  std::optional<TRegistryValues> Values;

  const TRegistryDocument& Contents() {
    if (!Document)
      Document = File.Read();
    return *Document;
  }

  TRegistryKeyWrites* WritesOf(std::u16string_view key) {
    const auto found =
        std::ranges::find_if(Writes, [key](const TRegistryKeyWrites& writes) { return SameName(writes.Key, key); });
    return found == Writes.end() ? nullptr : &*found;
  }

  bool HasKey(std::u16string_view key) { return WritesMake(key) || Contents().HasKey(key); }

  // Whether saving will leave a key of this path, whatever there is in the file.
  bool WritesMake(std::u16string_view key) const {
    return SameName(key, root) || std::ranges::any_of(Writes, [key](const TRegistryKeyWrites& writes) {
             return IsAtOrBelow(writes.Key, key);
           });
  }

  // Lets saving make a key if it is missing then; whether it is need not be known before.
  void MakeKey(const std::u16string& key);

  TRegistryValues& OpenValues() {
    if (!Values) {
      Values = Contents().Values(Key);
      if (const TRegistryKeyWrites* writes = WritesOf(Key))
        for (const TRegistryWrite& write : writes->Writes)
          Values->insert_or_assign(write.Name, write.Value);
    }
    return *Values;
  }

  void Write(std::string_view name, TRegistryValue value);
  // The value of type TValue that `name` has in the open key; `type` is for the message if it has none.
  template <class TValue> const TValue& Read(std::string_view name, const char* type);
};

void TRegistry::TState::MakeKey(const std::u16string& key) {
  if (WritesMake(key))
    return;
  CheckKey(key);
  // A key is there as soon as one below it is, and needs no mention of its own.
  std::erase_if(Writes, [&key](const TRegistryKeyWrites& writes) {
    return writes.Writes.empty() && IsAtOrBelow(key, writes.Key);
  });
  Writes.push_back({key, {}});
}

void TRegistry::TState::Write(std::string_view name, TRegistryValue value) {
  const std::u16string wideName = Wide(name);
  CheckName(wideName);
  if (Values)
    Values->insert_or_assign(wideName, value);
  TRegistryKeyWrites* writes = WritesOf(Key);
  if (writes == nullptr)
    writes = &Writes.emplace_back(TRegistryKeyWrites{Key, {}});
  const auto before = std::ranges::find_if(
      writes->Writes, [&wideName](const TRegistryWrite& write) { return SameName(write.Name, wideName); });
  if (before == writes->Writes.end())
    writes->Writes.push_back({wideName, std::move(value)});
  else
    before->Value = std::move(value);
}

template <class TValue> const TValue& TRegistry::TState::Read(std::string_view name, const char* type) {
  const TRegistryValues& values = OpenValues();
  const auto found = values.find(Wide(name));
  const auto value = [&] { return "value \"" + std::string(name) + "\" of the key " + Narrow(Key); };
  if (found == values.end())
    throw ERegistryException("There is no " + value());
  const TValue* content = std::get_if<TValue>(&found->second);
  if (content == nullptr)
    throw ERegistryException("The " + value() + " is no " + type);
  return *content;
}

TRegistry::TRegistry() : state_(std::make_unique<TState>()) {}

TRegistry::~TRegistry() {
  try {
    CloseKey();
  } catch (const std::exception& error) {
    OutputDebugString(error.what());
  }
}

bool TRegistry::KeyExists(std::string_view key) const {
  return state_->HasKey(PathOf(state_->Key, Wide(key)));
}

bool TRegistry::OpenKey(std::string_view key, bool canCreate) {
  std::u16string path = PathOf(state_->Key, Wide(key));
  if (canCreate)
    state_->MakeKey(path);
  else if (!state_->HasKey(path))
    return false;
  state_->Key = std::move(path);
  state_->Values.reset();
  return true;
}

void TRegistry::CloseKey() {
  std::vector<TRegistryKeyWrites> writes = std::exchange(state_->Writes, {});
  // Who has only looked at keys that were there needs no right to write.
  std::erase_if(writes, [this](const TRegistryKeyWrites& keyWrites) {
    return keyWrites.Writes.empty() && state_->Contents().HasKey(keyWrites.Key);
  });
  state_->Key = root;
  state_->Document.reset();
  state_->Values.reset();
  if (!writes.empty())
    state_->File.Write(writes);
}

std::string TRegistry::CurrentPath() const {
  return Narrow(std::u16string_view(state_->Key).substr(std::min(root.size() + 1, state_->Key.size())));
}

bool TRegistry::ValueExists(std::string_view name) const {
  return state_->OpenValues().contains(Wide(name));
}

std::vector<std::string> TRegistry::GetValueNames() const {
  std::vector<std::string> names;
  for (const auto& [name, value] : state_->OpenValues())
    names.push_back(Narrow(name));
  return names;
}

std::int32_t TRegistry::ReadInteger(std::string_view name) const {
  return static_cast<std::int32_t>(state_->Read<std::uint32_t>(name, "number"));
}

bool TRegistry::ReadBool(std::string_view name) const {
  return ReadInteger(name) != 0;
}

std::string TRegistry::ReadString(std::string_view name) const {
  return Narrow(state_->Read<std::u16string>(name, "text"));
}

void TRegistry::WriteInteger(std::string_view name, std::int32_t value) {
  state_->Write(name, static_cast<std::uint32_t>(value));
}

void TRegistry::WriteBool(std::string_view name, bool value) {
  WriteInteger(name, value ? 1 : 0);
}

void TRegistry::WriteString(std::string_view name, std::string_view value) {
  state_->Write(name, Wide(value));
}

} // namespace platform
