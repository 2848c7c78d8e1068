#include "session/tree.h"

#include <gtest/gtest.h>

#include <set>

#include "base/fault.h"
#include "session/types.h"

namespace merlu {
namespace {

template <typename Work>
int FaultOf(Work&& work) {
  try {
    work();
    return 0;
  } catch (const Fault& fault) {
    return fault.number;
  }
}

// An operator with two structures, added in the wrong order, and a flare on the first.
class SmallTree : public testing::Test {
 protected:
  SmallTree() {
    tree.Add("", "U", "Operator: 1");
    tree.Add("U", "S2", "b");
    tree.Add("U", "S1", "A");
    tree.Add("S2", "E2", "Combustion Flare: F2");
    tree.Add("S2", "E1", "combustion flare: F1");
  }
  std::vector<std::string> Order() {
    std::vector<std::string> keys;
    for (int node : tree.InOrder()) keys.push_back(tree.nodes[static_cast<std::size_t>(node)].key);
    return keys;
  }
  Tree tree;
};

TEST_F(SmallTree, shows_nodes_as_they_were_added_until_it_is_sorted) {
  EXPECT_EQ(Order(), (std::vector<std::string>{"U", "S2", "E2", "E1", "S1"}));
  tree.Sort();
  EXPECT_EQ(Order(), (std::vector<std::string>{"U", "S1", "S2", "E1", "E2"}));
}

TEST_F(SmallTree, sorts_the_children_of_one_node_alone) {
  tree.SortChildren(tree.Find("S2"));
  EXPECT_EQ(Order(), (std::vector<std::string>{"U", "S2", "E1", "E2", "S1"}));
}

TEST_F(SmallTree, keeps_every_node_s_number_when_it_is_sorted) {
  tree.Sort();
  EXPECT_EQ(tree.Find("S2"), 1);
  EXPECT_EQ(tree.nodes[1].text, "b");
  EXPECT_EQ(tree.nodes[1].depth, 1);
  EXPECT_EQ(tree.nodes[3].depth, 2);
}

TEST_F(SmallTree, refuses_a_key_twice_and_a_parent_that_is_not_there) {
  EXPECT_EQ(FaultOf([&] { tree.Add("U", "S1", "again"); }), 35602);
  EXPECT_EQ(FaultOf([&] { tree.Add("S9", "E9", "lost"); }), 35601);
  EXPECT_EQ(tree.nodes.size(), 5u);
  EXPECT_EQ(tree.Find("E9"), -1);
}

TEST_F(SmallTree, tells_the_way_to_a_node) {
  EXPECT_EQ(tree.FullPath(tree.Find("E1")), "Operator: 1 › b › combustion flare: F1");
  EXPECT_EQ(tree.FullPath(0), "Operator: 1");
}

TEST_F(SmallTree, opens_what_lies_above_a_node_and_not_the_node) {
  tree.ExpandAncestors(tree.Find("E1"));
  EXPECT_TRUE(tree.nodes[0].expanded);
  EXPECT_TRUE(tree.nodes[1].expanded);
  EXPECT_FALSE(tree.nodes[2].expanded);
  EXPECT_FALSE(tree.nodes[4].expanded);
}

TEST_F(SmallTree, is_empty_and_unselected_after_a_clear) {
  tree.selected = 2;
  const std::uint64_t revision = tree.revision;
  tree.Clear();
  EXPECT_TRUE(tree.InOrder().empty());
  EXPECT_EQ(tree.selected, -1);
  EXPECT_EQ(tree.Find("U"), -1);
  EXPECT_GT(tree.revision, revision);
}

TEST_F(SmallTree, tells_its_watchers_of_every_change) {
  std::uint64_t seen = tree.revision;
  const auto changed = [&] { return std::exchange(seen, tree.revision) != tree.revision; };
  tree.Add("U", "S3", "c");
  EXPECT_TRUE(changed());
  tree.Sort();
  EXPECT_TRUE(changed());
  tree.SortChildren(0);
  EXPECT_TRUE(changed());
  EXPECT_EQ(tree.Find("S3"), 5);
  EXPECT_FALSE(changed());
}

TEST(KeyList, gives_the_first_entry_of_a_key) {
  KeyList list(10);
  list.Add("a", 1);
  list.Add("b", 2);
  list.Add("a", 3);
  ASSERT_NE(list.Find("a"), nullptr);
  EXPECT_EQ(*list.Find("a"), 1);
  EXPECT_EQ(*list.Find("b"), 2);
  EXPECT_EQ(list.Find("c"), nullptr);
  EXPECT_EQ(list.size(), 3u);
}

TEST(KeyList, is_full_at_its_capacity_and_empty_after_a_reset) {
  KeyList list(2);
  list.Add("a", 1);
  list.Add("b", 2);
  EXPECT_EQ(FaultOf([&] { list.Add("c", 3); }), 9);
  EXPECT_EQ(list.size(), 2u);
  list.Reset();
  EXPECT_EQ(list.size(), 0u);
  EXPECT_EQ(list.Find("a"), nullptr);
  list.Add("c", 3);
  EXPECT_EQ(*list.Find("c"), 3);
}

TEST(KeyList, counts_an_entry_of_a_key_that_it_has_already) {
  KeyList list(2);
  list.Add("a", 1);
  list.Add("a", 2);
  EXPECT_EQ(FaultOf([&] { list.Add("a", 3); }), 9);
}

TEST(TreeRecord, is_found_by_key_and_by_row) {
  TreeRecord record;
  record.Append(7, "K1", "A");
  record.Append(8, "K2", "");
  ASSERT_NE(record.FindTag("K2"), nullptr);
  EXPECT_EQ(record.FindTag("K2")->DbUid, 8);
  EXPECT_EQ(record.FindUid(7)->TreeTag, "K1");
  EXPECT_EQ(record.FindUid(9), nullptr);
  EXPECT_EQ(record.FindTag("K3"), nullptr);
}

TEST(TreeRecord, lets_the_older_copy_of_a_row_win) {
  TreeRecord record;
  record.Append(7, "K1", "A");
  record.Append(7, "K1", "I");
  EXPECT_EQ(record.FindTag("K1")->Status, "A");
  record.FindUid(7)->Status = "I";
  EXPECT_EQ(record.FindTag("K1")->Status, "I");
}

TEST(TreeRecord, of_a_row_is_the_first_one_in_the_order_of_the_keys) {
  TreeRecord record;
  record.Append(7, "K2", "A");
  record.Append(8, "K1", "A");
  record.Append(7, "K1", "I");
  EXPECT_EQ(record.FindUid(7)->TreeTag, "K1");
  EXPECT_EQ(record.FindUid(7)->Status, "I");
  EXPECT_EQ(record.FindTag("K1")->DbUid, 8);
  EXPECT_EQ(record.FindTag("K2")->DbUid, 7);
  record.Append(7, "K3", "A");
  EXPECT_EQ(record.FindUid(7)->TreeTag, "K1");
}

TEST(TreeRecord, goes_with_its_record) {
  TreeRecord record;
  record.Append(7, "K1", "I");
  record.Append(8, "K2", "A");
  record.Append(7, "K3", "I");
  record.Remove(7);
  EXPECT_EQ(record.FindUid(7), nullptr);
  EXPECT_EQ(record.FindTag("K1"), nullptr);
  EXPECT_EQ(record.FindTag("K3"), nullptr);
  EXPECT_EQ(record.FindTag("K2")->DbUid, 8);
  record.Append(7, "K4", "A");
  EXPECT_EQ(record.FindUid(7)->TreeTag, "K4");
}

TEST(EquipmentTypes, are_sixteen_with_numbers_codes_and_names_of_their_own) {
  std::set<int> numbers;
  std::set<std::string_view> codes, names;
  for (const EquipmentType& type : EquipmentTypes()) {
    numbers.insert(type.number);
    codes.insert(type.code);
    names.insert(type.dialog_name);
    EXPECT_EQ(type.code.size(), 3u);
    EXPECT_EQ(type.has_activity, type.code != "FUG") << type.code;
    EXPECT_EQ(type.letters, type.code == "DRI" ? "JAC" : type.code);
  }
  EXPECT_EQ(numbers.size(), 16u);
  EXPECT_EQ(*numbers.begin(), 1);
  EXPECT_EQ(*numbers.rbegin(), 16);
  EXPECT_EQ(codes.size(), 16u);
  EXPECT_EQ(names.size(), 16u);
}

TEST(EquipmentTypes, have_the_numbers_that_the_page_memory_is_indexed_by) {
  const std::vector<std::pair<const char*, int>> numbers = {
      {"AMI", 1}, {"BOI", 2},  {"DIE", 3},  {"FLA", 4},  {"FUG", 5},  {"GLY", 6},  {"DRI", 7},  {"LOA", 8},
      {"NGE", 9}, {"NGT", 10}, {"STO", 11}, {"VEN", 12}, {"LOS", 13}, {"MUD", 14}, {"PNE", 15}, {"PRE", 16}};
  for (const auto& [code, number] : numbers) {
    ASSERT_NE(FindType(code), nullptr) << code;
    EXPECT_EQ(FindType(code)->number, number) << code;
  }
  EXPECT_EQ(FindType("XXX"), nullptr);
}

TEST(EquipmentTypes, stand_in_the_order_of_the_new_equipment_dialog) {
  std::string order;
  for (const EquipmentType& type : EquipmentTypes()) order.append(type.code).append(" ");
  EXPECT_EQ(order, "AMI BOI VEN FLA DIE DRI FUG GLY LOA LOS MUD NGE NGT PNE PRE STO ");
}

TEST(EquipmentTypes, are_found_by_each_of_their_names) {
  const std::vector<std::pair<const char*, const char*>> names = {{"Amine Unit", "AMI"},
                                                                  {"Boiler, Heater, or Burner", "BOI"},
                                                                  {"Diesel or Gasoline Engine", "DIE"},
                                                                  {"Drilling Equipment", "DRI"},
                                                                  {"Combustion Flare", "FLA"},
                                                                  {"Fugitives", "FUG"},
                                                                  {"Glycol Unit", "GLY"},
                                                                  {"Loading Operation", "LOA"},
                                                                  {"Losses from Flashing", "LOS"},
                                                                  {"Mud Degassing", "MUD"},
                                                                  {"Natural Gas Engine", "NGE"},
                                                                  {"NGEngine", "NGE"},
                                                                  {"Natural Gas, Diesel, or Dual-Fuel Turbine", "NGT"},
                                                                  {"NGTurbine", "NGT"},
                                                                  {"Pneumatic Pump", "PNE"},
                                                                  {"Pneumatic Controllers", "PRE"},
                                                                  {"Pressure/Level Controllers", "PRE"},
                                                                  {"Storage Tank", "STO"},
                                                                  {"Cold Vent", "VEN"}};
  for (const auto& [name, code] : names) {
    ASSERT_NE(FindTypeByName(name), nullptr) << name;
    EXPECT_EQ(FindTypeByName(name)->code, code) << name;
  }
  EXPECT_EQ(FindTypeByName(""), nullptr);
  EXPECT_EQ(FindTypeByName("Steam Engine"), nullptr);
}

TEST(EquipmentTypes, of_engines_and_turbines_have_names_of_their_own_in_the_tree) {
  EXPECT_EQ(TreeTypeName("NGE"), "NG Engine");
  EXPECT_EQ(TreeTypeName("NGT"), "NG Turbine");
  EXPECT_EQ(TreeTypeName("PRE"), "Pneumatic Controllers");
  EXPECT_EQ(TreeTypeName("XXX"), "XXX");
}

}  // namespace
}  // namespace merlu
