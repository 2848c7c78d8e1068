// The files of the help beside the program: a page in rich text for each screen, and the documents that the Help
// menu opens.
#pragma once

#include <string>
#include <vector>

#include "base/document.h"

namespace merlu {

// A document of docs/ as it lies beside the program.
struct HelpDocumentFile {
  std::vector<std::string> sources;  // "guide.md", in this order
  std::string file;                  // "User guide.html"
  std::string title;
};
const std::vector<HelpDocumentFile>& HelpDocumentFiles();

// The page of that screen's file from the prose in the folder. kFileNotFound for prose that is not there.
Document ReadHelpPage(const std::string& file, const std::string& prose_folder);

// The document with the pictures that it shows, which are read from the folder. Faults as ReadHelpPage.
Document ReadHelpDocument(const HelpDocumentFile& document, const std::string& docs_folder);

// Writes every file. kFileNotFound, kFileAccess.
void WriteHelpFiles(const std::string& prose_folder, const std::string& docs_folder, const std::string& to);

}  // namespace merlu
