#include "digests/chapter.h"

#include <exception>
#include <istream>
#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>
#include <streambuf>

#include "inventory.h"
#include "script/player.h"

namespace merlu::test {
namespace {

using Json = nlohmann::json;

const std::vector<std::string> kTypes = {"AMI", "BOI", "VEN", "FLA", "DIE", "DRI", "FUG", "GLY",
                                         "LOA", "LOS", "MUD", "NGE", "NGT", "PNE", "PRE", "STO"};
const std::vector<std::string> kHandedOut = {"survey.mdb", "structure.mdb",    "whole.mdb",
                                             "other.mdb",  "descriptions.xls", "summary.pdf"};

// Lines for the player, each made when the one before it has been answered.
class Lines : public std::streambuf {
 public:
  explicit Lines(std::function<std::optional<std::string>()> next) : next_(std::move(next)) {}

 protected:
  int_type underflow() override {
    const std::optional<std::string> line = next_();
    if (!line) return traits_type::eof();
    line_ = *line + "\n";
    setg(line_.data(), line_.data(), line_.data() + line_.size());
    return traits_type::to_int_type(line_.front());
  }

 private:
  std::function<std::optional<std::string>()> next_;
  std::string line_;
};

// ---- the files ----

InventoryPlan Plan(int structures, int equipment, int months, double faults, std::uint32_t seed) {
  InventoryPlan plan;
  plan.structures = structures;
  plan.equipment = equipment;
  plan.months = months;
  plan.fault_share = faults;
  plan.seed = seed;
  return plan;
}

// Texts and numbers that another program might have stored, in fields of any kind.
void StoreOddValues(const std::string& path, std::mt19937& random, int count) {
  static const std::vector<std::string> texts = {"'abc'", "'1,000'", "'1e3'", "' 7 '", "'NATURAL GAS'", "'yes'",
                                                 "''",    "'x y'",   "NULL",  "'N'",   "'Other'",       "'12.50'"};
  static const std::vector<std::string> numbers = {"NULL", "-1", "0", "0.001", "1e9", "12.5", "100.0001", "98", "3"};
  Database db;
  db.Open(path);
  std::vector<std::pair<std::string, std::string>> columns;  // table, column; what a finding or a key is made of stays
  std::map<std::string, bool> is_text;
  for (const Values& table :
       db.Query("SELECT name FROM sqlite_master WHERE type='table' AND (name LIKE 'ED!____' ESCAPE '!' "
                "OR name LIKE 'EA!____' ESCAPE '!' OR name IN ('PD_PLATFORM_DESC',"
                "'PA_PLATFORM_ACTV','CO_COMPANY')) ORDER BY name")
           .rows)
    for (const Values& column : db.Query("PRAGMA table_info([" + NullToEmpty(table[0]) + "])").rows) {
      const std::string name = NullToEmpty(column[1]), type = NullToEmpty(column[2]);
      if (name.ends_with("_AK") || name.ends_with("_NUM") || name.ends_with("_MO") || name.ends_with("_YR") ||
          name == "status" || (type != "DOUBLE" && type != "TEXT" && type != "INTEGER"))
        continue;
      columns.emplace_back(NullToEmpty(table[0]), name);
      is_text[NullToEmpty(table[0]) + "." + name] = type == "TEXT";
    }
  for (int i = 0; i < count; ++i) {
    const auto& [table, column] = columns[random() % columns.size()];
    const auto& values = is_text[table + "." + column] ? texts : numbers;
    const std::string value = values[random() % values.size()];
    db.Execute("UPDATE [" + table + "] SET [" + column + "]=" + value + " WHERE rowid=(SELECT rowid FROM [" + table +
               "] ORDER BY rowid LIMIT 1 OFFSET " + std::to_string(random() % 3) + ")");
  }
}

void MakeFiles(const TemporaryFolder& folder, std::uint32_t seed, int number) {
  const std::string working = folder.path("inventory.mdb");
  std::mt19937 random(seed * 1000003U + static_cast<std::uint32_t>(number));
  switch (number % 10) {
    case 0: MakeInventory(TemplatePath(), working, Plan(2, 32, 2, 0.3, random())); break;
    case 1: MakeInventory(TemplatePath(), working, Plan(2, 16, 1, 0, random())); break;
    case 2: MakeInventory(TemplatePath(), working, Plan(1, 16, 3, 0.6, random())); break;
    case 3: MakeInventory(TemplatePath(), working, Plan(2, 16, 12, 0.2, random())); break;
    case 4: CopyTemplate(folder); break;
    case 5:
    case 6:
      MakeInventory(TemplatePath(), working, Plan(1, 16, 2, 0.1, random()));
      StoreOddValues(working, random, 300);
      break;
    default: MakeInventory(TemplatePath(), working, Plan(1, 16, 2, 0.2, random())); break;
  }
  MakeInventory(TemplatePath(), folder.path("other.mdb"), Plan(2, 16, 2, 0.2, random()));
  Raw(folder.path("other.mdb"), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='3'||CMPLX_ID_NUM WHERE PD_ID_AK=1"});
}

// ---- the play ----

// Files whose names are typed without a folder stay there.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::string& path) { fs::current_path(path); }
  ~WorkingFolder() { fs::current_path("/"); }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;
};

std::string ReplyText(const std::string& answer) {
  Json reply = Json::parse(answer, nullptr, false);
  if (!reply.is_object()) return answer;
  std::string text = reply.value("ok", false) ? "ok" : "refused: " + reply.value("error", "");
  for (const Json& box : reply.value("boxes", Json::array()))
    text += " box " + box.dump(-1, ' ', false, Json::error_handler_t::replace);
  for (const char* name : {"modal", "opened", "printed"})
    if (reply.contains(name)) text += std::string(" ") + name + " " + reply[name].dump();
  return text;
}

class Play {
 public:
  Play(const TemporaryFolder& folder, Teller& teller)
      : folders_(folder.path(), fs::read_symlink("/proc/self/exe").parent_path().string()),
        observer_(folders_),
        teller_(teller),
        lines_([this] { return Step(); }),
        in_(&lines_),
        player_(in_, out_, Options(folder)) {
    for (const std::string& name : kHandedOut) files_.push_back(folder.path(name));
  }

