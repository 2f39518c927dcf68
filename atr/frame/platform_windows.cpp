// The platform layer on 64-bit Windows.
#include <sys/stat.h>

#include <climits>
#include <clocale>
#include <cstdlib>
#include <cstring>

#include "atr/frame/platform.h"

namespace atr::platform {

static_assert(kCharacterRoom >= 2 * MB_LEN_MAX);

char const directorySeparator[2] = "\\";
char const foreignSeparator[2] = "/";
char const listSeparator = ';';

char const* const englishLocale = "English_United States.1252";

void publishVariable(char* nameAndValue) noexcept { _putenv(nameAndValue); }

static bool isRegular(struct _stat64 const& status) noexcept {
  return (status.st_mode & _S_IFMT) == _S_IFREG;
}

// Looks before it opens, so that nothing else is touched, and again afterwards, since the file may
// have been replaced in between. Text mode by name: a client may have made binary mode the default
// of the process.
std::FILE* openText(char const* path) noexcept {
  struct _stat64 status;
  if (_stat64(path, &status) != 0 || !isRegular(status)) return nullptr;
  std::FILE* const stream = std::fopen(path, "rt");
  if (stream == nullptr) return nullptr;
  if (_fstat64(_fileno(stream), &status) == 0 && isRegular(status)) return stream;
  std::fclose(stream);
  return nullptr;
}

bool const hasTextMode = true;

char const* decimalPoint() noexcept { return std::localeconv()->decimal_point; }

// No code page is known by name: each has its own ways with bytes that are no character.
Codeset currentCodeset() noexcept { return Codeset::other; }

// The runtime keeps no shift state of its own.
int characterBytes(char const* text, std::size_t bound) noexcept { return std::mblen(text, bound); }

int decodeCharacter(unsigned int& code, char const* text, std::size_t bound) noexcept {
  wchar_t wide = 0;
  int const bytes = std::mbtowc(&wide, text, bound);
  code = wide;
  return bytes;
}

// A code beyond 16 bits keeps its low ones.
int encodeCharacter(char* out, unsigned int code) noexcept {
  return std::wctomb(out, static_cast<wchar_t>(code));
}

std::size_t encodeBatch(char* /*out*/, unsigned int const* /*codes*/, int& count) noexcept {
  count = 0;  // no code page is known for it
  return 0;
}

int decodeBatch(unsigned int* /*codes*/, char const*& /*text*/, char const* /*end*/) noexcept {
  return 0;
}

}  // namespace atr::platform
