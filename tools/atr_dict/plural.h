// Plural forms in a dictionary: the rule, and the keys of the forms that it asks for.
#ifndef ATR_TOOLS_ATR_DICT_PLURAL_H
#define ATR_TOOLS_ATR_DICT_PLURAL_H

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "dictionary.h"

namespace dict {

/// The entry whose text is the rule; it is no template, and its percent signs are remainders.
constexpr std::string_view kPluralRuleKey = "\\@plural";

/// A key of a form: the source's own form, and the index behind the tail.
struct PluralKey {
  std::string_view source;
  int index;
};

/// Takes `%d files\@plural2` apart; nothing for a key without that tail and an index.
std::optional<PluralKey> pluralKey(std::string_view key);

std::string pluralKeyOf(std::string_view source, int index);

/// What a rule asks for: the index of 1, and those of all other numbers.
struct PluralForms {
  int ofOne = 0;
  std::set<int> ofOthers;

  int count() const { return std::max(ofOne, *ofOthers.rbegin()) + 1; }
};

/// The rule's forms, tried with the numbers up to 1000 and some beyond; nothing if it is broken.
std::optional<PluralForms> formsOf(std::string_view rule);

/// A source's form with what a dictionary has for it, by index.
struct PluralSource {
  std::string_view text;
  std::map<int, Entry const*> entries;
};

/// The sources with plural forms, in the order in which the dictionary first has them. A source's
/// form for 1 and the one for the other numbers stand beside each other by custom.
std::vector<PluralSource> pluralSources(Dictionary const& dictionary);

/// True if the source has the form of 1 alone, and the rule asks more of a form for other numbers.
bool isFormOfOne(PluralSource const& source, PluralForms const& forms);

/// The rule of a dictionary, or `n != 1` where it has none.
std::string_view ruleOf(Dictionary const& dictionary);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_PLURAL_H
