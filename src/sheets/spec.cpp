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

FieldSpec Number(In mode, std::string control, std::string caption, std::string tag, std::string column) {
  return Make(mode, Kind::kText, Stored::kNumber, std::move(control), std::move(caption), std::move(tag),
              std::move(column));
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
