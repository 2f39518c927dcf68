// Free blocks are linked by word indexes into their slab, so that a block of one word can take
// part. Index 0 is a list head and therefore no block: it ends a list.
#include "atr/strings/allocator.h"

#include <algorithm>
#include <cstdint>
#include <new>

using Word = std::int32_t;

// [ next | top | unitsInUse | freeHead[0..maxClass] | blocks ]
struct atr_Allocator::Slab {
  Slab* next;  // older
  int top;     // index of the first word never handed out
  int unitsInUse;

  Word* area() noexcept { return reinterpret_cast<Word*>(this + 1); }

  // Of any address, also one far outside.
  std::ptrdiff_t indexOf(void const* address) noexcept {
    auto const distance =
        reinterpret_cast<std::intptr_t>(address) - reinterpret_cast<std::intptr_t>(area());
    return distance / static_cast<std::intptr_t>(sizeof(Word));
  }
};

namespace {

constexpr int kHeaderWords = 4;  // next, top, unitsInUse
constexpr int kHighestClass = 15;
constexpr int kDefaultSlabWords = 1024;
constexpr int kMaxSlabWords = 16384;
constexpr int kLeastUnits = 100;  // that a slab is as large as, where the cap lets it

std::int64_t wordsFor(int bytes) noexcept { return (std::int64_t{bytes} + 3) >> 2; }

int slabWordsFor(int slabBytes, int unitWords) noexcept {
  std::int64_t words = wordsFor(slabBytes);
  if (words == 0) words = kDefaultSlabWords;
  words = std::max(words, std::int64_t{unitWords} * kLeastUnits);
  return static_cast<int>(std::min<std::int64_t>(words, kMaxSlabWords)) - kHeaderWords;
}

}  // namespace

atr_Allocator::atr_Allocator(int unitBytes, int highestClass, int slabBytes)
    : slabs(nullptr),
      unitWords(static_cast<int>(std::max<std::int64_t>(wordsFor(unitBytes), 1))),
      maxClass(std::clamp(highestClass, 0, kHighestClass)),
      slabWords(slabWordsFor(slabBytes, unitWords)) {
  static_assert(sizeof(Slab) == kHeaderWords * sizeof(Word));
}

atr_Allocator::~atr_Allocator() {
  while (slabs != nullptr) {
    Slab* const next = slabs->next;
    ::operator delete(slabs);
    slabs = next;
  }
}

std::ptrdiff_t atr_Allocator::blockWords(int c) const noexcept {
  return std::ptrdiff_t{unitWords} * (c + 1);
}

// The comparison is strict: a slab's last word is never handed out.
void* atr_Allocator::carve(Slab& slab, int c) noexcept {
  std::ptrdiff_t const words = blockWords(c);
  if (slabWords - slab.top <= words) return nullptr;
  Word* const block = slab.area() + slab.top;
  slab.top += static_cast<int>(words);
  slab.unitsInUse += c + 1;
  return block;
}

atr_Allocator::Slab* atr_Allocator::makeSlab() {
  auto const words = static_cast<std::size_t>(slabWords) + kHeaderWords;
  Slab* const slab = new (::operator new[](words * sizeof(Word))) Slab{slabs, maxClass + 1, 0};
  std::fill_n(slab->area(), maxClass + 1, 0);
  return slab;
}

void* atr_Allocator::Allocate(int c) {
  if (c < 0 || c > maxClass || slabWords - (maxClass + 1) <= blockWords(c)) return nullptr;
  for (Slab* slab = slabs; slab != nullptr; slab = slab->next) {
    Word& head = slab->area()[c];
    if (head != 0) {
      Word* const block = slab->area() + head;
      head = *block;
      slab->unitsInUse += c + 1;
      return block;
    }
    if (void* const block = carve(*slab, c)) return block;
  }
  slabs = makeSlab();
  return carve(*slabs, c);
}

bool atr_Allocator::Extend(void* block, int oldClass, int newClass) {
  if (newClass == oldClass) return true;
  if (oldClass < 0 || newClass < oldClass || newClass > maxClass) return false;
  std::ptrdiff_t const words = blockWords(oldClass);
  std::ptrdiff_t const extra = blockWords(newClass) - words;
  for (Slab* slab = slabs; slab != nullptr; slab = slab->next) {
    std::ptrdiff_t const end = slab->indexOf(block) + words;
    if (end <= 0 || end > slab->top) continue;
    if (end != slab->top || slabWords - slab->top <= extra) return false;
    slab->top += static_cast<int>(extra);
    slab->unitsInUse += newClass - oldClass;
    return true;
  }
  return false;
}

void atr_Allocator::Release(void* block, int c) {
  for (Slab* slab = c <= maxClass ? slabs : nullptr; slab != nullptr; slab = slab->next) {
    std::ptrdiff_t const index = slab->indexOf(block);
    if (index <= 0 || index >= slab->top) continue;
    if (c < 0) return;  // no class to be reused in: the block stays out until the pool ends
    *static_cast<Word*>(block) = slab->area()[c];
    slab->area()[c] = static_cast<Word>(index);
    slab->unitsInUse -= c + 1;
    return;
  }
  ::operator delete(block);
}
