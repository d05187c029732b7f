#include "web/HeaderText.h"

#include <algorithm>

namespace lumbra::web {

namespace {

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Calls `isFound` with each element of a list until it returns true. Whether it has.
template <class Test>
bool anyOf(std::string_view list, char separator, Test isFound) {
    for (;;) {
        const auto end = list.find(separator);
        if (isFound(trimmed(list.substr(0, end))))
            return true;
        if (end == std::string_view::npos)
            return false;
        list.remove_prefix(end + 1);
    }
}

/// True for "q=0", "q=0.00" ...
bool isRefusal(std::string_view parameter) {
    return parameter.size() >= 3 && isSameText(parameter.substr(0, 2), "q=") &&
           parameter.find_first_not_of("0.", 2) == std::string_view::npos;
}

} // namespace

std::string_view trimmed(std::string_view text) {
    const auto begin = text.find_first_not_of(" \t");
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
}

std::string lowerCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lowered);
    return result;
}

bool isSameText(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return lowered(left) == lowered(right); });
}

bool hasListed(std::string_view list, std::string_view name) {
    return anyOf(list, ',', [name](std::string_view element) { return isSameText(element, name); });
}

bool acceptsCoding(std::string_view field, std::string_view coding) {
    return anyOf(field, ',', [coding](std::string_view element) {
        return isSameText(trimmed(element.substr(0, element.find(';'))), coding) &&
               !anyOf(element, ';', isRefusal);
    });
}

} // namespace lumbra::web
