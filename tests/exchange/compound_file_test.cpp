// Compound files, read back by olefile.
#include "exchange/compound_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <random>

#include "base/fault.h"
#include "store/files.h"
#include "support/read_back.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// Reads the stream of each size and compares it with the plain file; complains about whatever is odd about the
// container.
constexpr const char* kReader = R"(
import sys, olefile
for size in sys.argv[2:]:
    name = sys.argv[1] + '/' + size
    with olefile.OleFileIO(name + '.xls', raise_defects=olefile.DEFECT_UNSURE) as file:
        assert not file.parsing_issues, (size, file.parsing_issues)
        assert file.listdir() == [['Workbook']], (size, file.listdir())
        found, wanted = file.openstream('Workbook').read(), open(name, 'rb').read()
        assert len(wanted) == int(size), (size, len(wanted))
        assert found[:len(wanted)] == wanted, (size, 'the content differs')
        assert len(found) == max(len(wanted), 4096), (size, len(found))
        assert not any(found[len(wanted):]), (size, 'not filled with zeros')
        print(size, 'bytes,', file.num_difat_sectors)
)";

class CompoundFile : public testing::Test {
 protected:
  // Writes a stream of each size and has them read; expects that many sectors that list further table sectors.
  void ExpectListSectors(const std::vector<std::pair<std::size_t, int>>& wanted) {
    std::string sizes, report;
    for (const auto& [size, sectors] : wanted) {
      std::mt19937_64 random(size);
      std::string content(size, '\0');
      for (std::size_t at = 0; at < size; at += sizeof(std::uint64_t)) {
        const std::uint64_t bytes = random();
        std::memcpy(content.data() + at, &bytes, std::min(sizeof bytes, size - at));
      }
      const std::string plain = folder.path(std::to_string(size)), path = plain + ".xls";
      std::ofstream(plain) << content;
      const std::string_view all = content;
      WriteCompoundFile(path, "Workbook", {all.substr(0, size / 3), all.substr(size / 3)});
      EXPECT_EQ(FileSize(path) % 512, 0u) << size;
      sizes += " " + std::to_string(size);
      report += std::to_string(size) + " bytes, " + std::to_string(sectors) + "\n";
    }
    std::ofstream(folder.path("read.py")) << kReader;
    const Finished read = Python("'" + folder.path("read.py") + "' '" + folder.path() + "'" + sizes);
    EXPECT_EQ(read.status, 0);
    EXPECT_EQ(read.output, report);
  }

  TemporaryFolder folder;
};

TEST_F(CompoundFile, of_little_content_is_filled_up) {
  ExpectListSectors({{0, 0}, {1, 0}, {4095, 0}, {4096, 0}});
}

TEST_F(CompoundFile, is_whole_around_the_ends_of_sectors) {
  // 126 sectors of content, one of the table and one of the directory fill one sector of the table
  std::vector<std::pair<std::size_t, int>> wanted;
  for (const std::size_t sectors : {9, 125, 126, 127, 128, 253, 254})
    for (const std::size_t more : {0, 1, 511}) wanted.emplace_back(sectors * 512 + more, 0);
  ExpectListSectors(wanted);
}

TEST_F(CompoundFile, lists_its_table_outside_the_header_when_that_is_full) {
  // what the header can list: 109 sectors of the table, less those of the table itself and the directory
  const std::size_t most = (109 * 128 - 109 - 1) * 512;
  ExpectListSectors({{most, 0}, {most + 1, 1}});
}

TEST_F(CompoundFile, lists_its_table_in_as_many_sectors_as_it_takes) {
  const std::size_t most = ((109 + 127) * 128 - (109 + 127) - 1 - 1) * 512;
  const std::size_t most_of_three = ((109 + 3 * 127) * 128 - (109 + 3 * 127) - 1 - 3) * 512;
  ExpectListSectors({{most, 1}, {most + 1, 2}, {most_of_three + 1, 4}});
}

TEST_F(CompoundFile, in_a_folder_that_is_not_there_is_a_fault) {
  try {
    WriteCompoundFile(folder.path("none/file.xls"), "Workbook", {});
    FAIL() << "a fault";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.number, fault_number::kNoSuchFolder);
    EXPECT_NE(fault.description.find(folder.path("none/file.xls")), std::string::npos) << fault.description;
  }
}

TEST_F(CompoundFile, on_a_disk_that_takes_nothing_is_a_fault) {
  ASSERT_TRUE(fs::exists("/dev/full"));
  EXPECT_THROW(WriteCompoundFile("/dev/full", "Workbook", {"content"}), Fault);
}

}  // namespace
}  // namespace merlu::test
