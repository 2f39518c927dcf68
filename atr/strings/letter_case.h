// The case operations' walk over a text: plain by characters of the process locale, and beside it a
// form for codesets in which no byte from 0x80 up is a letter.
#ifndef ATR_STRINGS_LETTER_CASE_H
#define ATR_STRINGS_LETTER_CASE_H

namespace atr {

enum class LetterCase { lower, upper };

/// True for a byte that is a letter of the other case in the process locale.
bool isOtherCase(char byte, LetterCase target) noexcept;

/// The letter in the other case: 32 more or less, whatever the locale.
char inCase(char letter, LetterCase target) noexcept;

/// The first single-byte letter of the other case in [p, end), or `end`.
char const* findOtherCase(char const* p, char const* end, LetterCase target) noexcept;

/// Changes every such letter in [p, end); `p` is at a character's first byte.
void changeCase(char* p, char const* end, LetterCase target) noexcept;

/// The same for ASCII and UTF-8, by vectors of bytes; see the benchmark "ToUpper 10 kB".
char const* findOtherCaseAscii(char const* p, char const* end, LetterCase target) noexcept;
void changeCaseAscii(char* p, char const* end, LetterCase target) noexcept;

}  // namespace atr

#endif  // ATR_STRINGS_LETTER_CASE_H
