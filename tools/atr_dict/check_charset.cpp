// What a locale of another charset would show as a question mark.
#include <set>

#include "atr/encoding/utf8.h"
#include "checks.h"
#include "failure.h"
#include "messages.h"
#include "system.h"

namespace dict {

namespace {

class CharsetCheck {
 public:
  CharsetCheck(Findings& findings, std::string const& name)
      : findings_(findings), name_(name), charset_(system::openCharset(name)) {
    if (charset_ == nullptr) {
      throw Failure(say("%s: %s", toLocale(name), say("the system does not know this charset")));
    }
  }

  void check(Entry const& entry) {
    std::string const text(entry.text);
    for (std::size_t at = 0; at < text.size();) {
      auto const* const p = reinterpret_cast<unsigned char const*>(text.c_str() + at);
      auto const bytes = static_cast<std::size_t>(atr_utf8_len(p));
      if (bytes > 1) checkCharacter(entry, at, bytes, atr_utf8_to_ucs4(p, nullptr));
      at += bytes;
    }
  }

 private:
  // The charset is asked once for each character, and reported once.
  void checkCharacter(Entry const& entry, std::size_t at, std::size_t bytes, unsigned int code) {
    if (!seen_.insert(code).second) return;
    std::string_view const character = entry.text.substr(at, bytes);
    if (charset_->has(character)) return;
    findings_.add(Rule::notInCharset, textPlace(entry, at),
                  say("%s lacks \"%s\" (U+%04X), which shows as ?", toLocale(name_),
                      toLocale(character), code));
  }

  Findings& findings_;
  std::string const& name_;
  std::unique_ptr<system::Charset> charset_;
  std::set<unsigned int> seen_;
};

}  // namespace

void checkCharset(Findings& findings, std::string const& charset) {
  CharsetCheck check(findings, charset);
  for (Entry const& entry : findings.dictionary().entries) {
    if (entry.fate == Fate::stored && !entry.isShadowed) check.check(entry);
  }
}

}  // namespace dict
