#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

#include "base/text.h"
#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;
using Names = std::set<std::string>;
using Dump = std::map<std::string, std::string>;  // "table rowid column" and the value

class EverySheet : public testing::TestWithParam<const SheetSpec*> {
 protected:
  const SheetSpec& sheet() const { return *GetParam(); }
  const std::string& type() const { return sheet().type; }

  // A structure with a vent, a flare and a record of the type, in view.
  void Begin(Mode mode) {
    run.StartWith("VEN", "V1");
    for (const auto& [code, id] : std::vector<std::pair<std::string, std::string>>{{"FLA", "F1"}, {type(), "X1"}}) {
      run.Select(run.Key());
      run.AddEquipment(code, id);
    }
    run.SelectRoot();
    run.AddMonth();
    Look(mode);
  }

  // Goes to the record anew.
  void Look(Mode mode) {
    run.SelectRoot();
    run.ChangeTo(mode);
    run.SelectRoot();
    run.Select(run.Key(type(), "X1", mode == Mode::kActv ? 1 : 0));
  }

  std::string KeyOf(const std::string& table) {
    const bool monthly = table.starts_with("EA_");
    return monthly ? "EA_ID_AK=" + std::to_string(run.s.EA_ID_AK) : "ED_ID_AK=" + std::to_string(run.s.ED_ID_AK);
  }

  // Gives every column of the record a value that its field can show.
  void Fill(const std::string& table) {
    std::map<std::string, const FieldSpec*> fields;
    for (const FieldSpec& field : sheet().fields) {
      const bool monthly = field.mode == In::kActv;
      if (!field.column.empty() && monthly == table.starts_with("EA_")) fields[Lower(field.column)] = &field;
    }
    int number = 10;
    for (const auto& [column, declared] : Columns(table)) {
      if (column.ends_with("ID_AK")) continue;
      const auto found = fields.find(Lower(column));
      const Value value = found != fields.end() ? ValueFor(*found->second, ++number)
                          : declared == "TEXT"  ? Value(std::string("as it was"))
                                                : Value(double(++number));
      run.s.db.Execute("UPDATE " + table + " SET [" + column + "]=? WHERE " + KeyOf(table), {value});
    }
  }

  // The first item, but a vent elsewhere as the destination, so that it has a vent.
  static Value ValueFor(const FieldSpec& field, int number) {
    switch (field.stored) {
      case Stored::kYesNo: return true;
      case Stored::kCode: return field.column == "EMIS_DEST" ? std::string("VR") : field.items.front().code;
      case Stored::kItemText:
        return field.items.empty() ? "Made up " + std::to_string(number) : field.items.front().text;
      case Stored::kText: return "Text " + std::to_string(number);
      case Stored::kDestination: return std::string("VENV1");
      default: return number + 0.5;
    }
  }

  std::vector<std::pair<std::string, std::string>> Columns(const std::string& table) {
    std::vector<std::pair<std::string, std::string>> columns;
    run.s.db.ForEach("SELECT name,type FROM pragma_table_info(?)", {table}, [&](const RowView& row) {
      columns.emplace_back(std::string(row.Text(0)), std::string(row.Text(1)));
    });
    return columns;
  }

  // Every value of every table of the file.
  Dump All() {
    Dump dump;
    Texts tables;
    run.s.db.ForEach("SELECT name FROM sqlite_master WHERE type='table'", {},
                     [&](const RowView& row) { tables.emplace_back(row.Text(0)); });
    for (const std::string& table : tables) {
      const Rows rows = run.s.db.Query("SELECT rowid,* FROM [" + table + "]");
      for (const Values& row : rows.rows)
        for (std::size_t i = 1; i < row.size(); ++i)
          dump[table + " " + NullToEmpty(row[0]) + " " + rows.columns[i]] =
              IsNull(row[i]) ? "Null" : "\"" + NullToEmpty(row[i]) + "\"";
    }
    return dump;
  }

