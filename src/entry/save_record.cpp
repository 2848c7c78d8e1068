#include "entry/save_record.h"

#include "qc/qc_log.h"
#include "qc_run/run_qc.h"
#include "records/structure_record.h"
#include "session/messages.h"
#include "sheets/contract.h"
#include "sheets/sheet_form.h"

namespace merlu {
namespace {

constexpr const char* kStructureStatus = "chkSTRUCTURE_Status";

// Puts the user back where he stood.
class Place {
 public:
  explicit Place(Session& s)
      : s_(s),
        at_(s.current),
        keys_{s.PD_ID_AK, s.SA_ID_AK, s.ED_ID_AK, s.EA_ID_AK},
        status_(s.node_status),
        editing_(s.editing),
        failed_(s.save_failed) {}
  ~Place() {
    s_.current = at_;
    s_.PD_ID_AK = keys_.PD_ID_AK;
    s_.SA_ID_AK = keys_.SA_ID_AK;
    s_.ED_ID_AK = keys_.ED_ID_AK;
    s_.EA_ID_AK = keys_.EA_ID_AK;
    s_.node_status = status_;
    s_.editing = editing_;
    s_.save_failed = failed_;
    s_.InSaveQC = false;
  }
  Place(const Place&) = delete;
  Place& operator=(const Place&) = delete;

 private:
  Session& s_;
  QCLocation at_;
  RecordKeys keys_;
  std::string status_;
  bool editing_, failed_;
};

// The record's form holds the record as while it is edited, and counts as showing.
class Edited {
 public:
  Edited(Session& s, const TypedRecord& record)
      : s_(s),
        record_(record),
        form_(record.sheet == nullptr ? *s.main : SheetForm(s, *record.sheet)),
        was_visible_(form_.visible) {
    if (record.sheet != nullptr) {
      ClearFrame(s, *record.sheet);
      LoadFrame(s, *record.sheet);
      s.editing = true;
      UnlockFrame(s, *record.sheet);
    } else {
      ClearStructure(s);
      LoadStructure(s);
      s.editing = true;
      UnlockStructure(s);
    }
    form_.visible = true;
  }
  ~Edited() {
    form_.visible = was_visible_;
    if (record_.sheet != nullptr && !was_visible_) UnloadSheet(s_, *record_.sheet);
  }
  Edited(const Edited&) = delete;
  Edited& operator=(const Edited&) = delete;

  void Type() {
    for (const auto& [name, text] : record_.texts) {
      Control& control = form_.At(name);
      control.touched = true;
      if (control.kind == Kind::kList && control.text != text)
        SelectText(form_, name, text);
      else
        control.text = text;
    }
    const std::string box = record_.sheet == nullptr ? kStructureStatus : record_.sheet->status_box();
    if (record_.no_emissions) form_.At(box).checked = *record_.no_emissions;
  }

 private:
  Session& s_;
  const TypedRecord& record_;
  Form& form_;
  bool was_visible_;
};

// A fault that a step has shown ends the save of all.
void RequireNoFault(const Session& s, int told) {
  if (s.faults_told == told && !s.save_failed) return;
  throw Fault(fault_number::kNoCurrentRow, "MERLU entry", "this record could not be saved");
}

}  // namespace

int SaveTyped(Session& s, const TypedRecord& record) {
  const Place place(s);
  const int told = s.faults_told;
  s.save_failed = false;
  s.current = record.at;
  s.PD_ID_AK = record.keys.PD_ID_AK;
  s.SA_ID_AK = record.keys.SA_ID_AK;
  s.ED_ID_AK = record.keys.ED_ID_AK;
  s.EA_ID_AK = record.keys.EA_ID_AK;
  s.node_status = record.structure_inactive ? "I" : "A";
  Edited edited(s, record);
  RequireNoFault(s, told);
  edited.Type();
  s.InSaveQC = true;
  RunQCAmongMany(s, record.at);
  s.InSaveQC = false;
  s.current = record.at;
  if (record.sheet != nullptr)
    SaveFrame(s, *record.sheet, s.record_checked);
  else
    SaveStructure(s);
  if (TreeRecord::Row* row =
          record.sheet == nullptr && record.no_emissions ? s.activity_record.FindUid(record.keys.SA_ID_AK) : nullptr)
    row->Status = *record.no_emissions ? "I" : "A";
  RequireNoFault(s, told);
  return CountQCErrors(s, record.at);
}

}  // namespace merlu
