// An expression tree whose nodes and names live in a pool: built, grown in place, taken apart at
// random, and timed against operator new.
#include <atr/atr.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

namespace {

// [ operator or NUL | left | right ] or [ NUL | value ]
struct Node {
  char op;
  Node* left;
  Node* right;
  double value;
};

constexpr int kUnit = 8;  // bytes
constexpr int kNodeClass = int{sizeof(Node)} / kUnit - 1;

struct FromPool {
  void* take() { return pool.Allocate(kNodeClass); }
  void give(void* block) { pool.Release(block, kNodeClass); }
  atr_Allocator pool{kUnit, 7, 65536};
};

struct FromNew {
  void* take() { return ::operator new(sizeof(Node)); }
  void give(void* block) { ::operator delete(block); }
};

template <class Source>
Node* build(Source& source, int depth) {
  auto* const node = new (source.take()) Node{};
  node->value = depth;
  if (depth == 0) return node;
  node->op = depth % 2 != 0 ? '+' : '*';
  node->left = build(source, depth - 1);
  node->right = build(source, depth - 1);
  return node;
}

double evaluate(Node const* node) {
  if (node->op == '\0') return node->value + 1;
  double const left = evaluate(node->left);
  double const right = evaluate(node->right);
  return node->op == '+' ? left + right : left * right;
}

template <class Source>
void release(Source& source, Node* node) {
  if (node == nullptr) return;
  release(source, node->left);
  release(source, node->right);
  source.give(node);
}

// Many small trees, replaced at random, as an editor's undo would.
template <class Source>
double time(double& result) {
  Source source;
  std::mt19937 random(1);
  std::vector<Node*> trees(60);
  auto const start = std::chrono::steady_clock::now();
  for (int i = 0; i < 40000; ++i) {
    Node*& tree = trees[random() % trees.size()];
    release(source, tree);
    tree = build(source, 3);
    result += evaluate(tree);
  }
  for (Node* const tree : trees) release(source, tree);
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

// A name of unknown length grows where it stands, as long as it was carved last.
void growName() {
  atr_Allocator pool(kUnit, 7, 0);
  int blockClass = 0;
  auto* const name = static_cast<char*>(pool.Allocate(blockClass));
  int bytes = 0;
  for (char const* p = "a_name_of_some_length"; *p != '\0'; ++p) {
    if (bytes + 1 == kUnit * (blockClass + 1) && pool.Extend(name, blockClass, blockClass + 1)) {
      ++blockClass;
    }
    name[bytes++] = *p;
  }
  name[bytes] = '\0';
  std::printf("  %s grew in place to %d units of %d bytes\n", name, blockClass + 1, kUnit);
  pool.Release(name, blockClass);
  pool.Release(::operator new(100), 0);  // a block of another origin goes where it came from
}

}  // namespace

int main() {
  growName();
  double fromPool = 0;
  double fromNew = 0;
  time<FromPool>(fromPool);  // warms up
  double const poolTime = time<FromPool>(fromPool = 0);
  double const newTime = time<FromNew>(fromNew);
  std::printf("  same result: %s; pool %.1f ms, operator new %.1f ms, ratio %.2f\n",
              fromPool == fromNew ? "yes" : "no", poolTime, newTime, newTime / poolTime);
  return fromPool == fromNew ? 0 : 1;
}
