// Composes a help page: the prose, and then the facts of the tables about each field and rule.
#include <algorithm>
#include <cctype>
#include <map>

#include "base/text.h"
#include "help/help_pages.h"
#include "help/markdown.h"
#include "sheets/wording.h"

namespace merlu {
namespace {

const CaptionMarks kQuotes{"“", "”", true};

// The words before those that the caption has in brackets.
std::string BeforeBrackets(const std::string& caption) {
  return Trim(caption.substr(0, caption.find('(')));
}

class Composer {
 public:
  Composer(const HelpPage& page, const Prose& own, const Prose& shared) : page_(page), own_(own), shared_(shared) {}

  Document Compose() {
    document_ = ReadMarkdown(own_.text);
    NameHeadings();
    if (page_.by_mode) {
      Fields("Each month", "Typed in Activity Edit Mode, once for every survey month.", In::kActv);
      Fields("Description", "Typed in Description Edit Mode; it holds for every month until it is changed.", In::kDesc);
    }
    Fields("Fields", "", In::kBoth);
    Controls();
    Rules();
    Advice();
    return std::move(document_);
  }

 private:
  // So that a reader can go to a heading of the prose by its words.
  void NameHeadings() {
    for (auto& block : document_.blocks) {
      if (block.paragraph.heading == 0) continue;
      std::string name;
      for (const TextRun& run : block.paragraph.runs) name += run.text;
      std::replace_if(
          name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
      block.paragraph.bookmarks = {name};
    }
  }
  Paragraph& Add(std::vector<TextRun> runs) {
    document_.blocks.push_back({{.runs = std::move(runs)}, {}});
    return document_.blocks.back().paragraph;
  }
  void Heading(int level, const std::string& text) { Add({{.text = text}}).heading = level; }
  void Bullet(const std::string& text) { Add({{.text = text}}).list = 1; }
  void Entry(const std::string* entry) {
    if (entry != nullptr) Add(ReadMarkdownLine(*entry));
  }

  void Fields(const std::string& heading, const std::string& note, In mode) {
    std::string block;
    bool any = false;
    for (const FieldSpec& field : page_.fields) {
      if (field.mode != mode) continue;
      if (!any) {
        Heading(2, heading);
        if (!note.empty()) Add({{.text = note, .italic = true}});
      }
      if (!any || field.block != block) Block(field);
      any = true;
      block = field.block;
      Field(field);
    }
  }

  void Block(const FieldSpec& field) {
    if (field.block == "Monthly activity") return;
    std::string heading = field.block;
    if (page_.pages.size() > 2 && field.page >= 0)
      heading += " (page “" + page_.pages[static_cast<std::size_t>(field.page)] + "”)";
    Heading(3, heading);
  }

  void Field(const FieldSpec& field) {
    const std::string caption = BareCaption(CaptionOf(page_.fields, field.control));
    Heading(4, caption);
    document_.blocks.back().paragraph.bookmarks = {field.control};
    Facts(field, caption);
    Entry(FindEntry(own_, shared_, field.control, ""));
    if (!field.items.empty()) Choices(field);
    RulesOf(field);
    if (const std::string* advice = FindEntry(own_, shared_, field.control, "!")) {
      std::vector<TextRun> runs = ReadMarkdownLine(*advice);
      runs.insert(runs.begin(), {.text = "If it is flagged: ", .bold = true});
      Add(std::move(runs));
    }
  }

  // The unit, the other name, and what the field depends on: one quiet line.
  void Facts(const FieldSpec& field, const std::string& caption) {
    std::vector<std::string> facts;
    if (const std::string* unit = SpeltOut(field.unit)) facts.push_back("Unit: " + *unit);
    const std::string tag = Trim(field.tag);
    if (!tag.empty() && tag != caption && tag != BeforeBrackets(caption))
      facts.push_back("Called “" + tag + "” in findings");
    if (field.stored == Stored::kComputed) facts.emplace_back("Computed by the QC run, not typed");
    std::vector<std::string> conditions;
    for (const Enabling& enabling : page_.enablings) {
      if (enabling.only_off || enabling.only_on ||
          std::find(enabling.fields.begin(), enabling.fields.end(), field.control) == enabling.fields.end())
        continue;
      const std::string words = ConditionText(page_.fields, enabling.when.Words(), kQuotes);
      if (std::find(conditions.begin(), conditions.end(), words) == conditions.end()) conditions.push_back(words);
    }
    for (const std::string& condition : conditions) facts.push_back("Open while " + condition);
    std::string line;
    for (const std::string& fact : facts) line += (line.empty() ? "" : ". ") + fact;
    if (!line.empty()) Add({{.text = line + ".", .italic = true}});
  }

  // "hours" of "hrs"; null for a unit that is not explained, and for none.
  const std::string* SpeltOut(const std::string& unit) const {
    const auto found = shared_.entries.find("unit " + unit);
    return found == shared_.entries.end() ? nullptr : &found->second;
  }

  void Choices(const FieldSpec& field) {
    std::vector<std::string> choices;
    for (const Item& item : field.items) choices.push_back(item.text);
    List("Choices: ", choices);
  }

  void List(const std::string& heading, const std::vector<std::string>& texts) {
    std::string line;
    for (const std::string& text : texts) line += (line.empty() ? "" : "; ") + text;
    if (!line.empty()) Add({{.text = heading, .bold = true}, {.text = line + "."}});
  }

  std::string When(const Rule& rule) const {
    const std::string words = rule.When();
    return words.empty() ? "" : " while " + ConditionText(page_.fields, words, kQuotes);
  }

  void RulesOf(const FieldSpec& field) {
    for (const Rule& rule : page_.rules)
      if (rule.field == field.control) Bullet("Rule: " + DemandText(rule.check) + When(rule) + ".");
  }

  void Controls() {
    if (page_.controls.empty()) return;
    Heading(2, page_.fields.empty() ? "On this screen" : "On this screen too");
    for (const HelpControl& control : page_.controls) {
      Heading(4, BareCaption(control.caption));
      document_.blocks.back().paragraph.bookmarks = {control.name};
      Entry(FindEntry(own_, shared_, control.name, ""));
      List("Columns: ", control.columns);
      List("Choices: ", control.choices);
      for (const Rule& rule : page_.rules)
        if (rule.field == control.name) Bullet("Rule: " + DemandText(rule.check) + When(rule) + ".");
    }
  }

  static const char* Checked(In mode) {
    return mode == In::kActv ? "each month" : mode == In::kDesc ? "description" : "both";
  }

  void Rules() {
    if (page_.rules.empty()) return;
    Heading(2, "The rules at a glance");
    std::vector<TableRow> rows;
    const auto add = [&](std::vector<std::string> cells, bool header) {
      TableRow row{.header = header};
      for (std::string& cell : cells) row.cells.push_back({{.runs = {{.text = std::move(cell)}}}});
      rows.push_back(std::move(row));
    };
    add({"Field", "Held to", "While", "Checked"}, true);
    for (const Rule& rule : page_.rules)
      add({BareCaption(NameOf(rule.field)), DemandText(rule.check), ConditionText(page_.fields, rule.When(), kQuotes),
           Checked(rule.mode)},
          false);
    document_.blocks.push_back({Paragraph(), std::move(rows)});
  }

  std::string NameOf(const std::string& control) const {
    for (const HelpControl& other : page_.controls)
      if (other.name == control) return other.caption;
    return CaptionOf(page_.fields, control);
  }

  // What to do about the findings that this screen can raise, by the kind of check.
  void Advice() {
    std::map<std::string, const std::string*> wanted;
    for (const Rule& rule : page_.rules)
      for (const auto& [name, text] : shared_.entries)
        if (name.starts_with("check ") && rule.check.name.starts_with(name.substr(6))) wanted[name] = &text;
    if (wanted.empty()) return;
    Heading(2, "What to do about a finding");
    for (const auto& [name, text] : wanted) {
      Add(ReadMarkdownLine(*text)).list = 1;
    }
  }

  const HelpPage& page_;
  const Prose& own_;
  const Prose& shared_;
  Document document_;
};

}  // namespace

Document HelpDocument(const HelpPage& page, const Prose& own, const Prose& shared) {
  return Composer(page, own, shared).Compose();
}

}  // namespace merlu
