#include "support/twins.h"

#include <bit>
#include <cmath>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <list>
#include <map>
#include <memory>
#include <numeric>
#include <random>
#include <regex>
#include <sstream>
#include <utility>

#include "atr/frame/platform.h"
#include "support/twin_report.h"

using namespace test;

std::size_t test::characterBytes(S const& s, std::size_t at) {
  std::mblen(nullptr, 0);
  int const n = std::mblen(s.c_str() + at, std::min<std::size_t>(4, s.size() - at));
  return n > 1 && s.find('\0', at) >= at + z(n) ? z(n) : 1;
}

std::optional<S> test::localeBytes(unsigned code) {
  char bytes[64];
  std::mbstate_t state{};
  auto length = std::wcrtomb(bytes, static_cast<wchar_t>(code), &state);
  if (std::mbsinit(&state) == 0) length = std::wcrtomb(bytes, L'\0', &state) - 1;  // was held back
  return length == SIZE_MAX ? std::nullopt : std::optional(S(bytes, length));
}

namespace {

S written(auto const&... values) {
  std::ostringstream out;
  out << std::boolalpha;
  (out << ... << values);
  return out.str();
}

// What the library gives is what its rules say. Else `where` names operation, step and state.
void same(auto const& actual, auto const& expected, auto const&... where) {
  if (actual != expected) throw Difference{written(where...), written(expected), written(actual)};
}

S upToNul(std::string_view bytes) { return S(bytes.substr(0, bytes.find('\0'))); }

using Slot = std::pair<long long, std::size_t>;  // its number, -1 for none, and its piece

// A conversion without a number takes the lowest one that is free, from the left.
void numberSlots(std::vector<Slot>& slots) {
  auto const find = [&](long long n) { return std::ranges::find(slots, n, &Slot::first); };
  for (long long n = 1; find(-1) != slots.end(); ++n)
    if (find(n) == slots.end()) find(-1)->first = n;
}

// Equal numbers end as the steps of this sort leave them.
void sortSlots(std::vector<Slot>& slots) {
  bool const isSorted = std::ranges::is_sorted(slots, {}, &Slot::first);
  for (std::size_t gap = isSorted ? 0 : slots.size() / 2; gap > 0; gap /= 2)
    for (std::size_t i = gap; i < slots.size(); ++i)
      for (std::size_t j = i; j >= gap && slots[j - gap].first > slots[j].first; j -= gap)
        std::swap(slots[j - gap], slots[j]);
}

S formatMessage(S const& s, std::vector<S> const& values) {
  static std::regex const item(R"([^%]|%(?:(\d*)\$|(?!\d*\$))[\dl.-]*([^\dl.-]))");
  std::vector<S> pieces(1);
  std::vector<Slot> slots;
  std::sregex_iterator m(s.begin(), s.end(), item, std::regex_constants::match_continuous), end;
  for (; m != end; ++m) {
    S const number = m->str(1), letter(1, m->str().back());
    if (m->length() == 1 || S("EXcdefgosux").find(letter) == S::npos) {
      pieces.back() += letter;
      continue;
    }
    long long const most = INT_MAX, n = std::strtoll(number.c_str(), nullptr, 10);
    slots.emplace_back(number.empty() ? -1 : std::min(most, n), pieces.size());
    pieces.resize(pieces.size() + 2);
  }
  numberSlots(slots);
  sortSlots(slots);
  for (std::size_t k = 0; k < std::min(values.size(), slots.size()); ++k)
    pieces[slots[k].second] = values[k];
  return std::accumulate(pieces.begin(), pieces.end(), S());
}

void templates(std::string_view bytes) {
  static std::vector<S> const values = {"<1>", "<2>", "%s", "<4>", "%1$d"};
  S const text = upToNul(bytes);
  atr_translate message(text.c_str());
  for (int k = 0; k < 5; ++k) message.AddSubstitution(k + 1, values[z(k)].c_str(), nullptr);
  same(textOf(message.Result()), formatMessage(atr_raw(text.c_str()).c_str(), values),
       "the result with the values <1>, <2>, %s, <4>, %1$d");
}

void fields(std::string_view bytes) {
  static std::regex const field(R"(%(-?)(?:\s*([+-]?\d+))?(?:(\.)\s*([+-]?\d+)?)?[^]*)");
  S const conversion = "%" + upToNul(bytes);
  if (conversion.size() > 8) return;  // a field of gigabytes is what it asks for
  std::smatch m;
  std::regex_match(conversion, m, field);
  auto const number = [&](std::size_t i) { return m[i].matched ? std::stoi(m[i]) : -1; };
  S expected = S("abc").substr(0, z(std::max(number(4), -1)));
  S const pad(z(std::max(0, number(2) - static_cast<int>(expected.size()))), ' ');
  expected = m[1].length() > 0 ? expected + pad : pad + expected;
  atr_translate message("%d");
  message.AddSubstitution(1, "abc", conversion.c_str());
  same(textOf(message.Result()), conversion[1] == 's' ? "abc" : expected, "abc in the conversion ",
       conversion);
}

int (*const printTo)(char*, std::size_t, char const*, ...) = std::snprintf;  // with any format

S print(S const& form, auto value) {
  char text[1500];
  printTo(text, sizeof text, form.c_str(), value);
  return text;
}

// Three digits that end the text behind its first `e`, of which the first is 0, become two.
S withShortExponent(S const& text) {
  static std::regex const long0(R"(([^e]*e[^])0(\d\d))");
  std::smatch m;
  return std::regex_match(text, m, long0) ? m.str(1) + m.str(2) : text;
}

// What printf makes of a value, in fields that are bounded. An `l` is no part of the run, and a
// character has no use for zeros and a precision.
void numbers(std::string_view bytes) {
  static std::regex const layout(R"(([-0]*)(\d*)(\.?)(\d*).*)");
  S run = upToNul(bytes);
  std::erase_if(run, [](char c) { return S("-.0123456789l").find(c) == S::npos; });
  if (run.size() > 40) return;  // says nothing that a shorter one does not, and takes long
  S const bare = std::regex_replace(run, std::regex("l"), "");
  std::smatch m;
  std::regex_match(bare, m, layout);
  auto const field = [&](std::size_t i) {
    long long const most = 1023, number = std::strtoll(m.str(i).c_str(), nullptr, 10);
    return m[i].length() > 0 ? std::to_string(std::min(most, number)) : "";
  };
  S const width = field(2), form = "%" + m.str(1) + width + m.str(3) + field(4);
  S const byteForm = (m.str(1).find('-') != S::npos ? "%-" : "%") + width + "c";
  for (char const letter : S("EXcdefgosux")) {
    S const text = "%1$" + run + letter, plain = S("%") + letter;
    bool const isDouble = S("Eefg").find(letter) != S::npos;
    atr_translate message(text.c_str());
    auto const check = [&](auto value, S const& expected) {
      atr_SubstituteFormat(message, 1, value);
      same(textOf(message.Result()), expected, text, " with the value ", value, " of ",
           sizeof value, " bytes");
    };
    auto const integer = [&](auto v) {
      bool const isUnsigned = std::is_unsigned_v<decltype(v)>;
      S const tail = (sizeof v == 8 ? S("ll") : S()) + (letter == 'd' && isUnsigned ? 'u' : letter);
      return isDouble        ? print(plain, static_cast<double>(v))
             : letter == 's' ? std::to_string(v)
             : letter == 'c' ? print(byteForm, static_cast<int>(v))
                             : print(form + tail, v);
    };
    for (long long const v : {0LL, 1LL, -1LL, 42LL, 0LL + INT_MIN, LLONG_MIN, LLONG_MAX}) {
      auto const bits = static_cast<unsigned long long>(v);
      auto const each = [&](auto... values) { (check(values, integer(values)), ...); };
      each(static_cast<int>(v), static_cast<unsigned>(v), v, bits);
      check(static_cast<long>(v), integer(0LL + static_cast<long>(v)));  // as 64 bits everywhere
      check(reinterpret_cast<void*>(bits), integer(bits));
    }
    for (double const v : {0.5, -0.0, 3.14159, -2.5e-7, 1e300, HUGE_VAL}) {
      S const expected = isDouble ? withShortExponent(print(form + letter, v)) : print("%e", v);
      check(v, expected);
      if (v == 0.5) check(0.5F, expected);
    }
  }
}

void exponents(std::string_view bytes) {
  S text = upToNul(bytes);
  S const expected = withShortExponent(text);
  atr_translate::FixExponent(text.data());
  same(upToNul(text), expected, "the exponent");
}

S withoutEscapes(S const& text) {
  static std::regex const item(
      R"(\\(["'\\abfnrtv])|\\([0-7]{1,3})|\\x[\da-fA-F]*?([\da-fA-F]{1,2})(?![\da-fA-F])|\\?[^])");
  S expected;
  for (std::sregex_iterator m(text.begin(), text.end(), item), end; m != end; ++m) {
    auto const code = [&](std::size_t i, int base) {
      return S(1, static_cast<char>(std::stoi(m->str(i), nullptr, base)));
    };
    expected += (*m)[1].matched   ? S(1, "\"'\\\a\b\f\n\r\t\v"[S("\"'\\abfnrtv").find(m->str(1))])
                : (*m)[2].matched ? code(2, 8)
                : (*m)[3].matched ? code(3, 16)
                                  : m->str();
  }
  return upToNul(expected);
}

void escapes(std::string_view bytes) {
  S text = upToNul(bytes);
  S const expected = withoutEscapes(text);
  atr_trDecodeEscapes(text.data());
  same(upToNul(text), expected, "the text without its escapes");
}

// The codes of a text in UTF-8, with overlong forms and codes of up to 31 bits, or nothing.
std::optional<std::vector<unsigned>> codesOf(S const& text) {
  std::vector<unsigned> codes;
  for (std::size_t at = 0; at < text.size();) {
    auto const lead = static_cast<unsigned char>(text[at++]);
    int const bytes = std::max(std::countl_one(lead), 1);  // of the character
    if ((lead & 0xC0) == 0x80 || bytes > 6) return std::nullopt;
    unsigned code = bytes == 1 ? lead : lead & (0x7FU >> bytes);
    for (int k = 1; k < bytes; ++k, ++at) {
      if (at == text.size() || (text[at] & 0xC0) != 0x80) return std::nullopt;
      code = code << 6 | (octets(text)[at] & 0x3FU);
    }
    codes.push_back(code);
  }
  return codes;
}

// Pieces of at most 8191 bytes, up to a NUL of their own. CR LF is a newline; in text mode 1A is
// the end.
std::vector<S> linesOf(S text) {
  if (atr::platform::hasTextMode) text.resize(std::min(text.find('\x1A'), text.size()));
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != text.npos;) text.erase(at, 1);
  std::vector<S> lines;
  for (std::size_t at = 0, end = 0; at < text.size(); at = end) {
    end = std::min({text.find('\n', at), text.size() - 1, at + 8190}) + 1;
    lines.push_back(upToNul(text.substr(at, end - at)));
  }
  return lines;
}

// A value is judged as it stands, then without the closing, then without its escapes. The first
// verdict decides how many entries there can be, the others which they are.
S tableOf(std::string_view bytes) {
  static S const marker = "'] = r'";
  std::vector<std::pair<S, S>> values, entries;  // of a key, from the second quote on
  for (S const& line : linesOf(S(bytes))) {
    std::size_t const quote = line.find('\''), end = line.find(marker);
    if (end == line.npos) continue;
    S const value = line.substr(end + marker.size());
    values.emplace_back(quote < end ? line.substr(quote, end - quote) : "", value);
  }
  auto const room = std::ranges::count_if(
      values, [](auto const& entry) { return codesOf(entry.second).has_value(); });
  for (auto& [key, value] : values) {
    if (value.size() >= 2) value.resize(value.size() - 2);
    auto const codes = codesOf(withoutEscapes(value));
    if (key.empty() || !codesOf(value).has_value() || !codes.has_value()) continue;
    if (std::ssize(entries) == room) break;
    S text;
    for (unsigned const code : *codes) text += localeBytes(code).value_or("?");
    entries.emplace_back(withoutEscapes(key.substr(1)), upToNul(text));
  }
  std::ranges::stable_sort(entries, {}, &std::pair<S, S>::first);
  S table;
  for (auto const& [key, text] : entries) table += "{" + key + "=" + text + "}";
  return table;
}

// By a named file, which is opened as the library opens one: in text mode, where there is such a
// mode.
void dictionaries(std::string_view bytes) {
  static S const name = "atr_twin_" + std::to_string(std::random_device()());
  static S const path = (std::filesystem::temp_directory_path() / name).string();
  std::ofstream(path, std::ios::binary) << bytes;
  std::FILE* const file = atr::platform::openText(path.c_str());
  same(file != nullptr, true, "there is a temporary file: " + path);
  S const table = readDictionary(file);
  std::fclose(file);
  std::filesystem::remove(path);
  same(table, tableOf(bytes), "the table");
}

S repeated(S const& piece, int times) {
  S text;
  for (int k = 0; k < times; ++k) text += piece;
  return text;
}

struct Conversion {
  int target, source;
  char substitute;
  S text;
};

// A character at a time, by the rows of the two encodings.
void convert(Conversion const& c, auto const&... where) {
  int length = 0;
  bool fits = true;  // never more written than read
  S expected, failure;
  for (auto const* p = octets(c.text); failure.empty() && *p != 0; p += length) {
    unsigned char form[64];
    unsigned const code = atr_encoding_row(c.source).decode(p, &length);
    bool const isBad = code == UINT_MAX;
    int const n = isBad ? 0 : atr_encoding_row(c.target).encode(form, code);
    failure = isBad ? "-1" : n < 0 && c.substitute == 0 ? "-2" : "";
    if (failure.empty()) expected += n < 0 ? S(1, c.substitute) : S(form, form + n);
    fits = fits && expected.size() <= z(p - octets(std::string_view(c.text)) + length);
  }
  if (!failure.empty()) expected.resize(expected.find_last_not_of('\xFF') + 1);  // as it is told
  same(transcode(c.target, c.source, c.text, c.substitute), failure + expected, where...);
  S inPlace = c.text;
  if (fits && failure.empty()) {
    atr_encoding_transcode(c.target, octets(inPlace), c.source, octets(inPlace), nullptr,
                           c.substitute);
    same(upToNul(inPlace), upToNul(expected), "in place, ", where...);
  }
  auto const isInGap = [](unsigned char byte) { return byte > 0x7E && byte < 0xA0; };
  bool const isBad = c.source == EncodingSingleByte ? std::ranges::any_of(c.text, isInGap)
                                                    : c.source == EncodingNone || failure == "-1";
  if (failure != "-2")
    same(atr_encoding_validate(c.source, octets(c.text)) != 0, !isBad, "validated, ", where...);
}

// Each pair of encodings. The bytes stand alone, and behind and between others, which fast runs
// take by the block; the first block ends with the 66th byte.
void encodings(std::string_view bytes) {
  static S const fillers[] = {S(63, 'a'), "aa" + repeated("\xC3\xA9\x61", 11),
                              repeated("\xC3\xA9 \xE3\x81\x82", 11)};
  S const text = upToNul(bytes), &filler = fillers[bytes.size() % 3];
  S const around[][2] = {
      {"", ""}, {filler, bytes.size() % 2 == 0 ? filler : ""}, {filler, S(130, 'a')}};
  for (auto const& [before, behind] : around)
    for (int mode = 0; mode < 32; ++mode) {
      char const substitute = mode < 16 ? '\0' : '?';
      convert({mode % 4, mode / 4 % 4, substitute, before + text + behind}, "from encoding ",
              mode / 4 % 4, " to ", mode % 4, substitute == '?' ? " with a substitute, " : ", ",
              before.size(), " bytes before and ", behind.size(), " behind");
    }
}

// Line by line, which also decides on the room of the result.
Text breakLine(S const& text, std::size_t limit) {
  auto const isBlank = [&](std::size_t i) { return S(" \t\n\v\f\r").find(text[i]) != S::npos; };
  Text result;
  for (std::size_t at = 0, end = 0; at < text.size(); at = end) {
    if (at > 0 && (++at < text.size() || text.back() == '\n')) result.Append("\n");
    for (end = at; end - at < limit && end < text.size();)
      for (bool isInWord = false; end < text.size() && !(isInWord && isBlank(end));
           end += characterBytes(text, end))
        isInWord = !isBlank(end);
    result.append(text.data() + at, static_cast<int>(end - at), 0, INT_MAX);
  }
  return result;
}

// Two kinds of body have 244 bytes.
S roomOf(Text const& s) {
  bool const isInline = s.body == reinterpret_cast<char*>(s.rep + 1);
  return std::to_string(s.rep->size) + (isInline ? " inline" : " apart");
}

void lines(std::string_view bytes) {
  S const text(bytes);
  auto const exact = [](S const& t) { return Text(t.data(), static_cast<int>(t.size())); };
  Text const s = exact(text);
  for (std::size_t const limit : {0U, 1U, 2U, 3U, 8U, 72U}) {
    std::size_t const width = std::max<std::size_t>(limit, 1);
    bool const fits = text.size() <= width, isKept = fits || text.find('\n') != text.npos;
    S folded;
    for (std::size_t at = 0, end = 0; at < text.size(); at = end) {
      end = std::min(text.size(), text.find('\n', at)) + 1;
      S const line = text.substr(at, end - at);
      folded += line.size() <= width ? line : textOf(breakLine(line, width));
    }
    auto const check = [&](Text const& ours, bool isShared, Text const& expected, S const& what) {
      same(textOf(ours), textOf(expected), what, ", limit ", limit);
      same(ours.rep == s.rep, isShared, what, ", limit ", limit, ": the argument is the result");
      same(roomOf(ours), roomOf(expected), what, ", limit ", limit, ": the room of the result");
    };
    Text const line = fits ? s : breakLine(text, width);
    check(atr_String::BreakLineString(s, limit), fits, line, "BreakLineString");
    check(atr_String::AddLineBreaks(s, limit, false), fits, exact(folded), "AddLineBreaks");
    check(atr_String::AddLineBreaks(s, limit, true), isKept, isKept ? s : exact(textOf(line)),
          "AddLineBreaks of texts without breaks");
  }
}

std::vector<S> split(std::string_view bytes) {
  std::vector<S> parts(3);
  std::istringstream in(upToNul(bytes));
  for (S& part : parts) std::getline(in, part, &part == &parts[2] ? '\0' : '|');
  return parts;
}

// a|b|c: a total order has these laws.
void orders(std::string_view bytes) {
  auto const t = split(bytes);
  auto const order = [&](int i, int j) { return strnatcmp(t[z(i)].c_str(), t[z(j)].c_str()); };
  for (int i = 0; i < 9; ++i) {
    int const a = i % 3, b = i / 3, c = 3 - a - b;
    S const pair = '"' + t[z(a)] + "\" and \"" + t[z(b)] + '"';
    same(order(a, b), -order(b, a), pair, " from both sides");
    same(order(a, b) == 0, t[z(a)] == t[z(b)], pair, " are equal");
    bool const isRow = a != b && order(a, b) < 0 && order(b, c) < 0;
    if (isRow) same(order(a, c) < 0, true, pair, " and \"", t[z(c)], "\" rise in a row");
  }
}

void find(S const& needle, S const& hay, S const& ended) {
  Text const s(hay.c_str(), static_cast<int>(hay.size()));
  Text const cut(ended.data(), static_cast<int>(ended.size()));
  std::size_t const step = hay.size() < 600 ? 1 : 121;
  for (std::size_t pos = 0; pos <= hay.size() + 1; pos += step) {
    int const at = static_cast<int>(pos);
    auto const found = pos > hay.size() ? hay.npos : hay.find(needle, pos);
    auto const last = std::min(pos, hay.size() - (needle.empty() ? 1 : 0));
    auto const back = pos > 0 ? hay.rfind(needle, last) : hay.npos;
    same(z(s.Find(needle.c_str(), at)), std::min(found, hay.size()), "Find from ", pos);
    same(z(s.rfind(needle.c_str(), 1, at)), std::min(back, hay.size()), "rfind from ", pos);
    if (pos <= hay.size())
      same(z(cut.Find(needle.c_str(), at)), std::min(found, ended.size()), "Find from ", pos,
           " in a text that goes on behind a NUL");
  }
}

// While a summary is on, Substitute runs in passes. Otherwise it may sweep over the text once,
// which has to end with the same text in the same room.
void substitute(S const& needle, S const& to, S const& hay) {
  S expected = hay;
  for (int i = 0; i < 20 && !needle.empty() && expected.find(needle) != hay.npos; ++i)
    expected.replace(expected.find(needle), needle.size(), to);
  Text swept(hay.c_str(), static_cast<int>(hay.size())), passed(hay.c_str());
  swept.Substitute(needle.c_str(), to.c_str(), 20);
  atr_StringSummary record{};
  atr_summary = &record;
  passed.Substitute(needle.c_str(), to.c_str(), 20);
  atr_summary = nullptr;
  same(textOf(swept), expected, "Substitute by a sweep");
  same(textOf(passed), expected, "Substitute by passes");
  if (passed.rep != nullptr) same(roomOf(swept), roomOf(passed), "the room after Substitute");
}

// needle|to|hay, with nothing around the hay, and with what makes it long.
void searches(std::string_view bytes) {
  auto const parts = split(bytes);
  for (S const& filler : {S(), S(600, 'x')}) {
    S const hay = filler + parts[2] + filler;
    find(parts[0], hay, hay + '\0' + parts[0] + filler);
    substitute(parts[0], parts[1], hay);
  }
}

// What the bytes of a step choose: a string with its model, another one, and numbers.
struct Step {
  atr_String& s;
  atr_String const& t;
  S& model;
  S const other;
  int p, from, n;                // as the library gets them, possibly far outside
  std::size_t at, start, count;  // as they are cut to the texts
  int length() const { return static_cast<int>(other.size()); }
  S piece() const { return other.substr(start, count); }
};

struct Edit {
  char const* what;
  void (*ours)(Step const& x);
  void (*plain)(Step const& x);
};

constexpr Edit kEdits[] = {
    {"assign", [](Step const& x) { x.s = x.t; }, [](Step const& x) { x.model = x.other; }},
    {"append", [](Step const& x) { x.s.append(x.t.c_str(), x.length(), x.from, x.n); },
     [](Step const& x) { x.model += x.piece(); }},
    {"insert", [](Step const& x) { x.s.insert(x.p, x.t.c_str(), x.length(), x.from, x.n); },
     [](Step const& x) { x.model.insert(x.at, x.piece()); }},
    {"replace", [](Step const& x) { x.s.replace(x.p, 3, x.t.c_str(), x.length(), x.from, x.n); },
     [](Step const& x) { x.model.replace(x.at, 3, x.piece()); }},
    {"a new text", [](Step const& x) { x.s = x.n > 2 ? "Seed Text" : nullptr; },
     [](Step const& x) { x.model = x.n > 2 ? "Seed Text" : ""; }},
    {"Erase", [](Step const& x) { x.s.Erase(x.p, x.n); },
     [](Step const& x) { x.model.erase(x.at, x.count); }},
    {"Substr", [](Step const& x) { x.s = x.t.Substr(z(std::max(x.from, 0)), x.count); },
     [](Step const& x) { x.model = x.piece(); }},
    {"+", [](Step const& x) { x.s = x.s + x.t; }, [](Step const& x) { x.model += x.other; }},
    {"a character",
     [](Step const& x) {
       if (z(x.p) < x.model.size()) x.s[x.p] = '!';
     },
     [](Step const& x) {
       if (z(x.p) < x.model.size()) x.model[x.at] = '!';
     }},
    {"Trim", [](Step const& x) { x.s.Trim(x.t.c_str()); },
     [](Step const& x) {
       std::erase_if(x.model, [&](char c) { return x.other.find(c) != S::npos; });
     }},
    {"LeftTrim", [](Step const& x) { x.s.LeftTrim(x.t.c_str()); },
     [](Step const& x) { x.model.erase(0, x.model.find_first_not_of(x.other)); }},
    {"RightTrim", [](Step const& x) { x.s.RightTrim(x.t.c_str()); },
     [](Step const& x) { x.model.erase(x.model.find_last_not_of(x.other) + 1); }},
    {"Reverse", [](Step const& x) { x.s.Reverse(); },
     [](Step const& x) { std::ranges::reverse(x.model); }},
    {"Capitalize", [](Step const& x) { x.s.Capitalize(); },
     [](Step const& x) { x.model[0] = static_cast<char>(std::toupper(x.model[0])); }},
    {"Uncapitalize", [](Step const& x) { x.s.Uncapitalize(); },
     [](Step const& x) { x.model[0] = static_cast<char>(std::tolower(x.model[0])); }},
    {"a text of its own", [](Step const& x) { x.s = x.t.c_str() + x.start; },
     [](Step const& x) { x.model = x.other.substr(x.start); }},
};

// Four bytes a step, on a few strings that share and alias each other.
void strings(std::string_view bytes) {
  atr_String ours[4];
  S models[4];
  for (std::size_t i = 0; i + 4 <= bytes.size() && i < 4000; i += 4) {
    auto const byte = [&](std::size_t k, std::size_t below) {
      return static_cast<unsigned short>(static_cast<unsigned char>(bytes[i + k]) % below);
    };
    auto const place = [&](std::size_t k, std::size_t below) -> int {  // or far outside
      constexpr int kOutside[] = {INT_MIN, -1, INT_MAX};
      return byte(k, 64) > 2 ? byte(k, below) : kOutside[byte(k, 64)];
    };
    int const one = byte(0, 4), two = byte(0, 16) / 4;
    S& model = models[one];
    S const& other = models[two];
    int const p = place(1, model.size() + 1), from = place(2, other.size() + 1), n = place(3, 40);
    auto const cut = [](int number, S const& text) {
      return std::clamp<std::ptrdiff_t>(number, 0, std::ssize(text));
    };
    Step const step = {
        .s = ours[one],
        .t = ours[two],
        .model = model,
        .other = other,
        .p = p,
        .from = from,
        .n = n,
        .at = z(cut(p, model)),
        .start = z(cut(from, other)),
        .count = z(std::max(n, 0)),
    };
    Edit const& edit = kEdits[model.size() > 500 ? 4 : byte(0, 256) / 16];
    S const where = written("step ", i / 4, ", ", edit.what, ": string ", one, " at ", p,
                            ", string ", two, " from ", from, ", count ", n, "; ");
    same(std::as_const(ours[one])[p], z(p) < model.size() ? model[z(p)] : '\0', where, "character");
    same(ours[one].SubstrLength(p, n),
         std::clamp(0LL + std::ssize(model) - p, 0LL + INT_MIN, 0LL + n), where, "SubstrLength");
    edit.ours(step);
    edit.plain(step);
    for (int k = 0; k < 4; ++k) same(textOf(ours[k]), models[k], where, "then string ", k);
  }
}

// Two bytes a step. The newest slab first: its block of the class that was released last, or else
// what is left behind its blocks, but for the last word.
void pools(std::string_view bytes) {
  struct Slab {
    int *start, *top;
    std::vector<int*> released[6];
  };
  constexpr int kWords = 1996 / 4 - 4 - 6;  // whole units, so that the last word counts
  atr_Allocator pool(12, 5, 1996);
  std::list<Slab> slabs;
  std::map<int*, std::pair<int, Slab*>> blocks;
  for (std::size_t i = 0; i + 2 <= bytes.size(); i += 2) {
    int const step = octets(bytes)[i], c = step % 6, words = 3 * (c + 1);
    S const where =
        written("step ", i / 2, ", ", blocks.size(), " blocks in ", slabs.size(), " slabs, ");
    if (step < 140) {
      auto* const block = static_cast<int*>(pool.Allocate(c));
      auto const fits = [&](Slab& s) {
        return !s.released[c].empty() || s.top + words < s.start + kWords;
      };
      auto slab = std::find_if(slabs.begin(), slabs.end(), fits);
      if (slab == slabs.end()) slab = slabs.insert(slabs.begin(), {block, block, {}});
      auto& released = slab->released[c];
      auto* const expected = released.empty() ? slab->top : released.back();
      same(block - slab->start, expected - slab->start, where, "Allocate(", c,
           "): the word of the slab where the block begins");
      if (released.empty()) {
        slab->top += words;
      } else {
        released.pop_back();
      }
      blocks[block] = {c, &*slab};
    } else if (!blocks.empty()) {
      auto& [block, home] = *std::next(blocks.begin(), octets(bytes)[i + 1] % long(blocks.size()));
      auto& [own, slab] = home;
      int const wanted = step % 9 - 1, extra = 3 * (wanted - own);
      bool const isLast = block + 3 * (own + 1) == slab->top;
      bool const fits = slab->top + extra < slab->start + kWords;
      bool const grows = isLast && fits && extra > 0 && wanted < 6;
      same(pool.Extend(block, own, wanted), grows || extra == 0, where, "Extend from class ", own,
           " to ", wanted, isLast ? ", the slab's last block" : "");
      if (grows) {
        slab->top += extra;
        own = wanted;
      }
      if (grows || step % 2 == 0) continue;
      bool const isLost = step % 5 == 0;  // released in no class, it is not given again
      pool.Release(block, isLost ? -1 : own);
      if (!isLost) slab->released[own].push_back(block);
      blocks.erase(block);
    }
  }
  void* const foreign = ::operator new(8);
  bool const isExtended = pool.Extend(foreign, 0, 1) || pool.Extend(foreign, -1, 3);
  pool.Release(foreign, 0);
  pool.Release(::operator new(8), 99);
  pool.Release(nullptr, 0);
  same(isExtended, false, "a block that is not the pool's is extended");
}

}  // namespace

