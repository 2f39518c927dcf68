// One fuzz target a twin: what the fuzzer finds is run through the library and through a plain
// reading of its rules. ATR_TWIN names the twin.
#include <clocale>
#include <cstdint>

#include "support/twins.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) { return std::setlocale(LC_ALL, "") == nullptr; }

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  for (test::Twin const& twin : test::kTwins)
    if (twin.name == test::S(ATR_TWIN)) twin.run({reinterpret_cast<char const*>(data), size});
  return 0;
}
