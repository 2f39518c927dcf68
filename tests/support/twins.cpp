#include "support/twins.h"

#include <algorithm>
#include <climits>
#include <clocale>
#include <cstring>
#include <functional>
#include <map>
#include <regex>
#include <stdexcept>
#include <vector>

#include "atr/atr.h"
#include "atr/encoding/encoding_table.h"
#include "atr/frame/memory.h"
#include "atr/frame/platform.h"
#include "atr/translation/dictionary_reader.h"
#include "atr/translation/translation_table.h"

namespace {

bool isIn(char c, char const* set) {
  return c != '\0' && std::string(set).find(c) != std::string::npos;
}

std::size_t run(std::string const& s, std::size_t from, char const* set) {
  std::size_t const end = s.find_first_not_of(set, from);
  return end == std::string::npos ? s.size() : end;
}

std::string decodeEscapes(std::string const& text) {
  static std::regex const escape(R"(\\(?:(["'\\abfnrtv])|([0-7]{1,3})|x([0-9A-Fa-f]+)|[^]))");
  std::string out;
  auto at = text.cbegin();
  for (std::smatch m; std::regex_search(at, text.cend(), m, escape); at = m[0].second) {
    out.append(at, m[0].first);
    if (m[1].matched) {
      out += std::string("\"'\\\a\b\f\n\r\t\v")[std::string("\"'\\abfnrtv").find(*m[1].first)];
    } else if (m[2].matched) {
      out += static_cast<char>(std::stoi(m[2].str(), nullptr, 8));
    } else if (m[3].matched) {
      std::string const digits = m[3].str();
      out += static_cast<char>(std::stoi(
          digits.substr(digits.size() - std::min<std::size_t>(2, digits.size())), nullptr, 16));
    } else {
      out += m[0].str();
    }
  }
  out.append(at, text.cend());
  return out.substr(0, out.find('\0'));
}

std::string formatMessage(std::string const& s, std::vector<std::string> const& values) {
  constexpr long long kNone = -1;
  std::vector<std::string> texts(1);  // between conversions
  std::vector<long long> numbers;
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] != '%') {
      texts.back() += s[i];
      continue;
    }
    if (i + 1 == s.size()) break;
    if (s[i + 1] == '%') {
      texts.back() += s[++i];
      continue;
    }
    std::size_t const digits = run(s, i + 1, "0123456789");
    bool const isNumbered = digits < s.size() && s[digits] == '$';
    std::size_t const letter = run(s, isNumbered ? digits + 1 : i + 1, "0123456789l.-");
    if (letter == s.size()) break;
    if (isIn(s[letter], "EXcdefgosux")) {
      std::string const number = s.substr(i + 1, digits - i - 1);
      numbers.push_back(!isNumbered || number.empty() ? kNone
                        : number.size() > 18          ? INT_MAX
                                             : std::min<long long>(INT_MAX, std::stoll(number)));
      texts.emplace_back();
    } else {
      texts.back() += s[letter];
    }
    i = letter;
  }
  for (long long n = 1;; ++n) {  // the lowest free number to the leftmost that has none
    auto const free = std::find(numbers.begin(), numbers.end(), kNone);
    if (free == numbers.end()) break;
    if (std::find(numbers.begin(), numbers.end(), n) == numbers.end()) *free = n;
  }
  std::vector<std::size_t> order(numbers.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  for (std::size_t gap = order.size() / 2;
       gap > 0 && !std::is_sorted(numbers.begin(), numbers.end()); gap /= 2) {
    for (std::size_t i = gap; i < order.size(); ++i) {
      for (std::size_t j = i; j >= gap && numbers[order[j - gap]] > numbers[order[j]]; j -= gap) {
        std::swap(order[j - gap], order[j]);
      }
    }
  }
  std::vector<std::string> slots(numbers.size());
  for (std::size_t k = 0; k < std::min(values.size(), slots.size()); ++k)
    slots[order[k]] = values[k];
  std::string result = texts[0];
  for (std::size_t i = 0; i < slots.size(); ++i) result += slots[i] + texts[i + 1];
  return result;
}

std::string fitField(std::string const& text, std::string const& format) {
  if (format.size() > 1 && format[1] == 's') return text;
  static std::regex const field(R"(%(-?)(?:\s*([+-]?\d+))?(?:(\.)\s*([+-]?\d+)?)?[^]*)");
  std::smatch m;
  std::regex_match(format, m, field);
  auto const number = [](auto const& part) {
    return part.matched ? std::clamp<long long>(std::stoll(part.str()), -INT_MAX, INT_MAX) : -1;
  };
  long long const width = number(m[2]), precision = number(m[4]);
  std::string const used =
      precision < 0 ? text : text.substr(0, static_cast<std::size_t>(precision));
  std::string const pad(
      static_cast<std::size_t>(std::max(0LL, width - static_cast<long long>(used.size()))), ' ');
  return m[1].length() > 0 ? used + pad : pad + used;
}

