// SPDX-License-Identifier: MIT
#include "tools/Input.h"

#include "text/ServedText.h"

#include <CLI/Error.hpp>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <system_error>

namespace quorvane {
namespace {

// Positions in a text have 32 bits, and the parser ends it with a NUL.
constexpr std::size_t MaxTextSize = std::numeric_limits<std::int32_t>::max() - 1;

struct TFileCloser {
  void operator()(std::FILE* file) const {
    if (file != stdin)
      std::fclose(file);
  }
};
using TFile = std::unique_ptr<std::FILE, TFileCloser>;

[[noreturn]] void ThrowSystemError(int reason) {
  throw std::system_error(reason, std::generic_category());
}

TFile OpenFile(const std::string& name) {
  TFile file(name == StandardInput ? stdin : std::fopen(name.c_str(), "rb"));
  if (!file)
    ThrowSystemError(errno);
  return file;
}

TEncoding EncodingOf(std::string_view bytes, const std::string& encodingName) {
  if (const auto marked = MarkedEncoding(bytes))
    return *marked;
  if (const auto named = FindEncoding(encodingName))
    return *named;
  return DetectEncoding(bytes);
}

std::string TextOf(std::string bytes, const TInputOptions& options) {
  if (!options.Decode)
    return bytes;
  return ServeDecoded(DecodeFile(bytes, options.EncodingName));
}

std::string EncodingNames() {
  std::string names;
  for (const TEncoding& encoding : AllEncodings) {
    if (!names.empty())
      names += ", ";
    names += EncodingName(encoding);
  }
  return names;
}

// Takes every positional as a name as it stands. An option that takes extra values would split "[a,b]" at its comma; so
// this one expects more values than there can be, and is content with those that come.
void AddFileNames(CLI::App& command, std::vector<std::string>& names, const std::string& help) {
  command.add_option("FILE", names, help)
      ->required()
      ->type_name("")
      ->expected(CLI::detail::expected_max_vector_size, CLI::detail::expected_max_vector_size)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

CLI::Option* AddEncoding(CLI::App& command, std::string& name, const std::string& subject) {
  return command
      .add_option("--encoding", name,
                  subject + " of files that have no byte-order mark (" + EncodingNames() +
                      "). Without it, UTF-8 if the bytes are, else " + std::string(CodePageName(DefaultCodePage)))
      ->type_name("NAME")
      ->check([](const std::string& given) { return FindEncoding(given) ? "" : "unknown encoding " + given; });
}

} // namespace

void AddInputOptions(CLI::App& command, TInputOptions& options) {
  AddFileNames(command, options.Files, "Pascal files; - is standard input");
  CLI::Option* decode = command.add_flag("--decode", options.Decode,
                                         "Take each file as the editor would serve it: decoded, one byte a character, "
                                         "lines ending in CR LF. Without it the bytes are taken as they are");
  AddEncoding(command, options.EncodingName, "With --decode: the encoding")->needs(decode);
}

void AddDecodedInputOptions(CLI::App& command, TInputOptions& options, const std::string& files) {
  options.Decode = true;
  AddFileNames(command, options.Files, files);
  AddEncoding(command, options.EncodingName, "The encoding");
}

void RequireOneStandardInput(const TInputOptions& options) {
  if (std::ranges::count(options.Files, StandardInput) > 1)
    throw CLI::ValidationError("FILE", "standard input is given more than once");
}

void ForEachText(const TInputOptions& options, TSession& session,
                 const std::function<void(const std::string& file, std::string& text)>& work) {
  RequireOneStandardInput(options);
  for (const std::string& file : options.Files) {
    const std::string reason = session.Attempt([&] {
      std::string text = TextOf(ReadFile(file), options);
      work(file, text);
    });
    if (!reason.empty())
      session.ReportTrouble(file, reason);
  }
}

std::string ReadFile(const std::string& name) {
  const TFile file = OpenFile(name);
  std::string bytes;
  std::array<char, std::size_t{64} * 1024> piece{};
  while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), file.get())) {
    if (bytes.size() + count > MaxTextSize)
      ThrowSystemError(EFBIG);
    bytes.append(piece.data(), count);
  }
  if (std::ferror(file.get()))
    ThrowSystemError(errno);
  return bytes;
}

TDecodedText DecodeFile(std::string_view bytes, const std::string& encodingName) {
  return DecodeAs(bytes, EncodingOf(bytes, encodingName));
}

std::string ServeDecoded(const TDecodedText& text) {
  std::string served = ServeText(text.Text);
  if (served.size() > MaxTextSize)
    ThrowSystemError(EFBIG);
  return served;
}

} // namespace quorvane
