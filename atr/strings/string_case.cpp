// The case operations of strings. They walk by characters of the process locale; in UTF-8 and ASCII
// letters are found without a look at it.
#include "atr/frame/character_step.h"
#include "atr/frame/platform.h"
#include "atr/strings/letter_case.h"
#include "atr/strings/string_base.h"

using namespace atr;

atr_StringBase& atr_StringBase::changeCase(bool toUpper) {
  LetterCase const target = toUpper ? LetterCase::upper : LetterCase::lower;
  platform::Codeset const codeset = platform::currentCodeset();
  bool const isAscii = codeset == platform::Codeset::utf8 || codeset == platform::Codeset::ascii;
  int const end = textEnd();
  char const* const text = textOf(*this);
  char const* const first = isAscii ? findOtherCaseAscii(text, text + end, target)
                                    : findOtherCase(text, text + end, target);
  if (first == text + end) return *this;
  auto const offset = first - text;
  isolate(rep->length);
  (isAscii ? changeCaseAscii : atr::changeCase)(body + offset, body + end, target);
  return *this;
}

atr_StringBase& atr_StringBase::changeFirst(bool toUpper) {
  LetterCase const target = toUpper ? LetterCase::upper : LetterCase::lower;
  char const* const text = textOf(*this);
  int const end = textEnd();
  if (end == 0 || characterStep(text, text + end) != 1 || !isOtherCase(*text, target)) {
    return *this;
  }
  isolate(rep->length);
  body[0] = inCase(body[0], target);
  return *this;
}

atr_StringBase& atr_StringBase::ToLower() { return changeCase(false); }
atr_StringBase& atr_StringBase::ToUpper() { return changeCase(true); }
atr_StringBase& atr_StringBase::Capitalize() { return changeFirst(true); }
atr_StringBase& atr_StringBase::Uncapitalize() { return changeFirst(false); }
