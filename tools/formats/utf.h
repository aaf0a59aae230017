#pragma once

#include <optional>
#include <string>
#include <string_view>

/// UTF-8 as UTF-16, or nothing when the bytes are no UTF-8.
[[nodiscard]] std::optional<std::u16string> ToUtf16(std::string_view utf8);

/// UTF-16 as UTF-8. A lone half of a surrogate pair becomes a question mark.
[[nodiscard]] std::string ToUtf8(std::u16string_view utf16);
