#include "support/twin_report.h"

#include <bit>
#include <cstdlib>
#include <stdexcept>

using namespace test;

S test::escaped(std::string_view bytes) {
  S literal;
  for (char const each : bytes) {
    auto const byte = static_cast<unsigned char>(each);
    char const octal[] = {'\\', static_cast<char>('0' + byte / 64),
                          static_cast<char>('0' + byte / 8 % 8), static_cast<char>('0' + byte % 8)};
    bool const isPlain = byte >= ' ' && byte < 0x7F && byte != '\'' && byte != '"' && byte != '\\';
    if (isPlain) {
      literal += static_cast<char>(byte);
    } else {
      literal += byte == '\\' ? "\\\\" : byte == '\n' ? "\\n" : S(octal, sizeof octal);
    }
  }
  return literal;
}

S test::unescaped(std::string_view literal) {
  S bytes;
  for (std::size_t at = 0; at < literal.size(); ++at) {
    if (literal[at] != '\\') {
      bytes += literal[at];
      continue;
    }
    char const next = literal.substr(at + 1, 1).empty() ? '\\' : literal[at + 1];
    bool const isOctal = next >= '0' && next <= '7';
    int const code = isOctal ? std::stoi(S(literal.substr(at + 1, 3)), nullptr, 8) : next;
    bytes += next == 'n' ? '\n' : static_cast<char>(code);
    at += isOctal ? 3 : 1;
  }
  return bytes;
}

void test::setLocale(char const* name) {
  if (std::setlocale(LC_ALL, name) != nullptr) return;
  char const* const path = std::getenv("LOCPATH");
  throw std::runtime_error("the locale " + S(name) + " is missing; LOCPATH, which is " +
                           (path != nullptr ? path : "not set") +
                           ", has to name the folder build/locales that the build fills");
}

namespace {

std::optional<Difference> difference(Twin const& twin, std::string_view bytes) try {
  std::vector<char> const exact(bytes.begin(), bytes.end());
  twin.run({exact.data(), exact.size()});
  return std::nullopt;
} catch (Difference const& found) {
  return found;
} catch (std::exception const& thrown) {
  return Difference{"an exception comes out of it", "none", thrown.what()};
}

// Takes pieces out of the input, halves first and single bytes last, for as long as a difference
// remains. Powers of two keep the steps of a twin whole.
S shortened(Twin const& twin, S input) {
  for (std::size_t piece = std::bit_ceil(input.size()) / 2; piece > 0;) {
    bool isShorter = false;
    for (std::size_t at = 0; at < input.size();) {
      S rest = input;
      rest.erase(at, piece);
      if (difference(twin, rest).has_value()) {
        input = rest;
        isShorter = true;
      } else {
        at += piece;
      }
    }
    if (!isShorter) piece /= 2;
  }
  return input;
}

// A long text from a little before the place where the two differ.
S shown(S const& text, S const& other) {
  constexpr std::size_t kBefore = 40, kMost = 160;  // bytes
  auto const at = z(std::ranges::mismatch(text, other).in1 - text.begin());
  std::size_t const begin = text.size() > kMost && at > kBefore ? at - kBefore : 0;
  S const part = text.substr(begin, kMost);
  bool const isCut = part.size() < text.size();
  return '"' + escaped(part) + '"' +
         (isCut ? " (" + std::to_string(part.size()) + " of " + std::to_string(text.size()) +
                      " bytes, from byte " + std::to_string(begin) + ")"
                : "");
}

}  // namespace

std::optional<S> test::reportOf(Twin const& twin, std::string_view bytes, S const& origin,
                                S const& program) {
  auto found = difference(twin, bytes);
  if (!found.has_value()) return std::nullopt;
  S input = shortened(twin, S(bytes));
  auto const last = difference(twin, input);  // none if it depends on what was run before
  if (last.has_value()) {
    found = last;
  } else {
    input = bytes;
  }
  S const locale = std::setlocale(LC_ALL, nullptr);
  char const* const path = std::getenv("LOCPATH");
  return "the twin " + S(twin.name) + " differs from the library" +
         (last.has_value() ? "" : ", but no more when it is run again") +
         "\n  where:    " + found->where + "\n  locale:   " + locale + "\n  found in: " + origin +
         ", " + std::to_string(bytes.size()) + " bytes" + "\n  input:    \"" + escaped(input) +
         "\"\n  expected: " + shown(found->expected, found->actual) +
         "\n  actual:   " + shown(found->actual, found->expected) +
         "\n  repeat:   " + (path != nullptr ? "LOCPATH='" + S(path) + "' " : "") +
         "ATR_TWIN_LOCALE='" + locale + "' ATR_TWIN_INPUT='" + escaped(input) + "' " + program +
         "\n";
}

bool test::repeats(Twin const& twin, S const& program, std::optional<S>& report) {
  char const* const literal = std::getenv("ATR_TWIN_INPUT");
  if (literal == nullptr) return false;
  if (char const* const locale = std::getenv("ATR_TWIN_LOCALE")) setLocale(locale);
  report = reportOf(twin, unescaped(literal), "ATR_TWIN_INPUT", program);
  return true;
}
