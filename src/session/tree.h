// The navigation tree and what stands next to it: the key lists and the tree records. All of it is rebuilt
// from the tables and never stored.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace merlu {

struct TreeNode {
  std::string key;
  std::string text;
  int parent = -1;
  int depth = 0;
  bool expanded = false;
  std::vector<int> children;  // in the order that shows
};

struct Tree {
  std::vector<TreeNode> nodes;  // in the order of adding; node 0 is the first root
  std::vector<int> roots;
  int selected = -1;
  bool enabled = true;
  std::uint64_t revision = 0;   // grows with every change of nodes or order
  std::uint64_t expansion = 0;  // grows when nodes were expanded or collapsed by the program

  void Clear();
  // Adds a node under the one with the parent key (empty: a root). kKeyNotUnique for a key that exists,
  // kNoSuchNode for a parent that does not.
  int Add(const std::string& parent_key, const std::string& key, const std::string& text);
  // -1 when there is none.
  int Find(const std::string& key) const;
  // Sorts every node's children by text, without regard to case.
  void Sort();
  void SortChildren(int node);
  // Texts from the root to the node, joined by " › ".
  std::string FullPath(int node) const;
  void ExpandAncestors(int node);
  // All nodes in the order that shows, parents before children.
  std::vector<int> InOrder() const;

 private:
  std::unordered_map<std::string, int> by_key_;
};

// Pairs of node key and row key. The first entry of a key wins.
class KeyList {
 public:
  explicit KeyList(std::size_t capacity) : capacity_(capacity) {}
  void Reset();
  // kSubscript past the capacity.
  void Add(const std::string& node_key, std::int64_t row_key);
  // Null without an entry.
  const std::int64_t* Find(const std::string& node_key) const;
  std::size_t size() const { return count_; }

 private:
  std::size_t capacity_;
  std::size_t count_ = 0;
  std::unordered_map<std::string, std::int64_t> first_;
};

// One row per structure node: its row key, node key and status. Rebuilding the tree appends and never
// empties, and a find takes the first match, so a row's older copy wins.
class TreeRecord {
 public:
  struct Row {
    std::int64_t DbUid;
    std::string TreeTag;
    std::string Status;
  };
  void Append(std::int64_t uid, const std::string& tag, const std::string& status);
  Row* FindTag(const std::string& tag);
  Row* FindUid(std::int64_t uid);

 private:
  std::vector<Row> rows_;
  std::unordered_map<std::string, std::size_t> by_tag_;
  std::unordered_map<std::int64_t, std::size_t> by_uid_;
};

}  // namespace merlu
