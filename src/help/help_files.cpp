#include "help/help_files.h"

#include <fstream>
#include <sstream>

#include "base/fault.h"
#include "help/help_pages.h"
#include "help/markdown.h"
#include "help/rtf_writer.h"
#include "store/files.h"

namespace merlu {
namespace {

std::string ReadText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  if (!in || text.str().empty()) throw Fault(fault_number::kFileNotFound, "MERLU help", "Cannot read " + path + ".");
  return text.str();
}

void WriteText(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
  out.close();
  if (!out) throw Fault(fault_number::kFileAccess, "MERLU help", "Cannot write " + path + ".");
}

Document PageFrom(const HelpPage& page, const std::string& folder) {
  const std::string from = WithSeparator(folder);
  return HelpDocument(page, ReadProse(ReadText(from + page.prose)), ReadProse(ReadText(from + "shared.md")));
}

}  // namespace

const std::vector<HelpDocumentFile>& HelpDocumentFiles() {
  static const std::vector<HelpDocumentFile> files = {
      {"guide.md", "User guide.html", "MERLU-2017: user guide"},
      {"rules.md", "Quality rules.html", "MERLU-2017: quality rules"},
      {"scripting.md", "Scripting.html", "MERLU-2017: scripting"},
  };
  return files;
}

Document ReadHelpPage(const std::string& file, const std::string& prose_folder) {
  for (const HelpPage& page : HelpPages())
    if (page.file == file) return PageFrom(page, prose_folder);
  throw Fault(fault_number::kFileNotFound, "MERLU help", "There is no help file " + file + ".");
}

void WriteHelpFiles(const std::string& prose_folder, const std::string& docs_folder, const std::string& to) {
  const std::string folder = WithSeparator(to);
  for (const HelpPage& page : HelpPages())
    WriteText(folder + page.file, ToRtf(PageFrom(page, prose_folder), "MERLU-2017: " + page.title));
  for (const HelpDocumentFile& document : HelpDocumentFiles())
    WriteText(folder + document.file,
              HtmlPage(ReadMarkdown(ReadText(WithSeparator(docs_folder) + document.source)), document.title));
}

}  // namespace merlu
