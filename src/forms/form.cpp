#include "forms/form.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "base/text.h"

namespace merlu {

Control& Form::Add(Control control) {
  if (!by_lower_name_.emplace(Lower(control.name), controls_.size()).second)
    throw std::logic_error("two controls named " + control.name + " on " + name_);
  by_name_.emplace(control.name, controls_.size());
  if (control.kind == Kind::kTab) {
    control.page_available.assign(control.items.size(), true);
    control.index = 0;
  }
  return controls_.emplace_back(std::move(control));
}

const Control* Form::Find(std::string_view name) const {
  // the program itself names its controls as they are
  if (const auto found = by_name_.find(name); found != by_name_.end()) return &controls_[found->second];
  const auto found = by_lower_name_.find(Lower(name));
  return found == by_lower_name_.end() ? nullptr : &controls_[found->second];
}

Control* Form::Find(std::string_view name) {
  return const_cast<Control*>(std::as_const(*this).Find(name));
}

const Control& Form::At(std::string_view name) const {
  if (const Control* control = Find(name)) return *control;
  throw std::logic_error("no control " + std::string(name) + " on " + name_);
}

Control& Form::At(std::string_view name) {
  return const_cast<Control&>(std::as_const(*this).At(name));
}

void Form::On(std::string_view control, Event event, std::function<void()> handler) {
  handlers_[{At(control).name, event}] = std::move(handler);
}

bool Form::Handles(std::string_view control, Event event) const {
  return handlers_.contains({At(control).name, event});
}

void Form::Raise(std::string_view control, Event event) {
  const auto found = handlers_.find({At(control).name, event});
  if (found != handlers_.end() && found->second) found->second();
}

void Form::RestoreDesign() {
  for (std::size_t i = 0; i < design_.size(); ++i) static_cast<ControlState&>(controls_[i]) = design_[i];
  focus.clear();
}

void SelectItem(Form& form, std::string_view list, int index) {
  Control& control = form.At(list);
  if (index < 0 || index >= static_cast<int>(control.items.size())) {
    control.index = -1;
    control.text.clear();
    return;
  }
  control.index = index;
  control.text = control.items[static_cast<std::size_t>(index)];
  form.Raise(list, Event::kClick);
}

void SelectText(Form& form, std::string_view list, std::string_view text) {
  Control& control = form.At(list);
  const auto found = std::find(control.items.begin(), control.items.end(), text);
  if (found != control.items.end()) return SelectItem(form, list, static_cast<int>(found - control.items.begin()));
  control.index = -1;
  control.text = control.free_text ? std::string(text) : std::string();
}

namespace {

constexpr std::size_t kLocalNumber = 7, kWholeNumber = 10;  // digits

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string DigitsOf(std::string_view text) {
  std::string digits;
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits), IsDigit);
  return digits;
}

std::string FillPlaces(std::string_view mask, const std::string& digits) {
  std::string shown;
  std::size_t next = 0;
  for (char place : mask) {
    if (place != '#')
      shown += place;
    else
      shown += next < digits.size() ? digits[next++] : '_';
  }
  return shown;
}

std::string WithoutCountry(std::string_view number) {
  std::string digits = DigitsOf(number);
  const bool plus_one = Trim(number).starts_with("+1");
  if (plus_one || (digits.size() == kWholeNumber + 1 && digits.front() == '1')) digits.erase(0, 1);
  return digits;
}

}  // namespace

std::string Masked(std::string_view mask, std::string_view text) {
  const std::size_t extension = mask.find("ext");
  const std::size_t mark = std::min(text.find_first_of("xX#"), text.size());
  const bool has_extension = mark < text.size() && DigitsOf(text.substr(0, mark)).size() >= kLocalNumber;
  if (!has_extension) return FillPlaces(mask, WithoutCountry(text));
  const std::string number = WithoutCountry(text.substr(0, mark));
  if (extension == std::string_view::npos) return FillPlaces(mask, number);
  // a digit typed after a complete number is the first of the extension
  const auto places =
      static_cast<std::size_t>(std::count(mask.begin(), mask.begin() + static_cast<std::ptrdiff_t>(extension), '#'));
  const std::string over = number.size() > places ? number.substr(places) : "";
  return FillPlaces(mask.substr(0, extension), number) +
         FillPlaces(mask.substr(extension), over + DigitsOf(text.substr(mark)));
}

bool FitsMask(std::string_view mask, std::string_view text) {
  return std::equal(mask.begin(), mask.end(), text.begin(), text.end(),
                    [](char place, char c) { return place == '#' ? IsDigit(c) || c == '_' : place == c; });
}

}  // namespace merlu