  // What became of each value that is another one now, by its column; rows of other records by their key.
  std::map<std::string, std::string> Changes(const Dump& before, const Dump& after) {
    std::map<std::string, std::string> changes;
    const auto name = [&](const std::string& key) {
      const std::size_t blank = key.find(' ');
      const std::string table = key.substr(0, blank), rest = key.substr(blank + 1);
      const std::string own = std::to_string(table.starts_with("EA_") ? run.s.EA_ID_AK : run.s.ED_ID_AK) + " ";
      const bool of_the_record = rest.starts_with(own) && (table.starts_with("EA_") || table.starts_with("ED_"));
      return of_the_record ? table + "." + rest.substr(own.size()) : key;
    };
    for (const auto& [key, value] : before) {
      const auto found = after.find(key);
      if (found == after.end())
        changes[name(key)] = "gone";
      else if (found->second != value)
        changes[name(key)] = found->second;
    }
    for (const auto& [key, value] : after)
      if (!before.contains(key)) changes[name(key)] = "new " + value;
    return changes;
  }

  TestRun run;
};

using Changed = std::map<std::string, std::string>;

// Columns that a save of a full description empties although the user did not change them: those that the first item of
// a list does not use, and those that no page shows.
const std::map<std::string, Changed> kDropped = {
    {"AMI",
     {{"ED_AMI.CONDENSER_PRES", "Null"}, {"ED_AMI.CONDENSER_TEMP", "Null"}, {"ED_AMI.SRU_RECOVERY_EFFIC", "Null"}}},
    {"FUG",
     {{"ED_FUG.OTH_CTRL_DEVICE", "Null"},
      {"ED_FUG.OTH_CTRL_DESC", "Null"},
      {"ED_FUG.OTH_CTRL_EFFIC_CO", "Null"},
      {"ED_FUG.OTH_CTRL_EFFIC_NOX", "Null"},
      {"ED_FUG.OTH_CTRL_EFFIC_PM10", "Null"},
      {"ED_FUG.OTH_CTRL_EFFIC_SOX", "Null"},
      {"ED_FUG.OTH_CTRL_EFFIC_VOC", "Null"}}},
    {"STO",
     {{"ED_STO.TANK_SHELL_LENGTH", "Null"},
      {"ED_STO.TANK_SHELL_WIDTH1", "Null"},
      {"ED_STO.TANK_SHELL_WIDTH2", "Null"}}}};

// The same of a full month. A boiler that burns gas has no use for oil.
const std::map<std::string, Changed> kDroppedOfMonth = {
    {"BOI", {{"EA_BOI.FUEL_USE_RATE_OIL", "Null"}, {"EA_BOI.TOT_FUEL_USE_OIL", "Null"}}}};

// Values that a save of a blank description sets.
const std::map<std::string, Changed> kChosen = {{"AMI", {{"ED_AMI.MODELINPUTS_FLG", "\"False\""}}},
                                                {"MUD", {{"ED_MUD.Mud_Typ", "\"water-based\""}}},
                                                {"PRE", {{"ED_PRE.SERVICE_TYP", "\"PC\""}}}};

Changed Of(const std::map<std::string, Changed>& changes, const std::string& type) {
  const auto found = changes.find(type);
  return found == changes.end() ? Changed{} : found->second;
}

bool HasMonths(const SheetSpec& sheet) {
  return sheet.has_activity;
}

bool IsCodedDescription(const FieldSpec& field) {
  return field.stored == Stored::kCode && field.mode != In::kActv;
}

bool HasCodes(const SheetSpec& sheet) {
  return std::any_of(sheet.fields.begin(), sheet.fields.end(), IsCodedDescription);
}

std::vector<const SheetSpec*> SheetsThat(bool (*are)(const SheetSpec&)) {
  std::vector<const SheetSpec*> sheets;
  for (const SheetSpec* sheet : AllSheets())
    if (are(*sheet)) sheets.push_back(sheet);
  return sheets;
}

// What a column holds for the item.
std::string StoredItem(const FieldSpec& field, const Item& item) {
  if (field.stored == Stored::kCode) return item.code;
  if (field.stored == Stored::kYesNo) return item.text == "Yes" ? "1" : "0";
  return item.text;
}

std::string NameOf(const testing::TestParamInfo<const SheetSpec*>& info) {
  return info.param->type;
}

class EverySheetOfMonths : public EverySheet {};
class EverySheetOfCodes : public EverySheet {};

INSTANTIATE_TEST_SUITE_P(, EverySheet, testing::ValuesIn(AllSheets()), NameOf);
INSTANTIATE_TEST_SUITE_P(, EverySheetOfMonths, testing::ValuesIn(SheetsThat(HasMonths)), NameOf);
INSTANTIATE_TEST_SUITE_P(, EverySheetOfCodes, testing::ValuesIn(SheetsThat(HasCodes)), NameOf);

