// The help covers every field and every rule, and nothing that does not exist.
#include "help/help_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <set>
#include <sstream>

#include "base/fault.h"
#include "base/rtf_reader.h"
#include "help/help_files.h"
#include "help/markdown.h"
#include "session/types.h"
#include "sheets/wording.h"
#include "shell/help.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

const std::string kProse = std::string(MERLU_SOURCE_FOLDER) + "/data/help";

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

Prose Read(const std::string& file) {
  return ReadProse(ReadFile(kProse + "/" + file));
}

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::set<std::string> NamesOf(const HelpPage& page) {
  std::set<std::string> names;
  for (const FieldSpec& field : page.fields) names.insert(field.control);
  for (const HelpControl& control : page.controls) names.insert(control.name);
  return names;
}

std::string NameOf(const HelpPage& page) {
  std::string name;
  for (const char c : page.prose.substr(0, page.prose.size() - 3))
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) name += c;
  return name;
}

class Help : public testing::TestWithParam<HelpPage> {
 protected:
  // As the program reads it, from the file beside it.
  Document Built() const { return ReadRtf(ReadFile(std::string(MERLU_BUILD_FOLDER) + "/" + GetParam().file)); }
  Prose shared = Read("shared.md");
  Prose own = Read(GetParam().prose);
};

TEST_P(Help, has_prose_for_every_field_and_control_of_the_screen) {
  EXPECT_GT(own.text.size(), 150u) << "what the screen is for";
  for (const std::string& name : NamesOf(GetParam())) {
    const std::string* entry = FindEntry(own, shared, name, "");
    EXPECT_TRUE(entry != nullptr && entry->size() > 5) << name;
  }
}

TEST_P(Help, names_no_control_that_the_screen_lacks) {
  std::set<std::string> known;
  for (const std::string& name : NamesOf(GetParam())) known.insert({name, SharedName(name)});
  for (const auto& [name, text] : own.entries) {
    const std::string control = name.ends_with('!') ? name.substr(0, name.size() - 1) : name;
    EXPECT_TRUE(known.contains(control)) << GetParam().prose << " speaks of " << name;
  }
}

TEST_P(Help, shows_every_caption_choice_and_rule_in_the_file_beside_the_program) {
  const HelpPage& page = GetParam();
  const std::string text = PlainText(Built());
  for (const FieldSpec& field : page.fields) {
    EXPECT_TRUE(Holds(text, BareCaption(CaptionOf(page.fields, field.control)))) << field.control;
    for (const Item& item : field.items) EXPECT_TRUE(Holds(text, item.text)) << field.control << " " << item.text;
  }
  for (const Rule& rule : page.rules) {
    const std::string when = ConditionText(page.fields, rule.When(), {"“", "”", true});
    const std::string line = "Rule: " + DemandText(rule.check) + (when.empty() ? "" : " while " + when) + ".\n";
    EXPECT_TRUE(Holds(text, line)) << rule.field << ": " << line;
  }
}

TEST_P(Help, can_be_entered_at_every_field) {
  std::set<std::string> bookmarks;
  const Document built = Built();
  for (const Block& block : built.blocks)
    bookmarks.insert(block.paragraph.bookmarks.begin(), block.paragraph.bookmarks.end());
  for (const std::string& name : NamesOf(GetParam())) EXPECT_TRUE(bookmarks.contains(name)) << name;
}

TEST_P(Help, beside_the_program_is_what_the_prose_and_the_tables_make_today) {
  EXPECT_EQ(ToHtml(Built()), ToHtml(ReadHelpPage(GetParam().file, kProse)));
}

TEST_P(Help, tells_what_to_do_about_each_kind_of_finding) {
  for (const Rule& rule : GetParam().rules) {
    const bool told = std::any_of(shared.entries.begin(), shared.entries.end(), [&](const auto& entry) {
      return entry.first.starts_with("check ") && rule.check.name.starts_with(entry.first.substr(6));
    });
    EXPECT_TRUE(told) << rule.check.name;
  }
}

INSTANTIATE_TEST_SUITE_P(of, Help, testing::ValuesIn(HelpPages()), [](const auto& info) { return NameOf(info.param); });

