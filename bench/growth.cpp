// merlu_growth ACTS SETTINGS: plays a script in which the lines "name | command" are acts to be measured. Under
// callgrind each of them leaves a dump of its own, named after the act; tools/growth reads them.
#include <valgrind/callgrind.h>

#include <QGuiApplication>
#include <fstream>
#include <iostream>
#include <streambuf>
#include <string>

#include "script/player.h"

namespace {

// Hands a script out line by line. An act is measured from the moment its line was handed out until the next is asked
// for.
class Acts : public std::streambuf {
 public:
  explicit Acts(std::istream& in) : in_(in) {}

 protected:
  int_type underflow() override {
    EndAct();
    if (!std::getline(in_, line_)) return traits_type::eof();
    const std::size_t bar = line_.find(" | ");
    if (bar != std::string::npos && line_.front() != '#') {
      act_ = line_.substr(0, bar);
      line_.erase(0, bar + 3);
    }
    line_ += '\n';
    setg(line_.data(), line_.data(), line_.data() + line_.size());
    if (!act_.empty()) {
      CALLGRIND_START_INSTRUMENTATION;
      CALLGRIND_ZERO_STATS;
    }
    return traits_type::to_int_type(line_.front());
  }

 private:
  void EndAct() {
    if (act_.empty()) return;
    CALLGRIND_DUMP_STATS_AT(act_.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
    act_.clear();
  }

  std::istream& in_;
  std::string line_, act_;
};

}  // namespace

int main(int count, char** words) {
  if (count != 3) {
    std::cerr << "merlu_growth ACTS SETTINGS\n";
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(count, words);
  std::ifstream file(words[1]);
  if (!file) {
    std::cerr << words[1] << " cannot be read\n";
    return 2;
  }
  Acts acts(file);
  std::istream in(&acts);
  merlu::PlayOptions options;
  options.settings_file = words[2];
  return merlu::Player(in, std::cout, options).Run();
}
