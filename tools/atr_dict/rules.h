// The rules that `check` knows, with names that stay.
#ifndef ATR_TOOLS_ATR_DICT_RULES_H
#define ATR_TOOLS_ATR_DICT_RULES_H

#include <bitset>
#include <cstddef>
#include <span>
#include <string_view>

namespace dict {

enum class Rule {
  cutValue,
  longLine,
  invalidUtf8,
  missingConversion,
  extraConversion,
  unknownConversion,
  lostPercent,
  changedLetter,
  wideField,
  duplicateKey,
  nul,
  longEscape,
  noKey,
  lookAlike,
  liveComment,
  notInCharset,
  missingKey,
  pluralRule,
  missingPlural,
  changedKind,
  numberOrder,
  unknownEscape,
  repeatedEntry,
  untranslated,
  blanksDiffer,
  punctuationDiffers,
  lineBreaksDiffer,
  tailInValue,
  similarKey,
  mixedLineEnds,
  unusedKey,
  superfluousPlural,
};
constexpr std::size_t kRuleCount = static_cast<std::size_t>(Rule::superfluousPlural) + 1;

using RuleSet = std::bitset<kRuleCount>;

struct RuleInfo {
  Rule rule;
  char const* name;
  bool isError;         // something is lost or shows wrong; else it is suspicious
  char const* summary;  // a key of the tool's own messages
};

/// All rules, in the order of Rule.
std::span<RuleInfo const> allRules();
RuleInfo const& infoOf(Rule rule);

/// The rule of that name, or null.
RuleInfo const* findRule(std::string_view name);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_RULES_H
