#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace lumbra {

/// The rows of a picker over numbered items: two lists of equal length, ordered by item.
class HideLists {
public:
    std::vector<std::string> name_hide_str;  ///< the text of each row (UTF-8)
    std::vector<std::int64_t> name_hide_ref; ///< the 0-based item of each row

    /// The first row of item `ref`, or 0 if it has none.
    std::int64_t hideRowForRef(std::int64_t ref) const {
        for (std::size_t row = 0; row < name_hide_ref.size(); ++row)
            if (name_hide_ref[row] == ref)
                return static_cast<std::int64_t>(row);
        return 0;
    }

protected:
    /// Lists the items of `names` for which `isListed(index)` is true.
    template <class Names, class IsListed>
    void rebuild(const Names& names, IsListed isListed) {
        // Rows are overwritten in place, so that a report that changes one name does not reallocate the others.
        name_hide_str.resize(names.size());
        name_hide_ref.resize(names.size());
        std::size_t rows = 0;
        for (std::size_t item = 0; item < names.size(); ++item) {
            if (!isListed(item))
                continue;
            name_hide_str[rows] = names[item];
            name_hide_ref[rows] = static_cast<std::int64_t>(item);
            ++rows;
        }
        name_hide_str.resize(rows);
        name_hide_ref.resize(rows);
    }
};

} // namespace lumbra
