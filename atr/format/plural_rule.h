// The rule that gives a number its plural form, as translators write it in `Plural-Forms`. It is
// read and worked out in one pass, without memory, since a dictionary can change at any time.
//
// What is in namespace atr::detail may change with any version.
#ifndef ATR_FORMAT_PLURAL_RULE_H
#define ATR_FORMAT_PLURAL_RULE_H

#include "atr/format/template_grammar.h"
#include "atr/frame/export.h"

namespace atr {
namespace detail {
inline namespace ATR_HEADER_VERSION {

/// Why a rule has no form for a number.
enum class PluralFault {
  kNone,
  kSyntax,
  kTooLong,
  kTooDeep,
  kDivisionByZero,
  kBadIndex  ///< negative, or not below the number of forms
};

/// What a rule says about one number.
struct PluralForm {
  int index;  ///< of the form, from 0; -1 if there is a fault
  PluralFault fault;
  char const* at;  ///< where in the rule the fault was noticed
};

/// A rule over the variable `n`:
///
///     rule        = [ "Plural-Forms" ":" ] [ "nplurals" "=" digits ";" ] [ "plural" "=" ]
///                   conditional [ ";" ]
///     conditional = binary [ "?" conditional ":" conditional ]
///     binary      = operands and the operators of C: || && == != < > <= >= + - * / %
///     operand     = { "!" } ( "n" | digits | "(" conditional ")" )
///
/// Numbers are unsigned and have 64 bits, as translators are used to. The sides of `?`, `&&` and
/// `||` that do not count are read but may divide by zero.
class PluralRule {
 public:
  static constexpr int kMaxBytes = 1000;  ///< the longest known rule has about 130
  static constexpr int kMaxDepth = 50;    ///< of parentheses and conditions within each other
  static constexpr int kMaxForms = 100;   ///< the most that any language has is 6

  /// @param begin, end the rule; borrowed as long as the object is in use.
  constexpr PluralRule(char const* begin, char const* end) noexcept
      : begin_(begin), end_(end), p_(begin) {}

  /// The form for `n`. O(bytes of the rule). A syntax error is a fault for every `n`; a division
  /// by zero or a bad index is one for those that lead to it.
  constexpr PluralForm formFor(unsigned long long n) noexcept {
    p_ = begin_;
    n_ = n;
    depth_ = 0;
    forms_ = kMaxForms;
    fault_ = PluralFault::kNone;
    if (end_ - begin_ > kMaxBytes) fail(PluralFault::kTooLong);
    readHeader();
    Number const index = conditional(true);
    accept(";");
    skipBlanks();
    if (p_ != end_) fail(PluralFault::kSyntax);
    if (index >= forms_) fail(PluralFault::kBadIndex);
    bool const isGood = fault_ == PluralFault::kNone;
    return {isGood ? static_cast<int>(index) : -1, fault_, faultAt_};
  }

  /// The number of forms that `nplurals` tells, or kMaxForms without one. @pre formFor was called.
  constexpr int forms() const noexcept { return static_cast<int>(forms_); }

 private:
  using Number = unsigned long long;

  struct Operator {
    char const* text;
    int precedence;
  };
  // Those of two characters come first, since the others begin like them.
  static constexpr Operator kOperators[] = {{"||", 1}, {"&&", 2}, {"==", 3}, {"!=", 3}, {"<=", 4},
                                            {">=", 4}, {"<", 4},  {">", 4},  {"+", 5},  {"-", 5},
                                            {"*", 6},  {"/", 6},  {"%", 6}};

  // The first fault counts. Nothing is left to read then, so that every loop ends.
  constexpr void fail(PluralFault fault) noexcept {
    if (fault_ == PluralFault::kNone) {
      fault_ = fault;
      faultAt_ = p_;
    }
    p_ = end_;
  }

  constexpr void skipBlanks() noexcept {
    while (p_ != end_ && (*p_ == ' ' || (*p_ >= '\t' && *p_ <= '\r'))) ++p_;
  }

  constexpr bool accept(char const* word) noexcept {
    skipBlanks();
    char const* q = p_;
    for (; *word != '\0'; ++word, ++q) {
      if (q == end_ || *q != *word) return false;
    }
    p_ = q;
    return true;
  }

  constexpr void expect(char const* word) noexcept {
    if (!accept(word)) fail(PluralFault::kSyntax);
  }

  constexpr void readHeader() noexcept {
    if (accept("Plural-Forms")) expect(":");
    if (accept("nplurals")) {
      expect("=");
      skipBlanks();
      forms_ = digits();
      if (forms_ < 1 || forms_ > kMaxForms) fail(PluralFault::kBadIndex);
      expect(";");
    }
    if (accept("plural")) expect("=");
  }

  constexpr Number digits() noexcept {
    constexpr Number kMax = ~Number{0};
    if (p_ == end_ || !isDigit(*p_)) {
      fail(PluralFault::kSyntax);
      return 0;
    }
    Number value = 0;
    for (; p_ != end_ && isDigit(*p_); ++p_) {
      Number const digit = static_cast<Number>(*p_ - '0');
      if (value > (kMax - digit) / 10) {
        fail(PluralFault::kSyntax);
        return 0;
      }
      value = value * 10 + digit;
    }
    return value;
  }

  constexpr Number operand(bool isLive) noexcept {
    bool hasNot = false;
    bool isNegated = false;
    for (; accept("!"); isNegated = !isNegated) hasNot = true;
    Number value = 0;
    if (accept("n")) {
      value = n_;
    } else if (accept("(")) {
      value = conditional(isLive);
      expect(")");
    } else {
      value = digits();
    }
    return hasNot ? static_cast<Number>((value != 0) != isNegated) : value;
  }

  constexpr Operator const* acceptOperator(int least) noexcept {
    for (Operator const& candidate : kOperators) {
      char const* const before = p_;
      if (!accept(candidate.text)) continue;
      if (candidate.precedence >= least) return &candidate;
      p_ = before;
      return nullptr;
    }
    return nullptr;
  }

  constexpr Number binary(int least, bool isLive) noexcept {
    Number left = operand(isLive);
    while (Operator const* const op = acceptOperator(least)) {
      bool const isDecided = (op->text[0] == '|' && left != 0) || (op->text[0] == '&' && left == 0);
      Number const right = binary(op->precedence + 1, isLive && !isDecided);
      left = isLive ? result(*op, left, right) : 0;
    }
    return left;
  }

  constexpr Number result(Operator const& op, Number left, Number right) noexcept {
    bool const orEqual = op.text[1] == '=';
    switch (op.text[0]) {
      case '|':
        return left != 0 || right != 0 ? 1 : 0;
      case '&':
        return left != 0 && right != 0 ? 1 : 0;
      case '=':
        return left == right ? 1 : 0;
      case '!':
        return left != right ? 1 : 0;
      case '<':
        return left < right || (orEqual && left == right) ? 1 : 0;
      case '>':
        return left > right || (orEqual && left == right) ? 1 : 0;
      case '+':
        return left + right;
      case '-':
        return left - right;
      case '*':
        return left * right;
      default:
        break;
    }
    if (right != 0) return op.text[0] == '/' ? left / right : left % right;
    fail(PluralFault::kDivisionByZero);
    return 0;
  }

  constexpr Number conditional(bool isLive) noexcept {
    if (++depth_ > kMaxDepth) fail(PluralFault::kTooDeep);
    Number value = binary(1, isLive);
    if (accept("?")) {
      bool const isFirst = value != 0;
      Number const first = conditional(isLive && isFirst);
      expect(":");
      Number const second = conditional(isLive && !isFirst);
      value = isFirst ? first : second;
    }
    --depth_;
    return value;
  }

  char const* begin_;
  char const* end_;
  char const* p_;  // what was not read yet
  char const* faultAt_ = nullptr;
  Number n_ = 0;
  Number forms_ = kMaxForms;
  int depth_ = 0;
  PluralFault fault_ = PluralFault::kNone;
};

}  // namespace ATR_HEADER_VERSION
}  // namespace detail
}  // namespace atr

#endif  // ATR_FORMAT_PLURAL_RULE_H
