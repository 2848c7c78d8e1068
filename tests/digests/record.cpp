#include "digests/record.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace merlu::test {
namespace {

constexpr const char* kHead = "merlu-digests 1";

std::uint64_t Hash(const std::string& name, const std::string& text) {
  std::uint64_t hash = 14695981039346656037U;
  const auto add = [&hash](const std::string& bytes) {
    for (char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    hash *= 1099511628211U;
  };
  add(name);
  add(text);
  return hash;
}

std::size_t KindOf(const std::string& item) {
  if (item.starts_with("row.") || item.starts_with("file.")) return 1;
  if (item.starts_with("place.") || item.starts_with("tree.")) return 2;
  return 0;
}

std::string DigestText(const Digests& digests) {
  char text[40];
  std::snprintf(text, sizeof text, "%04x%04x%04x%04x", digests[0], digests[1], digests[2], digests[3]);
  return text;
}

Digests ReadDigests(const std::string& text) {
  Digests digests{};
  for (std::size_t i = 0; i < digests.size(); ++i)
    digests[i] = static_cast<std::uint32_t>(std::stoul(text.substr(i * 4, 4), nullptr, 16));
  return digests;
}

void WriteAct(std::ostream& out, const RecordedAct& act, bool whole) {
  out << "A " << act.act << "\n";
  if (whole) {
    out << "R " << Escaped(act.reply) << "\n";
    for (const auto& [name, text] : act.changes.changed) out << "+ " << Escaped(name) << "\t" << Escaped(text) << "\n";
    for (const std::string& name : act.changes.gone) out << "- " << Escaped(name) << "\n";
  }
  if (act.has_digests) out << "= " << DigestText(act.digests) << "\n";
}

void ReadLine(Record& record, const std::string& line) {
  const std::string rest = line.size() > 2 ? line.substr(2) : "";
  const auto act = [&record]() -> RecordedAct& { return record.chapters.at(record.chapters.size() - 1).acts.back(); };
  switch (line[0]) {
    case 'S': record.seed = static_cast<std::uint32_t>(std::stoul(rest)); break;
    case 'W': record.whole = rest == "whole"; break;
    case 'K': record.controls.insert(rest); break;
    case 'C': record.chapters.push_back({std::stoi(rest), {}}); break;
    case 'A':
      record.chapters.at(record.chapters.size() - 1).acts.emplace_back();
      act().act = rest;
      break;
    case 'R': act().reply = Unescaped(rest); break;
    case '+': {
      const auto tab = rest.find('\t');
      act().changes.changed[Unescaped(rest.substr(0, tab))] = Unescaped(rest.substr(tab + 1));
      break;
    }
    case '-': act().changes.gone.insert(Unescaped(rest)); break;
    case '=':
      act().digests = ReadDigests(rest);
      act().has_digests = true;
      break;
    default: throw std::runtime_error("a record does not have the line " + line);
  }
}

}  // namespace

bool IsControl(const std::string& item) {
  return KindOf(item) == 0;
}

void Digester::Take(const Changes& changes, const std::string& reply) {
  const auto put = [this](const std::string& name, std::uint64_t hash) {
    if (known_ != nullptr && IsControl(name) && !known_->contains(name)) return;
    std::uint64_t& at = items_[name];
    sums_[KindOf(name)] += hash - at;
    at = hash;
  };
  for (const auto& [name, text] : changes.changed) put(name, Hash(name, text));
  for (const std::string& name : changes.gone) put(name, 0);
  sums_[3] = Hash(std::to_string(sums_[3]), reply);  // of all replies so far
}

Digests Digester::Now() const {
  Digests digests{};
  for (std::size_t i = 0; i < digests.size(); ++i)
    digests[i] = static_cast<std::uint32_t>((sums_[i] ^ sums_[i] >> 16 ^ sums_[i] >> 32 ^ sums_[i] >> 48) & 0xFFFF);
  return digests;
}

Record ReadRecord(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string line;
  if (!std::getline(in, line) || line != kHead) throw std::runtime_error(path + " is no record");
  Record record;
  while (std::getline(in, line))
    if (!line.empty()) ReadLine(record, line);
  return record;
}

void WriteRecord(const Record& record, const std::string& path) {
  std::ofstream out(path, std::ios::binary);
  out << kHead << "\nS " << record.seed << "\nW " << (record.whole ? "whole" : "folded") << "\n";
  for (const std::string& control : record.controls) out << "K " << control << "\n";
  for (const RecordedChapter& chapter : record.chapters) {
    out << "C " << chapter.number << "\n";
    for (const RecordedAct& act : chapter.acts) WriteAct(out, act, record.whole);
  }
  out.flush();
  if (!out) throw std::runtime_error("cannot write " + path);
}

}  // namespace merlu::test
