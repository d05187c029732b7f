#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace lumbra {

/// The names of numbered things of the unit, and the rows of a picker over them: two lists of equal length,
/// ordered by number. Number n on the wire is index n - 1.
class HideLists {
public:
    std::vector<std::string> name;           ///< by index (UTF-8)
    std::vector<std::string> name_hide_str;  ///< the text of each row (UTF-8)
    std::vector<std::int64_t> name_hide_ref; ///< the index of each row

    virtual ~HideLists() = default;

    /// Rebuilds the rows from `name`.
    void rebuildHideLists();
    /// The first row of index `ref`, or 0 if it has none.
    std::int64_t hideRowForRef(std::int64_t ref) const;

protected:
    /// The names are KIND 1, KIND 2 and so on, and all are listed, whatever `isListed` says of them.
    HideLists(std::int64_t size, const std::string& kind);

    virtual bool isListed(std::size_t) const { return true; }
};

/// KIND 1, KIND 2 and so on: the names before the unit has reported any.
std::vector<std::string> defaultNames(std::int64_t size, const std::string& kind);

} // namespace lumbra
