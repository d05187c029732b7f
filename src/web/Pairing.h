#pragma once

#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "web/TokenKey.h"

#include <functional>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra::web {

/// Lets browsers in: one that shows the code once gets a token, and from then on shows that. Main thread only.
class Pairing {
public:
    /// This many wrong codes a minute are answered; any more are refused without a look at them.
    static constexpr int WRONG_CODES_A_MINUTE = 5;
    /// After this many wrong codes there is a new one.
    static constexpr int WRONG_CODES = 10;

    struct Token {
        std::string text;
    };
    struct Refusal {
        std::string error; ///< a sentence for the user
    };

    /// `newCode` is called for each new code but the first one. `queue` and `key` outlive this object.
    Pairing(MainQueue& queue, TokenKey& key, std::function<void()> newCode);

    /// The code: 8 digits, in two groups.
    const std::string& code() const { return code_; }
    /// Pairs a browser that shows the code, in digits alone. It is good for one; then there is a new one.
    std::variant<Token, Refusal> pair(std::string_view code);
    bool isPaired(std::string_view token) { return key_.isToken(token); }

private:
    void changeCode();

    MainQueue& queue_;
    TokenKey& key_;
    std::function<void()> newCode_;
    std::string code_;
    int wrong_ = 0;       ///< for this code
    int wrongLately_ = 0; ///< in the last minute
    Lifetime life_;
};

} // namespace lumbra::web