// `step` gives the bytes of the character at a position.
using CharacterStep = std::function<std::size_t(std::string const&, std::size_t)>;
std::string breakLine(std::string const& text, std::size_t limit, CharacterStep const& step) {
  auto const isBlank = [&text](std::size_t i) { return isIn(text[i], " \t\n\v\f\r"); };
  if (text.size() <= limit) return text;
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at;
    while (end - at < std::max<std::size_t>(limit, 1) && end < text.size()) {
      for (bool isInWord = false; end < text.size() && !(isInWord && isBlank(end));
           end += step(text, end)) {
        isInWord = !isBlank(end);
      }
    }
    result += (result.empty() ? "" : "\n") + text.substr(at, end - at);
    at = end;
    if (at < text.size() && ++at == text.size() && text.back() == '\n') result += '\n';
  }
  return result;
}

void require(bool holds, std::string const& what) {
  if (!holds) throw std::logic_error(what);
}

void same(std::string const& ours, std::string const& expected, std::string const& what) {
  require(ours == expected, what + ": \"" + ours + "\", not \"" + expected + "\"");
}

std::string textOf(atr_String const& s) { return {s.c_str(), s.length()}; }

std::string upToNul(std::string_view bytes) {
  return std::string(bytes.substr(0, bytes.find('\0')));
}

std::vector<std::string> split(std::string const& text, std::size_t count) {
  std::vector<std::string> parts(count);
  for (std::size_t i = 0, at = 0; i < count && at <= text.size(); ++i) {
    std::size_t const end = std::min(text.find('|', at), text.size());
    parts[i] = text.substr(at, end - at);
    at = end + 1;
  }
  return parts;
}

void templates(std::string_view bytes) {
  static std::vector<std::string> const values = {"<1>", "<2>", "%s", "<4>", "%1$d"};
  std::string const text = upToNul(bytes);
  atr_translate message(text.c_str());
  for (std::size_t k = 0; k < values.size(); ++k) {
    message.AddSubstitution(static_cast<int>(k) + 1, values[k].c_str(), nullptr);
  }
  same(message.Result().c_str(), formatMessage(atr_raw(text.c_str()).c_str(), values), text);
}

void fields(std::string_view bytes) {
  std::string const conversion = "%" + upToNul(bytes);
  atr_translate message("%d");
  if (conversion.size() > 8) return;  // a field of gigabytes is what it asks for
  message.AddSubstitution(1, "abc", conversion.c_str());
  same(message.Result().c_str(), fitField("abc", conversion), conversion);
}

void numbers(std::string_view bytes) {
  for (char const letter : std::string("EXcdefgosux")) {
    atr_translate message(("%1$" + upToNul(bytes) + letter).c_str());
    atr_SubstituteFormat(message, 1, -5);
    atr_SubstituteFormat(message, 1, ULLONG_MAX);
    atr_SubstituteFormat(message, 1, 1e300);
    require(message.Result().length() < 1500 + bytes.size(), "a bounded field");
  }
}

void exponents(std::string_view bytes) {
  std::string text = upToNul(bytes) + '\0', expected = upToNul(bytes);
  auto const at = expected.find('e');
  if (at != expected.npos && expected.size() == at + 5 && expected[at + 2] == '0')
    expected.erase(at + 2, 1);
  atr_translate::FixExponent(text.data());
  same(text.c_str(), expected, std::string(bytes));
}

void escapes(std::string_view bytes) {
  std::string text = upToNul(bytes) + '\0';
  std::string const expected = decodeEscapes(upToNul(bytes));
  atr_trDecodeEscapes(text.data());
  same(text.c_str(), expected, std::string(bytes));
}

// A file of the bytes, with all its entries and without: nothing is lost and nothing beyond.
void dictionaries(std::string_view bytes) {
  std::FILE* const file = std::tmpfile();
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::rewind(file);
  atr_trReadDictionary(file);
  atr_trSort();
  for (int i = 1; i < atr_trTable.count; ++i) {
    require(atr_trCompareKeys(&atr_trTable.entries[i - 1], &atr_trTable.entries[i]) <= 0, "sorted");
    require(atr_trFind(atr_trTable.entries[i].key) != nullptr, "found");
  }
  atr_trReleaseDB();
  std::fclose(file);
  require(mem_status().blocksInUse == 0, "blocks lost");
}

