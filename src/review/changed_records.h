// The changes that the recorder has reported since the last look, as records.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "session/location.h"
#include "store/changes.h"

namespace merlu {

class ChangedRecords {
 public:
  void Note(const Changes& changes);
  bool IsEmpty() const;
  void Forget() { *this = ChangedRecords(); }

  bool all = false;                     // anything may have changed
  std::set<std::int64_t> structures;    // by PD_ID_AK: all their records
  std::set<std::int64_t> pieces;        // by ED_ID_AK: all their records
  std::set<std::int64_t> of_pieces;     // by ED_ID_AK: rows came or went
  std::set<std::int64_t> descriptions;  // by PD_ID_AK, and by SA_ID_AK: the structure's own record
  std::set<std::int64_t> structure_months;
  std::set<std::int64_t> months;     // by EA_ID_AK
  std::set<std::int64_t> of_months;  // by EA_ID_AK: rows came or went
  // Rows of the log, with their old and new places.
  std::set<std::int64_t> rows;
  struct LogPlace {
    QCLocation at;
    std::set<std::int64_t> rows;
  };
  std::map<std::string, LogPlace> places;

 private:
  enum class Table {
    kOther,
    kStructure,
    kStructureMonth,
    kPiece,
    kPieceMonth,
    kOfPiece,
    kOfMonth,
    kLog,
    kComment,
    kConfiguration
  };
  void Learn(const Changes& changes);
  void NoteRow(const Changes& changes, const RowChange& row);
  void NoteLog(const RecordedTable& table, const RowChange& row);
  void NoteComment(const RecordedTable& table, const RowChange& row);
  LogPlace& At(QCLocation at);

  std::shared_ptr<const std::vector<RecordedTable>> known_;
  std::vector<Table> kinds_;
};

}  // namespace merlu
