// What a start of the library did, as facts. A start wants a process as it began, without the
// tool's own messages.
#ifndef ATR_TOOLS_ATR_DICT_EXPLAIN_H
#define ATR_TOOLS_ATR_DICT_EXPLAIN_H

#include <optional>
#include <string>
#include <vector>

namespace dict {

struct LocaleFact {
  char const* category;
  std::string name;
  std::string answer;
  bool isThere;
};

struct CandidateFact {
  std::string path;
  std::string reason;  // the system's, if it did not open
  bool isOpened;

  /// True if nothing of that name is there, which is normal in a search.
  bool isAbsent() const;
};

struct KeyFacts {
  std::string key;
  std::string text;  // what shows
  bool isInTable = false;
  bool isTailCut = false;
  bool isReencoded = false;
};

struct StartFacts {
  std::optional<std::string> supported;
  std::optional<std::string> dictionary;
  std::optional<std::string> language;
  std::optional<std::string> searchPath;
  bool isTranslated = false;
  std::string relativePath;
  std::vector<LocaleFact> locales;
  std::vector<CandidateFact> candidates;
  std::string found;  // the dictionary's path, or empty
  int entries = 0;
  std::string characterType;
  std::string codeset;
  int longestCharacter = 1;  // in bytes
  std::vector<KeyFacts> keys;

  bool isAscii() const { return codeset == "ANSI_X3.4-1968" || codeset == "US-ASCII"; }
};

/// The dictionary that a start of the library chooses, or an empty path.
std::string dictionaryOfTheCaller();

/// Starts the library, builds the table, looks the keys up, and stops it again.
StartFacts startAsTheCaller(std::vector<std::string> const& keys);

/// Tells the story of a start on the standard output. @return the exit status.
int explain(StartFacts const& facts);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_EXPLAIN_H