TEST(Sheets, are_sixteen_under_their_type_numbers) {
  const std::vector<std::pair<std::string, int>> numbers = {
      {"AMI", 1}, {"BOI", 2},  {"DIE", 3},  {"FLA", 4},  {"FUG", 5},  {"GLY", 6},  {"DRI", 7},  {"LOA", 8},
      {"NGE", 9}, {"NGT", 10}, {"STO", 11}, {"VEN", 12}, {"LOS", 13}, {"MUD", 14}, {"PNE", 15}, {"PRE", 16}};
  ASSERT_EQ(AllSheets().size(), numbers.size());
  for (const auto& [type, number] : numbers) {
    ASSERT_NE(FindSheet(type), nullptr) << type;
    EXPECT_EQ(FindSheet(type)->number, number) << type;
    EXPECT_EQ(FindSheet(type)->has_activity, type != "FUG") << type;
  }
  EXPECT_EQ(FindSheet("DRI")->letters, "JAC");
  EXPECT_EQ(FindSheet("XYZ"), nullptr);
}

TEST_P(EverySheet, names_only_columns_of_its_own_tables) {
  run.StartWithStructure();
  for (const FieldSpec& field : sheet().fields) {
    if (field.column.empty()) continue;
    const std::string table = field.mode == In::kActv ? sheet().ea_table() : sheet().ed_table();
    ASSERT_FALSE(table.empty()) << field.control;
    EXPECT_EQ(run.Count("pragma_table_info('" + table + "') WHERE name='" + field.column + "' COLLATE NOCASE"), 1)
        << field.control << " " << table << "." << field.column;
  }
}

TEST_P(EverySheet, stores_no_two_fields_in_one_column) {
  Names columns;
  for (const FieldSpec& field : sheet().fields) {
    if (field.column.empty()) continue;
    const std::string column = (field.mode == In::kActv ? "EA." : "ED.") + Lower(field.column);
    EXPECT_TRUE(columns.insert(column).second) << field.control << " " << column;
  }
}

TEST_P(EverySheet, tags_every_field_that_can_carry_a_finding) {
  Begin(Mode::kDesc);
  const Names tagged_comments = {"AMI", "FLA", "STO"};
  Names untagged;
  if (!tagged_comments.contains(type())) untagged.insert("txt" + sheet().letters + "_Comments");
  if (type() == "AMI") untagged.insert({"OptAMI_ModlEdit", "zOptAMI_EmisEdit"});
  if (sheet().has_activity) untagged.insert(sheet().status_box());
  Names found;
  for (const Control& control : run.s.desk.Find(sheet().form())->controls()) {
    const bool data = control.kind == Kind::kText || control.kind == Kind::kMasked || control.kind == Kind::kList ||
                      control.kind == Kind::kCheck || control.kind == Kind::kOption;
    if (data && control.tag.empty()) found.insert(control.name);
  }
  EXPECT_EQ(found, untagged);
}

TEST_P(EverySheet, shares_a_tag_only_where_two_fields_stand_for_one) {
  const std::map<std::string, Names> shared = {
      {"BOI",
       {"Max Rated Fuel Usage", "Average Fuel Usage", "Fuel Heating Value", "Fuel H2S Content", "Total Fuel Used"}},
      {"NGE", {"Engine Burn"}}};
  Names tags, twice;
  for (const FieldSpec& field : sheet().fields)
    if (!field.tag.empty() && !tags.insert(TrimRight(field.tag)).second) twice.insert(TrimRight(field.tag));
  EXPECT_EQ(twice, shared.contains(type()) ? shared.at(type()) : Names{});
}

TEST_P(EverySheet, has_rules_only_for_tagged_fields_of_its_form) {
  Begin(Mode::kDesc);
  const Form& form = *run.s.desk.Find(sheet().form());
  int rules = 0;
  for (const RuleGroup& group : sheet().rules) {
    EXPECT_TRUE(group.name.starts_with("Check" + sheet().letters)) << group.name;
    for (const Rule& rule : group.rules) {
      ++rules;
      const Control* field = form.Find(rule.field);
      ASSERT_NE(field, nullptr) << rule.field;
      EXPECT_FALSE(field->tag.empty()) << rule.field;
      EXPECT_FALSE(rule.check.name.empty()) << rule.field;
      EXPECT_TRUE(rule.check.run != nullptr) << rule.field;
    }
  }
  EXPECT_GT(rules, 0);
}

