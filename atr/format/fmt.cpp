// Builds printf formats from one conversion; nothing is printed here.
#include "atr/format/fmt.h"

#include <cinttypes>
#include <cstring>
#include <new>

#include "atr/format/conversion_layout.h"

namespace {

// The C runtime's own length modifier for 64 bits, which its macros put before the letter.
constexpr char kInt64[] = PRId64;
constexpr std::size_t kInt64Bytes = sizeof kInt64 - 2;

struct Modifier {
  char const* text;
  std::size_t bytes;
};

Modifier modifierFor(atr_Fmt::DataSize size, char letter) noexcept {
  switch (static_cast<int>(size)) {
    case atr_Fmt::DataShort:
    case atr_Fmt::DataShortUnsigned:
      return {"h", 1};
    case atr_Fmt::DataInt64:
      if (letter != '\0' && std::strchr("Xdoux", letter) != nullptr) return {kInt64, kInt64Bytes};
      return {"", 0};
    default:
      return {"", 0};
  }
}

void endWith(char* out, Modifier modifier, char letter) noexcept {
  std::memcpy(out, modifier.text, modifier.bytes);
  out[modifier.bytes] = letter;
  out[modifier.bytes + 1] = '\0';
}

}  // namespace

atr_Fmt::atr_Fmt(char const* conversion) : format(conversion), letter('\0'), buffer(nullptr) {}

atr_Fmt::~atr_Fmt() { ::operator delete(buffer); }

char atr_Fmt::Letter() {
  if (letter == '\0') letter = atr::letterOf(format);
  return letter;
}

// Room for the conversion, the longest modifier and the NUL.
char* atr_Fmt::makeBuffer() {
  if (buffer == nullptr) {
    buffer = static_cast<char*>(::operator new(std::strlen(format) + kInt64Bytes + 1));
  }
  return buffer;
}

char const* atr_Fmt::Format(DataSize size, char replacement) {
  char* const out = makeBuffer();
  std::size_t const last = std::strlen(format) - 1;
  char const end = replacement != '\0' ? replacement : format[last];
  std::memcpy(out, format, last);
  endWith(out + last, modifierFor(size, end), end);
  return out;
}

char const* atr_Fmt::FormatNoWidth(DataSize size, char replacement) {
  char* const out = makeBuffer();
  char const end = replacement != '\0' ? replacement : Letter();
  out[0] = '%';
  endWith(out + 1, modifierFor(size, end), end);
  return out;
}
