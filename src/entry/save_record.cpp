#include "entry/save_record.h"

#include <algorithm>

#include "base/dates.h"
#include "base/text.h"
#include "qc_run/run_qc.h"
#include "qc_run/run_record.h"
#include "sheets/conversions.h"
#include "sheets/structure.h"

namespace merlu {
namespace {

constexpr const char* kSource = "MERLU entry";

// A fault that a step has shown ends the save of all.
void RequireNoFault(const Session& s, int faults) {
  if (s.notices.faults == faults && !s.save_failed) return;
  throw Fault(fault_number::kNoCurrentRow, kSource, "this record could not be saved");
}

// The run of a structure counts those of its equipment too, which are other records'.
int OwnFindings(Session& s, const QCLocation& at) {
  return static_cast<int>(
      ToInteger(s.db.Single("SELECT COUNT(*) FROM QC WHERE [UserID]=? AND [Month]=? AND [Year]=? AND [CmplxID]=? AND "
                            "[StructID]=? AND [Level]=?",
                            {Trim(at.UserID), std::int64_t{at.Month}, std::int64_t{at.Year}, Trim(at.CmplxID),
                             Trim(at.StructID), std::string(level::kStructure)})));
}

const std::string* TextTyped(const TypedRecord& record, std::string_view control) {
  for (const auto& [name, text] : record.texts)
    if (name == control) return &text;
  return nullptr;
}

// As ValueToStore. The stored number is compared by the text that its sheet shows, and is not formatted again.
std::optional<Value> ToStore(const FieldSpec& field, const Value& stored, const std::string& shown,
                             const FieldContent& content) {
  const bool number = field.stored == Stored::kNumber || field.stored == Stored::kComputed;
  if (!number || !field.loads || shown.empty() || !std::holds_alternative<double>(stored))
    return ValueToStore(field, stored, content);
  if (content.text == shown) return std::nullopt;
  return FieldNumber(content.text);
}

// An update of the row with that key; nothing for no columns.
void Update(Session& s, const std::string& table, std::string_view sets, const char* key_column, Values values,
            std::int64_t key) {
  if (sets.empty()) return;
  values.emplace_back(key);
  std::string sql = "UPDATE ";
  sql.append(table).append(" SET ").append(sets.substr(1)).append(" WHERE ").append(key_column).append("=?");
  if (s.db.ExecuteOn(s.db.ChangesOf(table), sql, values) != 1)
    throw Fault(fault_number::kRecordDeleted, kSource, "Record is deleted.");
}

}  // namespace

RecordSaver::RecordSaver(Session& s)
    : s_(s),
      at_(s.current),
      keys_{s.PD_ID_AK, s.SA_ID_AK, s.ED_ID_AK, s.EA_ID_AK},
      status_(s.node_status),
      editing_(s.editing),
      failed_(s.save_failed),
      now_(StoredDate(s.host.Now())) {}

RecordSaver::~RecordSaver() {
  s_.current = at_;
  s_.PD_ID_AK = keys_.PD_ID_AK;
  s_.SA_ID_AK = keys_.SA_ID_AK;
  s_.ED_ID_AK = keys_.ED_ID_AK;
  s_.EA_ID_AK = keys_.EA_ID_AK;
  s_.node_status = status_;
  s_.editing = editing_;
  s_.save_failed = failed_;
}

void RecordSaver::StandAt(const TypedRecord& record) {
  s_.save_failed = false;
  s_.current = record.at;
  s_.PD_ID_AK = record.keys.PD_ID_AK;
  s_.SA_ID_AK = record.keys.SA_ID_AK;
  s_.ED_ID_AK = record.keys.ED_ID_AK;
  s_.EA_ID_AK = record.keys.EA_ID_AK;
  s_.node_status = record.structure_inactive ? "I" : "A";
}

SavedRecord RecordSaver::Save(const TypedRecord& record, const MonthRow& stored, const Context& context) {
  StandAt(record);
  const int faults = s_.notices.faults;
  const bool inactive = record.no_emissions.value_or(stored.inactive);
  const MonthKind& kind = *stored.kind;
  if (context_ != &context) {
    context_ = &context;
    saving_ = context;
    saving_.saving = true;
  }
  if (typed_)
    typed_->view = stored.view;
  else
    typed_.emplace(TypedView{.view = stored.view, .context = &saving_, .known = known_ ? &*known_ : nullptr});
  TypedView& typed = *typed_;
  typed.inactive = inactive;
  typed.messages.clear();
  typed.findings.reset();
  std::vector<bool> touched(kind.fields.size());
  for (std::size_t i = 0; i < kind.fields.size(); ++i) {
    const std::string* text = TextTyped(record, kind.fields[i]->control);
    touched[i] = text != nullptr;
    if (text != nullptr) typed.view.SetText(kind.indexes[i], *text);
  }
  typed.view.SetChecked(kind.status_index, inactive);
  SavedRecord saved;
  saved.findings = RunQCAmongMany(s_, *record.sheet, record.at, typed);
  if (stored.IsOfStructure() && saved.findings > 0) saved.findings = OwnFindings(s_, record.at);
  saved.messages = typed.messages;
  saved.values = Store(record, stored, typed, touched);
  RequireNoFault(s_, faults);
  return saved;
}

Values RecordSaver::Store(const TypedRecord& record, const MonthRow& stored, const TypedView& typed,
                          const std::vector<bool>& touched) {
  const MonthKind& kind = *stored.kind;
  Values now, written;
  now.reserve(kind.fields.size());
  written.reserve(kind.fields.size() + 3);  // two of the structure, and the key
  std::string sets;
  for (std::size_t i = 0; i < kind.fields.size(); ++i) {
    const FieldSpec& field = *kind.fields[i];
    const int index = kind.indexes[i];
    const std::optional<Value> value = ToStore(field, stored.FieldValue(i), stored.view.Text(index),
                                               {typed.view.Text(index), typed.view.IsChecked(index), touched[i]});
    now.push_back(value.value_or(stored.FieldValue(i)));
    if (!value || *value == stored.FieldValue(i)) continue;
    sets.append(",[").append(field.column).append("]=?");
    written.push_back(*value);
  }
  const std::string* typed_comments = TextTyped(record, kind.comments);
  const Value comments = FieldText(typed_comments != nullptr ? *typed_comments : stored.Comments());
  const Value status = std::string(typed.inactive ? "I" : "A");
  if (stored.IsOfStructure()) {
    sets += ",COMNT_TXT=?,status=?";
    written.push_back(comments);
    written.push_back(status);
    Update(s_, kind.table, sets, "SA_ID_AK", std::move(written), record.keys.SA_ID_AK);
    PropagateStatus(s_, propagated_ ? record.keys.SA_ID_AK : 0);
    propagated_ = true;
    statuses_.emplace_back(record.keys.SA_ID_AK, typed.inactive);
    return now;
  }
  Update(s_, kind.table, sets, "EA_ID_AK", std::move(written), record.keys.EA_ID_AK);
  propagated_ = false;
  if (s_.record_checked && status == stored.row[0] && comments == stored.row[1]) {
    dated_.push_back(record.keys.EA_ID_AK);
    return now;
  }
  Values master;
  master.push_back(comments);
  master.push_back(status);
  master.push_back(s_.record_checked ? now_ : Value(Null{}));
  Update(s_, "EA_EQUIP_ACTV", ",EA_COMNT_TXT=?,EA_STATUS=?,EA_QC_DT=?", "EA_ID_AK", std::move(master),
         record.keys.EA_ID_AK);
  return now;
}

void RecordSaver::StoreDates() {
  if (static_cast<std::size_t>(DateEquipment(s_, dated_, now_)) != dated_.size())
    throw Fault(fault_number::kRecordDeleted, kSource, "Record is deleted.");
  dated_.clear();
}

void RecordSaver::Committed() {
  for (const auto& [key, inactive] : statuses_)
    if (TreeRecord::Row* row = s_.activity_record.FindUid(key)) row->Status = inactive ? "I" : "A";
}

}  // namespace merlu
