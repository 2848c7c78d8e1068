#include <gtest/gtest.h>

#include "base/numbers.h"
#include "rules/bounds.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kTotal = "txtSTRUCTURE_SalesGasTotal";
constexpr const char* kTotalTag = "Sales Gas Total";

// The parts of the sales gas.
const char* const kGases[] = {
    "txtSTRUCTURE_SalesGasH2SContent", "txtSTRUCTURE_SalesGasO2Content",  "txtSTRUCTURE_SalesGasCO2Content",
    "txtSTRUCTURE_SalesGasN2Content",  "txtSTRUCTURE_SalesGasC1Content",  "txtSTRUCTURE_SalesGasC2Content",
    "txtSTRUCTURE_SalesGasC3Content",  "txtSTRUCTURE_SalesGasiC4Content", "txtSTRUCTURE_SalesGasnC4Content",
    "txtSTRUCTURE_SalesGasiC5Content", "txtSTRUCTURE_SalesGasnC5Content", "txtSTRUCTURE_SalesGasC6Content",
    "txtSTRUCTURE_SalesGasC7Content",  "txtSTRUCTURE_SalesGasC8Content"};

// A structure with equipment.
struct Sheet {
  explicit Sheet(Mode mode)
      : record("", mode, {{"txtSTRUCTURE_Area", "GI"}, {"txtSTRUCTURE_Block", "43"}, {"txtSTRUCTURE_Name", "A"}}) {}
  // Judges the record and gives the finding of the field.
  std::string Finding(const std::string& tag) {
    record.Run();
    return record.Finding(tag);
  }
  void HoldsTo(const std::vector<Bound>& bounds) {
    for (const Bound& bound : bounds) {
      const std::string range = RangeFinding(bound.low, bound.high);
      for (const auto& [value, finding] : Values{{GeneralNumber(bound.low), ""},
                                                 {GeneralNumber(bound.high), ""},
                                                 {GeneralNumber(bound.low - 0.1), range},
                                                 {GeneralNumber(bound.high + 0.1), range},
                                                 {"", kBlankFinding},
                                                 {GeneralNumber(bound.low), ""}}) {
        record.Set(bound.control, value);
        EXPECT_EQ(Finding(bound.tag), finding) << bound.control << " \"" << value << "\"";
        EXPECT_EQ(record.MarkOf(bound.control), finding.empty() ? Mark::kPlain : Mark::kFlag)
            << bound.control << " \"" << value << "\"";
      }
    }
  }
  SheetRecord record;
};

TEST(StructureRules, of_a_description_require_its_texts) {
  Sheet sheet(Mode::kDesc);
  for (const auto& [field, tag] : Values{{"txtSTRUCTURE_Area", "Area"},
                                         {"txtSTRUCTURE_Block", "Block"},
                                         {"txtSTRUCTURE_Name", "Name"},
                                         {"txtSTRUCTURE_LeaseNo", "Lease Number"},
                                         {"txtSTRUCTURE_WaterDepth", "Water Depth"}}) {
    sheet.record.Set(field, "");
    EXPECT_EQ(sheet.Finding(tag), kBlankFinding) << field;
    EXPECT_EQ(sheet.record.MarkOf(field), Mark::kFlag) << field;
    sheet.record.Set(field, "x");
    EXPECT_EQ(sheet.Finding(tag), "") << field;
    EXPECT_EQ(sheet.record.MarkOf(field), Mark::kPlain) << field;
  }
}

TEST(StructureRules, of_a_description_hold_its_place_to_the_gulf) {
  Sheet(Mode::kDesc)
      .HoldsTo({{"txtSTRUCTURE_Lon", "Longitude", -98, -81},
                {"txtSTRUCTURE_Lat", "Latitude", 23, 31},
                {"txtSTRUCTURE_DistShore", "Distance to Shore", 0, 500}});
}

TEST(StructureRules, of_a_description_want_west_longitude_negative) {
  Sheet sheet(Mode::kDesc);
  for (const auto& [longitude, finding] :
       Values{{"-81", ""}, {"-80.9", RangeFinding(-98, -81)}, {"90", RangeFinding(-98, -81)}, {"-90", ""}}) {
    sheet.record.Set("txtSTRUCTURE_Lon", longitude);
    EXPECT_EQ(sheet.Finding("Longitude"), finding) << longitude;
  }
}

TEST(StructureRules, of_a_description_put_no_bounds_to_the_depth_of_the_water) {
  Sheet sheet(Mode::kDesc);
  sheet.record.Set("txtSTRUCTURE_WaterDepth", "-1000000");
  EXPECT_EQ(sheet.Finding("Water Depth"), "");
}

