// What the benchmarks share: a case has a name, and in it stand the library and its peers.
#ifndef ATR_BENCHMARKS_BENCH_H
#define ATR_BENCHMARKS_BENCH_H

#include <benchmark/benchmark.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace bench {

using benchmark::DoNotOptimize;

/// Registers one side of a case: "ours", "limit" or a peer's name. `goal` is the ratio that we want
/// to reach against that peer, peer's time over ours; 0 for none.
template <class Work>
void side(std::string const& caseName, std::string const& who, double goal, Work work) {
  auto* const made =
      benchmark::RegisterBenchmark((caseName + "|" + who + "|" + std::to_string(goal)).c_str(),
                                   [work](benchmark::State& state) mutable {
                                     work();  // what it has to make ready is made
                                     for ([[maybe_unused]] auto step : state) work();
                                   });
  made->Unit(benchmark::kNanosecond);
}

template <class Work>
void ours(std::string const& caseName, Work work) {
  side(caseName, "ours", 0, work);
}

/// What the machine takes for the part of a case that nobody can leave out: moving its bytes, or
/// taking its blocks.
template <class Work>
void limit(std::string const& caseName, Work work) {
  side(caseName, "limit", 0, work);
}

/// The limit of a case that makes `count` blocks of `bytes` bytes and gives them back.
inline void blocksLimit(std::string const& caseName, int count, std::size_t bytes) {
  limit(caseName, [=] {
    void* blocks[16];
    for (int i = 0; i < count; ++i) DoNotOptimize(blocks[i] = std::malloc(bytes));
    for (int i = 0; i < count; ++i) std::free(blocks[i]);
  });
}

/// The limit of a case that reads `bytes` bytes and writes as many.
inline void copyLimit(std::string const& caseName, std::size_t bytes) {
  limit(caseName, [from = std::string(bytes, 'x'), to = std::string(bytes, 'y')]() mutable {
    std::memcpy(to.data(), from.data(), from.size());
    benchmark::ClobberMemory();
  });
}

/// One work at four sizes, each four times the one before. make(size) makes the work.
template <class Make>
void growth(std::string const& caseName, int smallest, Make make) {
  for (int size = smallest; size <= 64 * smallest; size *= 4) {
    side(caseName, "@" + std::to_string(size), 0, make(size));
  }
}

/// Makes `name` the locale of what follows; asking twice costs nothing.
inline void useLocale(char const* name) {
  static std::string current;
  if (current != name) std::setlocale(LC_ALL, (current = name).c_str());
}

/// `text` over and over, cut at `bytes` or a little before, where a character ends.
inline std::string repeat(std::string const& text, std::size_t bytes) {
  std::string s;
  while (s.size() + text.size() <= bytes) s += text;
  return s;
}

inline std::string const kAscii = "The quick brown fox jumps over the lazy dog and runs away. ";
inline std::string const kLatin =
    "Falsches \xC3\x9C"
    "ben von Xylophonmusik qu\xC3\xA4lt jeden gr\xC3\xB6\xC3\x9F"
    "eren Zwerg. ";
inline std::string const kCjk =
    "\xE8\x89\xB2\xE3\x81\xAF\xE5\x8C\x82\xE3\x81\xB8\xE3\x81\xA9\xE6\x95\xA3\xE3\x82\x8A\xE3\x81"
    "\xAC\xE3\x82\x8B\xE3\x82\x92 ";

}  // namespace bench

#endif  // ATR_BENCHMARKS_BENCH_H
