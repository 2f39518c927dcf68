// The keys that a program asks for.
#ifndef ATR_TOOLS_ATR_DICT_ASKED_KEYS_H
#define ATR_TOOLS_ATR_DICT_ASKED_KEYS_H

#include <string>
#include <vector>

#include "dictionary.h"

namespace dict {

/// A message of the program. Plural messages have a text for 1 and one for the other numbers.
struct AskedKey {
  std::string key;
  std::string others;  // empty for a message without plural forms
};

/// Reads a PO template, by the ending `.pot` or `.po`, or else a list: a key a line, escaped as in
/// a dictionary, up to a tab or the line's end. @throw Failure if it cannot be read.
std::vector<AskedKey> readAskedKeys(std::string const& path);

/// The keys with those of plural forms, as the dictionary's rule asks for them. A form in a list
/// was asked for under the rule of another dictionary, and stands for all forms of its source.
std::vector<std::string> expanded(std::vector<AskedKey> const& asked, Dictionary const& dictionary);

/// The keys of a dictionary's entries that have a text.
std::vector<std::string> keysOf(Dictionary const& dictionary);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_ASKED_KEYS_H
