// What Linux can show of a file that is looked for: who else notices.
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "atr/frame/platform.h"
#include "support/support.h"

using namespace test;

static bool opens(S const& path) {
  std::FILE* const file = atr::platform::openText(path.c_str());
  if (file != nullptr) std::fclose(file);
  return file != nullptr;
}

// Who opens a FIFO lets its writer go, even if nothing is read.
TEST(Files, FifoIsNotTouched) {
  S const path = tempFolder() + "/fifo";
  std::remove(path.c_str());
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0) << path << ": " << std::strerror(errno);
  int const watch = inotify_init1(IN_NONBLOCK);
  ASSERT_GE(inotify_add_watch(watch, path.c_str(), IN_OPEN), 0) << std::strerror(errno);
  EXPECT_FALSE(opens(path));
  char events[256];
  EXPECT_LT(read(watch, events, sizeof events), 0) << "the FIFO was opened";
  close(watch);
  std::remove(path.c_str());
}

static int leased = -1;

// The holder of a lease is asked for it by a signal, and whoever opens the file waits for the
// answer.
TEST(Files, LeaseIsWaitedFor) {
  TempFile const file("leased", "text");
  struct sigaction action = {}, before = {};
  action.sa_handler = [](int) { fcntl(leased, F_SETLEASE, F_UNLCK); };
  sigaction(SIGIO, &action, &before);  // without SA_RESTART: the wait itself is interrupted
  leased = open(file.path.c_str(), O_WRONLY);
  ASSERT_GE(leased, 0) << std::strerror(errno);
  bool const isLeased = fcntl(leased, F_SETLEASE, F_WRLCK) == 0;
  if (isLeased) {
    EXPECT_TRUE(opens(file.path));
  }
  sigaction(SIGIO, &before, nullptr);
  close(leased);
  if (!isLeased) GTEST_SKIP() << "no leases on the file system of " << file.path;
}
