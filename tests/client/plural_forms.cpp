// Reads plural rules, one a line, and prints the forms that they give the numbers from 0 to 1000.
#include <atr/plural.h>

#include <iostream>
#include <string>

int main() {
  for (std::string rule; std::getline(std::cin, rule);) {
    atr::detail::PluralRule reader(rule.data(), rule.data() + rule.size());
    for (unsigned long long n = 0; n <= 1000; ++n) std::cout << reader.formFor(n).index << ' ';
    std::cout << '\n';
  }
}
