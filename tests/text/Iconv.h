// SPDX-License-Identifier: MIT
// The C library's own converter, as a second opinion on tables and on what is well-formed.
#pragma once

#include <cstddef>
#include <iconv.h>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quorvane {

class TIconv {
public:
  // From an encoding to UTF-16 of this machine; throws if the C library does not know the encoding.
  explicit TIconv(const char* encoding) : FHandle(iconv_open("UTF-16LE", encoding)) {
    if (FHandle == reinterpret_cast<iconv_t>(-1)) // NOLINT(performance-no-int-to-ptr): how iconv says failure
      throw std::runtime_error(std::string("no converter from ") + encoding);
  }
  ~TIconv() { iconv_close(FHandle); }
  TIconv(const TIconv&) = delete;
  TIconv& operator=(const TIconv&) = delete;

  // The text of `bytes`, none if they are not well-formed to the last byte.
  std::optional<std::u16string> Convert(std::string_view bytes) const {
    iconv(FHandle, nullptr, nullptr, nullptr, nullptr);
    std::string in(bytes);
    std::u16string text(in.size() + 1, u'\0');
    char* from = in.data();
    char* to = reinterpret_cast<char*>(text.data());
    std::size_t fromLeft = in.size();
    std::size_t toLeft = text.size() * sizeof(char16_t);
    if (iconv(FHandle, &from, &fromLeft, &to, &toLeft) == static_cast<std::size_t>(-1) || fromLeft != 0)
      return std::nullopt;
    text.resize(text.size() - toLeft / sizeof(char16_t));
    return text;
  }

private:
  iconv_t FHandle;
};

} // namespace quorvane
