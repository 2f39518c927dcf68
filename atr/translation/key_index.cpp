// Open addressing with linear probing. Anybody can write a dictionary, also one whose keys all
// collide, so a probe is bounded: a table with a key that needs more steps gets no index, and its
// lookups search the sorted entries instead.
#include "atr/translation/key_index.h"

#include <bit>
#include <cstring>

#include "atr/frame/memory.h"
#include "atr/frame/words.h"

namespace atr {

namespace {

constexpr std::uint32_t kMaxProbes = 256;              // ordinary keys need fewer than ten
constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;  // odd, its bits spread evenly: 2^64 / phi

std::uint64_t mixed(std::uint64_t hash, std::uint64_t word) noexcept {
  return (std::rotl(hash, 23) ^ word) * kFactor;
}

// Fewer bytes than a word, as one word. Texts of the same length give different words: the two
// loads overlap and so hold all of four to seven bytes, and three picks hold all of one to three.
std::uint64_t loadShort(char const* p, std::size_t bytes) noexcept {
  std::uint32_t first = 0, last = 0;
  if (bytes >= sizeof first) {
    std::memcpy(&first, p, sizeof first);
    std::memcpy(&last, p + bytes - sizeof last, sizeof last);
    return std::uint64_t{last} << 32 | first;
  }
  auto const byte = [p](std::size_t i) { return std::uint64_t{static_cast<unsigned char>(p[i])}; };
  return bytes > 0 ? byte(0) << 16 | byte(bytes / 2) << 8 | byte(bytes - 1) : 0;
}

}  // namespace

// Two independent chains, so that the processor multiplies two words at once. The last words
// overlap the ones before, which saves a loop over the bytes that are left. Multiplication spreads
// bits upwards only, hence the final mix before the upper half is taken.
std::uint32_t hashOf(std::string_view key) noexcept {
  char const* p = key.data();
  char const* const end = p + key.size();
  std::uint64_t even = key.size();
  std::uint64_t odd = kFactor;
  if (end - p < kWord) {
    even = mixed(even, loadShort(p, key.size()));
  } else {
    for (; end - p > 2 * kWord; p += 2 * kWord) {
      even = mixed(even, loadWord(p));
      odd = mixed(odd, loadWord(p + kWord));
    }
    even = mixed(even, loadWord(end - p > kWord ? p : end - kWord));
    odd = mixed(odd, loadWord(end - kWord));
  }
  return static_cast<std::uint32_t>(mixed(mixed(even, odd), 0) >> 32);
}

bool KeyIndex::insert(int at) noexcept {
  Record& record = records_[at];
  std::string_view const key = record.entry.key;
  record.keyBytes = static_cast<int>(key.size());
  record.textBytes = static_cast<int>(std::strlen(record.entry.text));
  std::uint32_t const hash = hashOf(key);
  for (std::uint32_t probe = 0; probe < kMaxProbes; ++probe) {
    Slot& slot = slots_[(hash + probe) & mask_];
    bool const isFree = slot.record == 0;
    if (isFree || (slot.hash == hash && records_[slot.record - 1].key() == key)) {
      slot = {hash, at + 1};
      return true;
    }
  }
  return false;
}

void KeyIndex::build(TranslationEntry const* entries, int count) noexcept {
  clear();
  if (count <= 0) return;
  auto const records = static_cast<std::size_t>(count);
  std::size_t const slots = std::bit_ceil(4 * records);
  slots_ = static_cast<Slot*>(mem_Calloc(slots + 3 * records, sizeof(Slot)));
  if (slots_ == nullptr) return;
  static_assert(sizeof(Record) == 3 * sizeof(Slot));
  records_ = reinterpret_cast<Record*>(slots_ + slots);
  mask_ = static_cast<std::uint32_t>(slots - 1);
  for (int i = 0; i < count; ++i) {
    records_[i].entry = entries[i];
    if (!insert(i)) return clear();
  }
}

void KeyIndex::clear() noexcept {
  mem_Free(slots_);
  slots_ = nullptr;
}

std::string_view KeyIndex::find(std::string_view key) const noexcept {
  std::uint32_t const hash = hashOf(key);
  for (std::uint32_t probe = 0; probe < kMaxProbes; ++probe) {
    Slot const& slot = slots_[(hash + probe) & mask_];
    if (slot.record == 0) break;
    if (slot.hash != hash) continue;
    Record const& record = records_[slot.record - 1];
    if (record.key() == key) {
      return {record.entry.text, static_cast<std::size_t>(record.textBytes)};
    }
  }
  return {};
}

}  // namespace atr