TEST_P(EverySheet, can_run_its_rules_in_each_of_its_modes) {
  Begin(Mode::kDesc);
  for (const Mode mode : {Mode::kDesc, Mode::kActv}) {
    if (mode == Mode::kActv && !sheet().has_activity) continue;
    Look(mode);
    run.Click("cmdQC");
    const Texts boxes = run.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1u) << ModeText(mode);
    EXPECT_TRUE(boxes.front().starts_with("QC completed")) << boxes.front();
    const std::string of_mode = "QC WHERE EditMode='" + std::string(ModeText(mode)) + "' AND ";
    const std::string elsewhere = mode == Mode::kActv ? "[Month]<>1 OR [Year]<>2017" : "[Month]<>0 OR [Year]<>0";
    EXPECT_EQ(run.Count(of_mode + "(" + elsewhere + ")"), 0);
    EXPECT_EQ(run.Count("QC WHERE EditMode NOT IN ('DESC','ACTV')"), 0);
  }
}

TEST_P(EverySheet, keeps_every_value_of_a_full_description_that_is_saved_untouched) {
  Begin(Mode::kDesc);
  Fill(sheet().ed_table());
  Look(Mode::kDesc);
  const Dump before = All();
  run.Keep({});
  EXPECT_EQ(Changes(before, All()), Of(kDropped, type()));
  EXPECT_TRUE(run.TakeBoxes().empty());
}

TEST_P(EverySheetOfMonths, keeps_every_value_of_a_full_month_that_is_saved_untouched) {
  Begin(Mode::kActv);
  Fill(sheet().ed_table());
  Fill(sheet().ea_table());
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_COMNT_TXT='said',EA_QC_DT='2017-02-03 04:05:06'");
  Look(Mode::kActv);
  const Dump before = All();
  run.Keep({});
  Changed expected = Of(kDroppedOfMonth, type());
  expected["EA_EQUIP_ACTV.EA_STATUS"] = "\"A\"";
  expected["EA_EQUIP_ACTV.EA_QC_DT"] = "Null";
  EXPECT_EQ(Changes(before, All()), expected);
  EXPECT_TRUE(run.TakeBoxes().empty());
}

TEST_P(EverySheet, shows_a_record_of_nothing_but_Nulls_blank_and_without_a_box) {
  Begin(Mode::kDesc);
  for (const Mode mode : {Mode::kDesc, Mode::kActv}) {
    if (mode == Mode::kActv && !sheet().has_activity) continue;
    Look(mode);
    EXPECT_TRUE(run.TakeBoxes().empty());
    for (const FieldSpec& field : sheet().fields) {
      const bool chosen = field.control == "cmbMud_MudType" || field.control == "cmbPRE_ServiceType";
      EXPECT_EQ(run.Text(field.control), !chosen ? "" : type() == "MUD" ? "water-based" : "PC") << field.control;
      if (field.kind == Kind::kList) {
        EXPECT_EQ(run.At(field.control).index, chosen ? 0 : -1) << field.control;
      }
    }
    if (sheet().has_activity) {
      EXPECT_FALSE(run.At(sheet().status_box()).checked);
    }
    EXPECT_EQ(run.Text(sheet().comments()), "");
  }
}

TEST_P(EverySheet, stores_nothing_of_a_blank_record_but_what_it_chooses_by_itself) {
  Begin(Mode::kDesc);
  Dump before = All();
  run.Keep({});
  EXPECT_EQ(Changes(before, All()), Of(kChosen, type()));
  if (!sheet().has_activity) return;
  Look(Mode::kActv);
  before = All();
  run.Keep({});
  EXPECT_EQ(Changes(before, All()), (Changed{{"EA_EQUIP_ACTV.EA_STATUS", "\"A\""}}));
}

