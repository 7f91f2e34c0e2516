// SPDX-License-Identifier: MIT
#include "Table.h"

#include <charconv>

namespace viewer {

std::optional<std::size_t> Table::findColumn(const std::string& name) const {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].name == name)
            return i;
    }
    std::size_t place = 0;
    const char* const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data(), end, place);
    if (error != std::errc() || stop != end || place < 1 || place > columns.size())
        return std::nullopt;
    return place - 1;
}

std::string describeColumn(const Table& table, std::size_t column) {
    const std::string place = "column " + std::to_string(column + 1);
    const std::string& name = table.columns[column].name;
    return name == place ? place : place + " (" + name + ")";
}

} // namespace viewer
