// The table of encodings, a row of three operations each, and the loop between any two rows.
#ifndef ATR_ENCODING_ENCODING_TABLE_H
#define ATR_ENCODING_ENCODING_TABLE_H

#include "atr/encoding/transcoding.h"

struct EncodingOps {
  /// True if the NUL-terminated text is good as a whole.
  bool (*validate)(unsigned char const* text);
  /// The code of the first character, which is not NUL, and its bytes; 0xFFFFFFFF if there is none.
  unsigned int (*decode)(unsigned char const* text, int* length);
  /// Writes the code unless `out` is null, and gives its bytes; negative if it has no form.
  int (*encode)(unsigned char* out, unsigned int code);
};

namespace atr {

constexpr int kUndecodable = -1;
constexpr int kNoForm = -2;

}  // namespace atr

/// The row of an encoding; that of EncodingNone for a number outside the table.
EncodingOps const& atr_encoding_row(int encoding) noexcept;

/// Converts the text from `source` to `target`, or measures it if `out` is null. The text ends at
/// its first NUL, or at `end` if that comes first; `end` may be null, and otherwise no character of
/// the text reaches beyond it.
/// @return as atr_utf8_to_encoding; -1 also for an output of more bytes than an int can count.
int atr_encoding_transcode(int target, unsigned char* out, int source, unsigned char const* text,
                           unsigned char const* end, char substitute);

#endif  // ATR_ENCODING_ENCODING_TABLE_H