TEST_P(EverySheet, shows_and_keeps_every_item_of_every_list) {
  Begin(Mode::kDesc);
  Fill(sheet().ed_table());
  if (sheet().has_activity) {
    Look(Mode::kActv);
    Fill(sheet().ea_table());
  }
  int tried = 0;
  for (const FieldSpec& field : sheet().fields) {
    if (field.kind != Kind::kList || field.column.empty() || !field.loads) continue;
    const bool monthly = field.mode == In::kActv;
    const std::string table = monthly ? sheet().ea_table() : sheet().ed_table();
    // the last comes first, so that the first is what the lists after it find
    for (auto at = field.items.rbegin(); at != field.items.rend(); ++at) {
      const Item& item = *at;
      const std::string code = StoredItem(field, item);
      Look(monthly ? Mode::kActv : Mode::kDesc);
      const bool yes_no = field.stored == Stored::kYesNo;
      run.s.db.Execute("UPDATE " + table + " SET [" + field.column + "]=? WHERE " + KeyOf(table),
                       {yes_no ? Value(code == "1") : Value(code)});
      Look(monthly ? Mode::kActv : Mode::kDesc);
      const bool unknown = field.control == "cmbPRE_ServiceType" && (code == "FC" || code == "Other");
      EXPECT_EQ(run.Text(field.control), unknown ? "PC" : item.text) << field.control;
      run.Keep({});
      EXPECT_EQ(
          NullToEmpty(run.Sql("SELECT CAST([" + field.column + "] AS TEXT) FROM " + table + " WHERE " + KeyOf(table))),
          unknown ? "PC" : code)
          << field.control;
      ++tried;
    }
  }
  EXPECT_TRUE(tried > 0 || type() == "DRI" || type() == "PNE") << "no list was tried";
}

TEST_P(EverySheetOfCodes, shows_no_choice_for_a_code_that_it_does_not_know_and_keeps_the_code) {
  Begin(Mode::kDesc);
  std::vector<FieldSpec> fields;
  std::copy_if(sheet().fields.begin(), sheet().fields.end(), std::back_inserter(fields), IsCodedDescription);
  for (const FieldSpec& field : fields)
    run.s.db.Execute("UPDATE " + sheet().ed_table() + " SET [" + field.column + "]='?' WHERE " +
                     KeyOf(sheet().ed_table()));
  Look(Mode::kDesc);
  for (const FieldSpec& field : fields) {
    EXPECT_EQ(run.Text(field.control), "") << field.control;
    EXPECT_EQ(run.At(field.control).index, -1) << field.control;
  }
  run.Keep({});
  for (const FieldSpec& field : fields)
    EXPECT_EQ(run.Count(sheet().ed_table() + " WHERE [" + field.column + "]='?' AND " + KeyOf(sheet().ed_table())), 1)
        << field.control;
}

TEST_P(EverySheetOfMonths, keeps_the_date_that_the_run_at_the_end_of_an_edit_wrote) {
  Begin(Mode::kActv);
  run.Click("cmdEdit");
  run.Click("cmdSaveExit");
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_QC_DT='2017-03-05 14:02:00' AND " + KeyOf("EA_EQUIP_ACTV")), 1);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_QC_DT IS NOT NULL"), 1);
}

TEST_P(EverySheetOfMonths, keeps_a_month_without_emissions_and_runs_no_rule_on_it) {
  Begin(Mode::kActv);
  run.Click("cmdEdit");
  run.Check(sheet().status_box(), true);
  run.Click("cmdSaveExit");
  EXPECT_EQ(run.Count("QC"), 0);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_STATUS='I' AND EA_QC_DT IS NULL AND " + KeyOf("EA_EQUIP_ACTV")), 1);
  EXPECT_TRUE(run.At(sheet().status_box()).checked);
  EXPECT_TRUE(run.Visible("lblNoEmissions"));
  run.Keep({});
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_STATUS='I' AND " + KeyOf("EA_EQUIP_ACTV")), 1);
}

TEST_P(EverySheet, locks_every_field_in_view_and_opens_those_of_its_mode_in_an_edit) {
  Begin(Mode::kDesc);
  for (const Mode mode : {Mode::kDesc, Mode::kActv}) {
    if (mode == Mode::kActv && !sheet().has_activity) continue;
    Look(mode);
    for (const FieldSpec& field : sheet().fields) {
      const Control& control = run.At(field.control);
      EXPECT_TRUE(control.locked || !control.enabled) << field.control << " in view";
    }
    EXPECT_EQ(run.At(sheet().frame()).caption, sheet().title);
    run.Click("cmdEdit");
    EXPECT_EQ(run.At(sheet().frame()).caption, sheet().edit_title);
    int open = 0;
    for (const FieldSpec& field : sheet().fields) {
      const bool own = (field.mode == In::kActv) == (mode == Mode::kActv);
      const Control& control = run.At(field.control);
      const bool is_open = control.enabled && !control.locked;
      EXPECT_TRUE(own || !is_open) << field.control << " belongs to the other mode";
      open += own && is_open;
    }
    EXPECT_GT(open, 0);
    run.Click("cmdCANCEL");
  }
}

}  // namespace
}  // namespace merlu::test
