// A message: made from a template, given its values, and read as a text.
//
//     atr_translate message("%1$d of %2$s");
//     atr_SubstituteFormat(message, 1, 3);
//     atr_SubstituteFormat(message, 2, "ten");
//     atr_String text = message.Result();
#ifndef ATR_FORMAT_TRANSLATE_H
#define ATR_FORMAT_TRANSLATE_H

#include "atr/frame/export.h"
#include "atr/strings/string.h"

namespace atr {
struct MessageSlots;
struct MessageText;
}  // namespace atr

/// A message belongs to one thread at a time. It copies what it needs of the translation table.
///
/// A conversion is `%` [digits `$`] layout letter: the layout is made of any of `0` to `9`, `l`,
/// `.` and `-`, the letter is one of `E X c d e f g o s u x`. `%%` is one percent sign. With any
/// other character in place of the letter, the `%`, the number and the layout vanish, and the rest
/// is text.
///
/// A position is a rank: the place of a conversion, from 1, when all are sorted by their numbers.
/// In `%2$d %5$d` the positions are 1 and 2. Conversions without a number get, from left to right,
/// the free numbers from 1 up. A position that does not exist is ignored, because a translation may
/// have fewer conversions than the program has values.
class atr_translate {
 public:
  /// One conversion of a message.
  struct StrArgs {
    ATR_API StrArgs();
    ATR_API ~StrArgs();
    StrArgs(StrArgs const&) = delete;
    StrArgs& operator=(StrArgs const&) = delete;

    int position;        ///< the conversion's number
    char* format;        ///< `%`, layout and letter; owned
    char* substitution;  ///< the text that replaces it, or null before a value is given; owned
  };

  /// Uses the translation of `text`, or `text` itself, as the template. A null text makes an empty
  /// message. O(length).
  /// @param text borrowed for the call.
  ATR_API atr_translate(char const* text);
  ATR_API ~atr_translate();

  atr_translate(atr_translate const&) = delete;
  atr_translate& operator=(atr_translate const&) = delete;

  /// The conversion at `position` as `%`, layout and letter; null if there is none. Borrowed
  /// until the message ends.
  ATR_API char const* Format(int position) const;

  /// Replaces the conversion at `position` by a copy of `text`; a second call replaces the first
  /// text. A `format` other than a plain `%s` gives width, precision and a leading `-`, counted in
  /// bytes; a negative precision counts as none. A null text counts as empty, a null or empty
  /// format as none. Throws std::bad_alloc if the field is longer than a string can be, and the
  /// conversion keeps the text it had. A field just below this limit passes, and then Result may
  /// throw.
  ATR_API void AddSubstitution(int position, char const* text, char const* format);

  /// Takes the 0 out of a three-digit exponent, such as e+005, that ends `text`.
  ATR_API static void FixExponent(char* text);

  /// The finished text. A conversion without a value is replaced by nothing.
  ATR_API atr_String Result() const;

 private:
  friend struct atr::MessageSlots;

  atr_translate() noexcept;

  static int compare(void const* a, void const* b);
  void ReportIllegalPosition(int position) const;
  StrArgs* slotAt(int position) const;
  void parse(char const* text, char const* end);
  void sortSlots(bool hasUnnumbered);

  char const* source;  // the caller's pointer; not read again
  int count;           // conversions
  StrArgs* args;       // in template order; may have more elements than `count`
  StrArgs** sorted;    // `count` pointers by rank, and places behind them: see slot_index.h
  char* compiled;      // the text with "%s" at each conversion, in a block of the template's size
};

#endif  // ATR_FORMAT_TRANSLATE_H
