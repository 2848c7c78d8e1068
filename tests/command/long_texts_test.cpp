// Screens, files and commands on an inventory with long texts in every column: the work grows as the text does.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "command/commands.h"
#include "inventory.h"
#include "script/player.h"
#include "session/node_keys.h"
#include "support/long_texts.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// The lines of a script; what was done since the line before is timed.
class TimedLines : public std::streambuf {
 public:
  explicit TimedLines(std::vector<std::string> lines) : lines_(std::move(lines)) {}
  std::vector<Piece> pieces;

 protected:
  int_type underflow() override {
    const double now = ProcessorSeconds();
    if (next_ > 0) pieces.push_back({lines_[next_ - 1].substr(0, 40), now - began_});
    if (next_ == lines_.size()) return traits_type::eof();
    line_ = lines_[next_++] + "\n";
    setg(line_.data(), line_.data(), line_.data() + line_.size());
    began_ = ProcessorSeconds();
    return traits_type::to_int_type(line_[0]);
  }

 private:
  std::vector<std::string> lines_;
  std::size_t next_ = 0;
  std::string line_;
  double began_ = 0;
};

class LongTexts : public testing::Test {
 protected:
  void SetUp() override {
    InventoryPlan plan;
    plan.structures = 1;
    plan.equipment = 4;
    plan.types = {"FLA", "NGE", "STO", "FUG"};
    plan.months = 1;
    plan.fault_share = 1;
    MakeInventory(TemplatePath(), Path("start.mdb"), plan);
    Play("start.mdb", {Key(1), "click cmdQC"});
    ASSERT_GT(ToInteger(RawValue(Path("start.mdb"), "SELECT COUNT(*) FROM QC")), 0);
    flare_ = NullToEmpty(
        RawValue(Path("start.mdb"), "SELECT ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC WHERE ED_EQUIP_TYP='FLA'"));
  }
  std::string Path(const std::string& name) const { return folder_.path(name); }

