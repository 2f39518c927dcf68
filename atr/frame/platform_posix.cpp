// The platform layer on POSIX systems.
#include <fcntl.h>
#include <langinfo.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "atr/frame/platform.h"

namespace atr::platform {

static_assert(kCharacterRoom >= 2 * MB_LEN_MAX);

static constexpr auto kFailure = static_cast<std::size_t>(-1);  // of the wide functions

char const directorySeparator[2] = "/";
char const foreignSeparator[2] = "\\";
char const listSeparator = ':';

char const* const englishLocale = "en_US.UTF-8";

void publishVariable(char* nameAndValue) noexcept { putenv(nameAndValue); }

// Looks before it opens, since opening a FIFO lets its writer go; and again afterwards, since the
// file may have been replaced in between. O_NONBLOCK would refuse a file under a lease, which is
// waited for here.
std::FILE* openText(char const* path) noexcept {
  struct stat status;
  if (stat(path, &status) != 0 || !S_ISREG(status.st_mode)) return nullptr;
  int file = -1;
  do {
    file = open(path, O_RDONLY | O_NOCTTY | O_CLOEXEC);
  } while (file < 0 &&
           errno == EINTR);  // the holder of a lease is asked by a signal, perhaps our own
  if (file < 0) return nullptr;
  std::FILE* const stream =
      fstat(file, &status) == 0 && S_ISREG(status.st_mode) ? fdopen(file, "r") : nullptr;
  if (stream == nullptr) close(file);
  return stream;
}

bool const hasTextMode = false;

char const* decimalPoint() noexcept { return nl_langinfo(RADIXCHAR); }

Codeset currentCodeset() noexcept {
  char const* const name = nl_langinfo(CODESET);
  if (std::strcmp(name, "UTF-8") == 0) return Codeset::utf8;
  if (std::strcmp(name, "ISO-8859-1") == 0) return Codeset::latin1;
  if (std::strcmp(name, "ANSI_X3.4-1968") == 0) return Codeset::ascii;
  for (char const* const stateless : {"EUC-JP", "KOI8-R", "SHIFT_JIS"}) {
    if (std::strcmp(name, stateless) == 0) return Codeset::stateless;
  }
  return Codeset::other;
}

int characterBytes(char const* text, std::size_t bound) noexcept {
  std::mbstate_t state{};
  std::size_t const bytes = std::mbrlen(text, bound, &state);
  return bytes <= bound ? static_cast<int>(bytes) : -1;
}

// A few charsets have characters that stand for two codes; the second is then left in the state.
int decodeCharacter(unsigned int& code, char const* text, std::size_t bound) noexcept {
  std::mbstate_t state{};
  wchar_t wide = 0;
  std::size_t const bytes = std::mbrtowc(&wide, text, bound, &state);
  if (bytes > bound || std::mbsinit(&state) == 0) return -1;
  code = static_cast<unsigned int>(wide);  // NOLINT(bugprone-signed-char-misuse): no char
  return static_cast<int>(bytes);
}

// The same charsets hold a code back that might combine with the next one, and then give no byte;
// storing a NUL brings it out.
int encodeCharacter(char* out, unsigned int code) noexcept {
  std::mbstate_t state{};
  std::size_t bytes = std::wcrtomb(out, static_cast<wchar_t>(code), &state);
  if (bytes == static_cast<std::size_t>(-1)) return -1;
  if (bytes == 0) {
    bytes = std::wcrtomb(out, L'\0', &state);
    if (bytes == static_cast<std::size_t>(-1)) return -1;
    --bytes;
  }
  return static_cast<int>(bytes);
}

// On failure wcsnrtombs reports where it stopped, not how much it wrote: convert up to there again.
std::size_t encodeBatch(char* out, unsigned int const* codes, int& count) noexcept {
  wchar_t wide[kBatch];
  std::copy_n(codes, count, wide);
  for (int attempt = 0; attempt < 2; ++attempt) {
    std::mbstate_t state{};
    wchar_t const* rest = wide;
    std::size_t const bytes =
        wcsnrtombs(out, &rest, static_cast<std::size_t>(count), kBatchRoom, &state);
    count = static_cast<int>(rest - wide);
    if (bytes != kFailure) return bytes;
  }
  count = 0;
  return 0;
}

// The runtime takes all the bytes that it is shown, and keeps a character that `end` cuts in its
// state. Then the conversion is tried again with a byte less. A character has three bytes at most,
// so that the third try succeeds.
int decodeBatch(unsigned int* codes, char const*& text, char const* end) noexcept {
  wchar_t wide[kBatch];
  if (end - text > kBatchRoom) end = text + kBatchRoom;
  for (int attempt = 0; attempt < 3 && text != end; ++attempt) {
    std::mbstate_t state{};
    char const* rest = text;
    std::size_t const count =
        mbsnrtowcs(wide, &rest, static_cast<std::size_t>(end - text), kBatch, &state);
    bool const isCut = std::mbsinit(&state) == 0;
    if (count != kFailure && !isCut) {
      std::copy_n(wide, count, codes);
      text = rest;
      return static_cast<int>(count);
    }
    end = isCut ? end - 1 : rest;
  }
  return 0;
}

}  // namespace atr::platform
