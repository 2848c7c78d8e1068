// The standard library's large headers, compiled once for every target of the build. Files include what they
// use all the same: a build without precompiled headers (-DMERLU_PCH=OFF) must pass too.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>
