// Compares the conversions of each message with those of its translation.
#include <atr/atr.h>

#include <cstdio>

namespace {

// The letters of the conversions, in the order of the values.
atr_String letters(char const* key) {
  atr_translate const message(key);
  atr_String result;
  for (int position = 1; message.Format(position) != nullptr; ++position) {
    char const letter = atr_Fmt(message.Format(position)).Letter();
    result.Append(atr_String(&letter, 1));
  }
  return result;
}

constexpr char const* kMessages[] = {"%d files in %s", "%d of all files in %s", "%s costs %.2f",
                                     "%d%% done"};
constexpr int kCount = 4;

}  // namespace

int main() {
  int starts = 0;
  atr_initialize(starts);
  atr_String expected[kCount];
  for (int i = 0; i < kCount; ++i) expected[i] = letters(kMessages[i]);  // no table yet

  atr_tr_enable(true);
  for (int i = 0; i < kCount; ++i) {
    atr_String const actual = letters(kMessages[i]);
    bool const isSame =
        expected[i].length() == actual.length() && expected[i].Find(actual.c_str(), 0) == 0;
    std::printf("%-24s %s\n", kMessages[i], isSame ? "same" : "other conversions");
  }
  atr_finalize(starts);
}
