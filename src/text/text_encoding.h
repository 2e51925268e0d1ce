#pragma once

#include <string>
#include <string_view>

namespace morvane {

// Text is UTF-8 in memory. On disk it is Windows-1252, as the other programs of the field write it,
// wherever that says the same; `DecodeText(EncodeText(text)) == text` for every UTF-8 text.

/// The bytes of a file as UTF-8: bytes that are valid UTF-8 throughout are taken as such, without a
/// byte-order mark at their start, all others as Windows-1252. No byte is refused.
[[nodiscard]] std::string DecodeText(std::string bytes);

/// The same for files of any origin: bytes that start with the byte-order mark of UTF-16, of either
/// order, are UTF-16. What is no character there, half a one included, becomes U+FFFD.
[[nodiscard]] std::string DecodeAnyText(std::string bytes);

/// UTF-8 `text` as the bytes of a file.
[[nodiscard]] std::string EncodeText(std::string_view text);

// Records of a fixed length have one byte of Windows-1252 for each character.

/// UTF-8 `text` with "?" for each character that has no byte.
[[nodiscard]] std::string AnsiBytes(std::string_view text);
/// Such bytes as UTF-8.
[[nodiscard]] std::string TextOfAnsi(std::string_view bytes);
/// Such bytes in upper case, accented letters too.
[[nodiscard]] std::string UpperCaseAnsi(std::string_view bytes);

/// The whole character of UTF-8 `text` that starts at byte `at`; empty at the end. A byte that
/// belongs to no character is one by itself.
[[nodiscard]] std::string_view CharacterAt(std::string_view text, std::size_t at);

/// How many characters UTF-8 `text` has.
[[nodiscard]] std::size_t CharacterCount(std::string_view text);

/// The first `count` characters of UTF-8 `text`; all of a shorter one.
[[nodiscard]] std::string_view FirstCharacters(std::string_view text, std::size_t count);

}  // namespace morvane
