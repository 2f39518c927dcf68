// Lookups side by side, and texts that go from one thread to another.
#include <atr/atr.h>

#include <cstdio>
#include <thread>
#include <vector>

int main() {
  int starts = 0;
  atr_initialize(starts);  // before the threads: start, build, and a first fold
  atr_tr_enable(true);
  atr_String::BreakLineString("a b", 1);

  atr_String const title = atr_raw("Copying");
  atr_String lines[4];
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    // A copy of `title` would share its bytes with this thread; a new string does not.
    threads.emplace_back([i, &lines, own = atr_StringFromText(title.c_str())] {
      atr_translate message("%s: %d of %d");
      atr_SubstituteFormat(message, 1, own);
      atr_SubstituteFormat(message, 2, i + 1);
      atr_SubstituteFormat(message, 3, 4);
      lines[i] = message.Result();  // nobody shares it, so it may go to another thread
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (atr_String const& line : lines) std::printf("%s\n", line.c_str());

  atr_finalize(starts);  // after the threads
}
