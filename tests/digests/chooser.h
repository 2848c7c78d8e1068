// Chooses acts from a seed, as commands of a script: whole tasks of the daily work, and mistakes between them.
#pragma once

#include <deque>
#include <random>
#include <string>
#include <vector>

#include "session/session.h"

namespace merlu::test {

class Chooser {
 public:
  // `type` is the equipment type that this chooser likes best.
  Chooser(std::uint32_t seed, std::string type) : random_(seed), type_(std::move(type)) {}

  std::string Next(Session& s);

 private:
  int Below(std::size_t count) { return static_cast<int>(random_() % count); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <typename T>
  const T& OneOf(const std::vector<T>& list) {
    return list[static_cast<std::size_t>(Below(list.size()))];
  }

  std::string OutsideEdit(Session& s);
  std::string InEdit(Session& s);
  std::string InDialog(Session& s, Form& dialog);
  std::string Task(Session& s);
  void Delete(Session& s);
  void Exchange();
  std::string Comment(Session& s);
  std::string Anything(Session& s);

  std::string SelectNode(Session& s);
  std::string FillIn(Session& s, Form& form);
  std::string Turn(Session& s, Form& form);
  std::string Value(const Control& control);
  // Queues the commands and returns the first one.
  std::string Then(std::vector<std::string> commands);

  std::mt19937 random_;
  std::string type_;
  std::deque<std::string> queue_;
  int equipment_ = 0;
};

}  // namespace merlu::test
