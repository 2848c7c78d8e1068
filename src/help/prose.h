// The written part of the help: data/help/*.md. Besides headings, paragraphs and lists a file holds entries, one per
// paragraph:
//
//   txtFLA_VolFlared: what the field is, and where its figure is found
//   txtFLA_VolFlared!: what to do about a finding
//
// In shared.md a name that begins with "*" applies to any sheet's letters (*_OtherControlDesc), "check" and the
// beginning of a check's name give the advice on its finding, and "unit" spells a unit out.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace merlu {

struct Prose {
  std::string text;  // Markdown, without the entries
  std::map<std::string, std::string> entries;
};

Prose ReadProse(std::string_view text);

// The entry of a control: its own, or the shared one for its name after the sheet's letters; null without one. `suffix`
// is "" for the description of the field, "!" for the advice on a finding.
const std::string* FindEntry(const Prose& own, const Prose& shared, const std::string& control,
                             const std::string& behind);

// The shared name of a control: "*" and its name from the first underscore on; empty without one.
std::string SharedName(const std::string& control);

}  // namespace merlu