TEST(StructureRules, of_a_month_hold_production_throughput_and_fuel_to_their_bounds) {
  Sheet(Mode::kActv)
      .HoldsTo({{"txtSTRUCTURE_ProdOil", "Oil Production", 0, 5000000},
                {"txtSTRUCTURE_ProdNG", "Natural Gas Production", 0, 20000},
                {"txtSTRUCTURE_ThruOil", "Oil Throughput", 0, 5000000},
                {"txtSTRUCTURE_ThruNG", "Natural Gas Throughput", 0, 20000},
                {"txtSTRUCTURE_TotalFuelUsageNG", "Total Fuel Usage, Natural Gas", 0, 1000000000000},
                {"txtSTRUCTURE_TotalFuelUsageGasoline", "Total Fuel Usage, Gasoline", 0, 10000},
                {"txtSTRUCTURE_TotalFuelUsageDiesel", "Total Fuel Usage, Diesel", 0, 10000000}});
}

TEST(SalesGas, may_sum_up_to_99_8_or_100_and_nothing_outside) {
  Sheet sheet(Mode::kDesc);
  struct Case {
    const char* c1;
    const char* c2;
    const char* total;
    bool passes;
  };
  for (const Case& c :
       {Case{"90", "9.8", "99.8", true}, Case{"60.5", "39.5", "100", true}, Case{"90", "10.01", "100.01", false},
        Case{"90", "9.79", "99.79", false}, Case{"99.9", "", "99.9", true}}) {
    sheet.record.Put({{"txtSTRUCTURE_SalesGasC1Content", c.c1}, {"txtSTRUCTURE_SalesGasC2Content", c.c2}});
    EXPECT_EQ(sheet.Finding(kTotalTag), c.passes ? "" : RangeFinding(99.8, 100)) << c.total;
    EXPECT_EQ(sheet.record.Text(kTotal), c.total);
    EXPECT_EQ(sheet.record.MarkOf(kTotal), c.passes ? Mark::kFace : Mark::kFlag) << c.total;
  }
}

TEST(SalesGas, sums_up_each_of_its_fourteen_parts) {
  Sheet sheet(Mode::kDesc);
  for (const char* gas : kGases) {
    sheet.record.Set(gas, "100");
    EXPECT_EQ(sheet.Finding(kTotalTag), "") << gas;
    EXPECT_EQ(sheet.record.Text(kTotal), "100") << gas;
    sheet.record.Set(gas, "0");
    EXPECT_EQ(sheet.Finding(kTotalTag), RangeFinding(99.8, 100)) << gas;
  }
}

TEST(SalesGas, counts_a_part_that_is_no_number_as_nothing) {
  Sheet sheet(Mode::kDesc);
  sheet.record.Put({{"txtSTRUCTURE_SalesGasC1Content", "100"}, {"txtSTRUCTURE_SalesGasN2Content", "5 or so"}});
  EXPECT_EQ(sheet.Finding(kTotalTag), "");
  EXPECT_EQ(sheet.record.Text(kTotal), "100");
  sheet.record.Set("txtSTRUCTURE_SalesGasC1Content", "none");
  EXPECT_EQ(sheet.Finding(kTotalTag), RangeFinding(99.8, 100));
  EXPECT_EQ(sheet.record.Text(kTotal), "0");
}

TEST(SalesGas, that_is_not_reported_gets_no_finding_and_keeps_its_total) {
  SheetRecord record("", Mode::kDesc, {{kTotal, "42"}});
  record.Set("txtSTRUCTURE_SalesGasC3Content", "   ");
  record.Run();
  EXPECT_EQ(record.Finding(kTotalTag), "");
  EXPECT_EQ(record.Text(kTotal), "42");
}

TEST(SalesGas, is_not_summed_up_in_a_month) {
  SheetRecord record("", Mode::kActv, {{kTotal, "42"}, {"txtSTRUCTURE_SalesGasC1Content", "10"}});
  record.Run();
  EXPECT_EQ(record.Text(kTotal), "42");
  EXPECT_EQ(record.Finding(kTotalTag), "");
}

TEST(RetiredFinding, of_the_equipment_sum_goes_away_in_a_month) {
  const Texts tags = {"Total Fuel Usage, Diesel", "Total Fuel Usage, Gasoline", "Total Fuel Usage, Natural Gas"};
  SheetRecord record("", Mode::kActv);
  for (const char* total : {"NG", "Gasoline", "Diesel"})
    record.Set(std::string("txtSTRUCTURE_TotalFuelUsage") + total, "1");
  for (const std::string& tag : tags) record.Leave(tag, "Value exceeded by equipment sum");
  record.Run();
  for (const std::string& tag : tags) EXPECT_EQ(record.Finding(tag), "") << tag;
}

TEST(RetiredFinding, leaves_other_findings_of_the_fuel_totals) {
  SheetRecord record("", Mode::kActv);
  record.Run();
  EXPECT_EQ(record.Finding("Total Fuel Usage, Diesel"), kBlankFinding);
}

}  // namespace
}  // namespace merlu::test
