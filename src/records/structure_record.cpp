#include "records/structure_record.h"

#include "base/dates.h"
#include "qc/qc_list.h"
#include "records/build.h"
#include "records/structure_fields.h"
#include "records/structure_names.h"
#include "session/main_names.h"
#include "session/notices.h"
#include "session/records.h"
#include "sheets/contract.h"
#include "sheets/conversions.h"

namespace merlu {
namespace {

constexpr const char* kNoDate = "Date of Last QC:          ";
constexpr const char* kStatus = kStructureStatus;
constexpr const char* kList = names::lvwSTRUCTURE_QCResults;
constexpr const char* kComments = names::txtSTRUCTURE_Comments;

bool InMode(const Session& s, const FieldSpec& field) {
  return (field.mode == In::kActv) == s.InActv();
}

void ShowColumns(Session& s, In mode, Cursor& row) {
  for (const FieldSpec& field : StructureFields())
    if (field.mode == mode) ShowField(*s.main, field, row.Field(field.column));
}

void StoreColumns(Session& s, Cursor& row) {
  for (const FieldSpec& field : StructureFields())
    if (InMode(s, field) && field.stored != Stored::kNone) StoreField(row, field, s.main->At(field.control));
}

void ShowId(Session& s, const char* control, const char* column) {
  s.main->At(control).text = NullToEmpty(s.At("PD_PLATFORM_DESC").Field(column));
}

}  // namespace

void PutStructureSheet(Session& s, Form& main) {
  Put(main, Kind::kFrame, names::fraStructure, "Structure", {});
  Put(main, Kind::kTab, names::tabSTRUCTURE, "", {names::fraStructure}).items = {"General Information", "QC Results"};
  main.At(names::tabSTRUCTURE).page_available = {true, true};
  Put(main, Kind::kFrame, "fraStructureDescriptive", "", {names::tabSTRUCTURE});
  Put(main, Kind::kFrame, "fraStructureActivity", "", {names::tabSTRUCTURE});
  for (const FieldSpec& field : StructureFields())
    PutField(main, field,
             {field.mode == In::kActv ? "fraStructureActivity" : "fraStructureDescriptive", 0, field.block});
  for (const char* unused : {"Phone", "Email", "Contact"})
    Put(main, Kind::kText, std::string("txtSTRUCTURE_") + unused, std::string(unused) + ":",
        {"fraStructureDescriptive"})
        .visible = false;
  main.At(kComments).lines = true;
  Put(main, Kind::kFrame, names::Frame1, "", {"fraStructureActivity"});
  Put(main, Kind::kCheck, kStatus, "No Emissions to Report", {names::Frame1, 0, "Comments"});
  PutLabel(main, names::lblNoEmissions, "No Emissions to Report", {names::fraStructure}).visible = false;
  PutLabel(main, "lblSTRUCTURE_QCDate", kNoDate, {names::fraStructure});
  Put(main, Kind::kButton, names::cmdSTRUCTURE_AddEquip, "New Equipment", {names::tabSTRUCTURE});
  PutResults(main, kList, names::cmdSTRUCTURE_EditQCComment, "Error Source", {names::tabSTRUCTURE, 1});
  main.On(names::cmbMinorSourceExempt, Event::kClick, [&s, &main] {
    if (s.editing && main.At(names::cmbMinorSourceExempt).text == "No")
      SelectItem(main, names::cmbMinorSourceExemptWhat, -1);
  });
}

void ClearStructure(Session& s) {
  Form& main = *s.main;
  for (const FieldSpec& field : StructureFields()) {
    Control& control = main.At(field.control);
    control.text.clear();
    control.index = -1;
    control.tip.clear();
    control.touched = control.copied = false;
    control.hint.clear();
    control.was.clear();
  }
  main.At(kStatus).checked = false;
  main.At(names::lblNoEmissions).visible = false;
  main.At("fraStructureDescriptive").visible = !s.InActv();
  main.At("fraStructureActivity").visible = s.InActv();
  SetCaption(main, "lblSTRUCTURE_QCDate", kNoDate);
}

bool LoadStructure(Session& s) {
  const NotEditing load(s);
  bool found = false;
  const bool read = NotingFaults(s.notices, [&] {
    found = FindStructureRecord(s);
    if (!found) return Note(s.notices, "Structure record not found");
    ShowId(s, names::txtSTRUCTURE_CmplxID, "CMPLX_ID_NUM");
    ShowId(s, names::txtSTRUCTURE_StructID, "STRUCT_NUM");
    ShowColumns(s, In::kDesc, s.At("PD_PLATFORM_DESC"));
    if (s.InActv()) {
      Cursor& month = s.At("PA_PLATFORM_ACTV");
      ShowColumns(s, In::kActv, month);
      const bool inactive = NullToEmpty(month.Field("status")) == "I";
      s.main->At(kStatus).checked = inactive;
      s.main->At(names::lblNoEmissions).visible = inactive;
    }
  });
  if (read && found) LoadStructureQCList(s);
  return read;
}

void LockStructure(Session& s) {
  Form& main = *s.main;
  SetFrameTitle(main, names::fraStructure, "Structure", false);
  for (const FieldSpec& field : StructureFields()) SetLocked(main.At(field.control), true);
  main.At(names::Frame1).visible = false;
  main.At(names::lblNoEmissions).visible = s.InActv() && main.At(kStatus).checked;
  main.At(kList).back = Back::kFace;
  main.At(names::cmdSTRUCTURE_EditQCComment).enabled = false;
}

void UnlockStructure(Session& s) {
  Form& main = *s.main;
  SetFrameTitle(main, names::fraStructure, "Structure - EDIT DATA", true);
  for (const FieldSpec& field : StructureFields()) SetLocked(main.At(field.control), true);
  for (const FieldSpec& field : StructureFields())
    if (InMode(s, field) && field.stored != Stored::kNone && field.stored != Stored::kComputed)
      SetLocked(main.At(field.control), false);
  main.At(names::Frame1).visible = s.InActv();
  main.At(names::lblNoEmissions).visible = false;
  main.At(kList).back = Back::kWindow;
  main.At(names::cmdSTRUCTURE_EditQCComment).enabled = true;
  main.focus = s.InActv() ? names::txtSTRUCTURE_ProdOil : names::txtSTRUCTURE_Area;
}

void SaveStructure(Session& s) {
  const bool saved = NotingFaults(s.notices, [&] {
    WriteBatch batch(s.db);
    if (!FindStructureRecord(s)) {
      Note(s.notices, "Record not found");
      s.save_failed = true;
      return;
    }
    Cursor& row = s.At(s.InActv() ? "PA_PLATFORM_ACTV" : "PD_PLATFORM_DESC");
    row.Edit();
    StoreColumns(s, row);
    if (s.InActv()) row.SetField("status", std::string(s.main->At(kStatus).checked ? "I" : "A"));
    row.Update();
    if (s.InActv()) PropagateStatus(s);
    batch.Commit();
  });
  if (!saved) s.save_failed = true;
}

void LoadStructureQCList(Session& s) {
  NotingSheetFaults(s.notices, [&] {
    Control& list = s.main->At(kList);
    FillWithFindings(s, list, FindingsOfStructure(s.current));
    AddEquipmentSummary(s, list, s.current);
    if (!FindStructureRecord(s)) return;
    const Value& date =
        s.InActv() ? s.At("PA_PLATFORM_ACTV").Field("PA_QC_DT") : s.At("PD_PLATFORM_DESC").Field("PD_QC_DT");
    if (!IsNull(date)) SetCaption(*s.main, "lblSTRUCTURE_QCDate", QCDateText(date));
  });
}

bool StructureExists(Session& s, const std::string& complex, const std::string& structure) {
  return !IsNull(
      s.db.Single("SELECT PD_ID_AK FROM PD_PLATFORM_DESC WHERE STRUCT_NUM=? COLLATE SAME_ID AND CMPLX_ID_NUM=? COLLATE "
                  "SAME_ID",
                  {structure, complex}));
}

void NewStructureRows(Session& s, const NewStructure& structure) {
  WriteBatch batch(s.db);
  ReadMonths(s);
  CurrentKeys keys(s);
  AllOrNothing whole(s.db);
  s.PD_ID_AK = NextPDId(s);
  Cursor& description = s.At("PD_PLATFORM_DESC");
  description.AddNew();
  description.SetField("PD_ID_AK", s.PD_ID_AK);
  description.SetField("RIMA_CO_NUM", s.current.UserID);
  description.SetField("CMPLX_ID_NUM", structure.complex);
  description.SetField("STRUCT_NUM", structure.structure);
  description.SetField("Area", structure.area);
  description.SetField("Block", structure.block);
  description.SetField("Name", structure.name);
  description.Update();
  description.MoveLast();
  description.MoveFirst();
  MoveToPDRecord(s, s.PD_ID_AK);

  std::int64_t key = NextSAId(s);
  RequireKeys(key - 1, s.last_month);
  Cursor& activity = s.At("PA_PLATFORM_ACTV");
  for (int month = 1; month <= s.last_month; ++month, ++key) {
    activity.AddNew();
    activity.SetField("PD_ID_AK", s.PD_ID_AK);
    activity.SetField("SA_ID_AK", key);
    activity.SetField("PA_YR", std::int64_t{s.year});
    activity.SetField("PA_MO", std::int64_t{month});
    activity.SetField("status", std::string("A"));
    activity.Update();
    s.SA_ID_AK = key;
  }
  whole.Keep();
  batch.Commit();
  keys.Advance();
}

void PropagateStatus(Session& s, std::int64_t only_SA_ID_AK) {
  // rows that have the status already are left alone, which spares writing the whole table
  const std::string update =
      "UPDATE EA_EQUIP_ACTV SET EA_STATUS=p.status FROM ED_EQUIP_DESC d JOIN PA_PLATFORM_ACTV p ON "
      "p.PD_ID_AK=d.PD_ID_AK "
      "WHERE d.ED_ID_AK=EA_EQUIP_ACTV.ED_ID_AK AND p.PA_YR=EA_EQUIP_ACTV.EA_YR AND p.PA_MO=EA_EQUIP_ACTV.EA_MO AND "
      "EA_EQUIP_ACTV.EA_STATUS IS NOT p.status AND EA_EQUIP_ACTV.EA_EQUIP_TYP";
  const std::string which = only_SA_ID_AK == 0 ? "" : " AND p.SA_ID_AK=?";
  const Values key = only_SA_ID_AK == 0 ? Values() : Values(1, only_SA_ID_AK);
  s.db.Execute(update + "<>'FUG'" + which, key);
  s.db.Execute(update + "='FUG'" + which, key);
}

}  // namespace merlu
