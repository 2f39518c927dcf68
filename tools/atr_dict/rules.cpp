// The table of rules. A name in it is part of people's files and does not change.
#include "rules.h"

#include <algorithm>

namespace dict {

namespace {

constexpr bool kError = true;
constexpr bool kWarning = false;

constexpr RuleInfo kRules[] = {
    {Rule::cutValue, "cut-value", kError, "the end of a text is cut off"},
    {Rule::longLine, "long-line", kError, "an entry's line has 8192 bytes or more"},
    {Rule::invalidUtf8, "invalid-utf8", kError, "a text is no UTF-8, so its entry is left out"},
    {Rule::missingConversion, "missing-conversion", kError, "a value of the key is not shown"},
    {Rule::extraConversion, "extra-conversion", kError, "a conversion gets no value"},
    {Rule::unknownConversion, "unknown-conversion", kError, "a conversion of other programs"},
    {Rule::lostPercent, "lost-percent", kError, "a percent sign vanishes"},
    {Rule::changedLetter, "changed-letter", kError, "a number is shown in another notation"},
    {Rule::wideField, "wide-field", kError, "a width or precision above 1023 is cut"},
    {Rule::duplicateKey, "duplicate-key", kError, "a later line gives the key another text"},
    {Rule::nul, "nul", kError, "a zero byte ends the text"},
    {Rule::longEscape, "long-escape", kError, "an escape has more digits than count"},
    {Rule::noKey, "no-key", kError, "a line begins with the marker and has no key"},
    {Rule::lookAlike, "look-alike", kError, "a line looks like an entry and is none"},
    {Rule::liveComment, "live-comment", kError, "an entry behind # is read all the same"},
    {Rule::notInCharset, "not-in-charset", kError, "a charset lacks a character, which becomes ?"},
    {Rule::missingKey, "missing-key", kError, "a key that is asked for is not there"},
    {Rule::pluralRule, "plural-rule", kError, "the rule of the plural forms is broken"},
    {Rule::missingPlural, "missing-plural", kError, "a plural form is not there"},
    {Rule::changedKind, "changed-kind", kWarning,
     "a text in the place of a number, or the reverse"},
    {Rule::numberOrder, "number-order", kWarning, "a conversion's number is not its rank"},
    {Rule::unknownEscape, "unknown-escape", kWarning, "a backslash that begins no escape"},
    {Rule::repeatedEntry, "repeated-entry", kWarning, "an entry stands there twice"},
    {Rule::untranslated, "untranslated", kWarning, "a text is its key"},
    {Rule::blanksDiffer, "blanks-differ", kWarning, "blanks at the ends differ from the key's"},
    {Rule::punctuationDiffers, "punctuation-differs", kWarning, "the end punctuation differs"},
    {Rule::lineBreaksDiffer, "line-breaks-differ", kWarning, "the number of line breaks differs"},
    {Rule::tailInValue, "tail-in-value", kWarning, "the tail of a key shows in its text"},
    {Rule::similarKey, "similar-key", kWarning, "two keys differ by blanks or case alone"},
    {Rule::mixedLineEnds, "mixed-line-ends", kWarning, "some lines end in CR LF, some in LF"},
    {Rule::unusedKey, "unused-key", kWarning, "nobody asks for the key"},
    {Rule::superfluousPlural, "superfluous-plural", kWarning, "a plural form that never comes"},
};
static_assert(std::size(kRules) == kRuleCount);

}  // namespace

std::span<RuleInfo const> allRules() { return kRules; }

RuleInfo const& infoOf(Rule rule) { return kRules[static_cast<std::size_t>(rule)]; }

RuleInfo const* findRule(std::string_view name) {
  auto const* const found =
      std::find_if(std::begin(kRules), std::end(kRules),
                   [name](RuleInfo const& info) { return name == info.name; });
  return found != std::end(kRules) ? found : nullptr;
}

}  // namespace dict
