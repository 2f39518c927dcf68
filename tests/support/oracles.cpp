#include "support/oracles.h"

#include <algorithm>
#include <cstdlib>
#include <regex>

namespace {

bool isIn(char c, char const* set) {
  return c != '\0' && std::string(set).find(c) != std::string::npos;
}

std::size_t run(std::string const& s, std::size_t from, char const* set) {
  std::size_t const end = s.find_first_not_of(set, from);
  return end == std::string::npos ? s.size() : end;
}

}  // namespace

std::string test::decodeEscapes(std::string const& text) {
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

std::string test::formatMessage(std::string const& s, std::vector<std::string> const& values) {
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

std::string test::fitField(std::string const& text, std::string const& format) {
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

std::string test::breakLine(std::string const& text, std::size_t limit, CharacterStep const& step) {
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