S test::picture(TranslationTable const& table) {
  S picture;
  for (int i = 0; i < table.count; ++i) {
    auto const& [key, text] = table.entries[i];
    auto const order = i + 1 < table.count ? std::strcmp(key, table.entries[i + 1].key) : -1;
    same(order <= 0, true, "the key ", key, " is sorted");
    if (order != 0) same(S(table.find(key)), text, "the last text of the key ", key);
    picture += "{" + S(key) + "=" + text + "}";
  }
  return picture;
}

S test::readDictionary(std::FILE* file) {
  auto const before = mem_status().blocksInUse;
  atr_trReadDictionary(file);
  atr_trTable.sort();
  std::unique_ptr<TranslationTable, void (*)(void*)> release(&atr_trTable,
                                                             [](void*) { atr_trReleaseDB(); });
  S const table = picture(atr_trTable);
  release.reset();
  same(mem_status().blocksInUse, before, "the blocks after the release of the table");
  return table;
}

S test::transcode(int target, int source, S const& text, char substitute) {
  S out(8 * text.size() + 17, '\xFF');
  auto const run = [&](unsigned char* to) {
    return atr_encoding_transcode(target, to, source, octets(text), nullptr, substitute);
  };
  int const bytes = run(nullptr);
  same(run(octets(out) + 8), bytes, "bytes written, and measured");
  same(out.substr(0, 8), S(8, '\xFF'), "the bytes before the output");
  S result = out.substr(8);
  result.resize(result.find_last_not_of('\xFF') + 1);
  if (bytes < 0) return std::to_string(bytes) + result;
  same(result.size(), z(bytes) + 1, "the bytes of the output with its NUL");
  same(result.back(), '\0', "the last byte of the output");
  result.pop_back();
  return result;
}

