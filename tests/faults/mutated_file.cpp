#include "faults/mutated_file.h"

#include <fstream>
#include <sstream>

#include "base/fault.h"
#include "exchange/import_file.h"
#include "exchange/structure_import.h"
#include "forms/desk.h"
#include "inventory.h"
#include "quiet_platform.h"
#include "shell/main_program.h"
#include "shell/messages.h"
#include "shell/open_database.h"
#include "shell/program_end.h"
#include "shell/sheet_acts.h"
#include "store/image.h"

namespace merlu::test {
namespace {

constexpr std::size_t kChangeSize = 8, kPageSize = 4096;
constexpr int kMostNodes = 12;

void Press(Session& s, const char* name) {
  Plainly(s, [&] { act::Click(s.desk, *s.main, name); });
}

}  // namespace

MutatedFile::MutatedFile() : sound_(folder_.path("sound.mdb")), path_(folder_.path("inventory.mdb")) {
  MakeInventory(TemplatePath(), path_, OneOfEachType(1, 1));
  Raw(path_, {"CREATE TABLE QC_XREF (StructID TEXT, EquipID TEXT)",
              "UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='X'||CMPLX_ID_NUM"});
  MakeInventory(TemplatePath(), sound_, OneOfEachType(1, 1));
  base_ = FileBytes(path_);
}

void MutatedFile::Mutate(const std::vector<std::uint8_t>& changes) {
  std::string bytes = base_;
  const std::size_t pages = bytes.size() / kPageSize;
  for (std::size_t at = 0; at + kChangeSize <= changes.size(); at += kChangeSize) {
    const std::uint8_t* change = &changes[at];
    std::size_t place = (change[0] % pages) * kPageSize + (change[1] * 256u + change[2]) % kPageSize;
    for (int i = 0; i <= change[3] % 16 && place < bytes.size(); ++i, ++place)
      bytes[place] = static_cast<char>(change[4 + i % 4]);
  }
  fs::remove(path_ + "-journal");
  std::ofstream(path_, std::ios::binary) << bytes;
}

void MutatedFile::UseAsWorkingFile() {
  // the first button of the box that a failed open shows is Retry, which would never end
  class Giving : public QuietPlatform {
   public:
    using QuietPlatform::QuietPlatform;
    Button Ask(const Box& box) override { return LeastChange(box); }
  } giving(path_);
  Session s(giving, giving, giving);
  Plainly(s, [&] { Main(s); });
  for (int mode = 0; mode < 2 && !s.ended && s.main != nullptr; ++mode) {
    for (int node = 0; node < kMostNodes && node < static_cast<int>(s.tree.nodes.size()); ++node) {
      Plainly(s, [&] { ClickNode(s, node); });
      for (const char* command : {"cmdQC", "cmdEdit", "cmdSaveEdits", "cmdCANCEL"}) Press(s, command);
    }
    Press(s, "mnuSetEditMode");
  }
  if (s.main != nullptr && !s.ended) Press(s, "cmdUSER_AddSurvey");
}

bool MutatedFile::ImportLeavesASoundFile() {
  const std::string working = folder_.path("working.mdb");
  fs::remove(working + "-journal");
  fs::copy_file(sound_, working, fs::copy_options::overwrite_existing);
  QuietPlatform platform(working);
  Session s(platform, platform, platform);
  Main(s);
  try {
    Database file;
    file.OpenPrivateCopy(path_);
    CheckImportFile(file, ReadImportLayout(s.db));
    std::vector<StructureName> all;
    for (const ListedStructure& structure : ListStructures(file)) all.push_back(structure.name);
    ImportStructures(s, file, all, Import::kDo);
  } catch (const Fault&) {
    // a refusal
  }
  CloseDatabase(s);
  return IsSound(working);
}

}  // namespace merlu::test
