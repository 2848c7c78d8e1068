// The platform of a command: boxes answer themselves and nothing is painted. The texts of the boxes are kept.
#pragma once

#include <string>
#include <vector>

#include "host/real_host.h"
#include "shell/silent_ui.h"

namespace merlu {

class Quiet : public Platform, public SilentUi, public RealHost {
 public:
  std::vector<std::string> said;  // the texts of the boxes, in order

  Button Ask(const Box& box) override;
};

}  // namespace merlu