std::span<Twin const> test::twins() {
  static Twin const all[] = {
      {"templates", templates, {"%", "%1$", "%3$d", "%s", "2", "$", "s", "y", "-l"}, 5},
      {"fields", fields, {"-", ".", "0", "5", "s", "l", " "}, 6},
      {"numbers", numbers, {"-", ".", "0", "5", "l", "13", "2147483648"}, 3},
      {"exponents", exponents, {"e", "+", "0", "1", " "}, 6},
      {"escapes",
       escapes,
       {"\\", "x", "0", "7", "8", "9", "g", "\xE9", R"(\"\'\\\a\b\f\n\r\t\v)"},
       5},
      {"dictionaries",
       dictionaries,
       {"['a", "'] = r'", "'\n", "'\r\n", "\n", "\\n", "\\xE9", "\\0", "\xC3\xA9", "\xC4\x80",
        "\xC0\x80", "\xFF", "'", "b"},
       3},
      {"encodings",
       encodings,
       {"a", "\xC1\xBF", "\xE0\x9F\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xED\xA0\x80",
        "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x90\x80\x80", "\x8F\xB0\xA1", "\xC0\x80", "\xC3",
        "\xC4\x80", "\xE3\x81", "\x81", "\xFF"},
       3},
      {"lines", lines, {"a", " ", "\n", "\x83", "\x5C", "wwwwwww"}, 5},
      {"orders", orders, {"0", "9", "a", "|", "\xE9"}, 7},
      {"searches", searches, {"a", "b", "|", "aaaaaaa"}, 7},
      {"strings", strings, {}, 0},
      {"pools", pools, {}, 0},
  };
  return all;
}
