// sortInPlace is a merge sort that merges by rotation. sortByPrefixes is a radix sort that starts
// at the first byte (MSD) and holds eight bytes of each key at a time: bytes that all keys share
// are skipped in one step, and small groups of keys are sorted by insertion.
#include "atr/translation/key_sort.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>

#include "atr/frame/memory.h"

namespace atr {

namespace {

constexpr int kFew = 16;  // up to here insertion is cheaper than merging or counting

bool precedes(TranslationEntry const& a, TranslationEntry const& b) noexcept {
  return std::strcmp(a.key, b.key) < 0;
}

void insertOneByOne(TranslationEntry* first, TranslationEntry* last) noexcept {
  for (TranslationEntry* next = first; next < last; ++next) {
    std::rotate(std::upper_bound(first, next, *next, precedes), next, next + 1);
  }
}

// Merges two sorted halves without a buffer. Cuts the larger half in its middle and the other half
// where that key belongs; rotating the two inner pieces puts every key on its side of the cut, and
// each side is merged by itself. The left side recurses, the right side goes round the loop.
void mergeInPlace(TranslationEntry* first, TranslationEntry* middle,
                  TranslationEntry* last) noexcept {
  while (first != middle && middle != last && precedes(*middle, middle[-1])) {
    TranslationEntry* leftCut = first + (middle - first) / 2;
    TranslationEntry* rightCut = middle + (last - middle) / 2;
    if (middle - first >= last - middle) {
      rightCut = std::lower_bound(middle, last, *leftCut, precedes);
    } else {
      leftCut = std::upper_bound(first, middle, *rightCut, precedes);
    }
    TranslationEntry* const newMiddle = std::rotate(leftCut, middle, rightCut);
    mergeInPlace(first, leftCut, newMiddle);
    first = newMiddle;
    middle = rightCut;
  }
}

void sortRange(TranslationEntry* first, TranslationEntry* last) noexcept {
  if (last - first <= kFew) return insertOneByOne(first, last);
  TranslationEntry* const middle = first + (last - first) / 2;
  sortRange(first, middle);
  sortRange(middle, last);
  mergeInPlace(first, middle, last);
}

}  // namespace

void sortInPlace(TranslationEntry* first, int count) noexcept { sortRange(first, first + count); }

namespace {

constexpr int kPrefix = sizeof(std::uint64_t);
constexpr int kByteValues = 256;

struct Keyed {
  std::uint64_t prefix;  // the key's next eight bytes, big-endian, so that integers compare as
                         // bytes do; zeros follow the end of the key
  TranslationEntry entry;
};

std::uint64_t prefixOf(char const* text) noexcept {
  std::uint64_t prefix = 0;
  for (int i = 0; i < kPrefix; ++i) {
    prefix = prefix << 8 | static_cast<unsigned char>(*text);
    if (*text != '\0') ++text;
  }
  return prefix;
}

// True if the key has bytes behind this prefix.
bool goesOn(std::uint64_t prefix) noexcept { return (prefix & 0xFF) != 0; }

// The order of two keys whose first `depth` bytes are equal; their prefixes begin there.
bool isBefore(Keyed const& a, Keyed const& b, std::size_t depth) noexcept {
  if (a.prefix != b.prefix) return a.prefix < b.prefix;
  return goesOn(a.prefix) &&
         std::strcmp(a.entry.key + depth + kPrefix, b.entry.key + depth + kPrefix) < 0;
}

void insertionSort(Keyed* keys, int count, std::size_t depth) noexcept {
  for (int i = 1; i < count; ++i) {
    Keyed const moved = keys[i];
    int at = i;
    for (; at > 0 && isBefore(moved, keys[at - 1], depth); --at) keys[at] = keys[at - 1];
    keys[at] = moved;
  }
}

std::uint64_t differencesOf(Keyed const* keys, int count) noexcept {
  std::uint64_t differences = 0;
  for (int i = 1; i < count; ++i) differences |= keys[i].prefix ^ keys[0].prefix;
  return differences;
}

using Ends = std::array<int, kByteValues>;

// A counting sort by the byte of the prefix at `shift`, stable. Returns for each value of the byte
// where its keys end.
Ends distribute(Keyed* keys, int count, Keyed* scratch, int shift) noexcept {
  Ends at{};
  for (int i = 0; i < count; ++i) ++at[keys[i].prefix >> shift & 0xFF];
  int next = 0;
  for (int& place : at) next += std::exchange(place, next);
  for (int i = 0; i < count; ++i) scratch[at[keys[i].prefix >> shift & 0xFF]++] = keys[i];
  std::memcpy(keys, scratch, static_cast<std::size_t>(count) * sizeof *keys);
  return at;
}

// Sorts keys whose first `depth` bytes are equal. The largest group goes round the loop and the
// others recurse; each of those has at most half of the keys, so the depth of the recursion is at
// most log2(count), whatever the keys are.
void sortBehind(Keyed* keys, int count, Keyed* scratch, std::size_t depth) noexcept {
  while (count > kFew) {
    std::uint64_t const differences = differencesOf(keys, count);
    if (differences == 0) {
      if (!goesOn(keys[0].prefix)) return;
      depth += kPrefix;
      for (int i = 0; i < count; ++i) keys[i].prefix = prefixOf(keys[i].entry.key + depth);
      continue;
    }
    int const shift = (kPrefix - 1 - std::countl_zero(differences) / 8) * 8;
    Ends const ends = distribute(keys, count, scratch, shift);
    std::pair<int, int> largest;
    for (int first = 0; int const end : ends) {
      std::pair<int, int> part = {std::exchange(first, end), end};
      if (part.second - part.first > largest.second - largest.first) std::swap(part, largest);
      sortBehind(keys + part.first, part.second - part.first, scratch, depth);
    }
    keys += largest.first;
    count = largest.second - largest.first;
  }
  insertionSort(keys, count, depth);
}

}  // namespace

bool sortByPrefixes(TranslationEntry* first, int count) noexcept {
  auto const room = static_cast<std::size_t>(count);
  std::unique_ptr<Keyed, MemoryRelease> const block(
      static_cast<Keyed*>(mem_Malloc(2 * room * sizeof(Keyed))));
  if (block == nullptr) return false;
  Keyed* const keys = block.get();
  for (std::size_t i = 0; i < room; ++i) keys[i] = {prefixOf(first[i].key), first[i]};
  sortBehind(keys, count, keys + room, 0);
  for (std::size_t i = 0; i < room; ++i) first[i] = keys[i].entry;
  return true;
}

}  // namespace atr
