// Compound files, read back by olefile.
#include "exchange/compound_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "base/fault.h"
#include "store/files.h"
#include "support/read_back.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// Reads the stream and compares it with the plain file; complains about whatever is odd about the container.
constexpr const char* kReader = R"(
import sys, olefile
with olefile.OleFileIO(sys.argv[1], raise_defects=olefile.DEFECT_UNSURE) as file:
    assert not file.parsing_issues, file.parsing_issues
    assert file.listdir() == [['Workbook']], file.listdir()
    found, wanted = file.openstream('Workbook').read(), open(sys.argv[2], 'rb').read()
    assert found[:len(wanted)] == wanted, 'the content differs'
    assert len(found) == max(len(wanted), 4096), len(found)
    assert not any(found[len(wanted):]), 'not filled with zeros'
    print(file.num_difat_sectors)
)";

class CompoundFile : public testing::Test {
 protected:
  // Writes a stream of that size and has it read; the number of sectors that list further table sectors.
  int ListSectorsOf(std::size_t size) {
    std::mt19937 random(static_cast<unsigned>(size));
    std::string content(size, '\0');
    for (char& c : content) c = static_cast<char>(random());
    std::ofstream(plain) << content;
    const std::string_view all = content;
    WriteCompoundFile(path, "Workbook", {all.substr(0, size / 3), all.substr(size / 3)});
    EXPECT_EQ(FileSize(path) % 512, 0u);
    std::ofstream(folder.path("read.py")) << kReader;
    const Finished read = Python("'" + folder.path("read.py") + "' '" + path + "' '" + plain + "'");
    EXPECT_EQ(read.status, 0) << size << " bytes: " << read.output;
    return read.status == 0 ? std::stoi(read.output) : -1;
  }

  TemporaryFolder folder;
  std::string path = folder.path("file.xls"), plain = folder.path("plain");
};

TEST_F(CompoundFile, of_little_content_is_filled_up) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{4095}, std::size_t{4096}})
    EXPECT_EQ(ListSectorsOf(size), 0);
}

TEST_F(CompoundFile, is_whole_around_the_ends_of_sectors) {
  // 126 sectors of content, one of the table and one of the directory fill one sector of the table
  for (const std::size_t sectors : {9, 125, 126, 127, 128, 253, 254})
    for (const std::size_t more : {0, 1, 511}) EXPECT_EQ(ListSectorsOf(sectors * 512 + more), 0);
}

TEST_F(CompoundFile, lists_its_table_outside_the_header_when_that_is_full) {
  // what the header can list: 109 sectors of the table, less those of the table itself and the directory
  const std::size_t most = (109 * 128 - 109 - 1) * 512;
  EXPECT_EQ(ListSectorsOf(most), 0);
  EXPECT_EQ(ListSectorsOf(most + 1), 1);
}

TEST_F(CompoundFile, lists_its_table_in_as_many_sectors_as_it_takes) {
  const std::size_t most = ((109 + 127) * 128 - (109 + 127) - 1 - 1) * 512;
  EXPECT_EQ(ListSectorsOf(most), 1);
  EXPECT_EQ(ListSectorsOf(most + 1), 2);
  EXPECT_EQ(ListSectorsOf(40'000'000), 4);
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
