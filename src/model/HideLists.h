#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace lumbra {

/// The rows of a picker over numbered items: two lists of equal length, in ascending order of the items.
class HideLists {
public:
    std::vector<std::string> name_hide_str;  ///< the text of each row (UTF-8)
    std::vector<std::int64_t> name_hide_ref; ///< for each row the 0-based item that it stands for

    /// The first row that stands for item `ref`; 0 where there is none.
    std::int64_t hideRowForRef(std::int64_t ref) const {
        for (std::size_t row = 0; row < name_hide_ref.size(); ++row)
            if (name_hide_ref[row] == ref)
                return static_cast<std::int64_t>(row);
        return 0;
    }

protected:
    /// Lists every item of `names` that `isListed(index)` lets through.
    template <class Names, class IsListed>
    void rebuild(const Names& names, IsListed isListed) {
        std::size_t rows = 0;
        for (std::size_t item = 0; item < names.size(); ++item) {
            if (!isListed(item))
                continue;
            // Rows are overwritten in place: a report that changes one name need not allocate the others
            // anew.
            if (rows == name_hide_str.size()) {
                name_hide_str.emplace_back();
                name_hide_ref.emplace_back();
            }
            name_hide_str[rows] = names[item];
            name_hide_ref[rows] = static_cast<std::int64_t>(item);
            ++rows;
        }
        name_hide_str.resize(rows);
        name_hide_ref.resize(rows);
    }
};

} // namespace lumbra
