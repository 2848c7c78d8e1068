#include "shell/tree_find.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/case_folding.h"
#include "base/text.h"
#include "session/main_names.h"

namespace merlu {
namespace {

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  std::string word;
  for (const char c : FoldedText(text) + " ") {
    if (c != ' ') {
      word += c;
    } else if (!word.empty()) {
      words.push_back(std::move(word));
      word.clear();
    }
  }
  return words;
}

bool HoldsAll(const std::string& text, const std::vector<std::string>& words) {
  const std::string lower = FoldedText(text);
  return std::all_of(words.begin(), words.end(),
                     [&](const std::string& word) { return lower.find(word) != std::string::npos; });
}

// What stands behind the type's name.
std::string_view IdOf(const TreeNode& node) {
  const auto at = node.text.find(": ");
  return at == std::string::npos ? std::string_view() : std::string_view(node.text).substr(at + 2);
}

bool BeginsWith(std::string_view text, std::string_view typed) {
  return text.size() >= typed.size() && EqualsIgnoringCase(text.substr(0, typed.size()), typed);
}

bool IsInSight(const Tree& tree, int node) {
  if (tree.nodes[static_cast<std::size_t>(node)].hidden) return false;
  for (int at = tree.nodes[static_cast<std::size_t>(node)].parent; at >= 0;
       at = tree.nodes[static_cast<std::size_t>(at)].parent)
    if (!tree.nodes[static_cast<std::size_t>(at)].expanded) return false;
  return true;
}

}  // namespace

void FilterTree(Session& s) {
  const std::vector<std::string> words = WordsOf(s.main->At(names::txtTREE_Filter).text);
  std::vector<TreeNode>& nodes = s.tree.nodes;
  for (TreeNode& node : nodes) node.hidden = !words.empty();
  // a parent stands before its children in the order of adding
  for (auto node = nodes.rbegin(); node != nodes.rend() && !words.empty(); ++node) {
    if (node->hidden && HoldsAll(node->text, words)) node->hidden = false;
    if (!node->hidden && node->parent >= 0) nodes[static_cast<std::size_t>(node->parent)].hidden = false;
  }
  ++s.tree.expansion;
}

int FindByTyping(const Tree& tree, int from, std::string_view typed) {
  if (typed.empty()) return -1;
  std::vector<int> order = tree.InOrder();
  const auto at = std::find(order.begin(), order.end(), from);
  if (at != order.end()) std::rotate(order.begin(), at + 1, order.end());
  const auto found = std::find_if(order.begin(), order.end(), [&](int node) {
    const TreeNode& candidate = tree.nodes[static_cast<std::size_t>(node)];
    return IsInSight(tree, node) && (BeginsWith(candidate.text, typed) || BeginsWith(IdOf(candidate), typed));
  });
  return found == order.end() ? -1 : *found;
}

int Neighbour(const Tree& tree, int node, int step) {
  const std::vector<int> order = tree.InOrder();
  auto at = std::find(order.begin(), order.end(), node);
  if (at == order.end()) return -1;
  do {
    if (step < 0 && at == order.begin()) return -1;
    at += step < 0 ? -1 : 1;
    if (at == order.end()) return -1;
  } while (tree.nodes[static_cast<std::size_t>(*at)].hidden);
  return *at;
}

}  // namespace merlu
