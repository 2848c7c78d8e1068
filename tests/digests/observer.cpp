#include "digests/observer.h"

#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <nlohmann/json.hpp>

namespace merlu::test {
namespace {

using Json = nlohmann::json;

void ReplaceAll(std::string& text, const std::string& what, const std::string& by) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
    text.replace(at, what.size(), by);
}

const char* KindText(Kind kind) {
  static const char* const names[] = {"text", "masked",   "list", "check", "option", "label", "button",
                                      "menu", "listview", "tab",  "frame", "tree",   "grid"};
  return names[static_cast<int>(kind)];
}

void AppendTexts(std::string& to, const char* name, const std::vector<std::string>& texts) {
  if (texts.empty()) return;
  to += name;
  for (const std::string& text : texts) to += " [" + text + "]";
}

std::string ControlText(const Form& form, const Control& c) {
  std::string text = KindText(c.kind);
  const bool field = c.kind == Kind::kText || c.kind == Kind::kMasked || c.kind == Kind::kList;
  if (!c.text.empty()) text += " text[" + c.text + "]";
  if (!c.caption.empty()) text += " caption[" + c.caption + "]";
  if (!c.tag.empty()) text += " tag[" + c.tag + "]";
  if (!c.tip.empty()) text += " tip[" + c.tip + "]";
  text += IsEnabled(form, c) ? " enabled" : " disabled";
  text += IsVisible(form, c) ? " visible" : " hidden";
  if (field) text += c.locked ? " locked" : " open";
  if (c.checked) text += " checked";
  if (c.emphasis) text += " emphasis";
  if (field || c.kind == Kind::kListView)
    text += c.back == Back::kFlag ? " flag" : c.back == Back::kFace ? " face" : " window";
  if (c.kind == Kind::kList || c.kind == Kind::kTab) text += " index " + std::to_string(c.index);
  AppendTexts(text, " items", c.items);
  for (std::size_t i = 0; i < c.page_available.size(); ++i)
    if (!c.page_available[i]) text += " no page " + std::to_string(i);
  for (const auto& row : c.rows) AppendTexts(text, " row", row);
  for (int row : c.picked) text += " picked " + std::to_string(row);
  return text;
}

std::string RowText(sqlite3_stmt* row) {
  std::string text;
  for (int i = 1; i < sqlite3_column_count(row); ++i) {
    const int type = sqlite3_column_type(row, i);
    if (type == SQLITE_NULL) continue;
    if (!text.empty()) text += '|';
    text += sqlite3_column_name(row, i);
    text += '=';
    if (type == SQLITE_FLOAT) {
      char number[40];
      std::snprintf(number, sizeof number, "%.17g", sqlite3_column_double(row, i));
      text += number;
    } else {
      if (type == SQLITE_TEXT) text += '\'';
      const auto* bytes = static_cast<const char*>(sqlite3_column_blob(row, i));
      text.append(bytes == nullptr ? "" : bytes, static_cast<std::size_t>(sqlite3_column_bytes(row, i)));
    }
  }
  return text;
}

// Calls `each` with every row; false when the file cannot be read.
template <typename Each>
bool Read(sqlite3* db, const std::string& sql, const Each& each) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) return false;
  int state = SQLITE_ROW;
  while ((state = sqlite3_step(statement)) == SQLITE_ROW) each(statement);
  sqlite3_finalize(statement);
  return state == SQLITE_DONE;
}

std::string FirstText(sqlite3_stmt* row) {
  return reinterpret_cast<const char*>(sqlite3_column_text(row, 0));
}

}  // namespace

std::string Folders::Hide(std::string text) const {
  ReplaceAll(text, work_, "$F");
  ReplaceAll(text, program_, "$P");
  return text;
}

std::string Folders::Insert(std::string text) const {
  ReplaceAll(text, "$F", work_);
  return text;
}

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (char c : text) {
    if (c == '\\')
      escaped += "\\\\";
    else if (c == '\n')
      escaped += "\\n";
    else if (c == '\t')
      escaped += "\\t";
    else if (c == '\r')
      escaped += "\\r";
    else
      escaped += c;
  }
  return escaped;
}

std::string Unescaped(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      plain += text[i];
      continue;
    }
    const char c = text[++i];
    plain += c == 'n' ? '\n' : c == 't' ? '\t' : c == 'r' ? '\r' : c;
  }
  return plain;
}

