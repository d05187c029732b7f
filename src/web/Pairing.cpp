#include "web/Pairing.h"

#include <QRandomGenerator>

#include <chrono>
#include <utility>

namespace lumbra::web {

namespace {

/// In two groups of four: easier to read and to type.
std::string randomCode() {
    auto digits = std::to_string(100'000'000 + QRandomGenerator::system()->bounded(100'000'000)).substr(1);
    return digits.insert(4, 1, ' ');
}

} // namespace

Pairing::Pairing(MainQueue& queue, TokenKey& key, std::function<void()> newCode)
    : queue_(queue), key_(key), newCode_(std::move(newCode)), code_(randomCode()) {}

std::variant<Pairing::Token, Pairing::Refusal> Pairing::pair(std::string_view code) {
    if (wrongLately_ >= WRONG_CODES_A_MINUTE)
        return Refusal{"too many wrong codes; try again in a minute"};
    if (isEqualInConstantTime(code, std::string(code_).erase(4, 1))) {
        Token token{key_.makeToken()};
        changeCode();
        return token;
    }
    ++wrongLately_;
    queue_.postAfter(std::chrono::minutes(1), life_.guard([this] { --wrongLately_; }));
    if (++wrong_ >= WRONG_CODES)
        changeCode();
    return Refusal{"this is not the code; it is shown where the program runs, and on phones that are paired"};
}

void Pairing::changeCode() {
    code_ = randomCode();
    wrong_ = 0;
    newCode_();
}

} // namespace lumbra::web
