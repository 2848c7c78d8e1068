// Reading numbers from what users type, and printing them.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "base/numbers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace merlu;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const double leading = LeadingNumber(text), whole = WholeNumber(text);
  if (!std::isfinite(leading) || !std::isfinite(whole)) std::abort();
  if (IsNumericText(text) && !IsNumericText(GeneralNumber(whole))) std::abort();
  // what is printed reads back as what was read, to the digits that are printed
  const double again = LeadingNumber(GeneralNumber(leading));
  if (std::abs(again - leading) > std::abs(leading) * 1e-13) std::abort();
  if (size >= sizeof(double)) {
    double any = 0;
    std::memcpy(&any, data, sizeof any);
    if (std::isfinite(any)) LeadingNumber(GeneralNumber(any));
    GeneralNumber(static_cast<float>(leading));
    RoundHalfToEven(any);
  }
  return 0;
}
