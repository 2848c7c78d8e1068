#include "rules/sheet_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "session/types.h"
#include "sheets/record_rows.h"
#include "sheets/structure.h"

namespace merlu::test {

SheetRecord::SheetRecord(const std::string& type, Mode mode, const Values& values, int month)
    : rules_(&RulesOf(type.empty() ? StructureSheet() : FindType(type)->sheet())),
      mode_(mode),
      month_(month),
      view_(rules_->fields()) {
  GoTo(mode);
  Put(values);
}

void SheetRecord::GoTo(Mode mode) {
  mode_ = mode;
  context_.year = 2017;
  context_.month = mode == Mode::kActv ? month_ : 0;
  context_.month_found = mode == Mode::kActv;
  context_.has_equipment = true;
  marks_.assign(static_cast<std::size_t>(rules_->fields().size()), Mark::kPlain);
}

void SheetRecord::Set(const std::string& control, const std::string& text) {
  view_.SetText(rules_->fields().At(control), text);
}

void SheetRecord::Put(const Values& values) {
  for (const auto& [control, text] : values) Set(control, text);
}

void SheetRecord::Check(const std::string& control, bool on) {
  view_.SetChecked(rules_->fields().At(control), on);
}

void SheetRecord::SetTotal(const std::string& column, const std::string& total) {
  const auto* const found = std::find(kTotalColumns.begin(), kTotalColumns.end(), std::string_view(column));
  ASSERT_NE(found, kTotalColumns.end()) << column;
  context_.totals[static_cast<std::size_t>(found - kTotalColumns.begin())] = total == "NULL" ? 0 : std::stod(total);
}

void SheetRecord::Run() {
  if (forgets_) Forget();
  Verdicts verdicts;
  Judge(*rules_, mode_, view_, context_, verdicts);
  EXPECT_TRUE(verdicts.faults.empty());
  for (const Verdict& verdict : verdicts.all) Play(verdict);
}

void SheetRecord::Play(const Verdict& verdict) {
  if (verdict.mark != Mark::kUntouched) marks_[static_cast<std::size_t>(verdict.field)] = verdict.mark;
  if (verdict.log == Verdict::Log::kNothing) return;
  const auto found =
      std::find_if(Log().begin(), Log().end(), [&](const auto& one) { return IsSameTag(one.first, verdict.tag); });
  if (verdict.log != Verdict::Log::kRaise) {
    if (found != Log().end() && Withdraws(verdict, found->second)) Log().erase(found);
  } else if (found != Log().end()) {
    found->second = verdict.text;
  } else {
    Leave(std::string(verdict.tag), std::string(verdict.text));
  }
}

std::string SheetRecord::Finding(const std::string& tag, Mode mode) const {
  for (const auto& [of, text] : logs_[mode == Mode::kActv ? 1 : 0])
    if (IsSameTag(of, tag)) return text;
  return "";
}

std::string SheetRecord::Fields() const {
  std::string fields;
  for (const auto& [tag, text] : Log()) fields += (fields.empty() ? "" : "|") + tag;
  return fields;
}

bool SheetRecord::FindsOnlyBlanks() const {
  return std::all_of(Log().begin(), Log().end(), [](const auto& one) { return one.second == kBlankFinding; });
}

int SheetRecord::CountOf(const std::string& beginning) const {
  return static_cast<int>(
      std::count_if(Log().begin(), Log().end(), [&](const auto& one) { return one.first.starts_with(beginning); }));
}

const std::string& SheetRecord::TagOf(const std::string& control) const {
  return rules_->fields()[rules_->fields().At(control)].tag;
}

Mark SheetRecord::MarkOf(const std::string& control) const {
  return marks_[static_cast<std::size_t>(rules_->fields().At(control))];
}

}  // namespace merlu::test
