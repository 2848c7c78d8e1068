#include "session/tree.h"

#include <algorithm>

#include "base/fault.h"
#include "base/text.h"

namespace merlu {
namespace {

constexpr const char* kSource = "MERLU tree";

}  // namespace

void Tree::Clear() {
  nodes.clear();
  roots.clear();
  by_key_.clear();
  selected = -1;
  ++revision;
}

int Tree::Add(const std::string& parent_key, const std::string& key, const std::string& text) {
  const int parent = parent_key.empty() ? -1 : Find(parent_key);
  if (!parent_key.empty() && parent < 0)
    throw Fault(fault_number::kNoSuchNode, kSource, "Element not found: " + parent_key);
  const int index = static_cast<int>(nodes.size());
  if (!by_key_.emplace(key, index).second)
    throw Fault(fault_number::kKeyNotUnique, kSource, "Key is not unique in collection: " + key);
  TreeNode& node = nodes.emplace_back();
  node.key = key;
  node.text = text;
  node.parent = parent;
  if (parent < 0) {
    roots.push_back(index);
  } else {
    node.depth = nodes[static_cast<std::size_t>(parent)].depth + 1;
    nodes[static_cast<std::size_t>(parent)].children.push_back(index);
  }
  ++revision;
  return index;
}

int Tree::Find(const std::string& key) const {
  const auto found = by_key_.find(key);
  return found == by_key_.end() ? -1 : found->second;
}

void Tree::SortChildren(int node) {
  auto& children = nodes[static_cast<std::size_t>(node)].children;
  std::stable_sort(children.begin(), children.end(), [&](int a, int b) {
    return LessIgnoringCase(nodes[static_cast<std::size_t>(a)].text, nodes[static_cast<std::size_t>(b)].text);
  });
  ++revision;
}

void Tree::Sort() {
  for (int i = 0; i < static_cast<int>(nodes.size()); ++i)
    if (nodes[static_cast<std::size_t>(i)].children.size() > 1) SortChildren(i);
  ++revision;
}

std::string Tree::FullPath(int node) const {
  std::string path;
  for (int at = node; at >= 0; at = nodes[static_cast<std::size_t>(at)].parent) {
    const std::string& text = nodes[static_cast<std::size_t>(at)].text;
    path = path.empty() ? text : text + " › " + path;
  }
  return path;
}

void Tree::ExpandAncestors(int node) {
  for (int at = nodes[static_cast<std::size_t>(node)].parent; at >= 0;
       at = nodes[static_cast<std::size_t>(at)].parent) {
    if (!nodes[static_cast<std::size_t>(at)].expanded) ++expansion;
    nodes[static_cast<std::size_t>(at)].expanded = true;
  }
}

std::vector<int> Tree::InOrder() const {
  std::vector<int> order;
  order.reserve(nodes.size());
  std::vector<int> waiting(roots.rbegin(), roots.rend());
  while (!waiting.empty()) {
    const int at = waiting.back();
    waiting.pop_back();
    order.push_back(at);
    const auto& children = nodes[static_cast<std::size_t>(at)].children;
    waiting.insert(waiting.end(), children.rbegin(), children.rend());
  }
  return order;
}

void KeyList::Reset() {
  count_ = 0;
  first_.clear();
}

void KeyList::Add(const std::string& node_key, std::int64_t row_key) {
  if (count_ >= capacity_) throw Fault(fault_number::kSubscript, kSource, "Subscript out of range");
  ++count_;
  first_.try_emplace(node_key, row_key);
}

const std::int64_t* KeyList::Find(const std::string& node_key) const {
  const auto found = first_.find(node_key);
  return found == first_.end() ? nullptr : &found->second;
}

void TreeRecord::Append(std::int64_t uid, const std::string& tag, const std::string& status) {
  // a row whose both keys are taken would never be found, so it need not be kept
  const bool new_tag = by_tag_.try_emplace(tag, rows_.size()).second;
  const bool new_uid = by_uid_.try_emplace(uid, rows_.size()).second;
  if (new_tag || new_uid) rows_.push_back({uid, tag, status});
}

TreeRecord::Row* TreeRecord::FindTag(const std::string& tag) {
  const auto found = by_tag_.find(tag);
  return found == by_tag_.end() ? nullptr : &rows_[found->second];
}

TreeRecord::Row* TreeRecord::FindUid(std::int64_t uid) {
  const auto found = by_uid_.find(uid);
  return found == by_uid_.end() ? nullptr : &rows_[found->second];
}

}  // namespace merlu