  void Run() {
    player_.Run();
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  static PlayOptions Options(const TemporaryFolder& folder) {
    PlayOptions options;
    options.settings_file = folder.path("settings.ini");
    options.clock = DateTime{2017, 3, 5, 14, 2, 0};
    return options;
  }

  // A stream swallows what its buffer throws.
  std::optional<std::string> Step() {
    try {
      return Next();
    } catch (...) {
      failure_ = std::current_exception();
      return std::nullopt;
    }
  }

  // The answers of an act, of "session" and of "tree" make one look.
  std::optional<std::string> Next() {
    std::string answer = std::exchange(out_, std::ostringstream()).str();
    switch (stage_) {
      case Stage::kAct:
        reply_ = folders_.Hide(ReplyText(answer));
        stage_ = Stage::kSession;
        return "session";
      case Stage::kSession:
        session_ = std::move(answer);
        stage_ = Stage::kTree;
        return "tree";
      case Stage::kTree: {
        const Changes changes = observer_.Look(player_.session().desk, session_, answer, files_);
        if (!teller_.Take(act_, reply_, changes)) return std::nullopt;
        break;
      }
      case Stage::kBegin: break;
    }
    const std::optional<std::string> act = teller_.Next(player_.session());
    if (!act) return std::nullopt;
    act_ = *act;
    stage_ = Stage::kAct;
    return folders_.Insert(act_);
  }

  enum class Stage { kBegin, kAct, kSession, kTree };
  Stage stage_ = Stage::kBegin;
  const Folders folders_;
  Observer observer_;
  Teller& teller_;
  std::vector<std::string> files_;
  std::string act_, reply_, session_;
  std::exception_ptr failure_;
  std::ostringstream out_;
  Lines lines_;
  std::istream in_;
  Player player_;
};

}  // namespace

std::string TypeOfChapter(int number) {
  return kTypes[static_cast<std::size_t>(number) % kTypes.size()];
}

void PlayChapter(std::uint32_t seed, int number, const std::string& kept_files, Teller& teller) {
  const TemporaryFolder folder;
  const std::string kept = kept_files + "/" + std::to_string(seed) + "-" + std::to_string(number) + "-";
  const auto copy = [&](bool back) {
    for (const char* name : {"inventory.mdb", "other.mdb"})
      back ? fs::copy_file(kept + name, folder.path(name)) : fs::copy_file(folder.path(name), kept + name);
  };
  if (!kept_files.empty() && fs::exists(kept + "other.mdb")) {
    copy(true);
  } else {
    MakeFiles(folder, seed, number);
    if (!kept_files.empty()) copy(false);
  }
  const WorkingFolder there(folder.path());
  Play(folder, teller).Run();
}

}  // namespace merlu::test
