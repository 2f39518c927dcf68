// The keys of plural forms.
#ifndef ATR_TOOLS_ATR_DICT_PLURAL_H
#define ATR_TOOLS_ATR_DICT_PLURAL_H

#include <string_view>

namespace dict {

/// The entry whose text is the rule; it is no template, and its percent signs are remainders.
constexpr std::string_view kPluralRuleKey = "\\@plural";

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_PLURAL_H
