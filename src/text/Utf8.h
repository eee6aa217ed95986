// SPDX-License-Identifier: MIT
// UTF-8 in its strict form: no overlong forms, no surrogates, nothing above U+10FFFF.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

// The number of bytes at the start of `bytes` that are all ASCII (0 to 127).
std::size_t AsciiPrefix(std::string_view bytes);

// The index of the first byte of the first malformed sequence; none if `bytes` is UTF-8 throughout. A sequence that
// the end of `bytes` cuts off is malformed.
std::optional<std::size_t> FirstMalformedUtf8(std::string_view bytes);

// The text of `bytes`. A malformed sequence becomes one U+FFFD for the longest part of it that could have begun a
// character, so a damaged file stays readable around the damage.
std::u16string DecodeUtf8(std::string_view bytes);

// The bytes of `text`, without a byte-order mark; none if it holds a lone surrogate, which UTF-8 cannot say.
std::optional<std::string> EncodeUtf8(std::u16string_view text);

} // namespace quorvane
