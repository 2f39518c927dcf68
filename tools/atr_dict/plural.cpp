// The rule is read by the library's own reader of rules.
#include "plural.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include "atr/format/plural_rule.h"

namespace dict {

namespace {

constexpr int kTriedNumbers = 1001;
constexpr unsigned long long kLargeNumbers[] = {10000, 100000, 1000000, 1000001, 1000000000};

}  // namespace

std::optional<PluralKey> pluralKey(std::string_view key) {
  std::size_t const tail = key.rfind(kPluralRuleKey);
  if (tail == key.npos || tail == 0) return std::nullopt;
  std::string_view const digits = key.substr(tail + kPluralRuleKey.size());
  PluralKey result{key.substr(0, tail), 0};
  auto const [end, error] = std::from_chars(digits.begin(), digits.end(), result.index);
  bool const isWhole = error == std::errc() && end == digits.end();
  return isWhole && result.index >= 0 ? std::optional(result) : std::nullopt;
}

std::string pluralKeyOf(std::string_view source, int index) {
  return std::string(source) + std::string(kPluralRuleKey) + std::to_string(index);
}

std::optional<PluralForms> formsOf(std::string_view rule) {
  atr::detail::PluralRule reader(rule.data(), rule.data() + rule.size());
  PluralForms forms;
  auto const take = [&](unsigned long long n) {
    int const index = reader.formFor(n).index;
    if (n == 1) {
      forms.ofOne = index;
    } else {
      forms.ofOthers.insert(index);
    }
    return index >= 0;
  };
  for (unsigned int n = 0; n < kTriedNumbers; ++n) {
    if (!take(n)) return std::nullopt;
  }
  bool const areGood = std::all_of(std::begin(kLargeNumbers), std::end(kLargeNumbers), take);
  return areGood ? std::optional(forms) : std::nullopt;
}

std::vector<PluralSource> pluralSources(Dictionary const& d) {
  std::vector<PluralSource> sources;
  std::unordered_map<std::string_view, std::size_t> places;
  for (Entry const& entry : d.entries) {
    auto const key = pluralKey(entry.key);
    if (entry.fate != Fate::stored || entry.isShadowed || !key) continue;
    auto const [place, isNew] = places.try_emplace(key->source, sources.size());
    if (isNew) sources.push_back({key->source, {}});
    sources[place->second].entries[key->index] = &entry;
  }
  return sources;
}

bool isFormOfOne(PluralSource const& source, PluralForms const& forms) {
  return source.entries.size() == 1 && source.entries.contains(forms.ofOne) &&
         forms.ofOthers != std::set<int>{forms.ofOne};
}

std::string_view ruleOf(Dictionary const& d) {
  for (Entry const& entry : d.entries) {
    bool const isFound = entry.fate == Fate::stored && !entry.isShadowed;
    if (isFound && entry.key == kPluralRuleKey) return entry.text;
  }
  return "n != 1";
}

}  // namespace dict
