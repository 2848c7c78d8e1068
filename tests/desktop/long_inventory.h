// An inventory for windows full of long texts.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "inventory.h"
#include "session/session.h"
#include "support/long_texts.h"
#include "support/test_run.h"

namespace merlu::test {

// A structure with a flare and a tank in one month, with findings, and texts of that length in every column but the
// flare's ID. Returns its path.
inline std::string MakeLongInventory(const TemporaryFolder& folder, int bytes) {
  const std::string path = folder.path("inventory.mdb");
  InventoryPlan plan;
  plan.structures = 1;
  plan.equipment = 2;
  plan.types = {"FLA", "STO"};
  plan.months = 1;
  plan.fault_share = 1;
  MakeInventory(TemplatePath(), path, plan);
  FillTexts(path, bytes, "FLA1");
  return path;
}

// The node of the tree whose key ends so.
inline std::string KeyWithEnd(const Session& s, const std::string& end) {
  for (const int node : s.tree.InOrder())
    if (const std::string& key = s.tree.nodes[static_cast<std::size_t>(node)].key; key.ends_with(end)) return key;
  ADD_FAILURE() << "no node with the end " << end;
  return "";
}

}  // namespace merlu::test
