#include "base/number_entry.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "base/numbers.h"
#include "base/text.h"

namespace merlu {
namespace {

constexpr int kDeepest = 100;  // brackets within brackets

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Reads a sum from the left; `at` is the place that is read next.
class Sum {
 public:
  explicit Sum(std::string_view text) : text_(text) {}

  std::optional<double> Value() {
    const double value = Terms(0);
    SkipBlanks();
    if (failed_ || at_ < text_.size() || !std::isfinite(value)) return std::nullopt;
    return value;
  }

 private:
  void SkipBlanks() {
    while (at_ < text_.size() && text_[at_] == ' ') ++at_;
  }
  bool Takes(char c) {
    SkipBlanks();
    if (at_ >= text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }
  double Fail() {
    failed_ = true;
    return 0;
  }

  double Terms(int depth) {
    double value = Factors(depth);
    while (!failed_) {
      if (Takes('+'))
        value += Factors(depth);
      else if (Takes('-'))
        value -= Factors(depth);
      else
        break;
    }
    return value;
  }

  double Factors(int depth) {
    double value = Signed(depth);
    while (!failed_) {
      if (Takes('*')) {
        value *= Signed(depth);
      } else if (Takes('/')) {
        const double by = Signed(depth);
        value = by == 0 ? Fail() : value / by;
      } else {
        break;
      }
    }
    return value;
  }

  double Signed(int depth) {
    bool minus = false;
    for (;;) {
      if (Takes('-'))
        minus = !minus;
      else if (!Takes('+'))
        break;
    }
    const double value = Takes('(') ? Bracket(depth + 1) : Number();
    return minus ? -value : value;
  }

  double Bracket(int depth) {
    if (depth > kDeepest) return Fail();
    const double value = Terms(depth);
    return Takes(')') ? value : Fail();
  }

  double Number() {
    SkipBlanks();
    std::size_t end = at_;
    while (end < text_.size() && (IsDigit(text_[end]) || text_[end] == '.')) ++end;
    const std::string_view digits = text_.substr(at_, end - at_);
    const bool sound =
        std::any_of(digits.begin(), digits.end(), IsDigit) && std::count(digits.begin(), digits.end(), '.') <= 1;
    if (!sound) return Fail();
    at_ = end;
    return LeadingNumber(digits);
  }

  std::string_view text_;
  std::size_t at_ = 0;
  bool failed_ = false;
};

// With plain blanks and a plain minus in the place of the typographic ones.
std::string InAscii(std::string_view text) {
  constexpr std::string_view kBlanks[] = {"\u00A0", "\u202F", "\u2009", "\u2007", "\t"};
  constexpr std::string_view kMinus[] = {"\u2212", "\u2013", "\u2012"};
  std::string plain;
  while (!text.empty()) {
    const auto starts = [&](std::string_view mark) { return text.starts_with(mark); };
    if (const auto* mark = std::find_if(std::begin(kBlanks), std::end(kBlanks), starts); mark != std::end(kBlanks)) {
      plain += ' ';
      text.remove_prefix(mark->size());
    } else if (const auto* dash = std::find_if(std::begin(kMinus), std::end(kMinus), starts);
               dash != std::end(kMinus)) {
      plain += '-';
      text.remove_prefix(dash->size());
    } else {
      plain += text.front();
      text.remove_prefix(1);
    }
  }
  return Trim(plain);
}

}  // namespace

std::string NumberHint(std::string_view text) {
  if (Trim(text).empty()) return "";
  if (!IsNumericText(text)) return "Not a number: will be saved blank";
  const double stored = LeadingNumber(text);
  return stored == WholeNumber(text) ? "" : "Will be saved as " + GeneralNumber(stored);
}

bool IsSum(std::string_view text) {
  return Trim(text).starts_with('=');
}

std::optional<std::string> SumText(std::string_view text) {
  if (!IsSum(text)) return std::nullopt;
  const std::string plain = InAscii(text);
  const std::optional<double> value = Sum(std::string_view(plain).substr(1)).Value();
  if (!value) return std::nullopt;
  return GeneralNumber(*value);
}

}  // namespace merlu
