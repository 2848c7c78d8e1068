#include "sheets/survey.h"

#include "qc/qc_list.h"
#include "session/main_names.h"
#include "session/notices.h"
#include "sheets/build.h"

namespace merlu {
namespace {

constexpr const char* kList = names::lvwSURVEY_QCResults;
constexpr const char* kRelationships = "lvwSURVEY_Relationships";
constexpr const char* kButton = "cmdSURVEY_EditQCComment";

void SetListsEnabled(Form& main, bool enabled) {
  for (const char* list : {kList, kRelationships}) {
    main.At(list).enabled = enabled;
    main.At(list).back = enabled ? Back::kWindow : Back::kFace;
  }
  main.At(kButton).enabled = enabled;
}

}  // namespace

void PutSurveySheet(Form& main) {
  Put(main, Kind::kFrame, names::fraSurvey, "Survey", {});
  PutTab(main, "tabSURVEY", {"QC Results"}, {names::fraSurvey});
  PutResults(main, kList, kButton, "Field Name", {"tabSURVEY"});
  // relations between structures are not edited in this version
  Put(main, Kind::kListView, kRelationships, "Relationships", {"tabSURVEY"}).visible = false;
  Put(main, Kind::kButton, "cmdEditRelationship", "Edit Relationship", {"tabSURVEY"}).visible = false;
}

void ClearSurvey(Session& s) {
  s.main->At(kList).rows.clear();
  s.main->At(kList).picked.clear();
}

void LockSurvey(Session& s) {
  SetFrameTitle(*s.main, names::fraSurvey, "Survey", false);
  SetListsEnabled(*s.main, false);
}

void UnlockSurvey(Session& s) {
  Form& main = *s.main;
  SetFrameTitle(main, names::fraSurvey, "Survey - EDIT DATA", true);
  SetListsEnabled(main, true);
  const auto& rows = main.At(kRelationships).rows;
  main.At("cmdEditRelationship").enabled = rows.empty() || rows.front().front() != "No structures yet";
  main.focus = kList;
}

void LoadSurveyQCList(Session& s) {
  NotingSheetFaults(s.notices, [&] {
    Control& list = s.main->At(kList);
    FillWithFindings(s, list, FindingsOfSurvey(s.current));
    AddStructureSummary(s, list, s.current);
  });
}

}  // namespace merlu
