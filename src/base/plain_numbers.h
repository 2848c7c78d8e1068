// Numbers with a decimal point, whatever the user's locale: for libraries that write files with printf.
#pragma once

#include <locale.h>

namespace merlu {

// The numbers of this thread are those of the C locale for as long as this lives.
class PlainNumbers {
 public:
  PlainNumbers() : plain_(::newlocale(LC_ALL_MASK, "C", nullptr)), before_(::uselocale(plain_)) {}
  ~PlainNumbers() {
    ::uselocale(before_);
    ::freelocale(plain_);
  }
  PlainNumbers(const PlainNumbers&) = delete;
  PlainNumbers& operator=(const PlainNumbers&) = delete;

 private:
  locale_t plain_, before_;
};

}  // namespace merlu
