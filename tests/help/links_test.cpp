// What the documents point at is there.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

namespace merlu::test {
namespace {

namespace fs = std::filesystem;

const fs::path kSource = MERLU_SOURCE_FOLDER;

TEST(Documents, point_at_files_that_are_there) {
  int seen = 0;
  const auto look = [&](const fs::path& file) {
    std::ifstream in(file);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    const std::regex link(R"(\]\(([^)#:]+)\))");
    for (std::sregex_iterator at(text.begin(), text.end(), link), end; at != end; ++at, ++seen)
      EXPECT_TRUE(fs::exists(file.parent_path() / (*at)[1].str())) << file << ": " << (*at)[1];
  };
  look(kSource / "README.md");
  for (const auto& entry : fs::directory_iterator(kSource / "docs"))
    if (entry.path().extension() == ".md") look(entry.path());
  EXPECT_GE(seen, 18);
}

TEST(Documents, have_small_pictures_and_show_each) {
  std::string texts;
  for (const auto& entry : fs::directory_iterator(kSource / "docs")) {
    if (entry.path().extension() != ".md") continue;
    std::ifstream in(entry.path());
    texts.append(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  constexpr std::uintmax_t kMostBytes = 60000;
  for (const auto& entry : fs::directory_iterator(kSource / "docs/pictures")) {
    EXPECT_LT(entry.file_size(), kMostBytes) << entry.path();
    EXPECT_NE(texts.find("](pictures/" + entry.path().filename().string() + ")"), std::string::npos) << entry.path();
  }
}

}  // namespace
}  // namespace merlu::test
