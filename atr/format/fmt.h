// One conversion and the printf formats that are made from it.
#ifndef ATR_FORMAT_FMT_H
#define ATR_FORMAT_FMT_H

#include "atr/frame/export.h"

/// A short-lived wrapper of a conversion: `%`, layout, letter. It belongs to one thread.
class atr_Fmt {
 public:
  /// The length modifier that goes before the letter. Any other value counts as DataInt.
  enum DataSize : int {
    DataInt = 0,    ///< none
    DataShort = 1,  ///< `h`
    DataInt64 = 2,  ///< that of 64-bit integers before `X d o u x`, none before other letters
    DataShortUnsigned = 3  ///< `h`
  };

  /// @param format borrowed for the life of the object. With null, only destruction is allowed.
  /// @pre `format` is null, or has at least a `%` and a letter.
  ATR_API atr_Fmt(char const* format);
  ATR_API ~atr_Fmt();

  atr_Fmt(atr_Fmt const&) = delete;
  atr_Fmt& operator=(atr_Fmt const&) = delete;

  /// The letter of the conversion.
  ATR_API char Letter();

  /// The whole conversion with the length modifier inserted and, if `letter` is not 0, with that
  /// letter in place of its own. Borrowed until the next call of this function or of FormatNoWidth,
  /// or until the object ends.
  ATR_API char const* Format(DataSize size, char letter);

  /// The same without flags, width and precision: only `%`, the length modifier and the letter.
  ATR_API char const* FormatNoWidth(DataSize size, char letter);

 private:
  char* makeBuffer();

  char const* format;  // the caller's
  char letter;         // 0 until it is asked for
  char* buffer;        // null until it is needed
};

#endif  // ATR_FORMAT_FMT_H