TEST(HelpFiles, have_the_names_that_the_menus_know) {
  EXPECT_EQ(HelpPages().size(), 19 + ScreenHelpFiles().size());
  std::set<std::string> files;
  for (const HelpPage& page : HelpPages()) files.insert(page.file);
  for (const char* screen : {"User", "Survey", "Structure"})
    EXPECT_TRUE(files.contains(std::string(screen) + " help.rtf"));
  for (const EquipmentType& type : EquipmentTypes())
    EXPECT_TRUE(files.contains(std::string(type.code) + " help.rtf")) << type.code;
}

TEST(HelpFiles, share_prose_only_for_what_some_screen_has) {
  std::set<std::string> shared_names, checks, units;
  for (const HelpPage& page : HelpPages()) {
    for (const std::string& name : NamesOf(page)) shared_names.insert(SharedName(name));
    for (const Rule& rule : page.rules) checks.insert(rule.check.name);
    for (const FieldSpec& field : page.fields)
      if (!field.unit.empty()) units.insert(field.unit);
  }
  for (const auto& [name, text] : Read("shared.md").entries) {
    const std::string bare = name.ends_with('!') ? name.substr(0, name.size() - 1) : name;
    if (bare.starts_with("check "))
      EXPECT_TRUE(std::any_of(checks.begin(), checks.end(), [&](const auto& c) {
        return c.starts_with(bare.substr(6));
      })) << name;
    else if (bare.starts_with("unit "))
      EXPECT_EQ(units.erase(bare.substr(5)), 1u) << name;
    else
      EXPECT_TRUE(shared_names.contains(bare)) << name;
  }
  for (const std::string& unit : units) ADD_FAILURE() << "not spelt out: " << unit;
}

TEST(HelpFiles, say_something_of_their_own_about_nearly_every_field) {
  std::set<std::string> texts;
  std::size_t entries = 0;
  for (const HelpPage& page : HelpPages())
    for (const auto& [name, text] : Read(page.prose).entries) {
      ++entries;
      texts.insert(text);
    }
  EXPECT_GT(entries, 350u);
  EXPECT_GT(texts.size() * 100, entries * 95) << "the same sentence stands again and again";
}

TEST(HelpFiles, come_with_the_documents_that_the_menu_opens) {
  for (const HelpDocumentFile& document : HelpDocumentFiles()) {
    const std::string page = ReadFile(std::string(MERLU_BUILD_FOLDER) + "/" + document.file);
    EXPECT_TRUE(Holds(page, "<title>" + document.title + "</title>")) << document.file;
    EXPECT_TRUE(Holds(page, "<h1>")) << document.file;
  }
}

TEST(HelpFiles, hold_the_pictures_of_their_documents) {
  const std::string docs = std::string(MERLU_SOURCE_FOLDER) + "/docs/";
  std::size_t pictures = 0;
  for (const HelpDocumentFile& document : HelpDocumentFiles())
    for (const Block& block : ReadHelpDocument(document, docs).blocks)
      for (const TextRun& run : block.paragraph.runs) {
        if (run.picture.empty()) continue;
        EXPECT_TRUE(run.picture.starts_with("data:image/png;base64,iVBORw0KGgo")) << document.file << " " << run.text;
        EXPECT_FALSE(run.text.empty()) << "what it shows, for those who do not see it";
        ++pictures;
      }
  EXPECT_GE(pictures, 8u);
  const HelpDocumentFile missing = {{"none.md"}, "None.html", "None"};
  EXPECT_THROW(ReadHelpDocument(missing, docs), Fault);
}

TEST(HelpFiles, show_pictures_that_they_hold_and_fetch_none) {
  Document document = ReadMarkdown("![a](https://example.org/a.png)");
  EXPECT_FALSE(Holds(ToHtml(document), "img"));
  document.blocks[0].paragraph.runs[0].picture = "data:image/png;base64,AA==";
  EXPECT_TRUE(Holds(ToHtml(document), "<img src=\"data:image/png;base64,AA==\" alt=\"a\">"));
}

TEST(HelpFiles, that_cannot_be_made_are_faults) {
  const TemporaryFolder folder;
  EXPECT_THROW(ReadHelpPage("FLA help.rtf", folder.path()), Fault);
  EXPECT_THROW(ReadHelpPage("XXX help.rtf", kProse), Fault);
  EXPECT_THROW(WriteHelpFiles(kProse, std::string(MERLU_SOURCE_FOLDER) + "/docs", folder.path("none")), Fault);
}

}  // namespace
}  // namespace merlu::test
