#include "nearest_key.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "entry_text.h"

namespace dict {

std::string folded(std::string_view key) {
  std::string result;
  for (char const c : key) {
    auto const byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) {
      result += c;
    } else if (byte != ' ' && (byte < '\t' || byte > '\r')) {
      result += static_cast<char>(byte >= 'A' && byte <= 'Z' ? byte | 0x20 : byte);
    }
  }
  return result;
}

std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < b.size(); ++j) {
      std::size_t const exchanged = diagonal + (a[i] != b[j] ? 1 : 0);
      diagonal = row[j + 1];
      row[j + 1] = std::min({exchanged, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

namespace {

// What is left of a key without backslashes: the same for `a\nb`, `a\\nb` and `anb`.
std::string withoutBackslashes(std::string_view key) {
  std::string result = escaped(key);
  std::erase(result, '\\');
  return result;
}

NearKey::Kind kindOf(std::string_view wanted, std::string_view key) {
  if (withoutTail(wanted) == withoutTail(key)) return NearKey::otherTail;
  if (withoutBackslashes(wanted) == withoutBackslashes(key)) return NearKey::otherEscape;
  return folded(wanted) == folded(key) ? NearKey::otherBlank : NearKey::none;
}

}  // namespace

NearKey nearestKey(Dictionary const& d, std::string_view wanted) {
  NearKey best;
  std::size_t least = wanted.size() / 3 + 1;
  for (Entry const& entry : d.entries) {
    if (entry.fate != Fate::stored) continue;
    NearKey const near{kindOf(wanted, entry.key), d.lineOf(entry).number, entry.rawKey};
    if (near.kind != NearKey::none) return near;
    std::size_t const more = std::max(wanted.size(), entry.key.size());
    std::size_t const fewer = std::min(wanted.size(), entry.key.size());
    if (more - fewer >= least || more > 500) continue;
    std::size_t const changes = distance(wanted, entry.key);
    if (changes >= least) continue;
    least = changes;
    best = {NearKey::similar, near.line, near.rawKey};
  }
  return best;
}

}  // namespace dict
