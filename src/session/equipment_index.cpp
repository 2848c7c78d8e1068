#include "session/equipment_index.h"

namespace merlu {

EquipmentIndex::EquipmentIndex(Database& db) {
  db.ForEach("SELECT PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM FROM PD_PLATFORM_DESC", {}, [&](const RowView& row) {
    structures_[row.Integer(0)] = {std::string(row.Text(1)), std::string(row.Text(2)), std::string(row.Text(3))};
  });
  db.ForEach("SELECT ED_ID_AK,ED_MERLU_EQUIP_ID,PD_ID_AK FROM ED_EQUIP_DESC", {}, [&](const RowView& row) {
    const auto structure = row.IsNull(2) ? structures_.end() : structures_.find(row.Integer(2));
    pieces_[row.Integer(0)] = {std::string(row.Text(1)), row.Integer(2),
                               structure == structures_.end() ? nullptr : &structure->second};
  });
}

const IndexedPiece* EquipmentIndex::Find(std::int64_t ED_ID_AK) const {
  const auto found = pieces_.find(ED_ID_AK);
  return found == pieces_.end() ? nullptr : &found->second;
}

}  // namespace merlu
