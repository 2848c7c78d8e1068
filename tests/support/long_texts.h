// Inventories with long texts in every column, and whether work on them grows no faster than the texts.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace merlu::test {

double ProcessorSeconds();

// Adds a text to each one of the file, but for codes, short keys, and the ID of which a sheet is to be shown.
void FillTexts(const std::string& path, int bytes, const std::string& short_id);

struct Piece {
  std::string what;
  double seconds = 0;
};

// Fills an inventory with texts of that length, works on it, and gives the times of the work's pieces.
using TimedWork = std::function<std::vector<Piece>(int bytes)>;
// Expects that no piece takes much more time than the texts are longer.
void ExpectLinear(const TimedWork& work);

}  // namespace merlu::test
