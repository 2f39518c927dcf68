// The rule of the plural forms and the forms that it asks for.
#include "atr/format/plural_rule.h"
#include "checks.h"
#include "messages.h"
#include "plural.h"

namespace dict {

namespace {

std::string reasonOf(atr::detail::PluralFault fault) {
  using atr::detail::PluralFault;
  switch (fault) {
    case PluralFault::kDivisionByZero:
      return say("it divides by zero");
    case PluralFault::kTooLong:
    case PluralFault::kTooDeep:
      return say("it is too long or too deep");
    case PluralFault::kBadIndex:
      return say("it gives an index that there is not");
    default:
      return say("it is not in the notation of Plural-Forms");
  }
}

void reportRule(Findings& findings, Entry const& entry) {
  std::string const rule(entry.text);
  atr::detail::PluralRule reader(rule.data(), rule.data() + rule.size());
  for (unsigned int n = 0; n <= 1000; ++n) {
    atr::detail::PluralForm const form = reader.formFor(n);
    if (form.index >= 0) continue;
    auto const at = static_cast<std::size_t>(form.at - rule.data());
    findings.add(Rule::pluralRule, textPlace(entry, at),
                 say("the rule is broken and counts as none: %s", reasonOf(form.fault)));
    return;
  }
}

void checkForms(Findings& findings, PluralSource const& source, PluralForms const& forms,
                bool hasFormOfOne) {
  Entry const& any = *source.entries.begin()->second;
  std::set<int> wanted = forms.ofOthers;
  if (!hasFormOfOne) wanted.insert(forms.ofOne);
  for (int const index : wanted) {
    if (source.entries.contains(index)) continue;
    findings.add(Rule::missingPlural, any.rawKey.data(),
                 say("the form %d is not there, so the English text shows", index),
                 say("add an entry for \"%s\"", toLocale(pluralKeyOf(source.text, index))));
  }
  for (auto const& [index, entry] : source.entries) {
    if (forms.ofOthers.contains(index) || index == forms.ofOne) continue;
    findings.add(Rule::superfluousPlural, entry->rawKey.data(),
                 say("the rule never gives the form %d", index));
  }
}

}  // namespace

// A source's form for 1 stands in front of the one for the other numbers. A source that has the
// same text for all numbers has all forms.
void checkPlurals(Findings& findings) {
  Dictionary const& d = findings.dictionary();
  for (Entry const& entry : d.entries) {
    bool const isLive = entry.fate == Fate::stored && !entry.isShadowed;
    if (isLive && entry.key == kPluralRuleKey) reportRule(findings, entry);
  }
  std::optional<PluralForms> const forms = formsOf(ruleOf(d));
  if (!forms) return;
  std::vector<PluralSource> const sources = pluralSources(d);
  bool isBehindFormOfOne = false;
  for (std::size_t i = 0; i < sources.size(); ++i) {
    bool const isOfOne = isFormOfOne(sources[i], *forms);
    bool const isFollowed = i + 1 < sources.size() && !isFormOfOne(sources[i + 1], *forms);
    if (!isOfOne) checkForms(findings, sources[i], *forms, isBehindFormOfOne);
    if (isOfOne && !isFollowed) {
      findings.add(Rule::missingPlural, sources[i].entries.begin()->second->rawKey.data(),
                   say("no form for other numbers than 1 follows"));
    }
    isBehindFormOfOne = isOfOne;
  }
}

}  // namespace dict
