// What the checks find in a dictionary.
#ifndef ATR_TOOLS_ATR_DICT_FINDINGS_H
#define ATR_TOOLS_ATR_DICT_FINDINGS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "dictionary.h"
#include "rules.h"

namespace dict {

struct Finding {
  Rule rule;
  std::size_t line;     // place in Dictionary::lines
  std::size_t at;       // bytes from the start of the line
  std::string message;  // in the encoding of the locale
  std::string hint;     // may be empty
};

/// Collects the findings of one dictionary, without those of rules that are off and those that a
/// comment line above allows.
class Findings {
 public:
  Findings(Dictionary const& dictionary, RuleSet const& disabled)
      : dictionary_(dictionary), disabled_(disabled) {}

  /// Takes a finding whose place `at` looks at a text of the dictionary's lines.
  void add(Rule rule, char const* at, std::string message, std::string hint = "");

  /// The same, about no line in particular: the file as a whole.
  void addToFile(Rule rule, std::string message, std::string hint = "");

  /// The findings in the order of their places.
  std::vector<Finding> const& sorted();

  Dictionary const& dictionary() const { return dictionary_; }

 private:
  bool isAllowed(Rule rule, std::size_t line) const;

  Dictionary const& dictionary_;
  RuleSet disabled_;
  std::vector<Finding> findings_;
};

/// The place of the decoded byte at `offset` of an entry's key or text, in its line.
char const* keyPlace(Entry const& entry, std::size_t offset);
char const* textPlace(Entry const& entry, std::size_t offset);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_FINDINGS_H
