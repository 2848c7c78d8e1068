#include "base/text.h"
#include "sheets/blocks/blocks.h"

namespace merlu {

void AddOtherControl(SheetSpec& sheet, const OtherControl& block) {
  const std::string device = "cmb" + block.letters + "_OtherControlDevice";
  const std::string description = "txt" + block.letters + "_OtherControlDesc";
  const std::string efficiency = "txt" + block.letters + "_OtherControlEff";

  FieldSpec described = Text(In::kDesc, description, "Description:", block.description_tag, "OTH_CTRL_DESC");
  described.label = block.description_label;
  std::vector<FieldSpec> fields = {
      YesNo(In::kDesc, device, "Other Control Device (Y/N):", block.device_tag, "OTH_CTRL_DEVICE"), described};
  std::vector<std::string> dependents = {description};
  int order = block.first_order;
  std::vector<Rule> rules = {{order, In::kDesc, description,
                              Required(block.marks_passes ? Marks::kEither : Marks::kFailure), Reads(device, {"Yes"})}};
  for (const std::string& gas : block.efficiencies) {
    fields.push_back(Number(In::kDesc, efficiency + gas, gas + " Efficiency (%):", gas + block.efficiency_tag,
                            "OTH_CTRL_EFFIC_" + Upper(gas), "%"));
    dependents.push_back(efficiency + gas);
    const CheckSpec range = block.marks_passes ? RangeIfFilledMarked(0, 99.9) : RangeIfFilled(0, 99.9);
    rules.push_back({++order, In::kDesc, efficiency + gas, range, Reads(device, {"Yes"})});
  }
  sheet.Add(block.page, "Other control device", fields);
  sheet.Add({{.mode = block.mode, .lists = {device}, .when = Reads(device, {"Yes"}), .fields = dependents}});
  sheet.rules.push_back({"Check" + block.letters + "OtherControl", rules});
}

}  // namespace merlu
