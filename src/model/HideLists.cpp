#include "model/HideLists.h"

#include <algorithm>

namespace lumbra {

std::vector<std::string> defaultNames(std::int64_t size, const std::string& kind) {
    std::vector<std::string> names;
    for (std::int64_t number = 1; number <= size; ++number)
        names.push_back(kind + " " + std::to_string(number));
    return names;
}

HideLists::HideLists(std::int64_t size, const std::string& kind) : name(defaultNames(size, kind)) {
    rebuildHideLists(); // lists all: no derived class is there yet to be asked
}

void HideLists::rebuildHideLists() {
    // Rows are overwritten in place, so that a report that changes one name does not reallocate the others.
    name_hide_str.resize(name.size());
    name_hide_ref.resize(name.size());
    std::size_t rows = 0;
    for (std::size_t item = 0; item < name.size(); ++item) {
        if (!isListed(item))
            continue;
        name_hide_str[rows] = name[item];
        name_hide_ref[rows] = static_cast<std::int64_t>(item);
        ++rows;
    }
    name_hide_str.resize(rows);
    name_hide_ref.resize(rows);
}

std::int64_t HideLists::hideRowForRef(std::int64_t ref) const {
    const auto found = std::find(name_hide_ref.begin(), name_hide_ref.end(), ref);
    return found == name_hide_ref.end() ? 0 : found - name_hide_ref.begin();
}

} // namespace lumbra
