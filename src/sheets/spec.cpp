#include "sheets/spec.h"

namespace merlu {
namespace {

FieldSpec Make(In mode, Kind kind, Stored stored, std::string control, std::string caption, std::string tag,
               std::string column) {
  FieldSpec field;
  field.mode = mode;
  field.kind = kind;
  field.stored = stored;
  field.control = std::move(control);
  field.caption = std::move(caption);
  field.tag = std::move(tag);
  field.column = std::move(column);
  return field;
}

}  // namespace

FieldSpec Number(In mode, std::string control, std::string caption, std::string tag, std::string column,
                 std::string unit) {
  FieldSpec field = Make(mode, Kind::kText, Stored::kNumber, std::move(control), std::move(caption), std::move(tag),
                         std::move(column));
  field.unit = std::move(unit);
  return field;
}

FieldSpec Text(In mode, std::string control, std::string caption, std::string tag, std::string column) {
  return Make(mode, Kind::kText, Stored::kText, std::move(control), std::move(caption), std::move(tag),
              std::move(column));
}

FieldSpec YesNo(In mode, std::string control, std::string caption, std::string tag, std::string column) {
  FieldSpec field = Make(mode, Kind::kList, Stored::kYesNo, std::move(control), std::move(caption), std::move(tag),
                         std::move(column));
  field.items = {{"Yes", ""}, {"No", ""}};
  return field;
}

FieldSpec Coded(In mode, std::string control, std::string caption, std::string tag, std::string column,
                std::vector<Item> items) {
  FieldSpec field =
      Make(mode, Kind::kList, Stored::kCode, std::move(control), std::move(caption), std::move(tag), std::move(column));
  field.items = std::move(items);
  return field;
}

FieldSpec ItemText(In mode, std::string control, std::string caption, std::string tag, std::string column,
                   std::vector<std::string> items) {
  FieldSpec field = Make(mode, Kind::kList, Stored::kItemText, std::move(control), std::move(caption), std::move(tag),
                         std::move(column));
  for (std::string& item : items) field.items.push_back({std::move(item), ""});
  return field;
}

FieldSpec OpenItemText(In mode, std::string control, std::string caption, std::string tag, std::string column,
                       std::vector<std::string> items) {
  FieldSpec field =
      ItemText(mode, std::move(control), std::move(caption), std::move(tag), std::move(column), std::move(items));
  field.shows_unlisted = true;
  return field;
}

RecordTables SheetSpec::tables() const {
  if (level == level::kUser) return {.description = "CO_COMPANY"};
  if (level == level::kStructure)
    return {.description = "PD_PLATFORM_DESC",
            .month = "PA_PLATFORM_ACTV",
            .dated = "PD_PLATFORM_DESC",
            .description_date = "PD_QC_DT",
            .master = "PA_PLATFORM_ACTV",
            .status = "status",
            .month_date = "PA_QC_DT"};
  RecordTables tables{.description = ed_table(), .dated = "ED_EQUIP_DESC", .description_date = "ED_QC_DT"};
  if (!has_activity) return tables;
  tables.month = ea_table();
  tables.master = "EA_EQUIP_ACTV";
  tables.status = "EA_STATUS";
  tables.comments = "EA_COMNT_TXT";
  tables.month_date = "EA_QC_DT";
  return tables;
}

void SheetSpec::Add(int page, const std::string& block, std::vector<FieldSpec> more) {
  for (FieldSpec& field : more) {
    field.page = page;
    field.block = block;
    fields.push_back(std::move(field));
  }
}

void SheetSpec::Add(std::vector<Enabling> more) {
  for (Enabling& enabling : more) enablings.push_back(std::move(enabling));
}

}  // namespace merlu
