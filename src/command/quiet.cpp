#include "command/quiet.h"

namespace merlu {

Button Quiet::Ask(const Box& box) {
  said.push_back(box.text + (box.detail.empty() ? "" : " " + box.detail));
  return LeastChange(box);
}

}  // namespace merlu
