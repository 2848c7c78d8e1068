#include "script/catalogue.h"

#include "session/types.h"
#include "sheets/units.h"

namespace merlu {
namespace {

const char* InName(In mode) {
  return mode == In::kActv ? "ACTV" : mode == In::kDesc ? "DESC" : "both";
}

const char* StoredName(Stored stored) {
  switch (stored) {
    case Stored::kNumber: return "number";
    case Stored::kText: return "text";
    case Stored::kYesNo: return "yesno";
    case Stored::kCode: return "code";
    case Stored::kItemText: return "itemtext";
    case Stored::kDestination: return "destination";
    case Stored::kComputed: return "computed";
    case Stored::kNone: return "none";
  }
  return "";
}

const char* FieldKindName(Kind kind) {
  return kind == Kind::kList ? "list" : kind == Kind::kCheck ? "check" : kind == Kind::kOption ? "option" : "text";
}

Json FieldJson(const SheetSpec& sheet, const FieldSpec& field) {
  Json json = {{"control", field.control},
               {"kind", FieldKindName(field.kind)},
               {"caption", field.caption},
               {"tag", field.tag},
               {"table", field.column.empty()      ? ""
                         : field.mode == In::kActv ? sheet.ea_table()
                                                   : sheet.ed_table()},
               {"column", field.column},
               {"mode", InName(field.mode)},
               {"page", field.page},
               {"stored", StoredName(field.stored)}};
  Json items = Json::array(), codes = Json::array();
  for (const Item& item : field.items) {
    items.push_back(item.text);
    codes.push_back(item.code);
  }
  if (field.kind == Kind::kList) json["items"] = items;
  if (field.stored == Stored::kCode) json["codes"] = codes;
  return json;
}

// The month's status and comment, which every sheet of monthly activity has.
void AddMasterFields(const SheetSpec& sheet, Json& fields) {
  fields.push_back({{"control", sheet.status_box()},
                    {"kind", "check"},
                    {"caption", "No Emissions to Report"},
                    {"tag", ""},
                    {"table", "EA_EQUIP_ACTV"},
                    {"column", "EA_STATUS"},
                    {"mode", "ACTV"},
                    {"page", 0},
                    {"stored", "code"},
                    {"items", {"off", "on"}},
                    {"codes", {"A", "I"}}});
  fields.push_back({{"control", sheet.comments()},
                    {"kind", "text"},
                    {"caption", sheet.comments_caption},
                    {"tag", sheet.comments_tag},
                    {"table", "EA_EQUIP_ACTV"},
                    {"column", "EA_COMNT_TXT"},
                    {"mode", "ACTV"},
                    {"page", 0},
                    {"stored", "text"}});
}

Json RuleJson(const RuleGroup& group, const Rule& rule) {
  Json json = {{"group", group.name},
               {"order", rule.order},
               {"mode", InName(rule.mode)},
               {"field", rule.field},
               {"check", rule.check.name}};
  if (rule.check.has_low) json["low"] = rule.check.low;
  if (rule.check.has_high) json["high"] = rule.check.high;
  if (!rule.check.text.empty()) json["text"] = rule.check.text;
  const std::string own = rule.check.OwnConditions();
  std::string when = rule.When();
  if (!own.empty()) when += (when.empty() ? "" : " and ") + own;
  json["when"] = when;
  return json;
}

Json SheetJson(const SheetSpec& sheet) {
  Json fields = Json::array(), rules = Json::array();
  for (const FieldSpec& field : sheet.fields) fields.push_back(FieldJson(sheet, field));
  if (sheet.has_activity) AddMasterFields(sheet, fields);
  for (const RuleGroup& group : sheet.rules)
    for (const Rule& rule : group.rules) rules.push_back(RuleJson(group, rule));
  return {{"type", sheet.type},
          {"number", sheet.number},
          {"form", sheet.form()},
          {"frame", sheet.frame()},
          {"unit", "TARNE_" + sheet.letters},
          {"longName", sheet.title},
          {"editTitle", sheet.edit_title},
          {"pages", sheet.pages},
          {"fields", fields},
          {"rules", rules}};
}

}  // namespace

Json Catalogue() {
  Json sheets = Json::array();
  for (const SheetSpec* sheet : AllSheets()) sheets.push_back(SheetJson(*sheet));
  return {{"sheets", sheets}};
}

}  // namespace merlu
