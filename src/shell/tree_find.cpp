#include "shell/tree_find.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/case_folding.h"
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

}  // namespace

void FilterTree(Session& s) {
  const std::vector<std::string> words = WordsOf(s.main->At(names::txtTREE_Filter).text);
  std::vector<TreeNode>& nodes = s.tree.nodes;
  for (TreeNode& node : nodes) node.hidden = !words.empty();
  // a parent is added before its children
  for (auto node = nodes.rbegin(); node != nodes.rend() && !words.empty(); ++node) {
    if (node->hidden && HoldsAll(node->text, words)) node->hidden = false;
    if (!node->hidden && node->parent >= 0) nodes[static_cast<std::size_t>(node->parent)].hidden = false;
  }
  ++s.tree.expansion;
}

}  // namespace merlu
