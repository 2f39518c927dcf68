// `atr-dict record`: runs a program with a shared object in front of the library that writes down
// what is looked up, and tells it when the program has ended. For systems with LD_PRELOAD.
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <map>
#include <set>
#include <unordered_set>

#include "commands.h"
#include "dictionary.h"
#include "entry_text.h"
#include "explain.h"
#include "failure.h"
#include "files.h"
#include "messages.h"
#include "scratch_folder.h"
#include "system.h"
#include "trace.h"
#include "variables.h"

namespace dict {

namespace fs = std::filesystem;

namespace {

// --- the run ----------------------------------------------------------------------------------

std::string preloadedObject() {
  constexpr char kName[] = "/atr-dict-record.so";
  std::string const folder = system::programFolder();
  for (std::string const& path : {folder + kName, folder + "/" ATR_RECORD_FOLDER + kName}) {
    if (fs::exists(path)) return path;
  }
  throw Failure(say("%s: %s", "atr-dict-record.so", say("it is not there; install it again")));
}

// The caller's environment, with the object in front of all others and the name of the trace.
std::vector<std::string> environmentWith(std::string const& object, std::string const& trace) {
  std::string const preload = "LD_PRELOAD=";
  std::vector<std::string> variables;
  for (char** each = environ; *each != nullptr; ++each) {
    if (!std::string_view(*each).starts_with(preload)) variables.emplace_back(*each);
  }
  std::string const before = variable("LD_PRELOAD").value_or("");
  variables.push_back(preload + object + (before.empty() ? "" : ":" + before));
  variables.push_back(std::string(trace::kFile) + "=" + trace);
  return variables;
}

std::vector<char*> pointersTo(std::vector<std::string>& words) {
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return pointers;
}

// What the terminal sends is for the program alone; the tool stays to tell what it has seen.
class QuietSignals {
 public:
  QuietSignals() {
    for (int const each : kSignals) before_[each] = std::signal(each, SIG_IGN);
  }
  QuietSignals(QuietSignals const&) = delete;
  QuietSignals& operator=(QuietSignals const&) = delete;
  ~QuietSignals() {
    for (auto const& [each, handler] : before_) std::signal(each, handler);
  }

  // The program has the handling that the tool was started with.
  void giveTo(posix_spawnattr_t& attributes) const {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    for (auto const& [each, handler] : before_) {
      if (handler == SIG_DFL) sigaddset(&set, each);
    }
    posix_spawnattr_setsigdefault(&attributes, &set);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  }

