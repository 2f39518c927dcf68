// A message being formatted: made from a template, given its values, read as a text.
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

/// A message belongs to one thread at a time, and keeps nothing of the translation table.
///
/// A conversion is `%` [digits `$`] run letter: the run is any of `0` to `9`, `l`, `.` and `-`, the
/// letter one of `E X c d e f g o s u x`. `%%` is one percent sign. Of anything else behind a `%`,
/// the `%`, the number and the run vanish and the rest is text.
///
/// Positions are ranks, from 1, among the conversions in the order of their numbers, not the
/// numbers themselves: with `%2$d %5$d` they are 1 and 2. Conversions without a number get the free
/// numbers from 1 up, from left to right. An illegal position is silent, since a translation may
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
    char* format;        ///< `%`, run and letter; owned
    char* substitution;  ///< the text in its place, or null as long as none was given; owned
  };

  /// Takes the translation of `text`, or `text` itself, as the template. A null text makes an empty
  /// message. O(length).
  /// @param text borrowed for the call.
  ATR_API atr_translate(char const* text);
  ATR_API ~atr_translate();

  atr_translate(atr_translate const&) = delete;
  atr_translate& operator=(atr_translate const&) = delete;

  /// The conversion at `position` as `%`, run and letter; null for an illegal position. Borrowed
  /// until the message ends.
  ATR_API char const* Format(int position) const;

  /// Puts a copy of `text` in the place of the conversion at `position`; the last one wins. With a
  /// `format` other than a plain `%s`, its width, precision and leading `-` are applied, in bytes;
  /// a negative precision counts as none. A null text counts as empty, a null or empty format as
  /// none. A field that is longer than a string can be throws std::bad_alloc, and the text that the
  /// conversion had stays. A field just below that passes, and then Result may throw.
  ATR_API void AddSubstitution(int position, char const* text, char const* format);

  /// Takes the 0 out of a three-digit exponent, such as e+005, that ends `text`.
  ATR_API static void FixExponent(char* text);

  /// The finished text. A conversion that was given no value contributes nothing.
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
  char* compiled;      // text with "%s" at each conversion, in a block of the template's size
};

#endif  // ATR_FORMAT_TRANSLATE_H
