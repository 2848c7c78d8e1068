#include "session/act.h"

#include "session/place.h"
#include "store/file_note.h"

namespace merlu {
namespace {

StepTitle TitleOf(Session& s, const std::string& what) {
  StepTitle title;
  title.when = StoredDate(s.platform.Now());
  title.who = UserName();
  title.what = what;
  title.from = title.to = PackLocation(s.current, s.mode);
  return title;
}

}  // namespace

Act::Act(Session& s, const std::string& what) : s_(s) {
  StepTitle title;
  if (!s.companion.InStep()) {
    title = TitleOf(s, what);
    if (s.db.IsOpen()) title.place = PlaceText(s.db, s.current);
  }
  s.companion.BeginStep(std::move(title));
}

Act::Act(Session& s, const std::string& what, const std::string& place, const QCLocation& to) : s_(s) {
  StepTitle title = TitleOf(s, what);
  title.place = place;
  title.to = PackLocation(to, s.mode);
  s.companion.BeginStep(std::move(title));
}

Act::~Act() {
  s_.companion.EndStep();
}

void OpenCompanion(Session& s) {
  s.companion.Open(s.db, [&s] { return TitleOf(s, "Change"); });
}

}  // namespace merlu
