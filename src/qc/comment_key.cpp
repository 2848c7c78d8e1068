#include "qc/comment_key.h"

#include "base/numbers.h"
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

bool Explains(std::string_view comment) {
  return comment.find_first_not_of(" \t\r\n\v\f") != std::string_view::npos;
}

bool IsSameValue(const std::string& upon, const std::string& stored) {
  if (upon == stored) return true;
  const std::string text = Trim(upon);
  const bool number = !text.empty() && text.find_first_of("0123456789") < 2 && IsNumericText(stored);
  return number && GeneralNumber(LeadingNumber(text)) == stored;
}

}  // namespace merlu
