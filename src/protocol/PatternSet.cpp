#include "protocol/PatternSet.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace lumbra {

namespace {

constexpr std::size_t FAMILY_CODE_AT = 2; ///< behind "U" and the unit's digit

/// What all of `tails` begin with, up to the end of a group: a part that can stand before their alternation.
std::string_view sharedHead(const std::vector<std::string_view>& tails) {
    auto head = tails.front();
    for (const auto tail : tails) {
        const auto differs = std::mismatch(head.begin(), head.end(), tail.begin(), tail.end()).first;
        head = head.substr(0, static_cast<std::size_t>(differs - head.begin()));
    }
    const auto group = head.rfind(')');
    return group == std::string_view::npos ? std::string_view() : head.substr(0, group + 1);
}

} // namespace

/// The patterns with the same letter behind the unit's digit, as one. A text has one such letter, so no other
/// pattern can match it, and the order among these is the order of the table.
struct PatternSet::Family {
    char letter = 0;
    std::vector<std::string_view> tails; ///< what follows the common prefix
    std::vector<int> rows;
    pcre2_code* code = nullptr;
    bool jit = false;

    void compile();
};

struct PatternSet::Compiled {
    std::vector<Family> families;
    pcre2_match_data* match = nullptr;

    ~Compiled() {
        pcre2_match_data_free(match);
        for (const auto& family : families)
            pcre2_code_free(family.code);
    }
};

void PatternSet::Release::operator()(Compiled* compiled) const {
    delete compiled;
}

void PatternSet::Family::compile() {
    // One alternation, each branch ending in a mark that tells which one it was. "(?|" numbers the groups of
    // every branch alike, so group 3 is group 3 in all of them.
    const auto head = sharedHead(tails);
    std::string all = std::string(UNIT_PREFIX) + std::string(head) + "(?|";
    for (std::size_t index = 0; index < tails.size(); ++index) {
        all += index == 0 ? "" : "|";
        all += tails[index].substr(head.size());
        all += "(*MARK:";
        all += static_cast<char>('A' + rows[index]);
        all += ")";
    }
    all += ")";

    auto* context = pcre2_compile_context_create(nullptr);
    pcre2_set_newline(context, PCRE2_NEWLINE_ANYCRLF);
    int error = 0;
    PCRE2_SIZE offset = 0;
    code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(all.data()), all.size(), 0, &error, &offset, context);
    pcre2_compile_context_free(context);
    if (!code)
        std::abort();
    // Where the processor has no just-in-time compiler, the interpreter serves.
    jit = pcre2_jit_compile(code, PCRE2_JIT_COMPLETE) == 0;
}

PatternSet::PatternSet(std::span<const std::string_view> patterns) : compiled_(new Compiled) {
    auto& families = compiled_->families;
    for (std::size_t row = 0; row < patterns.size(); ++row) {
        assert(patterns[row].starts_with(UNIT_PREFIX));
        const auto tail = patterns[row].substr(UNIT_PREFIX.size());
        auto family = std::find_if(families.begin(), families.end(),
                                   [&](const Family& known) { return known.letter == tail.front(); });
        if (family == families.end()) {
            family = families.insert(families.end(), Family{});
            family->letter = tail.front();
        }
        family->tails.push_back(tail);
        family->rows.push_back(static_cast<int>(row));
    }
    for (auto& family : families)
        family.compile();
    compiled_->match = pcre2_match_data_create(MAX_GROUPS + 1, nullptr);
}

PatternSet::Match PatternSet::match(std::string_view text) const {
    const Match none{-1, Captures(text, {})};
    if (text.size() <= FAMILY_CODE_AT)
        return none;
    const auto& families = compiled_->families;
    const auto family = std::find_if(families.begin(), families.end(), [&](const Family& candidate) {
        return candidate.letter == text[FAMILY_CODE_AT];
    });
    if (family == families.end())
        return none;
    const auto* subject = reinterpret_cast<PCRE2_SPTR>(text.data());
    const int groups =
        family->jit ? pcre2_jit_match(family->code, subject, text.size(), 0, 0, compiled_->match, nullptr)
                    : pcre2_match(family->code, subject, text.size(), 0, 0, compiled_->match, nullptr);
    if (groups <= 0)
        return none;
    const auto mark = static_cast<char>(*pcre2_get_mark(compiled_->match));
    const std::size_t* offsets = pcre2_get_ovector_pointer(compiled_->match);
    return {mark - 'A', Captures(text, std::span(offsets, 2 * static_cast<std::size_t>(groups)))};
}

} // namespace lumbra
