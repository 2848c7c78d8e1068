#include "sheets/wording.h"

#include <cctype>

#include "base/numbers.h"
#include "base/text.h"

namespace merlu {

std::string CaptionOf(const std::vector<FieldSpec>& fields, const std::string& control) {
  for (const FieldSpec& field : fields)
    if (field.control == control) return field.caption.empty() ? field.tag : field.caption;
  return control;
}

std::string BareCaption(const std::string& caption) {
  std::string bare = Trim(caption);
  if (bare.ends_with(':') || bare.ends_with(';')) bare = Trim(bare.substr(0, bare.size() - 1));
  return bare;
}

std::string SetOf(const FieldSpec& field, const std::string& first_block) {
  const std::string start = first_block + ", ";
  if (!field.block.starts_with(start)) return "";
  std::string set = field.block.substr(start.size());
  if (!set.empty()) set[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(set[0])));
  return set;
}

namespace {

std::string PairQuotes(const std::string& words) {
  std::string paired;
  bool open = false;
  for (const char c : words) {
    if (c == '"')
      paired += (open = !open) ? "“" : "”";
    else
      paired += c;
  }
  return paired;
}

}  // namespace

std::string ConditionText(const std::vector<FieldSpec>& fields, std::string words, const CaptionMarks& marks) {
  for (const FieldSpec& field : fields)
    for (std::size_t at = 0; (at = words.find(field.control, at)) != std::string::npos;) {
      const std::string caption = CaptionOf(fields, field.control);
      const std::string marked = marks.open + (marks.typeset ? BareCaption(caption) : caption) + marks.close;
      words.replace(at, field.control.size(), marked);
      at += marked.size();
    }
  return marks.typeset ? PairQuotes(words) : words;
}

std::string DemandText(const CheckSpec& check) {
  std::string demand;
  if (check.only_if_filled)
    demand = "when filled";
  else if (check.name.starts_with("CheckRequired") || check.name.starts_with("RequiredRange") ||
           check.name == "CheckMin")
    demand = "required";
  if (check.has_low && check.has_high)
    demand += (demand.empty() ? "" : ", ") + GeneralNumber(check.low) + " to " + GeneralNumber(check.high);
  else if (check.has_low)
    demand += (demand.empty() ? "" : ", ") + std::string("at least ") + GeneralNumber(check.low);
  if (!check.text.empty()) demand += (demand.empty() ? "" : "; ") + std::string("“") + check.text + "”";
  if (check.name == "EmptyUnlessNumeric") demand = "emptied when it is no number";
  return demand.empty() ? check.name : demand;
}

}  // namespace merlu
