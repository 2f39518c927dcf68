// A character that the locale does not have.
#include <atr/atr.h>

#include <clocale>
#include <cstdio>

namespace {

constexpr char kText[] = "So: \xE3\x82\xBD";  // with U+30BD in UTF-8

atr_String singleBytes(char const* utf8, char substitute) {
  auto const* const text = reinterpret_cast<unsigned char const*>(utf8);
  int const bytes = atr_utf8_to_encoding(EncodingSingleByte, nullptr, text, substitute);
  if (bytes < 0) return "";  // -1: no UTF-8; -2: no form, and no substitute
  atr_String result(bytes, atr_String::PreSize);
  auto* const out = reinterpret_cast<unsigned char*>(&result[0]);
  atr_utf8_to_encoding(EncodingSingleByte, out, text, substitute);
  result.SetStringLength(bytes);
  return result;
}

}  // namespace

int main() {
  std::setlocale(LC_ALL, "C");
  std::printf("[%s]\n", atr_raw(kText).c_str());
  std::printf("[%s]\n", singleBytes(kText, '*').c_str());
  std::printf("[%s]\n", singleBytes(kText, 0).c_str());
}
