// Variables of the environment for a while.
#ifndef ATR_TOOLS_ATR_DICT_VARIABLES_H
#define ATR_TOOLS_ATR_DICT_VARIABLES_H

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "system.h"

namespace dict {

/// The value of a variable, if it is set.
inline std::optional<std::string> variable(char const* name) {
  char const* const value = std::getenv(name);
  return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

/// Sets variables of the process environment, and what they were at the end of its scope.
class Variables {
 public:
  Variables() = default;
  Variables(Variables const&) = delete;
  Variables& operator=(Variables const&) = delete;
  ~Variables() {
    for (auto before = before_.rbegin(); before != before_.rend(); ++before) {
      assign(before->first, before->second);
    }
  }

  /// @param name kept until the end of the scope.
  /// @param value nothing removes the variable.
  void set(char const* name, std::optional<std::string> const& value) {
    before_.emplace_back(name, variable(name));
    assign(name, value);
  }

 private:
  static void assign(char const* name, std::optional<std::string> const& value) {
    system::setVariable(name, value ? value->c_str() : nullptr);
  }

  std::vector<std::pair<char const*, std::optional<std::string>>> before_;
};

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_VARIABLES_H