  // The inventory anew, with texts of that length, and another one with another structure.
  void Fill(int bytes) {
    for (const auto& entry : fs::directory_iterator(folder_.path()))
      if (entry.path().filename() != "start.mdb") fs::remove_all(entry.path());
    fs::copy_file(Path("start.mdb"), Path("file.mdb"));
    FillTexts(Path("file.mdb"), bytes, flare_);
    fs::copy_file(Path("file.mdb"), Path("other.mdb"));
    Raw(Path("other.mdb"), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='20002'"});
  }
  std::string Key(int month, bool flare = false) const {
    const std::string key =
        month > 0 ? StructureMonthKey("01234", month, 2017, "10001", "1") : StructureKey("01234", "10001", "1");
    return "select \"" + key + (flare ? EquipmentSuffix("FLA", flare_) : "") + "\"";
  }

  std::vector<Piece> Play(const std::string& file, std::vector<std::string> lines) {
    lines.insert(lines.begin(), "start \"" + Path(file) + "\"");
    TimedLines timed(std::move(lines));
    std::istream in(&timed);
    std::ostringstream out;
    PlayOptions options;
    options.settings_file = Path("settings.ini");
    options.clock = DateTime{2017, 3, 5, 14, 2, 0};
    Player(in, out, options).Run();
    std::istringstream answers(out.str());
    for (std::string answer; std::getline(answers, answer);)
      EXPECT_TRUE(answer.find("\"ok\":true") != std::string::npos)
          << answer.substr(0, 200) << " ... "
          << answer.substr(answer.size() - std::min<std::size_t>(answer.size(), 400));
    return timed.pieces;
  }

  std::vector<Piece> Screens() {
    const std::string file = "file \"" + Path("") + "/";
    return Play(
        "file.mdb",
        {// sheets, docks and search
         Key(1), "controls", Key(1, true), "controls", "click mnuRFindings", "controls", "set txtFND_Filter ipsum",
         "set txtFND_Filter \"\"", "click mnuRCompleteness", "click mnuRStrip", Key(1), Key(1, true), "click cmdEdit",
         "set txtFLA_HrsOperated 700", "click cmdSaveExit", "click mnuEUndo", "click mnuERedo", Key(1), "click cmdQC",
         "click mnuFQC", "click mnuRFind", "set txtGOT_Text fla", "set txtGOT_Text lorem", "controls",
         "click cmdCANCEL", "set txtTREE_Filter fla", "set txtTREE_Filter \"\"", "tree",
         // the hand-in and the month grid
         "click mnuRHandIn", "set cmbHND_Month 2017/01", "click cmdHND_CheckAll", file + "state.pdf\"",
         "click cmdHND_Report", "controls", "click cmdClose", Key(1, true), "click mnuNGrid", "controls",
         "cell grdGRD 0 txtFLA_HrsOperated 650", "click cmdGRD_Save", "click cmdCANCEL",
         // workbooks, history, documents
         file + "month.xlsx\"", "click mnuFWorkbookMake", file + "month.xlsx\"", "click mnuFWorkbookRead", "controls",
         "click cmdCANCEL", "click mnuRHistory", "controls", "click cmdClose", file + "summary.pdf\"",
         "answer Yes Yes Yes", "click frmInvQCPrint", "click mnuFExport", "pick lvwSurveys 0",
         "set txtExportFilename \"" + Path("survey.mdb") + "\"", "click cmdOK", "click cmdCANCEL",
         "click mnuFExportInventory", "set txtExportFilename \"" + Path("all.mdb") + "\"", "click cmdOK",
         "click cmdCANCEL",
         // descriptions
         "click mnuSetEditMode", Key(0), "controls", "click cmdQC", Key(0, true), "click cmdEdit", "controls",
         "click cmdSaveExit", "click mnuEStructS", "pick lvwStructures 0",
         "set txtExportFilename \"" + Path("structure.mdb") + "\"", "click cmdExport", "click cmdCANCEL",
         "click mnuEStructB", "set txtImportFilename \"" + Path("other.mdb") + "\"", "click cmdLoad",
         "pick lvwStructures 0", "click cmdPlan", "controls", "click cmdClose", "click cmdImport", "click cmdCANCEL",
         "click mnuEUndo"});
  }

  std::vector<Piece> Commands() {
    static const std::vector<std::vector<std::string>> all = {
        {"check", "file.mdb"},
        {"check", "file.mdb", "--format", "csv"},
        {"check", "file.mdb", "--format", "json"},
        {"findings", "file.mdb"},
        {"findings", "file.mdb", "--format", "json"},
        {"findings", "file.mdb", "-o", "findings.xlsx"},
        {"ready", "file.mdb", "-o", "ready.pdf"},
        {"report", "file.mdb", "-o", "report.pdf"},
        {"export", "file.mdb", "--month", "1", "-o", "month.mdb"},
        {"export", "file.mdb", "--inventory", "-o", "inventory.mdb"},
        {"export", "file.mdb", "--structures", "10001/1", "-o", "structures.mdb"},
        {"import", "file.mdb", "--from", "other.mdb", "--dry-run"},
        {"diff", "file.mdb", "start.mdb"},
        {"diff", "file.mdb", "other.mdb", "--format", "json"},
        {"backup", "file.mdb"},
        {"workbook", "file.mdb", "--month", "1", "-o", "book.xlsx"},
        {"read", "file.mdb", "--from", "book.xlsx", "--dry-run"},
        {"read", "file.mdb", "--from", "book.xlsx"},
        {"import", "file.mdb", "--from", "other.mdb"},
    };
    std::vector<Piece> pieces;
    for (const std::vector<std::string>& line : all) {
      std::vector<std::string> words;
      std::string what = line.front();
      for (auto word = line.begin() + 1; word != line.end(); ++word) {
        words.push_back(word->find('.') == std::string::npos ? *word : Path(*word));
        what += " " + *word;
      }
      std::ostringstream out, err;
      Console console{out, err};
      const double began = ProcessorSeconds();
      const Status status = RunCommand(*FindCommand(line.front()), words, console);
      pieces.push_back({what, ProcessorSeconds() - began});
      EXPECT_TRUE(status == Status::kWell || status == Status::kSomething) << what << ": " << err.str().substr(0, 300);
    }
    return pieces;
  }

 private:
  TemporaryFolder folder_;
  std::string flare_;
};

TEST_F(LongTexts, are_shown_written_and_read_in_a_time_that_grows_as_they_do) {
  ExpectLinear([this](int bytes) {
    Fill(bytes);
    return Screens();
  });
}

TEST_F(LongTexts, are_gone_through_by_commands_in_a_time_that_grows_as_they_do) {
  ExpectLinear([this](int bytes) {
    Fill(bytes);
    return Commands();
  });
}

}  // namespace
}  // namespace merlu::test
