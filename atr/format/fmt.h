// One conversion specification, and the printf formats that are made from it.
#ifndef ATR_FORMAT_FMT_H
#define ATR_FORMAT_FMT_H

#include "atr/frame/export.h"

/// A short-lived wrapper of a conversion specification: `%`, run, letter. It belongs to one thread.
class atr_Fmt {
 public:
  /// The length modifier that goes before the letter. Any other value is as DataInt.
  enum DataSize : int {
    DataInt = 0,    ///< none
    DataShort = 1,  ///< `h`
    DataInt64 = 2,  ///< that of a 64-bit integer before `X d o u x`, none before another letter
    DataShortUnsigned = 3  ///< `h`
  };

  /// @param format borrowed for the life of the object. With null, only destruction is allowed.
  /// @pre `format` is null or has a `%` and a letter at the least.
  ATR_API atr_Fmt(char const* format);
  ATR_API ~atr_Fmt();

  atr_Fmt(atr_Fmt const&) = delete;
  atr_Fmt& operator=(atr_Fmt const&) = delete;

  /// The letter of the conversion.
  ATR_API char Letter();

  /// The whole specification with the modifier put in and, if it is not 0, `letter` in the place of
  /// its own. Borrowed until the next call of this or of FormatNoWidth, or the object's end.
  ATR_API char const* Format(DataSize size, char letter);

  /// `%`, modifier and letter alone, likewise.
  ATR_API char const* FormatNoWidth(DataSize size, char letter);

 private:
  char* makeBuffer();

  char const* format;  // the caller's
  char letter;         // 0 until it is asked for
  char* buffer;        // null until it is needed
};

#endif  // ATR_FORMAT_FMT_H
