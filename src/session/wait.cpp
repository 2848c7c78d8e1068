#include "session/wait.h"

#include "store/files.h"

namespace merlu {
namespace {

// Below this size everything that has a wait screen takes well under a second.
constexpr std::uint64_t kLongWorkBytes = 4U << 20U;

}  // namespace

void ShowWait(Session& s, const std::string& title, const std::string& text) {
  s.wait = {true, title, text, 0, 0, FileSize(s.path) >= kLongWorkBytes};
  s.progress.PaintWait(s.wait);
}

void ShowProgress(Session& s, const std::string& text, int done, int total) {
  if (!s.wait.showing) return;
  s.wait.text = text;
  s.wait.done = done;
  s.wait.total = total;
  s.progress.PaintWait(s.wait);
}

void HideWait(Session& s) {
  if (!s.wait.showing) return;
  s.wait.showing = false;
  s.progress.PaintWait(s.wait);
}

}  // namespace merlu
