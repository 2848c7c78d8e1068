#include "sheets/same_rules.h"

#include <gtest/gtest.h>

namespace merlu::test {

void ExpectWithdrawnWithoutTheChoice(const Piece& piece, const std::vector<ListCase>& cases) {
  TestRun run;
  run.StartWith(piece.type, piece.id);
  run.Click("cmdEdit");
  for (const ListCase& one : cases) {
    run.Set(one.list, one.with);
    run.Click("cmdQC");
    for (const std::string& tag : one.tags) EXPECT_EQ(run.Finding(tag), kBlankFinding) << tag;
    run.s.db.Execute("UPDATE QC SET Comments='known'");
    run.Set(one.list, one.without);
    run.Click("cmdQC");
    for (const std::string& tag : one.tags) EXPECT_EQ(run.Finding(tag), "") << tag;
  }
}

void ExpectNoMoreThanTheStructure(const Piece& piece, const TotalRule& rule) {
  const std::string above = std::to_string(rule.most + 1), far_above = std::to_string(rule.most + 100000);
  const struct {
    std::string total, value, finding;
  } cases[] = {{"NULL", "10", ""},
               {"0", "10", ""},
               {"0.4", "10", ""},
               {"0.6", "10", rule.finding},
               {"10", "10", ""},
               {"10", "10.5", rule.finding},
               {"100", above, rule.finding},
               {far_above, above, RangeFinding(0, rule.most)},
               {"10", "", kBlankFinding},
               {"10", "9.5", ""},
               {rule.single.total, rule.single.same, ""},
               {rule.single.total, rule.single.more, rule.finding}};
  TestRun run;
  run.StartWith(piece.type, piece.id);
  run.GoTo(piece.type, piece.id, Mode::kActv);
  run.Click("cmdEdit");
  for (const auto& one : cases) {
    run.s.db.Execute(std::string("UPDATE PA_PLATFORM_ACTV SET ") + rule.column + "=" + one.total);
    run.Set(rule.control, one.value);
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding(rule.tag), one.finding) << one.value << " of " << one.total;
    EXPECT_EQ(run.At(rule.control).back, one.finding.empty() ? Back::kWindow : Back::kFlag)
        << one.value << " of " << one.total;
  }
}

void ExpectPassedOnceFilled(const Piece& piece, const Values& setting, const Values& fields) {
  TestRun run;
  run.StartWith(piece.type, piece.id);
  run.Click("cmdEdit");
  run.Put(setting);
  run.Click("cmdQC");
  for (const auto& [name, text] : fields) EXPECT_EQ(run.At(name).back, Back::kFlag) << name;
  run.Put(fields);
  run.Click("cmdQC");
  for (const auto& [name, text] : fields) EXPECT_EQ(run.At(name).back, Back::kWindow) << name;
}

}  // namespace merlu::test
