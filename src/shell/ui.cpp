#include "shell/ui.h"

#include <algorithm>
#include <filesystem>

namespace merlu {

Button LeastChange(const Box& box) {
  for (Button button : {Button::kCancel, Button::kNo})
    if (std::find(box.buttons.begin(), box.buttons.end(), button) != box.buttons.end()) return button;
  return box.buttons.front();
}

std::string WithExtension(const std::string& path, const std::string& extension) {
  return path.empty() || std::filesystem::path(path).has_extension() ? path : path + extension;
}

std::string_view ButtonName(Button button) {
  switch (button) {
    case Button::kOK: return "OK";
    case Button::kCancel: return "Cancel";
    case Button::kYes: return "Yes";
    case Button::kNo: return "No";
    case Button::kRetry: return "Retry";
  }
  return "";
}

}  // namespace merlu
