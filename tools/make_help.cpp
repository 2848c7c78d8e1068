// Makes the help that lies beside the program: make_help PROSE_FOLDER DOCS_FOLDER TO_FOLDER
#include <iostream>

#include "base/fault.h"
#include "help/help_files.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: make_help PROSE_FOLDER DOCS_FOLDER TO_FOLDER\n";
    return 2;
  }
  try {
    merlu::WriteHelpFiles(argv[1], argv[2], argv[3]);
  } catch (const merlu::Fault& fault) {
    std::cerr << "make_help: " << fault.description << "\n";
    return 1;
  }
  return 0;
}