 private:
  static constexpr int kSignals[] = {SIGINT, SIGQUIT};
  std::map<int, void (*)(int)> before_;
};

// Returns what waitpid tells. @throw Failure if the program does not start.
int runToItsEnd(std::vector<std::string>& command, std::vector<std::string> environment) {
  QuietSignals const signals;
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  signals.giveTo(attributes);
  pid_t child = 0;
  int const error = posix_spawnp(&child, command[0].c_str(), nullptr, &attributes,
                                 pointersTo(command).data(), pointersTo(environment).data());
  posix_spawnattr_destroy(&attributes);
  if (error != 0) throw Failure(say("%s: %s", toLocale(command[0]), system::reasonOf(error)));
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

// --- the trace --------------------------------------------------------------------------------

struct Build {
  std::string folder;
  std::vector<std::optional<std::string>> values;  // of trace::kVariables
};

struct Trace {
  bool hasStarted = false;
  std::map<std::string, Build> builds;                     // by number
  std::vector<std::pair<std::string, std::string>> asked;  // number of the build, key
};

// The fields of a trace one after the other. A record that a process could not finish ends it.
class Fields {
 public:
  explicit Fields(std::string_view bytes) : rest_(bytes) {}

  bool next(std::string& field) {
    std::size_t const end = rest_.find('\0');
    if (end == rest_.npos) return false;
    field = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    return true;
  }

 private:
  std::string_view rest_;
};

bool readBuild(Fields& fields, Trace& trace) {
  std::string number;
  Build build;
  if (!fields.next(number) || !fields.next(build.folder)) return false;
  std::string field;
  while (build.values.size() < std::size(trace::kVariables)) {
    if (!fields.next(field)) return false;
    build.values.push_back(field.empty() ? std::nullopt : std::optional(field.substr(1)));
  }
  trace.builds[number] = build;
  return true;
}

Trace readTrace(std::string const& path) {
  std::string const bytes = readFile(path);
  Fields fields(bytes);
  Trace trace;
  std::string kind;
  while (fields.next(kind)) {
    trace.hasStarted = true;
    std::string number;
    std::string key;
    if (kind == trace::kBuild && !readBuild(fields, trace)) break;
    if (kind != trace::kKey) continue;
    if (!fields.next(number) || !fields.next(key)) break;
    trace.asked.emplace_back(number, key);
  }
  return trace;
}

// --- what was found ---------------------------------------------------------------------------

using Keys = std::unordered_set<std::string>;

// The keys of the dictionary that the library takes in the environment of a build.
Keys keysOf(Build const& build) {
  WithoutOwnMessages const start;
  Variables variables;
  for (std::size_t i = 0; i < build.values.size(); ++i) {
    variables.set(trace::kVariables[i], build.values[i]);
  }
  variables.set("ZLT_LC_ALL", variable("ZLT_LC_ALL"));
  fs::path const before = fs::current_path();
  std::error_code ignored;
  fs::current_path(build.folder, ignored);
  std::string const path = dictionaryOfTheCaller();
  Keys keys;
  if (!path.empty()) {
    Dictionary const d = readDictionary(path);
    for (Entry const& entry : d.entries) {
      if (entry.fate == Fate::stored) keys.emplace(entry.key);
    }
  }
  fs::current_path(before);
  return keys;
}

// A line a key, in the order in which they were first asked for. A key counts as found if it was
// there once.
std::string listOf(Trace const& trace) {
  std::map<std::string, Keys> keysOfBuild;
  for (auto const& [number, build] : trace.builds) keysOfBuild[number] = keysOf(build);
  Keys found;
  for (auto const& [number, key] : trace.asked) {
    if (keysOfBuild[number].contains(key)) found.insert(key);
  }
  std::string list;
  Keys told;
  for (auto const& [number, key] : trace.asked) {
    if (key.empty() || !told.insert(key).second) continue;
    list += escaped(key) + (found.contains(key) ? "\tfound\n" : "\tmissing\n");
  }
  return list;
}

// --- the command ------------------------------------------------------------------------------

struct RecordCommand {
  std::vector<std::string> program;
  std::string output = "-";

  int run();

 private:
  int statusOf(int end) const;
};

// As a shell has it.
int RecordCommand::statusOf(int end) const {
  if (!WIFSIGNALED(end)) return WEXITSTATUS(end);
  int const signal = WTERMSIG(end);
  tellFailure(say("%s: ended by signal %d (%s)", toLocale(program[0]), signal,
                  std::string(strsignal(signal)))
                  .c_str());
  return 128 + signal;
}

// The object goes by a link, since blanks and colons in a name would part the list of objects.
int RecordCommand::run() {
  std::string const original = preloadedObject();
  ScratchFolder const scratch;
  std::string const object = scratch / "record.so";
  std::string const trace = scratch / "trace";
  fs::create_symlink(fs::absolute(original), object);
  writeFile(trace, "");
  int const end = runToItsEnd(program, environmentWith(object, trace));
  Trace const seen = readTrace(trace);
  int const status = statusOf(end);
  if (!seen.hasStarted) {
    throw Failure(say("%s: %s", toLocale(program[0]),
                      say("nothing can be recorded: it is linked statically, or runs with other "
                          "rights")));
  }
  if (seen.asked.empty()) {
    tellFailure(say("%s: %s", toLocale(program[0]),
                    say("it asked for no key of a shared library; one that is linked statically "
                        "is not seen"))
                    .c_str());
  }
  writeFile(output, listOf(seen));
  return status;
}

}  // namespace

void addRecord(CLI::App& app, Action& action) {
  auto const [command, sub] = addCommand<RecordCommand>(
      app, action, "record", say("Run a program and list the keys that it asks for"));
  addWords(*sub, "PROGRAM", say("behind --, the program and its arguments"), command->program)
      ->required();
  sub->add_option("-o,--output", command->output, say("the list to write, instead of the output"))
      ->type_name("LIST");
}

}  // namespace dict
