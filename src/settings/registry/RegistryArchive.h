#pragma once
// Collections stored as binary registry values in the byte layout of the Windows
// framework's archives (a count, then the elements; texts as UTF-16 with a length
// marker), so a value written here reads back in the Windows build and the other way round.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ardo {

std::string storeArchive(const std::vector<std::string>& texts);
std::string storeArchive(const std::vector<std::uint32_t>& numbers);
// None when the bytes are not such an archive (cut short, or bytes left over).
std::optional<std::vector<std::string>> loadTextArchive(std::string_view bytes);
std::optional<std::vector<std::uint32_t>> loadNumberArchive(std::string_view bytes);

}  // namespace ardo
