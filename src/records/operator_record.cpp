#include "records/operator_record.h"

#include "sheets/conversions.h"

namespace merlu {

void NewOperatorRow(Session& s, const NewOperator& made) {
  WriteBatch batch(s.db);
  Cursor& company = s.At("CO_COMPANY");
  company.AddNew();
  company.SetField("RIMA_CO_NUM", FieldText(made.number));
  for (const auto& [column, text] : made.values) company.SetField(column, FieldText(text));
  company.Update();
  company.MoveFirst();

  Cursor& config = s.At("SYS_CONFIG");
  config.MoveFirst();
  config.Edit();
  config.SetField("sys_yr", std::int64_t{made.year});
  config.SetField("SYS_MAX_MO", std::int64_t{1});
  config.Update();
  s.year = made.year;
  s.last_month = 1;
  batch.Commit();
}

}  // namespace merlu
