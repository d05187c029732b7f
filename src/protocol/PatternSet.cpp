#include "protocol/PatternSet.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <cstdlib>
#include <string>

namespace lumbra {

struct PatternSet::Compiled {
    pcre2_code* code = nullptr;
    pcre2_match_data* match = nullptr;
    bool jit = false;

    ~Compiled() {
        pcre2_match_data_free(match);
        pcre2_code_free(code);
    }
};

void PatternSet::Release::operator()(Compiled* compiled) const {
    delete compiled;
}

PatternSet::PatternSet(std::span<const std::string_view> patterns) : compiled_(new Compiled) {
    // One alternation behind the common prefix, each branch ending in a mark that tells which one it was.
    // "(?|" numbers the groups of every branch alike, so group 2 is group 2 in all of them.
    std::string all = std::string(UNIT_PREFIX) + "(?|";
    for (std::size_t index = 0; index < patterns.size(); ++index) {
        assert(patterns[index].starts_with(UNIT_PREFIX));
        all += index == 0 ? "" : "|";
        all += patterns[index].substr(UNIT_PREFIX.size());
        all += "(*MARK:";
        all += static_cast<char>('A' + index);
        all += ")";
    }
    all += ")";

    auto* context = pcre2_compile_context_create(nullptr);
    pcre2_set_newline(context, PCRE2_NEWLINE_ANYCRLF);
    int error = 0;
    PCRE2_SIZE offset = 0;
    compiled_->code =
        pcre2_compile(reinterpret_cast<PCRE2_SPTR>(all.data()), all.size(), 0, &error, &offset, context);
    pcre2_compile_context_free(context);
    if (!compiled_->code)
        std::abort();
    // Where the processor has no just-in-time compiler, the interpreter serves.
    compiled_->jit = pcre2_jit_compile(compiled_->code, PCRE2_JIT_COMPLETE) == 0;
    compiled_->match = pcre2_match_data_create_from_pattern(compiled_->code, nullptr);
}

PatternSet::Match PatternSet::match(std::string_view text) const {
    const auto* subject = reinterpret_cast<PCRE2_SPTR>(text.data());
    const int groups =
        compiled_->jit
            ? pcre2_jit_match(compiled_->code, subject, text.size(), 0, 0, compiled_->match, nullptr)
            : pcre2_match(compiled_->code, subject, text.size(), 0, 0, compiled_->match, nullptr);
    if (groups <= 0)
        return {-1, Captures(text, {})};
    const auto mark = static_cast<char>(*pcre2_get_mark(compiled_->match));
    const std::size_t* offsets = pcre2_get_ovector_pointer(compiled_->match);
    return {mark - 'A', Captures(text, std::span(offsets, 2 * static_cast<std::size_t>(groups)))};
}

} // namespace lumbra
