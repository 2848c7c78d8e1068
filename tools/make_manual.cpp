// Makes the manual page and the completion for bash: make_manual PAGE.in TO_PAGE TO_COMPLETION
// The commands come from their table, the rest of the page from the file.
#include <fstream>
#include <iostream>
#include <string>

#include "command/command_texts.h"

namespace {

constexpr const char* kSynopsis = ".\\\" the commands' synopsis stands here";
constexpr const char* kCommands = ".\\\" the commands stand here";

bool WritePage(const char* from, const char* to) {
  std::ifstream in(from);
  std::ofstream out(to);
  int markers = 0;
  for (std::string line; std::getline(in, line);) {
    const bool synopsis = line == kSynopsis, commands = line == kCommands;
    markers += synopsis || commands ? 1 : 0;
    out << (synopsis ? merlu::ManualSynopsis() : commands ? merlu::ManualCommands() : line + "\n");
  }
  out.close();
  return markers == 2 && out;
}

bool WriteCompletion(const char* to) {
  std::ofstream out(to);
  out << merlu::BashCompletion();
  out.close();
  return static_cast<bool>(out);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: make_manual PAGE.in TO_PAGE TO_COMPLETION\n";
    return 2;
  }
  if (WritePage(argv[1], argv[2]) && WriteCompletion(argv[3])) return 0;
  std::cerr << "make_manual: the manual page or the completion could not be made\n";
  return 1;
}
