// A comment line directly above, `# atr-dict: allow RULE, RULE`, allows rules for one line.
#include "findings.h"

#include <algorithm>

namespace dict {

namespace {

bool isComment(std::string_view line) {
  std::size_t const first = line.find_first_not_of(" \t");
  return first != line.npos && line[first] == '#';
}

bool allows(std::string_view comment, std::string_view rule) {
  constexpr std::string_view kWord = "atr-dict: allow ";
  std::size_t const word = comment.find(kWord);
  if (word == comment.npos) return false;
  std::string_view names = comment.substr(word + kWord.size());
  while (!names.empty()) {
    std::size_t const end = std::min(names.find_first_of(", "), names.size());
    if (names.substr(0, end) == rule) return true;
    names.remove_prefix(std::min(end + 1, names.size()));
  }
  return false;
}

}  // namespace

bool Findings::isAllowed(Rule rule, std::size_t line) const {
  while (line > 0) {
    Line const& above = dictionary_.lines[--line];
    if (above.entry >= 0 || !isComment(above.text)) return false;
    if (allows(above.text, infoOf(rule).name)) return true;
  }
  return false;
}

void Findings::add(Rule rule, char const* at, std::string message, std::string hint) {
  if (disabled_[static_cast<std::size_t>(rule)]) return;
  auto const& lines = dictionary_.lines;
  auto const behind =
      std::upper_bound(lines.begin(), lines.end(), at,
                       [](char const* p, Line const& line) { return p < line.text.data(); });
  auto const line = static_cast<std::size_t>(behind - lines.begin()) - 1;
  if (isAllowed(rule, line)) return;
  auto const column = static_cast<std::size_t>(at - lines[line].text.data());
  findings_.push_back({rule, line, column, std::move(message), std::move(hint)});
}

void Findings::addToFile(Rule rule, std::string message, std::string hint) {
  if (disabled_[static_cast<std::size_t>(rule)]) return;
  findings_.push_back({rule, dictionary_.lines.size(), 0, std::move(message), std::move(hint)});
}

std::vector<Finding> const& Findings::sorted() {
  std::stable_sort(findings_.begin(), findings_.end(), [](Finding const& a, Finding const& b) {
    return a.line != b.line ? a.line < b.line : a.at < b.at;
  });
  return findings_;
}

char const* keyPlace(Entry const& entry, std::size_t offset) {
  return entry.rawKey.data() + rawOffset(entry.rawKey, offset);
}

char const* textPlace(Entry const& entry, std::size_t offset) {
  return entry.rawValue.data() + rawOffset(entry.rawValue, offset);
}

}  // namespace dict
