#include "support/twins.h"

#include <cmath>
#include <list>
#include <map>
#include <numeric>
#include <regex>
#include <sstream>
#include <stdexcept>

using namespace test;

std::size_t test::characterBytes(S const& s, std::size_t at) {
  std::mblen(nullptr, 0);
  int const n = std::mblen(s.c_str() + at, std::min<std::size_t>(4, s.size() - at));
  return n > 1 && s.find('\0', at) >= at + z(n) ? z(n) : 1;
}

namespace {

void require(bool holds, S const& what) { holds ? void() : throw std::logic_error(what); }

void same(S const& ours, S const& expected, std::string_view what) {
  require(ours == expected, S(what) + ": \"" + ours + "\", not \"" + expected + "\"");
}

S upToNul(std::string_view bytes) { return S(bytes.substr(0, bytes.find('\0'))); }

S formatMessage(S const& s, std::vector<S> const& values) {
  using Slot = std::pair<long long, std::size_t>;  // its number, -1 for none, and its piece
  static std::regex const item(R"([^%]|%(?:(\d*)\$|(?!\d*\$))[\dl.-]*([^\dl.-]))");
  std::vector<S> pieces(1);
  std::vector<Slot> slots;
  std::sregex_iterator m(s.begin(), s.end(), item, std::regex_constants::match_continuous), end;
  for (; m != end; ++m) {
    S const number = m->str(1), letter(1, m->str().back());
    bool const isText = m->length() == 1 || S("EXcdefgosux").find(letter) == S::npos;
    long long const most = INT_MAX, n = std::strtoll(number.c_str(), nullptr, 10);
    if (!isText) slots.emplace_back(number.empty() ? -1 : std::min(most, n), pieces.size());
    isText ? void(pieces.back() += letter) : pieces.resize(pieces.size() + 2);
  }
  auto const find = [&](long long n) { return std::ranges::find(slots, n, &Slot::first); };
  for (long long n = 1; find(-1) != slots.end(); ++n)  // the lowest free to the leftmost without
    if (find(n) == slots.end()) find(-1)->first = n;
  std::size_t gap = std::ranges::is_sorted(slots, {}, &Slot::first) ? 0 : slots.size() / 2;
  for (; gap > 0; gap /= 2)  // equal numbers end as these steps leave them
    for (std::size_t i = gap; i < slots.size(); ++i)
      for (std::size_t j = i; j >= gap && slots[j - gap].first > slots[j].first; j -= gap)
        std::swap(slots[j - gap], slots[j]);
  for (std::size_t k = 0; k < std::min(values.size(), slots.size()); ++k)
    pieces[slots[k].second] = values[k];
  return std::accumulate(pieces.begin(), pieces.end(), S());
}

void templates(std::string_view bytes) {
  static std::vector<S> const values = {"<1>", "<2>", "%s", "<4>", "%1$d"};
  S const text = upToNul(bytes);
  atr_translate message(text.c_str());
  for (int k = 0; k < 5; ++k) message.AddSubstitution(k + 1, values[z(k)].c_str(), nullptr);
  same(message.Result().c_str(), formatMessage(atr_raw(text.c_str()).c_str(), values), text);
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
  same(message.Result().c_str(), conversion[1] == 's' ? "abc" : expected, conversion);
}

int (*const printTo)(char*, std::size_t, char const*, ...) = std::snprintf;  // with any format

S print(S const& form, auto value) {
  char text[1500];
  return printTo(text, sizeof text, form.c_str(), value), text;
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
      same(message.Result().c_str(), expected, text);
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
  same(text.c_str(), expected, bytes);
}

void escapes(std::string_view bytes) {
  static std::regex const item(
      R"(\\(["'\\abfnrtv])|\\([0-7]{1,3})|\\x[\da-fA-F]*?([\da-fA-F]{1,2})(?![\da-fA-F])|\\?[^])");
  S text = upToNul(bytes), expected;
  for (std::sregex_iterator m(text.begin(), text.end(), item), end; m != end; ++m) {
    auto const code = [&](std::size_t i, int base) {
      return S(1, static_cast<char>(std::stoi(m->str(i), nullptr, base)));
    };
    expected += (*m)[1].matched   ? S(1, "\"'\\\a\b\f\n\r\t\v"[S("\"'\\abfnrtv").find(m->str(1))])
                : (*m)[2].matched ? code(2, 8)
                : (*m)[3].matched ? code(3, 16)
                                  : m->str();
  }
  atr_trDecodeEscapes(text.data());
  same(text.c_str(), upToNul(expected), bytes);
}

void dictionaries(std::string_view bytes) {
  std::FILE* const file = std::tmpfile();
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::rewind(file);
  readDictionary(file);
  std::fclose(file);
}

// Also behind others, and before them or not, as the fast runs take them by the block, the first of
// which ends with the 66th byte.
void encodings(std::string_view bytes) {
  S fillers[] = {S(63, 'a'), "aa", ""};
  while (fillers[2].size() < 61)
    fillers[1] +=
        "\xC3\xA9"
        "a",
        fillers[2] += "\xC3\xA9 \xE3\x81\x82";
  for (int mode = 0; mode < 96; ++mode) {
    S const filler = mode < 32 ? "" : fillers[bytes.size() % 3];
    S const tail = mode >= 64 ? S(130, 'a') : bytes.size() % 2 == 0 ? filler : "";
    S const text = filler + upToNul(bytes) + tail;
    int const target = mode % 4, source = mode / 4 % 4, substitute = mode / 16 % 2 * '?';
    int length = 0;
    bool fits = true;  // never more written than read
    S expected, failure;
    for (auto const* p = octets(text); failure.empty() && *p != 0; p += length) {
      unsigned char form[64];  // a character at a time, by its rows
      unsigned const code = atr_encoding_row(source).decode(p, &length);
      int const n = code + 1 == 0 ? 0 : atr_encoding_row(target).encode(form, code);
      failure = code + 1 == 0 ? "-1" : n < 0 && substitute == 0 ? "-2" : "";
      form[0] = n < 0 ? static_cast<unsigned char>(substitute) : form[0];
      if (failure.empty()) expected.append(form, form + (n < 0 ? 1 : n));
      fits = fits && expected.size() <= z(p - octets(std::string_view(text)) + length);
    }
    if (!failure.empty()) expected.resize(expected.find_last_not_of('\xFF') + 1);  // as it is told
    same(transcode(target, source, text, static_cast<char>(substitute)), failure + expected, text);
    S inPlace = text;
    if (fits && failure.empty()) {
      atr_encoding_transcode(target, octets(inPlace), source, octets(inPlace), nullptr,
                             static_cast<char>(substitute));
      same(inPlace.c_str(), expected.c_str(), "in place: " + text);
    }
    auto const isInGap = [](unsigned char c) { return c > 0x7E && c < 0xA0; };
    bool const isBad = source == EncodingSingleByte ? std::ranges::any_of(text, isInGap)
                                                    : source == EncodingNone || failure == "-1";
    require(failure == "-2" || atr_encoding_validate(source, octets(text)) != isBad, text);
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
    auto const check = [&](Text const& ours, bool isShared, Text const& expected) {
      same(textOf(ours), textOf(expected), text);
      require((ours.rep == s.rep) == isShared, text);
      same(roomOf(ours), roomOf(expected), text);
    };
    Text const line = fits ? s : breakLine(text, width);
    check(atr_String::BreakLineString(s, limit), fits, line);
    check(atr_String::AddLineBreaks(s, limit, false), fits, exact(folded));
    check(atr_String::AddLineBreaks(s, limit, true), isKept, isKept ? s : exact(textOf(line)));
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
    require(order(a, b) == -order(b, a), "both sides");
    require((order(a, b) == 0) == (t[z(a)] == t[z(b)]), "equal texts only");
    if (a != b) require(order(a, b) >= 0 || order(b, c) >= 0 || order(a, c) < 0, "in a row");
  }
}

// needle|to|hay. What sweeps replace is what the passes come to that run while the summary is on,
// with the room that they end in.
void search(std::string_view bytes, S const& filler) {
  auto const parts = split(bytes);
  S const &needle = parts[0], &to = parts[1];
  S hay = filler + parts[2] + filler, ended = hay + '\0' + needle + filler;
  int const len = static_cast<int>(hay.size());
  Text s(hay.c_str(), len), passed(s.c_str());
  Text const cut(ended.data(), static_cast<int>(ended.size()));
  for (std::size_t pos = 0; pos <= hay.size() + 1; pos += 1 + filler.size() / 5) {
    int const at = static_cast<int>(pos);
    auto const found = pos > hay.size() ? hay.npos : hay.find(needle, pos);
    auto const last = std::min(pos, hay.size() - (needle.empty() ? 1 : 0));
    auto const back = pos > 0 ? hay.rfind(needle, last) : hay.npos;
    require(z(s.Find(needle.c_str(), at)) == std::min(found, hay.size()), hay + " Find " + needle);
    require(at > len || z(cut.Find(needle.c_str(), at)) == std::min(found, ended.size()), "NUL");
    require(z(s.rfind(needle.c_str(), 1, at)) == std::min(back, hay.size()), hay + " rfind");
  }
  for (int i = 0; i < 20 && !needle.empty() && hay.find(needle) != hay.npos; ++i)
    hay.replace(hay.find(needle), needle.size(), to);
  same(textOf(s.Substitute(needle.c_str(), to.c_str(), 20)), hay, bytes);
  atr_StringSummary record{};
  atr_summary = &record;
  same(textOf(passed.Substitute(needle.c_str(), to.c_str(), 20)), hay, bytes);
  atr_summary = nullptr;
  if (passed.rep != nullptr) same(roomOf(s), roomOf(passed), hay);
}

void searches(std::string_view bytes) { search(bytes, ""), search(bytes, S(600, 'x')); }

// Four bytes a step, on a few strings that share and alias each other.
void strings(std::string_view bytes) {
  atr_String ours[4];
  S models[4];
  for (std::size_t i = 0; i + 4 <= bytes.size() && i < 4000; i += 4) {
    auto const byte = [&](std::size_t k, std::size_t below) {
      return static_cast<unsigned short>(static_cast<unsigned char>(bytes[i + k]) % below);
    };
    auto const place = [&](std::size_t k, std::size_t below) {  // or far outside
      int const chance = byte(k, 64);
      return chance > 2 ? byte(k, below) : chance == 0 ? INT_MIN : chance == 1 ? -1 : INT_MAX;
    };
    atr_String &s = ours[byte(0, 4)], &t = ours[byte(0, 16) / 4];
    S &m = models[byte(0, 4)], other = models[byte(0, 16) / 4];
    int const p = place(1, m.size() + 1), from = place(2, other.size() + 1), n = place(3, 40);
    int const choice = m.size() > 500 ? 4 : byte(0, 256) / 16;
    int const length = static_cast<int>(other.size());
    auto const at = z(std::clamp(p, 0, static_cast<int>(m.size()))), count = z(std::max(n, 0));
    auto const start = z(std::clamp(from, 0, length));
    S const piece = other.substr(start, count);
    require(static_cast<atr_String const&>(s)[p] == (z(p) < m.size() ? m[z(p)] : '\0'),
            "character");
    require(s.SubstrLength(p, n) == std::clamp(0LL + std::ssize(m) - p, 0LL + INT_MIN, 0LL + n),
            "room");
    if (choice == 0) s = t, m = other;
    if (choice == 1) s.append(t.c_str(), length, from, n), m += piece;
    if (choice == 2) s.insert(p, t.c_str(), length, from, n), m.insert(at, piece);
    if (choice == 3) s.replace(p, 3, t.c_str(), length, from, n), m.replace(at, 3, piece);
    if (choice == 4) s = n > 2 ? "Seed Text" : nullptr, m = n > 2 ? "Seed Text" : "";
    if (choice == 5) s.Erase(p, n), m.erase(at, count);
    if (choice == 6) s = t.Substr(z(std::max(from, 0)), count), m = piece;
    if (choice == 7) s = s + t, m += other;
    if (choice == 8 && z(p) < m.size()) s[p] = m[z(p)] = '!';
    for (char const c : choice == 9 ? (s.Trim(t.c_str()), other) : "") std::erase(m, c);
    if (choice == 10) s.LeftTrim(t.c_str()), m.erase(0, m.find_first_not_of(other));
    if (choice == 11) s.RightTrim(t.c_str()), m.erase(m.find_last_not_of(other) + 1);
    if (choice == 12) s.Reverse(), std::reverse(m.begin(), m.end());
    if (choice == 13) s.Capitalize(), m[0] = static_cast<char>(std::toupper(m[0]));
    if (choice == 14) s.Uncapitalize(), m[0] = static_cast<char>(std::tolower(m[0]));
    if (choice == 15) s = t.c_str() + start, m = other.substr(start);
    for (int k = 0; k < 4; ++k) same(textOf(ours[k]), models[k], "step " + std::to_string(i / 4));
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
    if (step < 140) {
      auto* const block = static_cast<int*>(pool.Allocate(c));
      auto const fits = [&](Slab& s) {
        return !s.released[c].empty() || s.top + words < s.start + kWords;
      };
      auto slab = std::find_if(slabs.begin(), slabs.end(), fits);
      if (slab == slabs.end()) slab = slabs.insert(slabs.begin(), {block, block, {}});
      auto& released = slab->released[c];
      require(block == (released.empty() ? slab->top : released.back()), "place");
      released.empty() ? void(slab->top += words) : released.pop_back();
      blocks[block] = {c, &*slab};
    } else if (!blocks.empty()) {
      auto& [block, home] = *std::next(blocks.begin(), octets(bytes)[i + 1] % long(blocks.size()));
      auto& [own, slab] = home;
      int const wanted = step % 9 - 1, extra = 3 * (wanted - own);
      bool const isLast = block + 3 * (own + 1) == slab->top,
                 fits = slab->top + extra < slab->start + kWords;
      bool const grows = isLast && fits && extra > 0 && wanted < 6;
      require(pool.Extend(block, own, wanted) == (grows || extra == 0), "extended");
      if (grows) slab->top += extra, own = wanted;
      if (grows || step % 2 == 0) continue;
      bool const isLost = step % 5 == 0;  // released in no class, it is not given again
      pool.Release(block, isLost ? -1 : own);
      if (!isLost) slab->released[own].push_back(block);
      blocks.erase(block);
    }
  }
  void* const foreign = ::operator new(8);
  require(!pool.Extend(foreign, 0, 1) && !pool.Extend(foreign, -1, 3), "not the pool's");
  pool.Release(foreign, 0), pool.Release(::operator new(8), 99), pool.Release(nullptr, 0);
}

}  // namespace

S test::picture(TranslationTable const& table) {
  S picture;
  for (int i = 0; i < table.count; ++i) {
    auto const& [key, text] = table.entries[i];
    auto const order = i + 1 < table.count ? std::strcmp(key, table.entries[i + 1].key) : -1;
    require(order <= 0, "sorted");
    require(order == 0 || S(atr_trFind(key)) == text, "the last of equals is found");
    picture += "{" + S(key) + "=" + text + "}";
  }
  return picture;
}

S test::readDictionary(std::FILE* file) {
  atr_trReadDictionary(file);
  atr_trSort();
  S const table = picture(atr_trTable);
  atr_trReleaseDB();
  require(mem_status().blocksInUse == 0, "blocks lost");
  return table;
}

S test::transcode(int target, int source, S const& text, char substitute) {
  S out(8 * text.size() + 17, '\xFF');
  auto const run = [&](unsigned char* to) {
    return atr_encoding_transcode(target, to, source, octets(text), nullptr, substitute);
  };
  int const bytes = run(nullptr);
  require(run(octets(out) + 8) == bytes && out.starts_with(S(8, '\xFF')), text);
  S written = out.substr(8);
  written.resize(written.find_last_not_of('\xFF') + 1);
  require(bytes < 0 || (written.size() == z(bytes) + 1 && written.back() == '\0'), text);
  return bytes < 0 ? std::to_string(bytes) + written : written.substr(0, z(bytes));
}

// clang-format off
Twin const test::kTwins[12] = {
    {"templates", templates, {"%", "%1$", "%3$d", "%s", "2", "$", "s", "y", "-l"}, 5},
    {"fields", fields, {"-", ".", "0", "5", "s", "l", " "}, 6}, {"numbers", numbers, {"-", ".", "0", "5", "l", "13", "2147483648"}, 3},
    {"exponents", exponents, {"e", "+", "0", "1", " "}, 6}, {"escapes", escapes, {"\\", "x", "0", "7", "8", "9", "f", "g", "n", "\xE9"}, 5},
    {"dictionaries", dictionaries, {"['", "'] = r'", "'", "\n", "\r\n", "\\n", "\\101", "\xC3\xA9", "a", "b"}, 3},
    {"encodings", encodings, {"a", "\xC1\xBF", "\xE0\x9F\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xED\xA0\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80",
                             "\xF4\x90\x80\x80", "\x8F\xB0\xA1", "\xC0\x80", "\xC3", "\xC4\x80", "\xE3\x81", "\x81", "\xFF"}, 3},
    {"lines", lines, {"a", " ", "\n", "\x83", "\x5C", "wwwwwww"}, 5}, {"orders", orders, {"0", "9", "a", "|", "\xE9"}, 7},
    {"searches", searches, {"a", "b", "|", "aaaaaaa"}, 7}, {"strings", strings, {}, 0}, {"pools", pools, {}, 0}};
// clang-format on