void encodings(std::string_view bytes) {
  std::string const text = upToNul(bytes);
  auto const* const start = reinterpret_cast<unsigned char const*>(text.c_str());
  for (int pair = 0; pair < 32; ++pair) {
    int const target = pair % 4, source = pair / 4 % 4;
    char const substitute = pair < 16 ? '?' : '\0';
    std::string expected;
    int result = 0;
    for (auto const* p = start; result >= 0 && *p != 0;) {  // a character at a time, by its rows
      int length = 0;
      char form[64];
      unsigned const code = atr_encoding_row(source).decode(p, &length);
      int const n = code == 0xFFFFFFFF ? 0
                                       : atr_encoding_row(target).encode(
                                             reinterpret_cast<unsigned char*>(form), code);
      result = code == 0xFFFFFFFF ? -1 : n < 0 && substitute == 0 ? -2 : 0;
      expected +=
          n < 0 ? std::string(1, substitute) : std::string(form, static_cast<std::size_t>(n));
      p += length;
    }
    if (result == 0) result = static_cast<int>(expected.size());
    std::string out(expected.size() + 32, '\x5A');
    auto* const at = reinterpret_cast<unsigned char*>(out.data()) + 8;
    require(atr_encoding_transcode(target, nullptr, source, start, nullptr, substitute) == result,
            text);
    require(atr_encoding_transcode(target, at, source, start, nullptr, substitute) == result, text);
    if (result >= 0)
      same(out, std::string(8, '\x5A') + expected + '\0' + std::string(23, '\x5A'), text);
  }
}

void lines(std::string_view bytes) {
  std::string const text(bytes);
  auto const step = [](std::string const& s, std::size_t at) {
    std::mblen(nullptr, 0);
    int const n = std::mblen(s.c_str() + at, std::min<std::size_t>(4, s.size() - at));
    return n > 1 && s.find('\0', at) >= at + static_cast<std::size_t>(n)
               ? static_cast<std::size_t>(n)
               : 1;
  };
  atr_String const s(text.c_str(), static_cast<int>(text.size()));
  for (std::size_t const limit : {0U, 1U, 2U, 3U, 8U, 72U}) {
    std::size_t const width = std::max<std::size_t>(limit, 1);
    std::string folded;
    for (std::size_t at = 0, end = 0; at < text.size(); at = end) {
      end = std::min(text.size(), text.find('\n', at)) + 1;
      folded += breakLine(text.substr(at, end - at), width, step);
    }
    atr_String const line = atr_String::BreakLineString(s, limit),
                     kept = atr_String::AddLineBreaks(s, limit, true);
    same(textOf(line), breakLine(text, width, step), text);
    require((line.c_str() == s.c_str()) == (text.size() <= width), "shared");
    same(textOf(atr_String::AddLineBreaks(s, limit, false)), text.size() > width ? folded : text,
         text);
    bool const isKept = text.find('\n') != text.npos || text.size() <= width;
    same(textOf(kept), isKept ? text : textOf(line), text);
    require((kept.c_str() == s.c_str()) == isKept, "shared");
  }
}

// a|b|c: a total order has these laws.
void orders(std::string_view bytes) {
  auto const t = split(upToNul(bytes), 3);
  auto const order = [&t](int i, int j) {
    return strnatcmp(t[static_cast<std::size_t>(i)].c_str(),
                     t[static_cast<std::size_t>(j)].c_str());
  };
  for (int i = 0; i < 9; ++i) {
    int const a = i % 3, b = i / 3, c = 3 - a - b;
    require(order(a, b) == -order(b, a), "both sides");
    require(
        (order(a, b) == 0) == (t[static_cast<std::size_t>(a)] == t[static_cast<std::size_t>(b)]),
        "equal texts only");
    if (a != b) require(order(a, b) >= 0 || order(b, c) >= 0 || order(a, c) < 0, "in a row");
  }
}

// hay|needle|to
void searches(std::string_view bytes) {
  auto const parts = split(upToNul(bytes), 3);
  std::string const &hay = parts[0], &needle = parts[1];
  atr_String const s(hay.c_str(), static_cast<int>(hay.size()));
  for (int at = 0; at <= static_cast<int>(hay.size()) + 1; ++at) {
    auto const pos = static_cast<std::size_t>(at);
    auto const found = pos > hay.size() ? hay.npos : hay.find(needle, pos);
    require(s.Find(needle.c_str(), at) == static_cast<int>(std::min(found, hay.size())),
            hay + " Find " + needle);
    auto last = hay.npos;  // the first occurrence, the next, ..., as far as they may start
    for (auto i = hay.find(needle); i <= pos && at > 0; i = hay.find(needle, i + 1)) {
      last = i;
      if (i + 1 >= hay.size()) break;
    }
    require(s.rfind(needle.c_str(), 1, at) == static_cast<int>(std::min(last, hay.size())),
            hay + " rfind " + needle);
  }
  std::string expected = hay;
  for (int i = 0; i < 5 && !needle.empty() && expected.find(needle) != expected.npos; ++i) {
    expected.replace(expected.find(needle), needle.size(), parts[2]);
  }
  same(textOf(atr_String(s).Substitute(needle.c_str(), parts[2].c_str(), 5)), expected,
       std::string(bytes));
}

