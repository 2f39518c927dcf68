// Twins: each reads some bytes as a case, does the same with the library and with a plain reading
// of its rules, and throws a Difference. Tests run them over small worlds, seeds and corpora; the
// fuzz targets run them over whatever the fuzzer finds. Both run them by twin_report.h.
#ifndef ATR_TESTS_SUPPORT_TWINS_H
#define ATR_TESTS_SUPPORT_TWINS_H

#include <algorithm>
#include <climits>
#include <clocale>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "atr/atr.h"
#include "atr/encoding/encoding_table.h"
#include "atr/frame/memory.h"
#include "atr/strings/summary.h"
#include "atr/translation/dictionary_reader.h"
#include "atr/translation/escapes.h"
#include "atr/translation/translation_table.h"

namespace test {

using S = std::string;

inline S textOf(atr_String const& s) { return {s.c_str(), s.length()}; }
inline auto* octets(S& s) { return reinterpret_cast<unsigned char*>(s.data()); }
inline auto* octets(std::string_view s) { return reinterpret_cast<unsigned char const*>(s.data()); }
constexpr std::size_t z(auto number) { return static_cast<std::size_t>(number); }

/// A string whose representation can be looked at.
struct Text : atr_String {
  using atr_String::atr_String, atr_String::rep, atr_String::body;
  Text(atr_String const& other) : atr_String(other) {}
  Text(atr_String&& other) : atr_String(std::move(other)) {}
};

/// Bytes of the character at a position in the locale: 1 also for what is none.
std::size_t characterBytes(S const& s, std::size_t at);

/// The bytes of a code in the locale, by the runtime; nothing if the locale has no such character.
std::optional<S> localeBytes(unsigned code);

/// What comes out; behind the number of a failure, up to its last byte that is not 0xFF. Writing
/// agrees with measuring, and leaves alone what lies around.
S transcode(int target, int source, S const& text, char substitute = 0);

/// The table as a picture: {key=text}{key=text}, sorted, with the last text of each key found.
S picture(TranslationTable const& table);

/// The table that a dictionary makes, read from where `file` stands, with no block lost.
S readDictionary(std::FILE* file);

/// What a twin throws. `where` names the operation, and the step and the state that it is in.
struct Difference {
  S where, expected, actual;
};

struct Twin {
  char const* name;
  void (*run)(std::string_view bytes);
  std::vector<S> pieces;  // what matters, for a small world
  int longest;            // of its texts, in pieces
};

/// All twins. Each has a folder of its name in fuzz/corpus, and a target in fuzz/CMakeLists.txt.
std::span<Twin const> twins();

}  // namespace test

#endif  // ATR_TESTS_SUPPORT_TWINS_H
