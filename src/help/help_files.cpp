#include "help/help_files.h"

#include <algorithm>
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

std::string Base64(std::string_view bytes) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
    unsigned group = 0;
    for (std::size_t i = 0; i < 3; ++i)
      group = group << 8U | (i < count ? static_cast<unsigned char>(bytes[at + i]) : 0U);
    for (std::size_t i = 0; i < 4; ++i) text += i <= count ? kDigits[group >> (18 - 6 * i) & 63U] : '=';
  }
  return text;
}

// So that the document is one file, wherever it is taken. A picture that is not there is left out: it is made with the
// program whose build makes the document.
void HoldPictures(Paragraph& paragraph, const std::string& folder) {
  for (TextRun& run : paragraph.runs)
    if (!run.picture.empty() && FileExists(folder + run.picture))
      run.picture = "data:image/png;base64," + Base64(ReadText(folder + run.picture));
}

Document PageFrom(const HelpPage& page, const std::string& folder) {
  const std::string from = WithSeparator(folder);
  return HelpDocument(page, ReadProse(ReadText(from + page.prose)), ReadProse(ReadText(from + "shared.md")));
}

}  // namespace

const std::vector<HelpDocumentFile>& HelpDocumentFiles() {
  static const std::vector<HelpDocumentFile> files = {
      {{"guide.md", "month.md", "hand-in.md", "moving-structures.md", "trouble.md", "keys.md"},
       "User guide.html",
       "MERLU-2017: user guide"},
      {{"rules.md"}, "Quality rules.html", "MERLU-2017: quality rules"},
      {{"scripting.md"}, "Scripting.html", "MERLU-2017: scripting"},
  };
  return files;
}

Document ReadHelpPage(const std::string& file, const std::string& prose_folder) {
  for (const HelpPage& page : HelpPages())
    if (page.file == file) return PageFrom(page, prose_folder);
  throw Fault(fault_number::kFileNotFound, "MERLU help", "There is no help file " + file + ".");
}

Document ReadHelpDocument(const HelpDocumentFile& document, const std::string& docs_folder) {
  const std::string folder = WithSeparator(docs_folder);
  Document whole;
  for (const std::string& source : document.sources) {
    Document part = ReadMarkdown(ReadText(folder + source));
    for (Block& block : part.blocks) {
      HoldPictures(block.paragraph, folder);
      whole.blocks.push_back(std::move(block));
    }
  }
  return whole;
}

void WriteHelpFiles(const std::string& prose_folder, const std::string& docs_folder, const std::string& to) {
  const std::string folder = WithSeparator(to);
  for (const HelpPage& page : HelpPages())
    WriteText(folder + page.file, ToRtf(PageFrom(page, prose_folder), "MERLU-2017: " + page.title));
  for (const HelpDocumentFile& document : HelpDocumentFiles())
    WriteText(folder + document.file, HtmlPage(ReadHelpDocument(document, docs_folder), document.title));
}

}  // namespace merlu
