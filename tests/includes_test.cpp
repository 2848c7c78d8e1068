// The layers of the source: an #include points down, never up or sideways, and never in a circle.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace merlu::test {
namespace {

namespace fs = std::filesystem;

// From the bottom up. Folders of one row know nothing of one another.
const std::vector<std::vector<std::string>> kLayers = {
    {"base"},
    {"store", "forms"},
    {"history"},
    {"session"},
    {"rules"},
    {"qc"},
    {"sheets"},
    {"records"},
    {"qc_run", "exchange", "review"},
    {"entry"},
    {"inventory_qc"},
    {"shell"},
    {"host", "help"},
    {"script", "command"},
    {"desktop"},
    {"app"},
};

const std::string kSource = std::string(MERLU_SOURCE_FOLDER) + "/src/";

std::string FolderOf(const std::string& file) {
  return file.substr(0, file.find('/'));
}

std::optional<std::size_t> LayerOf(const std::string& file) {
  for (std::size_t layer = 0; layer < kLayers.size(); ++layer)
    if (std::find(kLayers[layer].begin(), kLayers[layer].end(), FolderOf(file)) != kLayers[layer].end()) return layer;
  return std::nullopt;
}

struct Includes {
  std::vector<std::string> own;     // "folder/file.h"
  std::vector<std::string> others;  // <header>
};

Includes Read(const fs::path& path) {
  Includes includes;
  std::ifstream in(path);
  for (std::string line; std::getline(in, line);) {
    const auto hash = line.find_first_not_of(" \t");
    if (hash == std::string::npos || line.compare(hash, 8, "#include") != 0) continue;
    const auto open = line.find_first_of("\"<", hash);
    const auto close = line.find_last_of("\">");
    const std::string name = line.substr(open + 1, close - open - 1);
    (line[open] == '"' ? includes.own : includes.others).push_back(name);
  }
  return includes;
}

// Every file below src/ by its name from there.
std::map<std::string, Includes> ReadAll() {
  std::map<std::string, Includes> files;
  for (const auto& entry : fs::recursive_directory_iterator(kSource))
    if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp")
      files[fs::relative(entry.path(), kSource).generic_string()] = Read(entry.path());
  return files;
}

class Source : public testing::Test {
 protected:
  std::map<std::string, Includes> files = ReadAll();
};

TEST_F(Source, stands_in_folders_that_have_a_layer) {
  EXPECT_GT(files.size(), 100u);
  // what is precompiled names the standard library alone
  for (const auto& [file, includes] : files) EXPECT_TRUE(LayerOf(file) || file == "standard.h") << file;
}

TEST_F(Source, includes_files_that_are_there_by_their_name_from_the_top) {
  std::size_t seen = 0;
  for (const auto& [file, includes] : files)
    for (const std::string& name : includes.own) {
      if (name.ends_with(".moc")) continue;
      EXPECT_TRUE(files.contains(name)) << file << " includes \"" << name << "\"";
      ++seen;
    }
  EXPECT_GT(seen, 200u);
}

TEST_F(Source, includes_downwards_only) {
  for (const auto& [file, includes] : files)
    for (const std::string& name : includes.own) {
      if (FolderOf(name) == FolderOf(file) || !LayerOf(name) || !LayerOf(file)) continue;
      EXPECT_LT(*LayerOf(name), *LayerOf(file)) << file << " includes " << name;
    }
}

TEST_F(Source, has_no_circle) {
  std::set<std::string> done;
  std::vector<std::string> path;
  const std::function<void(const std::string&)> follow = [&](const std::string& file) {
    if (const auto again = std::find(path.begin(), path.end(), file); again != path.end()) {
      std::string circle;
      for (auto at = again; at != path.end(); ++at) circle += *at + " -> ";
      ADD_FAILURE() << circle << file;
      return;
    }
    const auto found = files.find(file);
    if (found == files.end() || !done.insert(file).second) return;
    path.push_back(file);
    for (const std::string& name : found->second.own) follow(name);
    path.pop_back();
  };
  for (const auto& [file, includes] : files) follow(file);
  EXPECT_EQ(done.size(), files.size());
}

std::string TextOf(const std::string& file) {
  std::ifstream in(kSource + file);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The session holds the port to the user as an incomplete type; its header is the shell's.
TEST_F(Source, below_the_shell_asks_the_user_nothing) {
  std::size_t shell = 0, below = 0;
  for (const auto& [file, includes] : files) {
    if (!LayerOf(file) || *LayerOf(file) > *LayerOf("shell/")) continue;
    const bool is_shell = FolderOf(file) == "shell";
    const std::string text = TextOf(file);
    for (const char* call : {".ui.", "->ui.", "class Ui {", "class Ui :"}) {
      const bool has = text.find(call) != std::string::npos;
      if (has && is_shell) ++shell;
      EXPECT_TRUE(!has || is_shell) << file << " has " << call;
    }
    below += is_shell ? 0 : 1;
  }
  EXPECT_GT(shell, 3u);
  EXPECT_GT(below, 100u);
}

TEST_F(Source, of_rows_knows_no_control_and_takes_its_keys_as_arguments) {
  for (const auto& [file, includes] : files) {
    if (FolderOf(file) != "records") continue;
    for (const std::string& name : includes.own)
      EXPECT_FALSE(name.starts_with("forms/") || name == "sheets/sheet_form.h" || name == "sheets/build.h")
          << file << " includes " << name;
    const std::string text = TextOf(file);
    for (const char* word : {"Form&", "Control&", "s.main", "s.InActv", "s.InDesc"})
      EXPECT_EQ(text.find(word), std::string::npos) << file << " has " << word;
    for (const char* of_session : {"s.current", "s.mode", "s.PD_ID_AK", "s.SA_ID_AK", "s.ED_ID_AK", "s.EA_ID_AK"})
      for (const char* before : {" ", "(", "{", "!", "*"})
        EXPECT_EQ(text.find(before + std::string(of_session)), std::string::npos) << file << " has " << of_session;
  }
}

TEST_F(Source, of_the_core_knows_no_qt) {
  std::size_t seen = 0;
  for (const auto& [file, includes] : files) {
    if (!LayerOf(file) || *LayerOf(file) > *LayerOf("shell/")) continue;
    for (const std::string& name : includes.others)
      EXPECT_FALSE(name.starts_with("Q")) << file << " includes <" << name << ">";
    ++seen;
  }
  EXPECT_GT(seen, 90u);
}

TEST_F(Source, shows_widgets_on_the_desktop_only) {
  for (const auto& [file, includes] : files) {
    if (FolderOf(file) == "desktop" || FolderOf(file) == "app") continue;
    for (const std::string& name : includes.others) {
      EXPECT_FALSE(name.starts_with("QtWidgets")) << file;
      for (const char* widget : {"QWidget", "QMainWindow", "QDialog", "QMessageBox", "QApplication", "QTreeView"})
        EXPECT_NE(name, widget) << file;
    }
  }
}

TEST_F(Source, of_every_header_guards_itself) {
  for (const auto& [file, includes] : files) {
    if (!file.ends_with(".h")) continue;
    const std::string text = TextOf(file);
    EXPECT_NE(text.find("#pragma once\n"), std::string::npos) << file;
  }
}

}  // namespace
}  // namespace merlu::test
