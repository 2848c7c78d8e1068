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
  by_key_.Clear();
  selected = -1;
  ++revision;
}

int Tree::Require(std::string_view key) const {
  const int node = Find(key);
  if (node < 0) throw Fault(fault_number::kNoSuchNode, kSource, "Element not found: " + std::string(key));
  return node;
}

int Tree::Add(std::string_view parent_key, std::string key, std::string text) {
  return AddUnder(parent_key.empty() ? -1 : Require(parent_key), std::move(key), std::move(text));
}

int Tree::AddUnder(int parent, std::string key, std::string text) {
  const int index = static_cast<int>(nodes.size());
  if (!by_key_.Add(key, index))
    throw Fault(fault_number::kKeyNotUnique, kSource, "Key is not unique in collection: " + key);
  TreeNode& node = nodes.emplace_back();
  node.key = std::move(key);
  node.text = std::move(text);
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

int Tree::Find(std::string_view key) const {
  const std::int64_t* found = by_key_.Find(key);
  return found == nullptr ? -1 : static_cast<int>(*found);
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
  first_.Clear();
}

void KeyList::RequireRoom() const {
  if (count_ >= capacity_) throw Fault(fault_number::kSubscript, kSource, "Subscript out of range");
}

void KeyList::Add(std::string_view node_key, std::int64_t row_key) {
  RequireRoom();
  ++count_;
  first_.Add(node_key, row_key);
}

const std::int64_t* KeyList::Find(std::string_view node_key) const {
  return first_.Find(node_key);
}

void TreeRecord::Append(std::int64_t uid, const std::string& tag, const std::string& status) {
  // a row that no find would return need not be kept
  const auto known = by_uid_.find(uid);
  if (known != by_uid_.end() && !LessIgnoringCase(tag, rows_[known->second].TreeTag) && by_tag_.Find(tag) != nullptr)
    return;
  rows_.push_back({uid, tag, status});
  Enter(rows_.size() - 1);
}

void TreeRecord::Enter(std::size_t row) {
  by_tag_.Add(rows_[row].TreeTag, static_cast<std::int64_t>(row));
  const auto [known, is_new] = by_uid_.try_emplace(rows_[row].DbUid, row);
  if (!is_new && LessIgnoringCase(rows_[row].TreeTag, rows_[known->second].TreeTag)) known->second = row;
}

void TreeRecord::Remove(std::int64_t uid) {
  if (std::erase_if(rows_, [uid](const Row& row) { return row.DbUid == uid; }) == 0) return;
  by_tag_.Clear();
  by_uid_.clear();
  for (std::size_t row = 0; row < rows_.size(); ++row) Enter(row);
}

TreeRecord::Row* TreeRecord::FindTag(std::string_view tag) {
  const std::int64_t* found = by_tag_.Find(tag);
  return found == nullptr ? nullptr : &rows_[static_cast<std::size_t>(*found)];
}

TreeRecord::Row* TreeRecord::FindUid(std::int64_t uid) {
  const auto found = by_uid_.find(uid);
  return found == by_uid_.end() ? nullptr : &rows_[found->second];
}

}  // namespace merlu
