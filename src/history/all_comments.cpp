#include "history/all_comments.h"

namespace merlu {

std::vector<std::pair<std::string, KnownComment>> AllComments(const Companion& companion) {
  std::vector<std::pair<std::string, KnownComment>> all;
  if (companion.db() == nullptr) return all;
  companion.db()->ForEach("SELECT finding,comment,value FROM history.comment", {}, [&](const RowView& row) {
    const auto text = [&row](int column) { return std::string(row.Text(column)); };
    all.emplace_back(text(0), KnownComment{text(1), text(2)});
  });
  return all;
}

}  // namespace merlu
