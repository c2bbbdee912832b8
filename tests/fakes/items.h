// Rows of a comparison, made and shown in one line each.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "compare/compare_table.h"
#include "platform/paths.h"

namespace fakes {

// A row of the roots' own file `name` (a literal: the row points to it), without times and sizes.
inline compare::CompareItem Item(const compare::FolderPair& folder, const char* name,
                                 std::int16_t code) {
    compare::CompareItem item;
    item.Folder = &folder;
    item.Name = name;
    item.NameLength = static_cast<std::uint16_t>(std::strlen(name));
    item.Code = code;
    return item;
}

// "11 sub/a" for every row.
inline std::vector<std::string> Rows(const compare::ItemList& list) {
    std::vector<std::string> rows;
    for (const compare::CompareItem& item : list) {
        std::string& row = rows.emplace_back(std::to_string(item.Code) + ' ' + item.RelativePath());
        std::replace(row.begin(), row.end(), platform::Separator, '/');
    }
    return rows;
}

}  // namespace fakes
