// Twins: each reads some bytes as a case, does the same with the library and with a plain reading
// of its rules, and throws if they differ. Tests run them over small worlds, seeds and corpora; the
// fuzz targets run them over whatever the fuzzer finds.
#ifndef ATR_TESTS_SUPPORT_TWINS_H
#define ATR_TESTS_SUPPORT_TWINS_H

#include <string>
#include <string_view>

namespace test {

struct Twin {
  char const* name;
  void (*run)(std::string_view bytes);
  char const* alphabet;  // the bytes that matter, for a small world
  int longest;           // of its texts
};

extern Twin const kTwins[12];

}  // namespace test

#endif  // ATR_TESTS_SUPPORT_TWINS_H
