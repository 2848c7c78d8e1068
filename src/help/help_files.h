// The files of the help beside the program: a page in rich text for each screen, and the documents that the Help
// menu opens.
#pragma once

#include <string>
#include <vector>

#include "base/document.h"

namespace merlu {

// A document of docs/ as it lies beside the program.
struct HelpDocumentFile {
  std::string source;  // "guide.md"
  std::string file;    // "User guide.html"
  std::string title;
};
const std::vector<HelpDocumentFile>& HelpDocumentFiles();

// The page of that screen's file from the prose in the folder. kFileNotFound for prose that is not there.
Document ReadHelpPage(const std::string& file, const std::string& prose_folder);

// Writes every file. kFileNotFound, kFileAccess.
void WriteHelpFiles(const std::string& prose_folder, const std::string& docs_folder, const std::string& to);

}  // namespace merlu
