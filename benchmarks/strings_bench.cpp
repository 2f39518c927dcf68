// Strings and the pool beside std::string, shared_ptr, fmt, ICU and the allocators.
#include <atr/atr.h>
#include <fmt/printf.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <memory>
#include <memory_resource>

#include "bench.h"

using namespace bench;

namespace {

std::string const text100(100, 'x');
std::string const text10k = repeat(kAscii, 10000);

void sharing() {
  static atr_String const s(text100.c_str());
  static std::string const other = text100;
  static auto const shared = std::make_shared<std::string>(text100);
  ours("copy and destroy", [] {
    atr_String copy(s);
    DoNotOptimize(copy);
  });
  side("copy and destroy", "std::string 100 B", 8, [] {
    std::string copy(other);
    DoNotOptimize(copy);
  });
  side("copy and destroy", "shared_ptr<string>", 0.85, [] {
    auto copy = shared;
    DoNotOptimize(copy);
  });
}

void making() {
  for (auto const& [bytes, goal] : {std::pair(30, 1.0), {200, 0.85}, {1000, 0.7}}) {
    std::string const source(static_cast<std::size_t>(bytes), 'y');
    std::string const name = "construct " + std::to_string(bytes) + " B";
    ours(name, [source] {
      atr_String made(source.c_str());
      DoNotOptimize(made);
    });
    side(name, "std::string", goal, [source] {
      std::string made(source.c_str());
      DoNotOptimize(made);
    });
    blocksLimit(name, 1, static_cast<std::size_t>(bytes));
  }
  static std::string const half(30, 'h');
  static atr_String const mine(half.c_str());
  ours("operator+ 30 B", [] {
    atr_String sum = mine + mine;
    DoNotOptimize(sum);
  });
  side("operator+ 30 B", "std::string", 1.2, [] {
    std::string sum = half + half;
    DoNotOptimize(sum);
  });
  static atr_String const whole(text100.c_str());
  ours("Substr 50 B", [] {
    atr_String part = whole.Substr(20, 50);
    DoNotOptimize(part);
  });
  side("Substr 50 B", "std::string", 1, [] {
    std::string part = text100.substr(20, 50);
    DoNotOptimize(part);
  });
  blocksLimit("operator+ 30 B", 1, 96);
  blocksLimit("Substr 50 B", 1, 96);
  blocksLimit("extract field 6 of 12", 1, 32);
  blocksLimit("string from double", 1, 32);
  static std::string const fields =
      "alpha,beta,gamma,delta,epsilon,zeta,eta,theta,iota,kappa,lambda,mu";
  static atr_String const row(fields.c_str());
  ours("extract field 6 of 12", [] {
    atr_String field = row.extract(6, ',');
    DoNotOptimize(field);
  });
  side("extract field 6 of 12", "find loop", 1.3, [] {
    std::size_t at = 0;
    for (int i = 0; i < 6; ++i) at = fields.find(',', at) + 1;
    std::string field = fields.substr(at, fields.find(',', at) - at);
    DoNotOptimize(field);
  });
  static double value = 12345.6789;
  ours("string from double", [] {
    DoNotOptimize(value);
    atr_String made(value);
    DoNotOptimize(made);
  });
  side("string from double", "fmt %.15g", 1, [] {
    DoNotOptimize(value);
    std::string made = fmt::sprintf("%.15g", value);
    DoNotOptimize(made);
  });
}

void searching() {
  static std::string const hay = text10k + "needle";
  static atr_String const mine(hay.c_str());
  static std::string const back = "needle" + text10k;
  static atr_String const mineBack(back.c_str());
  ours("Find in 10 kB", [] { DoNotOptimize(mine.Find("needle", 0)); });
  side("Find in 10 kB", "strstr", 1, [] { DoNotOptimize(std::strstr(hay.c_str(), "needle")); });
  ours("rfind in 10 kB", [] { DoNotOptimize(mineBack.rfind("needle", 6, 1 << 30)); });
  side("rfind in 10 kB", "std::string", 1, [] { DoNotOptimize(back.rfind("needle")); });
  for (char const* const name : {"Find in 10 kB", "rfind in 10 kB"}) {
    limit(name, [] { DoNotOptimize(std::memchr(hay.data(), 1, hay.size())); });
  }
  static std::string const many = repeat(std::string(48, 'a') + "/x", 10000);
  static atr_String const mineMany(many.c_str());
  static atr_String const from("/"), to("\\");
  ours("Substitute 200 in 10 kB", [] {
    atr_String s(mineMany);
    s.Substitute(from, to, 0x7fffffff);
    DoNotOptimize(s);
  });
  side("Substitute 200 in 10 kB", "std::string", 1, [] {
    std::string s(many);
    for (auto at = s.find("/"); at != s.npos; at = s.find("/", at + 1)) s.replace(at, 1, "\\");
    DoNotOptimize(s);
  });
  copyLimit("Substitute 200 in 10 kB", many.size());
}

void wholeTexts() {
  for (auto const& [what, source] :
       {std::pair("ASCII", text10k), {"UTF-8", repeat(kLatin, 10000)}}) {
    std::string const name = std::string("ToUpper 10 kB ") + what;
    ours(name, [source = source] {
      atr_String s(source.c_str());
      s.ToUpper();
      DoNotOptimize(s);
    });
    side(name, "byte loop", 1.5, [source = source] {
      std::string s(source);
      for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
      DoNotOptimize(s);
    });
    side(name, "ICU", 20, [source = source] {
      std::string s;
      icu::UnicodeString::fromUTF8(source).toUpper().toUTF8String(s);
      DoNotOptimize(s);
    });
    copyLimit(name, source.size());
  }
  copyLimit("Trim 10 kB", text10k.size());
  ours("Trim 10 kB", [] {
    atr_String s(text10k.c_str());
    s.Trim(" ");
    DoNotOptimize(s);
  });
  side("Trim 10 kB", "erase_if", 2, [] {
    std::string s(text10k);
    std::erase(s, ' ');
    DoNotOptimize(s);
  });
}

// 1500 slots, of which one is released and taken again, a hundred times in a random order that is
// made beforehand.
template <class Take, class Give>
void churn(std::vector<void*>& slots, Take take, Give give) {
  static std::vector<std::uint16_t> const order = [] {
    std::mt19937 random(1);
    std::vector<std::uint16_t> places(100 * 128);
    for (auto& place : places) place = static_cast<std::uint16_t>(random() % 1500);
    return places;
  }();
  static std::size_t turn = 0;
  turn = (turn + 100) % order.size();
  for (std::size_t i = turn; i < turn + 100; ++i) {
    std::size_t const at = order[i];
    int const c = static_cast<int>(at % 4);
    if (slots[at] != nullptr) give(slots[at], c);
    slots[at] = take(c);
  }
}

void pools() {
  static std::vector<void*> mine(1500), libc(1500), std_(1500);
  static atr_Allocator pool(16, 3, 65536);
  static std::pmr::unsynchronized_pool_resource resource;
  auto const bytes = [](int c) { return static_cast<std::size_t>(16 * (c + 1)); };
  ours("pool, 100 random", [] {
    churn(
        mine, [](int c) { return pool.Allocate(c); }, [](void* p, int c) { pool.Release(p, c); });
  });
  side("pool, 100 random", "malloc", 1.5, [bytes] {
    churn(
        libc, [=](int c) { return std::malloc(bytes(c)); }, [](void* p, int) { std::free(p); });
  });
  side("pool, 100 random", "pmr pool", 2, [bytes] {
    churn(
        std_, [=](int c) { return resource.allocate(bytes(c), 4); },
        [=](void* p, int c) { resource.deallocate(p, bytes(c), 4); });
  });
}

void growing() {
  auto const textOf = [](int bytes) {
    return atr_String(std::string(static_cast<std::size_t>(bytes), 'x').c_str());
  };
  growth("Find, bytes", 1024,
         [=](int n) { return [s = textOf(n)] { DoNotOptimize(s.Find("xxy", 0)); }; });
  growth("rfind, bytes", 1024,
         [=](int n) { return [=, s = textOf(n)] { DoNotOptimize(s.rfind("yx", 2, n)); }; });
  growth("Substitute by more, bytes", 1024, [=](int n) {
    return [s = textOf(n), from = atr_String("x"), to = atr_String("--")] {
      atr_String copy(s);
      copy.Substitute(from, to, 0x7fffffff);
      DoNotOptimize(copy);
    };
  });
  growth("Trim, bytes", 1024, [=](int n) {
    return [s = textOf(n)] {
      atr_String copy(s);
      copy.Trim("yz");
      DoNotOptimize(copy);
    };
  });
  growth("ToUpper, bytes", 1024, [=](int n) {
    return [s = textOf(n)] {
      atr_String copy(s);
      copy.ToUpper();
      DoNotOptimize(copy);
    };
  });
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "C.UTF-8");
  sharing();
  making();
  searching();
  wholeTexts();
  pools();
  growing();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
