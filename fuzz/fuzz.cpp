// One fuzz target a twin: what the fuzzer finds is run through the library and through a plain
// reading of its rules. ATR_TWIN names the twin.
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "support/twin_report.h"

using namespace test;

static Twin const* fuzzed = nullptr;
static S program;

[[noreturn]] static void stop(S const& why) {
  std::fputs((why + "\n").c_str(), stderr);
  std::exit(EXIT_FAILURE);
}

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** argv) {
  program = **argv;
  for (Twin const& twin : twins())
    if (twin.name == S(ATR_TWIN)) fuzzed = &twin;
  if (fuzzed == nullptr) stop("no twin has the name " ATR_TWIN);
  if (std::setlocale(LC_ALL, "") == nullptr) stop("the locale of LC_ALL or LANG is missing");
  std::optional<S> report;
  if (!repeats(*fuzzed, program, report)) return 0;
  if (report.has_value()) stop(*report);
  std::puts("no difference");
  std::exit(EXIT_SUCCESS);
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string_view const bytes(reinterpret_cast<char const*>(data), size);
  auto const report = reportOf(*fuzzed, bytes, "the fuzzer", program);
  if (!report.has_value()) return 0;
  std::fputs(report->c_str(), stderr);
  std::abort();  // so that libFuzzer keeps the input
}
