// Where a fuzz target works: a folder of its own that it stays in, with the template.
#pragma once

#include <unistd.h>

#include <QGuiApplication>
#include <string>

#include "support/test_run.h"

namespace merlu::test {

class Workplace {
 public:
  Workplace() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = {name, nullptr};
    static const QGuiApplication application(argc, argv);
    fs::copy_file(TemplatePath(), folder_.path("mr.dbt"));
  }

  std::string path(const std::string& name = "") const { return folder_.path(name); }

  // Removes everything but the template.
  void Clear() const {
    for (const auto& entry : fs::directory_iterator(folder_.path()))
      if (entry.path().filename() != "mr.dbt" && entry.path().filename() != "base.mdb") fs::remove_all(entry.path());
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace merlu::test
