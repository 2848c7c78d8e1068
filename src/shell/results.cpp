#include "shell/results.h"

#include <algorithm>
#include <vector>

#include "qc/qc_list.h"
#include "shell/comment_dialog.h"
#include "shell/messages.h"
#include "shell/navigation.h"

namespace merlu {
namespace {

// The row's place among the rows with its text: two structures can have one name.
std::ptrdiff_t AmongEquals(const Control& list, std::size_t row) {
  const auto& text = list.rows[row].front();
  return std::count_if(list.rows.begin(), list.rows.begin() + static_cast<std::ptrdiff_t>(row),
                       [&](const auto& other) { return other.front() == text && other.back() == kSummaryMark; });
}

void GoToSummed(Session& s, const Control& list, std::size_t row) {
  const std::vector<SummaryRow> summary =
      s.current.Is(level::kStructure) ? EquipmentSummary(s, s.current) : StructureSummary(s, s.current);
  std::ptrdiff_t before = AmongEquals(list, row);
  for (const SummaryRow& summed : summary)
    if (summed.text == list.rows[row].front() && before-- == 0) {
      GoTo(s, summed.at, s.mode);
      return;
    }
}

}  // namespace

void OpenResult(Session& s, Form& form, const std::string& name, int row) {
  const Control& list = form.At(name);
  if (row < 0 || row >= static_cast<int>(list.rows.size())) return;
  const auto at = static_cast<std::size_t>(row);
  if (list.rows[at].back() != kSummaryMark) {
    GoToField(s, std::string(list.rows[at].front()));
    return;
  }
  Plainly(s, [&] { GoToSummed(s, list, at); });
}

void DoubleClickResult(Session& s, Form& form, const std::string& name) {
  const std::vector<int>& picked = form.At(name).picked;
  if (s.editing || picked.empty()) return EditQCComment(s, form, name);
  OpenResult(s, form, name, picked.front());
}

}  // namespace merlu
