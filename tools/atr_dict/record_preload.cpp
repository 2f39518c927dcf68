// The shared object that `atr-dict record` puts in front of the library: it writes each key down
// and passes the call on. It lives in programs that it knows nothing of, and in their children, so
// it needs nothing but the C library, takes no locks, and leaves errno as it was.
#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "atr/frame/lifecycle.h"
#include "atr/translation/translation.h"
#include "trace.h"

namespace {

namespace trace = dict::trace;

// --- the trace --------------------------------------------------------------------------------

// Appends a record by one call, so that records of other threads and processes do not mix with it.
// The file is opened each time, since a program may close whatever it finds open.
template <std::size_t kFields>
void append(std::array<char const*, kFields> const& fields) {
  char const* const path = std::getenv(trace::kFile);
  if (path == nullptr) return;
  int const before = errno;
  int const file = open(path, O_WRONLY | O_APPEND | O_CLOEXEC);
  if (file >= 0) {
    iovec parts[kFields];
    for (std::size_t i = 0; i < kFields; ++i) {
      parts[i] = {const_cast<char*>(fields[i]), std::strlen(fields[i]) + 1};
    }
    // A record that the disk has no room for is lost.
    static_cast<void>(!writev(file, parts, static_cast<int>(kFields)));
    close(file);
  }
  errno = before;
}

struct Start {
  Start() { append(std::array<char const*, 1>{trace::kStart}); }
} const start;

// --- the builds -------------------------------------------------------------------------------

unsigned long long build = 0;  // the number of the one in force, also in the children of a fork

void onBuild() {
  if (build != 0) return;
  static unsigned int builds = 0;
  build = (static_cast<unsigned long long>(getpid()) << 32) + ++builds;
  char number[24];
  std::snprintf(number, sizeof number, "%llu", build);
  char folder[4096];
  if (getcwd(folder, sizeof folder) == nullptr) folder[0] = '\0';
  std::array<char const*, 3 + std::size(trace::kVariables)> fields{trace::kBuild, number, folder};
  auto* field = fields.begin() + 3;
  for (char const* const name : trace::kVariables) {
    char const* const value = std::getenv(name);
    *field++ = value != nullptr ? value - 1 : "";  // the environment has the = in front
  }
  append(fields);
}

// --- the keys ---------------------------------------------------------------------------------

// A key that was asked for under a build. The key stands behind it.
struct Asked {
  Asked* next;
  unsigned long long build;
  char const* key() const { return reinterpret_cast<char const*>(this + 1); }
};

constinit std::atomic<Asked*> asked[4096];  // chains by the hash of the key; they only grow

std::atomic<Asked*>& chainOf(char const* key) {
  unsigned int hash = 0;
  for (; *key != '\0'; ++key) hash = hash * 31 + static_cast<unsigned char>(*key);
  return asked[hash % std::size(asked)];
}

bool isAsked(Asked const* chain, char const* key) {
  for (; chain != nullptr; chain = chain->next) {
    if (chain->build == build && std::strcmp(chain->key(), key) == 0) return true;
  }
  return false;
}

void onKey(char const* key) {
  if (key == nullptr) return;
  std::atomic<Asked*>& chain = chainOf(key);
  Asked* first = chain.load(std::memory_order_acquire);
  if (isAsked(first, key)) return;
  std::size_t const bytes = std::strlen(key) + 1;
  if (auto* const node = static_cast<Asked*>(std::malloc(sizeof(Asked) + bytes))) {
    node->build = build;
    std::memcpy(node + 1, key, bytes);
    do {
      node->next = first;
    } while (!chain.compare_exchange_weak(first, node, std::memory_order_release));
  }  // a key that comes twice by a race or for want of memory is written twice
  char number[24];
  std::snprintf(number, sizeof number, "%llu", build);
  append(std::array<char const*, 3>{trace::kKey, number, key});
}

// --- the library ------------------------------------------------------------------------------

// A copy of the library that a plugin brought stands in no scope that is searched by itself.
int findLibrary(dl_phdr_info* info, std::size_t, void* result) {
  if (std::strstr(info->dlpi_name, "libZLTatr") == nullptr) return 0;
  *static_cast<void**>(result) = dlopen(info->dlpi_name, RTLD_LAZY | RTLD_NOLOAD);
  return 1;
}

void* findSymbol(char const* name) {
  if (void* const next = dlsym(RTLD_NEXT, name)) return next;
  void* library = nullptr;
  dl_iterate_phdr(&findLibrary, &library);
  void* const symbol = library != nullptr ? dlsym(library, name) : nullptr;
  if (symbol != nullptr) return symbol;
  std::fprintf(stderr, "atr-dict-record: %s\n", dlerror());
  std::abort();
}

// The library's own function of that name, which is looked for once.
template <class Function>
struct Original {
  char const* name;
  std::atomic<Function*> place = nullptr;

  Function* get() {
    Function* found = place.load(std::memory_order_relaxed);
    if (found != nullptr) return found;
    found = reinterpret_cast<Function*>(findSymbol(name));
    place.store(found, std::memory_order_relaxed);
    return found;
  }
};

constinit Original<atr_String(char const*)> raw{"_Z7atr_rawPKc"};
constinit Original<void(void*, char const*)> message{"_ZN13atr_translateC1EPKc"};
constinit Original<void(bool)> enable{"_Z13atr_tr_enableb"};
constinit Original<void()> buildTable{"_Z13atr_trBuildDBv"};
constinit Original<void()> releaseTable{"_Z15atr_trReleaseDBv"};
constinit Original<void(int&)> finalize{"_Z12atr_finalizeRi"};

}  // namespace

// --- what stands in front of it ---------------------------------------------------------------

atr_String atr_raw(char const* key) {
  onKey(key);
  return raw.get()(key);
}

// The constructor of atr_translate, as a whole object and as a base.
void makeMessage(void* self, char const* key) __asm__("_ZN13atr_translateC1EPKc");
void makeMessage(void* self, char const* key) {
  onKey(key);
  message.get()(self, key);
}
void makeBase(void* self, char const* key) __asm__("_ZN13atr_translateC2EPKc");
void makeBase(void* self, char const* key) { makeMessage(self, key); }

void atr_trBuildDB() {
  onBuild();
  buildTable.get()();
}

void atr_trReleaseDB() {
  releaseTable.get()();
  build = 0;
}

void atr_tr_enable(bool on) {
  if (on) onBuild();
  enable.get()(on);
  if (!on) build = 0;
}

// The last stop gives the table back, and tells so by the count.
void atr_finalize(int& count) {
  int const before = count;
  finalize.get()(count);
  if (count != before) build = 0;
}