// Four bytes a step, on a few strings that share and alias each other.
void strings(std::string_view bytes) {
  atr_String ours[4];
  std::string models[4];
  for (std::size_t i = 0; i + 4 <= bytes.size() && i < 4000; i += 4) {
    auto const byte = [&](std::size_t k) {
      return static_cast<std::size_t>(static_cast<unsigned char>(bytes[i + k]));
    };
    atr_String &s = ours[byte(0) % 4], &t = ours[byte(0) / 4 % 4];
    std::string &m = models[byte(0) % 4], other = models[byte(0) / 4 % 4];
    std::size_t const at = byte(1) % (m.size() + 1), from = byte(2) % (other.size() + 1),
                      n = byte(3) % 40;
    int const pos = static_cast<int>(at), start = static_cast<int>(from),
              count = static_cast<int>(n);
    int const length = static_cast<int>(other.size());
    std::size_t const choice = m.size() > 500 ? 4 : byte(0) / 16 % 8;
    std::string const piece = other.substr(from, n);
    if (choice == 0) s = t, m = other;
    if (choice == 1) s.append(t.c_str(), length, start, count), m += piece;
    if (choice == 2) s.insert(pos, t.c_str(), length, start, count), m.insert(at, piece);
    if (choice == 3) s.replace(pos, 3, t.c_str(), length, start, count), m.replace(at, 3, piece);
    if (choice == 4) s = "Seed Text", m = "Seed Text";
    if (choice == 5) s.Erase(pos, count), m.erase(at, n);
    if (choice == 6) s = t.Substr(from, n), m = piece;
    if (choice == 7) s = s + t, m += other;
    for (std::size_t k = 0; k < 4; ++k)
      same(textOf(ours[k]), models[k], "step " + std::to_string(i / 4));
  }
}

// Two bytes a step: blocks full of a pattern of their own, taken, grown and released.
void pools(std::string_view bytes) {
  atr_Allocator pool(12, 5, 2000);
  std::map<unsigned char*, int> blocks;
  auto const size = [](int c) { return static_cast<std::size_t>(12 * (c + 1)); };
  auto const pattern = [](void* p) {
    return static_cast<unsigned char>(reinterpret_cast<std::uintptr_t>(p) % 251);
  };
  for (std::size_t i = 0; i + 2 <= bytes.size(); i += 2) {
    auto const choice = static_cast<unsigned char>(bytes[i]),
               which = static_cast<unsigned char>(bytes[i + 1]);
    int const c = choice % 6;
    if (choice < 140) {
      auto* const p = static_cast<unsigned char*>(pool.Allocate(c));
      auto const next = blocks.lower_bound(p);
      require(next == blocks.end() || p + size(c) <= next->first, "over the next block");
      require(next == blocks.begin() || std::prev(next)->first + size(std::prev(next)->second) <= p,
              "in a block");
      std::memset(p, pattern(p), size(blocks[p] = c));
    } else if (!blocks.empty()) {
      auto const at = std::next(blocks.begin(), static_cast<long>(which % blocks.size()));
      auto const isOwn = [&](unsigned char byte) { return byte == pattern(at->first); };
      require(std::all_of(at->first, at->first + size(at->second), isOwn),
              "a block was written to");
      if (pool.Extend(at->first, at->second, c)) {
        std::memset(at->first, pattern(at->first), size(at->second = c));
      } else {
        pool.Release(at->first, at->second);
        blocks.erase(at);
      }
    }
  }
}

}  // namespace

test::Twin const test::kTwins[12] = {{"templates", templates, "%12$dy-l", 6},
                                     {"fields", fields, "-.05sl ", 6},
                                     {"numbers", numbers, "-.09l", 4},
                                     {"exponents", exponents, "e+01 ", 6},
                                     {"escapes", escapes, "\\x0789fgn\xE9", 5},
                                     {"dictionaries", dictionaries, "'] =r\n\\x\xE9", 0},
                                     {"encodings", encodings, "a\xC3\xA9\xE3\x82\xED\xF0\x80", 4},
                                     {"lines", lines, "a \n\x83\x5C", 6},
                                     {"orders", orders, "09a|\xE9", 7},
                                     {"searches", searches, "ab|", 8},
                                     {"strings", strings, "", 0},
                                     {"pools", pools, "", 0}};
