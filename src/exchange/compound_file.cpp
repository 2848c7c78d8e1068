#include "exchange/compound_file.h"

#include "base/fault.h"
#include "exchange/little_endian.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kSource = "MERLU spreadsheet";
constexpr std::size_t kSector = 512;
constexpr std::size_t kEntriesPerSector = kSector / 4;
constexpr std::size_t kHeaderEntries = 109;   // sectors of the allocation table that the header can list
constexpr std::size_t kSmallStream = 4096;    // shorter streams would have to be in the mini stream
constexpr std::size_t kLargest = 0x7FFFFFFF;  // what every reader of the format takes

// Marks in the allocation table.
constexpr std::uint32_t kFree = 0xFFFFFFFF;
constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t kTableSector = 0xFFFFFFFD;
constexpr std::uint32_t kListSector = 0xFFFFFFFC;

// The layout in sectors after the header: the stream, the allocation table, the sectors that list the table's sectors
// beyond those in the header, the directory.
struct Plan {
  std::size_t stream_size = 0;
  std::size_t stream = 0, table = 0, list = 0;
  std::size_t list_at() const { return stream + table; }
  std::size_t directory_at() const { return list_at() + list; }
};

std::size_t Share(std::size_t count, std::size_t each) {
  return (count + each - 1) / each;
}

Plan MakePlan(std::size_t size) {
  Plan plan;
  plan.stream_size = size < kSmallStream ? kSmallStream : size;
  plan.stream = Share(plan.stream_size, kSector);
  // the table has an entry for its own sectors, too
  while (plan.table * kEntriesPerSector < plan.directory_at() + 1) {
    ++plan.table;
    plan.list = plan.table <= kHeaderEntries ? 0 : Share(plan.table - kHeaderEntries, kEntriesPerSector - 1);
  }
  return plan;
}

std::uint32_t Number(std::size_t sector) {
  return static_cast<std::uint32_t>(sector);
}

// The sector of the allocation table at a position, or a free mark after the last.
std::uint32_t TableSector(const Plan& plan, std::size_t index) {
  return index < plan.table ? Number(plan.stream + index) : kFree;
}

Bytes Header(const Plan& plan) {
  Bytes header;
  header.Put("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1").Fill(16);
  header.U16(0x3E).U16(3).U16(0xFFFE);  // minor and major version, byte order
  header.U16(9).U16(6).Fill(6);         // sizes of sectors and small sectors, as powers of two
  header.U32(0).U32(Number(plan.table)).U32(Number(plan.directory_at())).U32(0);
  header.U32(kSmallStream).U32(kEndOfChain).U32(0);  // there are no small sectors
  header.U32(plan.list > 0 ? Number(plan.list_at()) : kEndOfChain).U32(Number(plan.list));
  for (std::size_t i = 0; i < kHeaderEntries; ++i) header.U32(TableSector(plan, i));
  return header;
}

Bytes AllocationTable(const Plan& plan) {
  Bytes table;
  for (std::size_t i = 1; i < plan.stream; ++i) table.U32(Number(i));
  table.U32(kEndOfChain);
  for (std::size_t i = 0; i < plan.table; ++i) table.U32(kTableSector);
  for (std::size_t i = 0; i < plan.list; ++i) table.U32(kListSector);
  table.U32(kEndOfChain);  // the directory
  while (table.size() % kSector != 0) table.U32(kFree);
  return table;
}

Bytes TableList(const Plan& plan) {
  Bytes list;
  for (std::size_t i = 0; i < plan.list; ++i) {
    const std::size_t first = kHeaderEntries + i * (kEntriesPerSector - 1);
    for (std::size_t j = 0; j < kEntriesPerSector - 1; ++j) list.U32(TableSector(plan, first + j));
    list.U32(i + 1 < plan.list ? Number(plan.list_at() + i + 1) : kEndOfChain);
  }
  return list;
}

enum class EntryKind { kNone = 0, kStream = 2, kRoot = 5 };

void PutEntry(Bytes& directory, std::string_view name, EntryKind kind, std::uint32_t child, std::uint32_t start,
              std::size_t size) {
  for (const char c : name) directory.U16(static_cast<unsigned char>(c));
  directory.Fill(64 - 2 * name.size());
  directory.U16(name.empty() ? 0 : Number(2 * (name.size() + 1)));
  directory.U8(static_cast<unsigned>(kind)).U8(kind == EntryKind::kNone ? 0 : 1);
  directory.U32(kFree).U32(kFree).U32(child);  // no neighbours
  directory.Fill(16 + 4 + 16);                 // class, state, times
  directory.U32(start).U32(Number(size)).U32(0);
}

Bytes Directory(const Plan& plan, std::string_view stream) {
  Bytes directory;
  PutEntry(directory, "Root Entry", EntryKind::kRoot, 1, kEndOfChain, 0);
  PutEntry(directory, stream, EntryKind::kStream, kFree, 0, plan.stream_size);
  for (int i = 0; i < 2; ++i) PutEntry(directory, "", EntryKind::kNone, kFree, 0, 0);
  return directory;
}

}  // namespace

void WriteCompoundFile(const std::string& path, std::string_view stream, const std::vector<std::string_view>& parts) {
  std::size_t size = 0;
  for (const std::string_view part : parts) size += part.size();
  if (size > kLargest) throw Fault(fault_number::kOverflow, kSource, "The data are too large for a file of this kind.");
  const Plan plan = MakePlan(size);
  const Bytes header = Header(plan), table = AllocationTable(plan), list = TableList(plan),
              directory = Directory(plan, stream);
  const std::string filling(plan.stream * kSector - size, '\0');
  std::vector<std::string_view> file = {header.data};
  file.insert(file.end(), parts.begin(), parts.end());
  file.insert(file.end(), {filling, table.data, list.data, directory.data});
  WriteBytes(path, file);
}

}  // namespace merlu
