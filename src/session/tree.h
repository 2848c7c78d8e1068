// The navigation tree and its companions: the key lists and the tree records. All of it is rebuilt from the tables and
// never stored.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text_index.h"

namespace merlu {

struct TreeNode {
  std::string key;
  std::string text;
  int parent = -1;  // index of its parent, -1 for a root
  int depth = 0;    // 0 for a root
  bool expanded = false;
  bool hidden = false;        // the filter leaves it out
  std::vector<int> children;  // in the order that shows
};

struct Tree {
  std::vector<TreeNode> nodes;  // in the order of adding; node 0 is the first root
  std::vector<int> roots;
  int selected = -1;  // index of the selected node, -1 for none
  bool enabled = true;
  std::uint64_t revision = 0;   // grows with every change of nodes or order
  std::uint64_t expansion = 0;  // grows when nodes were expanded, collapsed, hidden or shown by the program

  void Clear();
  // Adds a node under the one with the parent key (empty: a root). kKeyNotUnique for a key that exists,
  // kNoSuchNode for a parent that does not.
  int Add(std::string_view parent_key, std::string key, std::string text);
  // The same under a node that is known by its index, -1 for a root. Both return the new node's index.
  int AddUnder(int parent, std::string key, std::string text);
  // kNoSuchNode when there is none.
  int Require(std::string_view key) const;
  // -1 when there is none.
  int Find(std::string_view key) const;
  // Sorts every node's children by text, without regard to case.
  void Sort();
  void SortChildren(int node);
  // Texts from the root to the node, joined by " › ".
  std::string FullPath(int node) const;
  void ExpandAncestors(int node);
  // All nodes in the order that shows, parents before children.
  std::vector<int> InOrder() const;

 private:
  TextIndex by_key_;
};

// Pairs of node key and row key. The first entry of a key wins.
class KeyList {
 public:
  explicit KeyList(std::size_t capacity) : capacity_(capacity) {}
  void Reset();
  // kSubscript past the capacity.
  void RequireRoom() const;
  void Add(std::string_view node_key, std::int64_t row_key);
  // Null without an entry.
  const std::int64_t* Find(std::string_view node_key) const;
  std::size_t size() const { return count_; }
  std::int64_t capacity() const { return static_cast<std::int64_t>(capacity_); }

 private:
  std::size_t capacity_;
  std::size_t count_ = 0;
  TextIndex first_;
};

// One row per structure node of the activity tree: its row key, node key and status. Rebuilding the tree appends rows
// and never clears them. Rows are ordered by TreeTag, older ones first among equal tags, and a find returns the first
// match, so the older copy of a row wins.
class TreeRecord {
 public:
  struct Row {
    std::int64_t DbUid;
    std::string TreeTag;
    std::string Status;
  };
  void Append(std::int64_t uid, const std::string& tag, const std::string& status);
  Row* FindTag(std::string_view tag);
  Row* FindUid(std::int64_t uid);
  // The rows of a record that was deleted: its key may come back as another record's.
  void Remove(std::int64_t uid);

 private:
  void Enter(std::size_t row);

  std::vector<Row> rows_;
  TextIndex by_tag_;
  std::unordered_map<std::int64_t, std::size_t> by_uid_;  // the row with the first tag
};

}  // namespace merlu
