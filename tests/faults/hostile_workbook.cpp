#include "faults/hostile_workbook.h"

#include <fstream>
#include <sstream>

#include "base/fault.h"
#include "command/commands.h"
#include "exchange/read_workbook.h"
#include "exchange/zip_parts.h"
#include "faults/inventory_checks.h"
#include "inventory.h"
#include "support/zip.h"

namespace merlu::test {
namespace {

constexpr std::string_view kPartMark = "--- ";
constexpr int kMostRows = 200000, kMostColumns = 500;

void Write(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

struct Answer {
  Status status;
  std::string out, err;
};

Answer Play(const char* command, const std::vector<std::string>& words) {
  std::ostringstream out, err;
  Console console{out, err};
  const Status status = RunCommand(*FindCommand(command), words, console);
  return {status, out.str(), err.str()};
}

bool IsInOrder(const ForeignSheet& sheet) {
  const ForeignCell* before = nullptr;
  for (const ForeignCell& cell : sheet.cells) {
    if (cell.row < 0 || cell.row >= kMostRows || cell.column < 0 || cell.column >= kMostColumns) return false;
    if (before != nullptr && std::pair(before->row, before->column) >= std::pair(cell.row, cell.column)) return false;
    before = &cell;
  }
  return true;
}

}  // namespace

std::string ZipOfText(std::string_view text) {
  Parts parts;
  std::string* part = nullptr;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1);
    const std::string_view line = text.substr(0, end + 1);
    text.remove_prefix(end + 1);
    if (line.starts_with(kPartMark))
      part = &parts[std::string(line.substr(kPartMark.size(), line.size() - kPartMark.size() - 1))];
    else if (part != nullptr)
      *part += line;
  }
  return Zip(parts);
}

HostileWorkbook::HostileWorkbook() : path_(folder_.path("inventory.mdb")) {
  InventoryPlan plan;
  plan.structures = 1;
  plan.equipment = 2;
  plan.months = 1;
  plan.types = {"FLA"};
  MakeInventory(TemplatePath(), path_, plan);
  inventory_ = FileBytes(path_);
  rows_ = Rows();
}

std::string HostileWorkbook::Rows() const {
  Database db;
  db.Open(path_);
  if (NullToEmpty(db.Single("PRAGMA integrity_check")) != "ok") return "damaged";
  return db.Query("PRAGMA foreign_key_check").rows.empty() ? AllRows(db) : "rows without their parent";
}

std::string HostileWorkbook::Own() const {
  const std::string file = elsewhere_.path("own.xlsx");
  fs::remove(file);
  Play("workbook", {path_, "--month", "1", "-o", file});
  const ZipParts zip(FileBytes(file));
  std::string text;
  for (const char* name : {"_rels/.rels", "xl/workbook.xml", "xl/_rels/workbook.xml.rels", "xl/sharedStrings.xml",
                           "xl/styles.xml", "xl/worksheets/sheet1.xml", "xl/worksheets/sheet2.xml",
                           "xl/worksheets/sheet3.xml", "xl/worksheets/sheet4.xml", "xl/worksheets/sheet5.xml"})
    if (zip.Has(name)) text += std::string(kPartMark) + name + "\n" + zip.Read(name) + "\n";
  return text;
}

std::string HostileWorkbook::WhatGoesWrong(const std::string& extension, const std::string& bytes) {
  const std::string file = elsewhere_.path("sheet" + extension);
  Write(file, bytes);
  try {
    for (const ForeignSheet& sheet : ReadForeignWorkbook(file))
      if (!IsInOrder(sheet)) return "cells out of bounds or out of order";
  } catch (const Fault&) {
    return Play("read", {path_, "--from", file}).status == Status::kFile ? "" : "read takes what cannot be read";
  }
  for (const auto& entry : fs::directory_iterator(folder_.path()))
    if (entry.path() != path_) fs::remove_all(entry.path());
  if (FileBytes(path_) != inventory_) Write(path_, inventory_);
  const Answer dry = Play("read", {path_, "--from", file, "--dry-run"});
  if (FileBytes(path_) != inventory_) return "--dry-run changed the inventory";
  const Answer read = Play("read", {path_, "--from", file});
  if (read.status != dry.status || read.out != dry.out)
    return "--dry-run tells " + dry.out + dry.err + "\nbut read " + read.out + read.err;
  if (FileBytes(path_) == inventory_) return "";
  const bool applies = read.out.find("\"action\":\"set\"") != std::string::npos ||
                       read.out.find("\"action\":\"changed\"") != std::string::npos;
  const std::string rows = Rows();
  if (!rows.starts_with(rows_.substr(0, rows_.find('\n')))) return "the inventory is " + rows.substr(0, 200);
  return applies || rows == rows_ ? "" : "rows changed without a word";
}

}  // namespace merlu::test
