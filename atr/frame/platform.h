// What differs between the platforms, one call or one fact each. No other room asks which system it
// is on; platform_posix.cpp and platform_windows.cpp define these names in this order.
#ifndef ATR_FRAME_PLATFORM_H
#define ATR_FRAME_PLATFORM_H

#include <cstddef>
#include <cstdio>

namespace atr::platform {

extern char const directorySeparator[2];
extern char const foreignSeparator[2];  // rewritten to directorySeparator in paths
extern char const listSeparator;        // between the entries of a search path

/// The platform's own name for a United States English locale.
extern char const* const englishLocale;

/// Puts "NAME=value" into the environment of the process, which may keep pointing at the text.
void publishVariable(char* nameAndValue) noexcept;

/// Opens a regular file to read text, or answers null. A directory, a FIFO or a device counts as
/// not opening, and is not touched. A file under a lease is waited for.
std::FILE* openText(char const* path) noexcept;

/// Whether such a file is read in text mode: a line end of CR LF arrives as LF, and a byte 1A ends
/// the text. A read of more than one line may deliver what is behind that byte.
extern bool const hasTextMode;

/// What stands between the whole and the fraction of a number in the process locale.
char const* decimalPoint() noexcept;

/// Codesets of the process locale that fast paths know by name. In a `stateless` one each character
/// stands for one code, whatever stands beside it. In none but `other` is a byte within a character
/// white space.
enum class Codeset { other, ascii, latin1, stateless, utf8 };
Codeset currentCodeset() noexcept;

/// Bytes of the character at `text`, looking at `bound` bytes at most: 0 at a NUL, negative for an
/// invalid or cut character. Keeps no shift state.
int characterBytes(char const* text, std::size_t bound) noexcept;

/// Decodes the character at `text` into `code` and answers its bytes; 0 at a NUL, negative if it is
/// invalid, cut, or no single code. Keeps no shift state.
int decodeCharacter(unsigned int& code, char const* text, std::size_t bound) noexcept;

/// Room for the longest character of any locale with its shift sequences, in bytes.
constexpr std::size_t kCharacterRoom = 64;

/// Encodes `code` into `out`, which has kCharacterRoom bytes, and answers the bytes written;
/// negative, with `out` undefined, if the locale has no such character. Keeps no shift state.
int encodeCharacter(char* out, unsigned int code) noexcept;

/// Codes that encodeBatch and decodeBatch take at most, and room for their bytes: no character of
/// Codeset::stateless has more than three.
constexpr int kBatch = 32;
constexpr int kBatchRoom = 3 * kBatch;
constexpr unsigned int kMaxBatchCode = 0xFFFF;  // some beyond it the runtime drops

/// Encodes codes[0] to codes[count - 1], each from 1 to kMaxBatchCode, into `out`, which has
/// kBatchRoom bytes, up to the first that the locale has no character for; sets `count` to how many
/// those are. For locales of Codeset::stateless. @return the bytes written.
std::size_t encodeBatch(char* out, unsigned int const* codes, int& count) noexcept;

/// Decodes the characters at `text` into `codes`, which has room for kBatch, up to `end` or to the
/// first that is invalid or cut, and moves `text` behind them. There is no NUL before `end`. For
/// locales of Codeset::stateless. @return how many.
int decodeBatch(unsigned int* codes, char const*& text, char const* end) noexcept;

}  // namespace atr::platform

#endif  // ATR_FRAME_PLATFORM_H
