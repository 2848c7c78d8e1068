#include "script/json_views.h"

#include "forms/desk.h"

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
  if (c.kind == Kind::kListView) {
    json["columns"] = c.columns;
    json["rows"] = c.rows;
    json["picked"] = c.picked;
  }
  if (c.kind == Kind::kTab) json["page"] = c.index;
  return json;
}

Json TreeJson(const Tree& tree) {
  Json nodes = Json::array();
  for (int index : tree.InOrder()) {
    const TreeNode& node = tree.nodes[static_cast<std::size_t>(index)];
    nodes.push_back({{"key", node.key}, {"text", node.text}, {"level", node.depth}, {"expanded", node.expanded}});
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
}

Json ValueJson(const Value& value) {
  return std::visit(
      [](const auto& held) -> Json {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, Null>)
          return nullptr;
        else
          return held;
      },
      value);
}

Json BoxJson(const Box& box, Button answer) {
  Json buttons = Json::array();
  for (Button button : box.buttons) buttons.push_back(ButtonName(button));
  return {{"text", box.text},
          {"title", box.title},
          {"icon", IconName(box.icon)},
          {"buttons", buttons},
          {"answer", ButtonName(answer)}};
}

std::string Line(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace merlu
