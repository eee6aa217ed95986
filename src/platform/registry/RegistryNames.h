// SPDX-License-Identifier: MIT
// The names of keys and values, in which the case of ASCII letters does not count.
#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

// Orders names.
struct TNoCaseLess {
  using is_transparent = void;
  bool operator()(std::u16string_view left, std::u16string_view right) const;
};

// Whether two names are the same.
bool SameName(std::u16string_view left, std::u16string_view right);

// Whether `text` begins with `start`.
bool StartsWithName(std::u16string_view text, std::u16string_view start);

// Whether the key `path` is `key` or lies below it.
bool IsAtOrBelow(std::u16string_view path, std::u16string_view key);

// The length of the longest start of both that is made of whole parts of the paths.
std::size_t CommonParts(std::u16string_view path, std::u16string_view key);

} // namespace platform
