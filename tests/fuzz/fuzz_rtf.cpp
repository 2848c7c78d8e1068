// Feeds the reader of rich text with what libFuzzer makes up:
//   cmake --preset debug -DMERLU_FUZZ=ON -DCMAKE_CXX_COMPILER=clang++ && cmake --build build-debug --target fuzz_rtf
//   build-debug/fuzz_rtf -max_len=20000 CORPUS_FOLDER
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/code_pages.h"
#include "base/rtf_reader.h"
#include "base/text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = "{\\rtf1 " + std::string(reinterpret_cast<const char*>(data), size);
  const merlu::Document document = merlu::ReadRtf(text, {.bytes = std::size_t{1} << 20U, .depth = 64, .parts = 5000});
  const std::string plain = merlu::PlainText(document);
  if (plain != merlu::ValidUtf8(plain) || merlu::ToHtml(document).empty() != document.blocks.empty()) std::abort();
  return 0;
}