FileWatch::~FileWatch() {
  Close();
}

void FileWatch::Close() {
  sqlite3_close(db_);
  db_ = nullptr;
  version_ = -1;
}

bool FileWatch::HasChanged(const std::string& path) {
  struct stat state {};
  const bool exists = ::stat(path.c_str(), &state) == 0;
  if (path != path_ || state.st_ino != state_.st_ino || state.st_dev != state_.st_dev || !exists) {
    Close();
    path_ = path;
    state_ = state;
    if (!exists || sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
      Close();
      rows_.clear();
      return false;
    }
  }
  if (db_ == nullptr) return false;
  long long version = version_;
  // a file that is just being written counts as it was
  if (!Read(db_, "PRAGMA data_version", [&](sqlite3_stmt* row) { version = sqlite3_column_int64(row, 0); }))
    return false;
  return std::exchange(version_, version) != version;
}

const Items& FileWatch::Rows(const std::string& path, const std::string& prefix) {
  if (!HasChanged(path)) return rows_;
  Items rows;
  std::vector<std::string> tables;
  bool read = Read(db_, "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite%'",
                   [&](sqlite3_stmt* row) { tables.push_back(FirstText(row)); });
  for (const std::string& table : tables)
    read = read && Read(db_, "SELECT rowid,* FROM [" + table + "]", [&](sqlite3_stmt* row) {
             rows[prefix + table + "#" + std::to_string(sqlite3_column_int64(row, 0))] = RowText(row);
           });
  if (read)
    rows_ = std::move(rows);
  else
    version_ = -1;
  return rows_;
}

void Observer::Put(const std::string& name, std::string text) {
  now_[name] = folders_.Hide(std::move(text));
}

void Observer::LookAtForms(const Desk& desk) {
  std::string showing;
  for (const Form* form : desk.showing) {
    showing += " " + form->name() + (form->modal ? " (dialog)" : "");
    Put(form->name() + ".", "caption[" + form->caption + "] front[" + form->front + "] focus[" + form->focus + "]");
    for (const Control& control : form->controls())
      if (IsInFront(*form, control)) Put(form->name() + "." + control.name, ControlText(*form, control));
  }
  Put("place.forms", showing);
}

void Observer::LookAtPlace(const std::string& session, const std::string& tree) {
  const Json place = Json::parse(session, nullptr, false);
  path_ = place.value("path", "");
  for (const char* name : {"mode", "editing", "path", "year", "lastMonth", "location", "PD_ID_AK", "SA_ID_AK",
                           "ED_ID_AK", "EA_ID_AK", "nodeStatus", "status"})
    if (place.contains(name)) Put(std::string("place.") + name, place[name].dump());
  const Json list = Json::parse(tree, nullptr, false);
  std::string before;
  for (const Json& node : list.value("nodes", Json::array())) {
    const std::string key = node["key"].get<std::string>();
    Put("tree." + key, node["text"].get<std::string>() + " level " + node["level"].dump() + " expanded " +
                           node["expanded"].dump() + " after[" + before + "]");
    before = key;
  }
}

void Observer::LookAtFiles(const std::vector<std::string>& files) {
  const auto take = [this](const Items& rows) {
    for (const auto& [name, text] : rows) now_[name] = text;
  };
  take(working_.Rows(path_, "row."));
  for (const std::string& file : files) {
    if (file == path_) continue;
    const std::string name = "file." + folders_.Hide(file);
    std::error_code error;
    const bool exists = std::filesystem::exists(file, error);
    Put(name, exists ? "exists" : "is not there");
    if (!exists || !file.ends_with(".mdb")) continue;
    auto& watch = others_[file];
    if (!watch) watch = std::make_unique<FileWatch>();
    take(watch->Rows(file, name + "."));
  }
}

Changes Observer::Look(const Desk& desk, const std::string& session, const std::string& tree,
                       const std::vector<std::string>& files) {
  now_.clear();
  LookAtForms(desk);
  LookAtPlace(session, tree);
  LookAtFiles(files);
  Changes changes;
  for (const auto& [name, text] : now_) {
    const auto before = items_.find(name);
    if (before == items_.end() || before->second != text) changes.changed[name] = text;
  }
  for (const auto& [name, text] : items_)
    if (!now_.contains(name)) changes.gone.insert(name);
  std::swap(items_, now_);
  return changes;
}

}  // namespace merlu::test
