#include "qc/comment_key.h"

#include "base/text.h"

namespace merlu {

std::string CommentKey(const QCLocation& l, std::string_view tag, std::string_view text) {
  constexpr char kBetween = '\x1f';
  const bool equipment = l.Level == level::kEquipment;
  std::string key = l.Level + kBetween + std::to_string(l.Year) + kBetween + std::to_string(l.Month);
  for (const std::string& part :
       {l.CmplxID, l.StructID, equipment ? l.EquipType : "", equipment ? l.EquipID : "", TrimRight(tag)})
    key += kBetween + Lower(Trim(part));
  return (key += kBetween).append(text);
}

}  // namespace merlu
