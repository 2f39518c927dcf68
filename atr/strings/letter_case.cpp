// findOtherCase and changeCase state the rule; the forms for ASCII beside them need no look at the
// locale.
#include "atr/strings/letter_case.h"

#include <cctype>

#include "atr/frame/character_step.h"

namespace atr {

namespace {

constexpr int kCaseDistance = 32;

}  // namespace

bool isOtherCase(char byte, LetterCase target) noexcept {
  int const value = static_cast<unsigned char>(byte);
  return (target == LetterCase::upper ? std::islower(value) : std::isupper(value)) != 0;
}

char inCase(char letter, LetterCase target) noexcept {
  return static_cast<char>(target == LetterCase::upper ? letter - kCaseDistance
                                                       : letter + kCaseDistance);
}

char const* findOtherCase(char const* p, char const* end, LetterCase target) noexcept {
  while (p < end) {
    int const bytes = characterStep(p, end);
    if (bytes == 1 && isOtherCase(*p, target)) return p;
    p += bytes;
  }
  return end;
}

void changeCase(char* p, char const* end, LetterCase target) noexcept {
  while (p < end) {
    int const bytes = characterStep(p, end);
    if (bytes == 1 && isOtherCase(*p, target)) *p = inCase(*p, target);
    p += bytes;
  }
}

namespace {

// In bytes, so that the compiler's vectors hold as many as they can.
bool isOtherCaseAscii(char byte, LetterCase target) noexcept {
  char const first = target == LetterCase::upper ? 'a' : 'A';
  return static_cast<unsigned char>(byte - first) < 26;
}

}  // namespace

char const* findOtherCaseAscii(char const* p, char const* end, LetterCase target) noexcept {
  while (p != end && !isOtherCaseAscii(*p, target)) ++p;
  return p;
}

void changeCaseAscii(char* p, char const* end, LetterCase target) noexcept {
  for (; p != end; ++p) {
    *p = static_cast<char>(*p ^ (isOtherCaseAscii(*p, target) ? kCaseDistance : 0));
  }
}

}  // namespace atr
