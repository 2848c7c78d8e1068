// A small part of Markdown, as the help and the documents of the program use it: headings, paragraphs, lists of
// two depths, tables, fenced code; bold, italic and code within a line. Of links the text stays; pictures go.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/document.h"

namespace merlu {

Document ReadMarkdown(std::string_view text);

// The runs of one line.
std::vector<TextRun> ReadMarkdownLine(std::string_view line);

}  // namespace merlu
