#include "script/json_views.h"

#include "forms/desk.h"
#include "forms/grid_model.h"
#include "forms/list_model.h"
#include "session/main_names.h"
#include "store/files.h"

namespace merlu {
namespace {

const char* KindName(Kind kind) {
  switch (kind) {
    case Kind::kText: return "text";
    case Kind::kMasked: return "masked";
    case Kind::kList: return "list";
    case Kind::kCheck: return "check";
    case Kind::kOption: return "option";
    case Kind::kLabel: return "label";
    case Kind::kButton: return "button";
    case Kind::kMenu: return "menu";
    case Kind::kListView: return "listview";
    case Kind::kTab: return "tab";
    case Kind::kFrame: return "frame";
    case Kind::kTree: return "tree";
    case Kind::kGrid: return "grid";
  }
  return "";
}

const char* BackName(Back back) {
  return back == Back::kFlag ? "flag" : back == Back::kFace ? "face" : "window";
}

const char* IconName(Icon icon) {
  switch (icon) {
    case Icon::kNone: return "none";
    case Icon::kInfo: return "info";
    case Icon::kQuestion: return "question";
    case Icon::kWarning: return "warning";
    case Icon::kStop: return "stop";
  }
  return "";
}

bool IsField(Kind kind) {
  return kind == Kind::kText || kind == Kind::kMasked || kind == Kind::kList;
}

Json LocationJson(const QCLocation& l) {
  return {{"Level", l.Level},     {"UserID", l.UserID},     {"Month", l.Month},         {"Year", l.Year},
          {"CmplxID", l.CmplxID}, {"StructID", l.StructID}, {"EquipType", l.EquipType}, {"EquipID", l.EquipID}};
}

// Adds a member unless it has its default value.
void AddSome(Json& json, const char* name, const std::string& text) {
  if (!text.empty()) json[name] = text;
}
void AddSome(Json& json, const char* name, bool flag) {
  if (flag) json[name] = true;
}

Json CellJson(const GridCell& cell) {
  Json json = Json::object();
  AddSome(json, "text", cell.text);
  AddSome(json, "locked", cell.locked);
  if (cell.back != Back::kWindow) json["back"] = BackName(cell.back);
  AddSome(json, "was", cell.was);
  AddSome(json, "copied", cell.copied);
  AddSome(json, "hint", cell.hint);
  AddSome(json, "finding", cell.finding);
  return json;
}

void AddGrid(Json& json, const GridModel& grid) {
  Json columns = Json::array(), rows = Json::array();
  for (const GridColumn& column : grid.Columns()) {
    Json head = {{"name", column.name}, {"caption", column.caption}};
    AddSome(head, "numeric", column.numeric);
    if (!column.items.empty()) head["items"] = column.items;
    columns.push_back(std::move(head));
  }
  const int count = static_cast<int>(columns.size());
  for (int row = 0; row < grid.RowCount(); ++row) {
    Json cells = Json::array();
    for (int column = 0; column < count; ++column) cells.push_back(CellJson(grid.Cell(row, column)));
    rows.push_back({{"key", grid.RowKey(row)}, {"cells", std::move(cells)}});
  }
  json["columns"] = std::move(columns);
  json["rows"] = std::move(rows);
}

void AddRows(Json& json, const Control& c) {
  if (c.grid != nullptr) {
    AddGrid(json, *c.grid);
  } else {
    json["columns"] = c.columns;
    Json rows = Json::array();
    if (c.model == nullptr) rows = c.rows;
    for (int row = 0; c.model != nullptr && row < c.model->RowCount(); ++row) {
      Json cells = Json::array();
      for (std::size_t column = 0; column < c.columns.size(); ++column)
        cells.push_back(c.model->Text(row, static_cast<int>(column)));
      rows.push_back(std::move(cells));
    }
    json["rows"] = std::move(rows);
  }
  json["picked"] = c.picked;
}

// The control that has, or requested, the focus, on the form that contains it; the tree when that one is gone from
// sight.
std::string FocusOf(const Session& s) {
  for (const Form* form : s.desk.LookUpOrder(s.main)) {
    const Control* control = form->focus.empty() ? nullptr : form->Find(form->focus);
    if (control != nullptr && IsVisible(*form, *control) && IsInFront(*form, *control)) return control->name;
  }
  const bool tree = s.main != nullptr && s.main->visible && s.tree.enabled && s.desk.Dialog() == nullptr;
  return tree ? names::tvwTree : "";
}

}  // namespace

Json ControlJson(const Form& form, const Control& c) {
  Json json = {{"name", c.name}, {"form", form.name()}, {"kind", KindName(c.kind)}};
  const bool field = IsField(c.kind);
  const bool checkable = c.kind == Kind::kCheck || c.kind == Kind::kOption;
  if (field || c.kind == Kind::kLabel) json["text"] = c.text;
  json["caption"] = c.caption;
  if (field || checkable) json["tag"] = c.tag;
  json["enabled"] = IsEnabled(form, c);
  if (field) json["locked"] = c.locked;
  json["visible"] = IsVisible(form, c);
  if (field || c.kind == Kind::kListView) json["back"] = BackName(c.back);
  if (c.kind == Kind::kList || c.kind == Kind::kTab) json["items"] = c.items;
  if (c.kind == Kind::kList) json["index"] = c.index;
  if (checkable) json["checked"] = c.checked;
  if (c.kind == Kind::kMenu && c.checkable) json["checked"] = c.checked;
  if (c.kind == Kind::kListView || c.kind == Kind::kGrid) AddRows(json, c);
  if (c.kind == Kind::kTab) json["page"] = c.index;
  if (c.kind == Kind::kTab && !c.counts.empty()) json["counts"] = c.counts;
  if (!field && !checkable) return json;
  AddSome(json, "hint", c.hint);
  AddSome(json, "copied", c.copied);
  AddSome(json, "finding", c.finding);
  AddSome(json, "was", c.was);
  return json;
}

Json TreeJson(const Tree& tree) {
  Json nodes = Json::array();
  for (int index : tree.InOrder()) {
    const TreeNode& node = tree.nodes[static_cast<std::size_t>(index)];
    nodes.push_back({{"key", node.key}, {"text", node.text}, {"level", node.depth}, {"expanded", node.expanded}});
    AddSome(nodes.back(), "hidden", node.hidden);
  }
  return nodes;
}

void AddSession(Json& answer, const Session& s) {
  answer["mode"] = ModeText(s.mode);
  answer["editing"] = s.editing;
  answer["path"] = s.path;
  answer["year"] = s.year;
  answer["lastMonth"] = s.last_month;
  answer["location"] = LocationJson(s.current);
  answer["PD_ID_AK"] = s.PD_ID_AK;
  answer["SA_ID_AK"] = s.SA_ID_AK;
  answer["ED_ID_AK"] = s.ED_ID_AK;
  answer["EA_ID_AK"] = s.EA_ID_AK;
  answer["nodeStatus"] = s.node_status;
  answer["status"] = s.status_text;
  answer["file"] = FileName(s.path);
  answer["message"] = s.message;
  answer["findings"] = s.findings;
  answer["unexplained"] = s.unexplained;
  answer["checked"] = s.checked;
  answer["focus"] = FocusOf(s);
}

Json BoxJson(const Box& box, Button answer) {
  Json buttons = Json::array();
  for (Button button : box.buttons) buttons.push_back(ButtonName(button));
  Json json = {{"text", box.text},
               {"title", box.title},
               {"icon", IconName(box.icon)},
               {"buttons", buttons},
               {"answer", ButtonName(answer)}};
  AddSome(json, "detail", box.detail);
  return json;
}

std::string Line(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace merlu
